// SPDX-License-Identifier: Apache-2.0
//
// The searches of LineSearch.h, written once over a vector type. A vector type V brings
//   V::kWidth                      bytes in a vector
//   V::Load(const char *)          the vector at an address, however aligned
//   V::Equal(V, char)              ones in every byte that equals a character
//   operators | and &
//   V::Hits(V) -> integer          one bit for each byte, the first byte's lowest
// Everything is static: each translation unit compiles it for other instructions.
#pragma once

#include <bit>

#include "CommonSource/FilterFrame/Source/LineSearch.h"
#include "Tables/SpecialLines.h"

namespace {

template <class V>
constexpr V LineEnds(const char *at) {
    const V bytes = V::Load(at);
    return V::Equal(bytes, '\n') | V::Equal(bytes, '\r');
}

// Line ends after the two bytes that a special line may end in: "ep", "bp", "dp" (endp), "up"
// (%%EndSetup, %%EndPageSetup), "ge" (showpage), "og" (%%EndProlog, %%BeginProlog), "ut"
// (userdict/setpagedevice{pop}bind put).
template <class V>
constexpr V SpecialLineEnds(const char *at) {
    const V last = V::Load(at - 1);
    const V before = V::Load(at - 2);
    const V u = V::Equal(before, 'u');
    return LineEnds<V>(at) &
           ((V::Equal(last, 'p') &
             (V::Equal(before, 'e') | V::Equal(before, 'b') | V::Equal(before, 'd') | u)) |
            (V::Equal(last, 'e') & V::Equal(before, 'g')) |
            (V::Equal(last, 'g') & V::Equal(before, 'o')) | (V::Equal(last, 't') & u));
}

template <class V>
V SpecialOrSettings(const char *at) {
    const V last = V::Load(at);
    const V middle = V::Load(at - 1);
    const V first = V::Load(at - 2);
    return SpecialLineEnds<V>(at) |
           (V::Equal(last, 'R') & ((V::Equal(middle, 'C') & V::Equal(first, 'S')) |
                                   (V::Equal(middle, 'P') & V::Equal(first, 'C')))) |
           (V::Equal(last, 'B') & V::Equal(middle, '%') & V::Equal(first, '%'));
}

template <class V>
V Comments(const char *at) {
    const V middle = V::Load(at - 1);
    return V::Equal(V::Load(at), '%') &
           ((V::Equal(middle, '%') & LineEnds<V>(at - 2)) | V::Equal(middle, '\x1b'));
}

template <class V>
V SpecialOrComment(const char *at) {
    return SpecialLineEnds<V>(at) | Comments<V>(at);
}

template <class V>
V SettingsOrComment(const char *at) {
    return SpecialOrSettings<V>(at) | Comments<V>(at);
}

// A vector of one byte: the fallback, and the rest of a block that fills no vector.
struct OneByte {
    static constexpr std::size_t kWidth = 1;
    bool byte;
    char value;

    static constexpr OneByte Load(const char *at) { return {false, *at}; }
    static constexpr OneByte Equal(OneByte vector, char character) {
        return {vector.value == character, 0};
    }
    static constexpr unsigned Hits(OneByte vector) { return vector.byte; }
    constexpr OneByte operator|(OneByte other) const { return {byte || other.byte, 0}; }
    constexpr OneByte operator&(OneByte other) const { return {byte && other.byte, 0}; }
};

constexpr bool FindsEverySpecialLine() {
    return std::ranges::all_of(specialLines, [](const SpecialLine &line) {
        const std::string_view text = line.text;
        const char end[] = {text[text.size() - 2], text[text.size() - 1], '\n'};
        return OneByte::Hits(SpecialLineEnds<OneByte>(end + 2)) != 0;
    });
}
static_assert(FindsEverySpecialLine(), "SpecialLineEnds lacks the last two bytes of a line");

template <class V, V (*match)(const char *), OneByte (*matchOne)(const char *)>
const char *Find(const char *from, const char *end) {
    while (static_cast<std::size_t>(end - from) >= V::kWidth) {
        const auto hits = V::Hits(match(from));
        if (hits != 0) return from + std::countr_zero(hits);
        from += V::kWidth;
    }
    while (from != end && OneByte::Hits(matchOne(from)) == 0) from++;
    return from;
}

template <class V>
constexpr LineSearch MakeLineSearch(const char *name) {
    return {name,
            Find<V, LineEnds<V>, LineEnds<OneByte>>,
            Find<V, SpecialLineEnds<V>, SpecialLineEnds<OneByte>>,
            Find<V, SpecialOrSettings<V>, SpecialOrSettings<OneByte>>,
            Find<V, SpecialOrComment<V>, SpecialOrComment<OneByte>>,
            Find<V, SettingsOrComment<V>, SettingsOrComment<OneByte>>};
}

}  // namespace
