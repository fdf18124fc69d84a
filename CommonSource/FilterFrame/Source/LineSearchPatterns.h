// SPDX-License-Identifier: Apache-2.0
//
// What the vectorised searches look for. A further search is a row here and a row in LineSearch.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <utility>

#include "Tables/SpecialLines.h"

// Bytes of the longest pattern in front of its last byte: how far a search looks back.
constexpr std::size_t kLookBack = 2;

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

constexpr bool IsComment(const SpecialLine &line) {
    return line.text.starts_with("%%");
}

// The last two bytes of the special lines, or of those that are no comments.
template <bool comments>
constexpr auto LastTwoBytes() {
    constexpr auto isWanted = [](const SpecialLine &line) { return comments || !IsComment(line); };
    std::array<std::string_view, std::ranges::count_if(specialLines, isWanted)> ends;
    auto end = ends.begin();
    for (const SpecialLine &line : specialLines) {
        if (isWanted(line)) *end++ = line.text.substr(line.text.size() - 2);
    }
    return ends;
}

template <bool comments, std::size_t... i>
LineEndAfter<Pattern(LastTwoBytes<comments>()[i])...> AfterLastTwoBytes(std::index_sequence<i...>);

template <bool comments>
using SpecialLineEndOf = decltype(AfterLastTwoBytes<comments>(
    std::make_index_sequence<LastTwoBytes<comments>().size()>()));

using LineEnd = Patterns<"\n">;
using SpecialLineEnd = SpecialLineEndOf<true>;
// In names of the printer's screen and colour-rendering settings.
using SettingsSign = Patterns<"SCR", "CPR">;
// In the first line of PPD feature code.
using FeatureSign = Patterns<"%%B">;
// In comments, special lines and feature code among them, and in the end of a printer language
// (ESC "%-12345X").
using CommentSign = Patterns<"%%", "%-">;
using OtherSpecialLineEnd = SpecialLineEndOf<false>;
