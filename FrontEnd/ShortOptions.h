// SPDX-License-Identifier: Apache-2.0
//
// The short options: one name for what the print dialog needs many keys for. Their rows stand in
// ShortOptions.def; PPDs offer the same options with the same choices.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "FrontEnd/CompletedTicket.h"

// What an option takes beside its choices.
enum class OwnValue {
    None,    // nothing
    Text,    // text of `least` to `most` bytes
    Name,    // the same, of a person or a document
    Secret,  // the same, a password
    Whole,   // whole number from `least` to `most`
};

// What one choice becomes: "Key=Text Key=Text", the keys without the prefix that they share.
struct ShortOptionKeys {
    const char *choice;  // "*": a value of one's own, which "%" stands for in the keys
    const char *keys;
};

struct ShortOption {
    const char *name;
    const char *choices;  // blanks between; the first one is what the option is when not given
    OwnValue own;
    int least, most;
    ShortOptionKeys becomes[4];  // ended by a null choice where there are fewer; none: by code
    const char *meaning;         // in words, for people
    const char *example;         // of its use, as lp's -o takes it
};

extern const ShortOption kShortOptions[];
extern const std::size_t kShortOptionCount;

// The row of that name, compared without case, or null.
const ShortOption *FindShortOption(std::string_view name);

// Whether the row allows `value`. Stores it as the row spells it: one of the choices, or a value of
// one's own without "Custom.".
bool UnderstandShortOption(const ShortOption &row, std::string_view value, std::string &understood);

// What of its values messages may not show.
Discretion DiscretionOf(const ShortOption &row);

// What the row allows, in words: "Default, Off or a number from 1 to 99".
std::string AllowedValues(const ShortOption &row);

// The keys that the row has for a value that it allows, or null.
const char *ShortOptionKeysOf(const ShortOption &row, std::string_view value);
