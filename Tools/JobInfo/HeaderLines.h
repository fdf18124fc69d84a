// SPDX-License-Identifier: Apache-2.0
//
// The lines of a header as the filter wrote them. A command whose value is missing, or that is
// longer than the filter's buffer, has no line end: the next one follows at once. The printer takes
// both for one line; here they are told apart.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "Tools/JobInfo/DecodedJob.h"

// Cuts `piece`, up to and with a line end or where the input ends, into the commands in it. All but
// the last are partial; the last is if it has no line end.
std::vector<JobLine> CutHeaderLines(std::string_view piece, std::uint64_t offset);

// Whether a partial line is as long as a line can get.
bool IsCutAtLimit(const JobLine &line);
