// SPDX-License-Identifier: Apache-2.0
//
// What the vectorised searches look for. A further search is a row here and a row in LineSearch.
#pragma once

#include <cstddef>
#include <string_view>
#include <utility>

#include "CommonSource/FilterFrame/Source/LineSearch.h"
#include "Tables/SpecialLines.h"

// Bytes that stand side by side; '\n' means either line end. The search stops at the last one.
struct Pattern {
    std::size_t size = 0;
    char bytes[kLookBack + 1] = {};

    template <std::size_t textSize>
    consteval Pattern(const char (&text)[textSize])
        : Pattern(std::string_view(text, textSize - 1)) {}
    consteval Pattern(std::string_view text) : size(text.size()) {
        for (std::size_t i = 0; i < size; i++) bytes[i] = text[i];
    }
};

// Any of the patterns.
template <Pattern... patterns>
struct Patterns {};

// A line end after any of the patterns, which then have two bytes at most.
template <Pattern... patterns>
struct LineEndAfter {};

template <std::size_t... i>
LineEndAfter<Pattern(specialLines[i].text.substr(specialLines[i].text.size() - 2))...>
    LineEndAfterLastTwoBytes(std::index_sequence<i...>);

using LineEnd = Patterns<"\n">;
using SpecialLineEnd =
    decltype(LineEndAfterLastTwoBytes(std::make_index_sequence<std::size(specialLines)>()));
// In the first line of PPD feature code, in names of the printer's screen and colour-rendering
// settings.
using FeatureOrSettingsSign = Patterns<"%%B", "SCR", "CPR">;
// Where a structuring comment begins; what may be the end of a printer language (UEL).
using CommentOrLanguageEnd = Patterns<"\n%%", "\x1b%">;
