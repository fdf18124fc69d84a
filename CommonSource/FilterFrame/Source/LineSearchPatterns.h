// SPDX-License-Identifier: Apache-2.0
//
// What the vectorised searches look for. A further search is a row here and a row in LineSearch.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>
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

// A look-up of bytes by their low halves.
struct Rows {
    alignas(16) std::uint8_t entries[16] = {};

    constexpr std::uint8_t &operator[](std::uint8_t byte) { return entries[byte & 15]; }
};

// Bytes with different low halves, each in its row. The other rows hold a byte of another row.
struct ByteSet {
    std::size_t size = 0;
    std::uint8_t last = 0;  // that was added
    Rows rows{{1}};

    consteval void Add(char character) {
        const auto byte = static_cast<std::uint8_t>(character);
        if (rows[byte] == byte) return;
        if ((rows[byte] & 15) == (byte & 15)) throw "two bytes with the same low half";
        rows[byte] = last = byte;
        size++;
        if (character == '\n') Add('\r');
    }
};

// The bytes that the patterns have `back` bytes in front of their last.
template <Pattern... patterns>
consteval ByteSet BytesAt(std::size_t back) {
    ByteSet set;
    (set.Add(patterns.bytes[patterns.size - 1 - back]), ...);
    return set;
}

// What tells pairs of bytes from mixtures of them: each second byte has a mark of its own, and the
// first bytes have those of the second ones that follow them.
struct PairMarks {
    Rows ofFirst, ofSecond;
};

template <Pattern... pairs>
consteval PairMarks MarksOf() {
    PairMarks marks;
    std::uint8_t next = 1;
    for (const Pattern &pair : {pairs...}) {
        std::uint8_t &mark = marks.ofSecond[static_cast<std::uint8_t>(pair.bytes[1])];
        if (mark == 0) {
            if (next == 0) throw "more than eight second bytes";
            mark = next;
            next = static_cast<std::uint8_t>(next << 1);
        }
        marks.ofFirst[static_cast<std::uint8_t>(pair.bytes[0])] |= mark;
    }
    return marks;
}

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
