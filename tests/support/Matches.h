// SPDX-License-Identifier: Apache-2.0
//
// Regular expressions, in a unit of their own: <regex> takes each unit that includes it seconds to
// compile.
#pragma once

#include <string>

// Whether all of `text` is what `pattern` (of ECMAScript's kind) stands for.
bool Matches(const std::string &text, const std::string &pattern);
