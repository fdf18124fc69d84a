// SPDX-License-Identifier: Apache-2.0
#include "support/Matches.h"

#include <map>
#include <regex>

bool Matches(const std::string &text, const std::string &pattern) {
    static std::map<std::string, std::regex> compiled;
    return std::regex_match(text, compiled.try_emplace(pattern, pattern).first->second);
}
