// SPDX-License-Identifier: Apache-2.0
//
// What a job tells the printer, line by line, and what differs between two jobs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Tools/JobInfo/DecodedJob.h"

// One thing that a job tells the printer: a line of its header, a special page, or PostScript of
// the filter's own in its document.
struct Effect {
    std::string line;     // as bytes, without its end
    std::string meaning;  // in words
    bool operator==(const Effect &) const = default;
};

// All that the job in `output` tells the printer, in order.
std::vector<Effect> EffectsOf(std::string_view output);

// What `effects` holds more often than `others` does.
std::vector<Effect> Missing(const std::vector<Effect> &effects, std::vector<Effect> others);
