// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/ShortOptions.h"

#include <algorithm>
#include <charconv>
#include <iterator>

#include "FrontEnd/OptionString.h"

using enum OwnValue;

// clang-format off
#define KV_KEYS(...)          {__VA_ARGS__}
#define KV_FUNCTION(function) {}
#define KV_ELSEWHERE          {}
#define KV_SHORT_OPTION(name, choices, own, least, most, becomes, meaning, example) \
    {name, choices, own, least, most, becomes, meaning, example},
const ShortOption kShortOptions[] = {
#include "FrontEnd/ShortOptions.def"
};
// clang-format on
const std::size_t kShortOptionCount = std::size(kShortOptions);

namespace {

bool UnderstandOwnValue(const ShortOption &row, std::string_view value) {
    if (row.own == None) return false;
    const int length = static_cast<int>(std::min<std::size_t>(value.size(), 4096));
    // What is too long is for AddText: it knows how many bytes the letters take on the printer.
    if (row.own != Whole) return length >= row.least;
    int number = 0;
    const char *end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    return error == std::errc() && stop == end && number >= row.least && number <= row.most;
}

}  // namespace

const ShortOption *FindShortOption(std::string_view name) {
    const ShortOption *end = kShortOptions + kShortOptionCount;
    const ShortOption *row = std::find_if(
        kShortOptions, end, [&](const ShortOption &option) { return SameName(option.name, name); });
    return row == end ? nullptr : row;
}

bool UnderstandShortOption(const ShortOption &row, std::string_view value,
                           std::string &understood) {
    std::string_view choices = row.choices;
    for (std::string_view choice; !(choice = NextWord(choices)).empty();) {
        if (!SameName(choice, value)) continue;
        understood = choice;
        return true;
    }
    if (IsCustomChoice(value)) value.remove_prefix(kCustomChoice.size());
    if (!UnderstandOwnValue(row, value)) return false;
    understood = value;
    return true;
}

Discretion DiscretionOf(const ShortOption &row) {
    return row.own == Secret ? Discretion::Password
           : row.own == Name ? Discretion::Name
                             : Discretion::Open;
}

std::string AllowedValues(const ShortOption &row) {
    std::string allowed;
    std::string_view choices = row.choices;
    for (std::string_view choice; !(choice = NextWord(choices)).empty();) {
        allowed.append(allowed.empty() ? "" : ", ").append(choice);
    }
    if (row.own == None) return allowed;
    if (row.own == Whole) {
        return allowed + ", a number from " + std::to_string(row.least) + " to " +
               std::to_string(row.most);
    }
    return allowed + ", a text of at most " + std::to_string(row.most) + " bytes";
}

const char *ShortOptionKeysOf(const ShortOption &row, std::string_view value) {
    const char *own = nullptr;
    for (const ShortOptionKeys &becomes : row.becomes) {
        if (!becomes.choice) break;
        if (becomes.choice == value) return becomes.keys;
        if (std::string_view(becomes.choice) == "*") own = becomes.keys;
    }
    return own;
}
