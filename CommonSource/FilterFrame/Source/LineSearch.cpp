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

// Whether a byte is `byte` of a pattern.
template <char byte>
HWY_INLINE bool Is(char other) {
    return other == byte || (byte == '\n' && other == '\r');
}

template <Pattern pattern, std::size_t... i>
HWY_INLINE bool EndsAt(const char *last, std::index_sequence<i...>) {
    return (Is<pattern.bytes[pattern.size - 1 - i]>(*(last - i)) && ...);
}

// Whether any of the patterns has its last byte at `last`.
template <Pattern... patterns>
HWY_INLINE bool IsHit(const char *last, Patterns<patterns...>) {
    return (EndsAt<patterns>(last, std::make_index_sequence<patterns.size>()) || ...);
}

template <class D>
HWY_INLINE hn::Vec<D> Load(D vector, const char *at) {
    return hn::LoadU(vector, reinterpret_cast<const std::uint8_t *>(at));
}

// The entries of the bytes' rows, which their low halves choose. On x86 the look-up leaves out the
// high halves itself, and the entry of a byte beyond ASCII is 0.
template <class D>
HWY_INLINE hn::Vec<D> LookUp(D vector, const Rows &rows, hn::Vec<D> bytes) {
    if (!HWY_ARCH_X86) bytes = hn::And(bytes, hn::Set(vector, 15));
    return hn::TableLookupBytes(hn::LoadDup128(vector, rows.entries), bytes);
}

// Which of the bytes the set holds.
template <class D>
HWY_INLINE hn::Mask<D> Holds(D vector, const ByteSet &set, hn::Vec<D> bytes) {
    if (set.size == 1) return hn::Eq(bytes, hn::Set(vector, set.last));
    return hn::Eq(LookUp(vector, set.rows, bytes), bytes);
}

// Of a vector of bytes, those that may be the last one of a pattern.
template <class D>
HWY_INLINE hn::Mask<D> MayBeHits(D vector, const char *last, LineEnd) {
    static constexpr ByteSet kLineEnds = [] {
        ByteSet set;
        set.Add('\n');
        return set;
    }();
    return Holds(vector, kLineEnds, Load(vector, last));
}

template <class D, Pattern... patterns>
HWY_INLINE hn::Mask<D> MayBeHits(D vector, const char *last, Patterns<patterns...>) {
    static constexpr Sieve kSieve = SieveOf<patterns...>();
    const auto middle = Load(vector, last - 1);
    auto pass = Holds(vector, kSieve.middles, middle);
    if constexpr (kSieve.moreMiddles.size > 0) {
        pass = hn::Or(pass, Holds(vector, kSieve.moreMiddles, middle));
    }
    const auto marks = hn::And(LookUp(vector, kSieve.marksOfMiddle, middle),
                               hn::And(LookUp(vector, kSieve.marksOfFirst, Load(vector, last - 2)),
                                       LookUp(vector, kSieve.marksOfLast, Load(vector, last))));
    return hn::AndNot(hn::Eq(marks, hn::Zero(vector)), pass);
}

template <class P>
const char *Find(const char *from, const char *end) {
#if HWY_TARGET != HWY_SCALAR
    const hn::ScalableTag<std::uint8_t> vector;
    const auto width = static_cast<std::ptrdiff_t>(hn::Lanes(vector));
    while (end - from >= width) {
        // Two at a time, as long as nothing is found.
        while (end - from >= 2 * width &&
               hn::AllFalse(vector, hn::Or(MayBeHits(vector, from, P()),
                                           MayBeHits(vector, from + width, P())))) {
            from += 2 * width;
        }
        if (end - from < width) break;
        const auto hits = MayBeHits(vector, from, P());
        if (hn::AllFalse(vector, hits)) {
            from += width;
        } else {
            from += hn::FindKnownFirstTrue(vector, hits);
            if (IsHit(from, P())) return from;
            from++;
        }
    }
#endif
    while (from != end && !IsHit(from, P())) from++;  // what fills no vector
    return from;
}

template <class... Ps>
const char *FindAny(const char *from, const char *end) {
    return Find<decltype((Ps() + ...))>(from, end);
}

const LineSearch *Searches() {
    static const LineSearch searches = {
        hwy::TargetName(HWY_TARGET),
        Find<LineEnd>,
        Find<SpecialLineEnd>,
        FindAny<SpecialLineEnd, FeatureSign, SettingsSign>,
        FindAny<OtherSpecialLineEnd, CommentSign>,
        FindAny<OtherSpecialLineEnd, CommentSign, SettingsSign>,
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
    if (__builtin_cpu_supports("avx2")) *next++ = N_AVX2::Searches();  // GCOVR_EXCL_BR_LINE: CPU
#endif
#if HWY_TARGETS & ~HWY_STATIC_TARGET & HWY_SSSE3
    if (__builtin_cpu_supports("ssse3")) *next++ = N_SSSE3::Searches();  // GCOVR_EXCL_BR_LINE: CPU
#endif
    *next = HWY_STATIC_DISPATCH(Searches)();
    return searches;
}

const LineSearch &BestLineSearch() {
    return **AllLineSearches();
}

#endif
