// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/LineSearch.h"

#include "CommonSource/FilterFrame/Source/LineSearchKernels.h"

#ifdef __SSE2__
#include <emmintrin.h>

#include "CommonSource/FilterFrame/Source/LineSearchAVX2.h"
#endif

namespace {

constexpr LineSearch kScalar = MakeLineSearch<OneByte>("scalar");

#ifdef __SSE2__

struct SixteenBytes {
    static constexpr std::size_t kWidth = 16;
    __m128i bytes;

    static SixteenBytes Load(const char *at) {
        return {_mm_loadu_si128(reinterpret_cast<const __m128i *>(at))};
    }
    static SixteenBytes Equal(SixteenBytes vector, char character) {
        return {_mm_cmpeq_epi8(vector.bytes, _mm_set1_epi8(character))};
    }
    static unsigned Hits(SixteenBytes vector) {
        return static_cast<unsigned>(_mm_movemask_epi8(vector.bytes));
    }
    SixteenBytes operator|(SixteenBytes other) const { return {_mm_or_si128(bytes, other.bytes)}; }
    SixteenBytes operator&(SixteenBytes other) const { return {_mm_and_si128(bytes, other.bytes)}; }
};

constexpr LineSearch kSSE2 = MakeLineSearch<SixteenBytes>("sse2");

// Asked when first needed, which may be before this file's own variables have their values.
bool HasAVX2() {
    static const bool has = [] {
        __builtin_cpu_init();
        return __builtin_cpu_supports("avx2") != 0;
    }();
    return has;
}

#endif

}  // namespace

#ifdef __SSE2__

const LineSearch &BestLineSearch() {
    return HasAVX2() ? lineSearchAVX2 : kSSE2;
}

const LineSearch *const *AllLineSearches() {
    static const LineSearch *const searches[] = {&kScalar, &kSSE2,
                                                 HasAVX2() ? &lineSearchAVX2 : nullptr, nullptr};
    return searches;
}

#else

const LineSearch &BestLineSearch() {
    return kScalar;
}

const LineSearch *const *AllLineSearches() {
    static const LineSearch *const searches[] = {&kScalar, nullptr};
    return searches;
}

#endif
