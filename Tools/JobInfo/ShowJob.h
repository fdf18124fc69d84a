// SPDX-License-Identifier: Apache-2.0
//
// A job that was taken apart, as people and as programs read it. Passwords and keys are asterisks
// unless `showSecrets`.
#pragma once

#include <string>
#include <string_view>

#include "Tools/JobInfo/DecodedJob.h"
#include "Tools/JobInfo/Terminal.h"

// `name` is what the input is called: a file's name.
std::string JobAsText(const DecodedJob &job, std::string_view name, bool showSecrets,
                      const Terminal &terminal);

// One JSON object, indented, with a line feed at its end.
std::string JobAsJSON(const DecodedJob &job, std::string_view name, bool showSecrets);
