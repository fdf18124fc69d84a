// SPDX-License-Identifier: Apache-2.0
//
// What the vectorised searches look for. A further search is a row here and a row in LineSearch.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "Tables/SpecialLines.h"

// Bytes of the longest pattern in front of its last byte: how far a search looks back.
constexpr std::size_t kLookBack = 2;

// Bytes that stand side by side; '\n' means either line end. The search stops at the last one.
struct Pattern {
    std::size_t size = 0;
    char bytes[kLookBack + 1] = {};

    constexpr Pattern() = default;
    template <std::size_t textSize>
    constexpr Pattern(const char (&text)[textSize]) : size(textSize - 1) {
        for (std::size_t i = 0; i < size; i++) bytes[i] = text[i];
    }
    // The line end after a line that ends in two bytes.
    constexpr explicit Pattern(const SpecialLine &line) : size(3) {
        const std::string_view end = line.text.substr(line.text.size() - 2);
        bytes[0] = end[0];
        bytes[1] = end[1];
        bytes[2] = '\n';
    }
};

// Any of the patterns.
template <Pattern... patterns>
struct Patterns {};

template <Pattern... some, Pattern... more>
Patterns<some..., more...> operator+(Patterns<some...>, Patterns<more...>);

// A look-up of bytes by their low halves.
struct Rows {
    alignas(16) std::uint8_t entries[16] = {};

    constexpr std::uint8_t &Of(char byte) { return entries[byte & 15]; }
};

// Bytes with different low halves, each in its row. The other rows hold a byte of another row.
struct ByteSet {
    std::size_t size = 0;
    std::uint8_t last = 0;  // that was added
    Rows rows{{1}};

    // False if another byte has that row.
    constexpr bool Add(char byte) {
        std::uint8_t &row = rows.Of(byte);
        const auto added = static_cast<std::uint8_t>(byte);
        if (row != added) {
            if ((row & 15) == (added & 15)) return false;
            row = last = added;
            size++;
        }
        return byte != '\n' || Add('\r');
    }
};

// What tells the patterns of three bytes from nearly all else. Each byte that is the middle of one
// has a mark; the bytes that may stand before and after it have its mark too.
struct Sieve {
    ByteSet middles, moreMiddles;
    Rows marksOfFirst, marksOfMiddle, marksOfLast;

    constexpr void Add(const Pattern &pattern, std::uint8_t mark) {
        if (pattern.size != 3) throw "not three bytes";
        const auto [first, middle, last] = pattern.bytes;
        if (!middles.Add(middle) && !moreMiddles.Add(middle)) throw "too many of one low half";
        Mark(marksOfFirst, first, mark);
        Mark(marksOfMiddle, middle, mark);
        Mark(marksOfLast, last, mark);
    }

    static constexpr void Mark(Rows &rows, char byte, std::uint8_t mark) {
        rows.Of(byte) |= mark;
        if (byte == '\n') rows.Of('\r') |= mark;
    }
};

template <Pattern... patterns>
consteval Sieve SieveOf() {
    constexpr Pattern list[] = {patterns...};
    Sieve sieve;
    unsigned next = 1;
    for (std::size_t i = 0; i < sizeof...(patterns); i++) {
        std::size_t same = 0;  // the first pattern with that middle
        while (list[same].bytes[1] != list[i].bytes[1]) same++;
        if (same < i) continue;
        if (next > 128) throw "more than eight middles";
        for (const Pattern &pattern : list) {
            if (pattern.bytes[1] == list[i].bytes[1]) {
                sieve.Add(pattern, static_cast<std::uint8_t>(next));
            }
        }
        next *= 2;
    }
    return sieve;
}

constexpr bool IsComment(const SpecialLine &line) {
    return line.text.starts_with("%%");
}

// The ends of the special lines, or of those that are no comments.
template <bool comments>
constexpr auto lineEnds = [] {
    constexpr auto isWanted = [](const SpecialLine &line) { return comments || !IsComment(line); };
    std::array<Pattern, std::ranges::count_if(specialLines, isWanted)> ends;
    auto end = ends.begin();
    for (const SpecialLine &line : specialLines) {
        if (isWanted(line)) *end++ = Pattern(line);
    }
    return ends;
}();

template <bool comments, std::size_t... i>
Patterns<lineEnds<comments>[i]...> PatternsOf(std::index_sequence<i...>);

template <bool comments>
using SpecialLineEndOf =
    decltype(PatternsOf<comments>(std::make_index_sequence<lineEnds<comments>.size()>()));

using LineEnd = Patterns<"\n">;
using SpecialLineEnd = SpecialLineEndOf<true>;
// In names of the printer's screen and colour-rendering settings.
using SettingsSign = Patterns<"SCR", "CPR">;
// In the first line of PPD feature code.
using FeatureSign = Patterns<"%%B">;
// In comments, special lines and feature code among them, and in the end of a printer language
// (ESC "%-12345X").
using CommentSign = Patterns<"\n%%", "\x1b%-">;
using OtherSpecialLineEnd = SpecialLineEndOf<false>;
