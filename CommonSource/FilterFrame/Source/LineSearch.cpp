// SPDX-License-Identifier: Apache-2.0
//
// The searches on Google Highway, compiled for every kind of vectors that this machine may have:
// foreach_target.h includes this file again and again, each time with another HWY_NAMESPACE.
//
// AVX-512 is left out, for its masks make the searches slower than AVX2's, and so is SVE, which
// compilers still mix into code for processors that lack it.
#include "CommonSource/FilterFrame/Source/LineSearch.h"

#include "CommonSource/FilterFrame/Source/LineSearchPatterns.h"

#undef HWY_TARGET_INCLUDE
#define HWY_TARGET_INCLUDE "CommonSource/FilterFrame/Source/LineSearch.cpp"
#ifndef HWY_DISABLED_TARGETS
#define HWY_DISABLED_TARGETS \
    (HWY_SSE4 | HWY_AVX3 | HWY_AVX3_DL | HWY_SVE | HWY_SVE2 | HWY_SVE_256 | HWY_SVE2_128)
// The code needs AVX2, but nothing that processors brought with it.
#define HWY_DISABLE_BMI2_FMA
#define HWY_DISABLE_F16C
#define HWY_DISABLE_PCLMUL_AES
#define HWY_BROKEN_EMU128 1  // vectors in plain C++ are slower than single bytes
#endif
#include <hwy/foreach_target.h>
#include <hwy/highway.h>

HWY_BEFORE_NAMESPACE();
namespace HWY_NAMESPACE {
namespace {

namespace hn = hwy::HWY_NAMESPACE;

template <class D>
HWY_INLINE hn::Mask<D> Equal(D vector, const char *at, char byte) {
    const auto *bytes = reinterpret_cast<const std::uint8_t *>(at);
    return hn::Eq(hn::LoadU(vector, bytes), hn::Set(vector, static_cast<std::uint8_t>(byte)));
}

// Of a vector of bytes that may be the last ones of the pattern, those with byte `i` of the pattern
// in its place.
template <Pattern pattern, std::size_t i, class D>
HWY_INLINE hn::Mask<D> MatchByte(D vector, const char *last) {
    const char *at = last - (pattern.size - 1 - i);
    const auto match = Equal(vector, at, pattern.bytes[i]);
    if constexpr (pattern.bytes[i] != '\n') return match;
    return hn::Or(match, Equal(vector, at, '\r'));
}

template <Pattern pattern, class D, std::size_t... i>
HWY_INLINE hn::Mask<D> Match(D vector, const char *last, std::index_sequence<i...>) {
    auto match = MatchByte<pattern, 0>(vector, last);
    ((match = hn::And(match, MatchByte<pattern, i + 1>(vector, last))), ...);
    return match;
}

template <class D, Pattern first, Pattern... more>
HWY_INLINE hn::Mask<D> Match(D vector, const char *last, Patterns<first, more...>) {
    auto match = Match<first>(vector, last, std::make_index_sequence<first.size - 1>());
    ((match = hn::Or(match, Match(vector, last, Patterns<more>()))), ...);
    return match;
}

template <class D, Pattern... patterns>
HWY_INLINE hn::Mask<D> Match(D vector, const char *last, LineEndAfter<patterns...>) {
    const auto lineEnds = Match(vector, last, LineEnd());
    if (hn::MaxLanes(vector) == 1 && hn::AllFalse(vector, lineEnds)) return lineEnds;
    return hn::And(lineEnds, Match(vector, last - 1, Patterns<patterns...>()));
}

template <class D, class P, class... Ps>
HWY_INLINE hn::Mask<D> Match(D vector, const char *last, P patterns, Ps... more) {
    return hn::Or(Match(vector, last, patterns), Match(vector, last, more...));
}

template <class... Ps>
const char *Find(const char *from, const char *end) {
    const hn::ScalableTag<std::uint8_t> vector;
    const auto width = static_cast<std::ptrdiff_t>(hn::Lanes(vector));
    for (; end - from >= width; from += width) {
        const auto hits = Match(vector, from, Ps()...);
        if (!hn::AllFalse(vector, hits)) return from + hn::FindKnownFirstTrue(vector, hits);
    }
    const hn::CappedTag<std::uint8_t, 1> byte;  // the rest of a block that fills no vector
    while (from != end && hn::AllFalse(byte, Match(byte, from, Ps()...))) from++;
    return from;
}

const LineSearch *Searches() {
    static const LineSearch searches = {
        hwy::TargetName(HWY_TARGET),
        Find<LineEnd>,
        Find<SpecialLineEnd>,
        Find<SpecialLineEnd, FeatureSign, SettingsSign>,
        Find<OtherSpecialLineEnd, CommentSign>,
        Find<OtherSpecialLineEnd, CommentSign, SettingsSign>,
    };
    return &searches;
}

}  // namespace
}  // namespace HWY_NAMESPACE
HWY_AFTER_NAMESPACE();

#if HWY_ONCE

// Highway's own choice is in its shared library, which makes the start of a job half as long again.
const LineSearch *const *AllLineSearches() {
    static const LineSearch *searches[4];  // one more than there are, for the null
    const LineSearch **next = searches;
    if (*next) return searches;
#if HWY_ARCH_X86
    __builtin_cpu_init();
#endif
#if HWY_TARGETS & ~HWY_STATIC_TARGET & HWY_AVX2
    if (__builtin_cpu_supports("avx2")) *next++ = N_AVX2::Searches();
#endif
#if HWY_TARGETS & ~HWY_STATIC_TARGET & HWY_SSSE3
    if (__builtin_cpu_supports("ssse3")) *next++ = N_SSSE3::Searches();
#endif
    *next = HWY_STATIC_DISPATCH(Searches)();
    return searches;
}

const LineSearch &BestLineSearch() {
    return **AllLineSearches();
}

#endif
