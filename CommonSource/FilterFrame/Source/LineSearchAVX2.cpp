// SPDX-License-Identifier: Apache-2.0
//
// Compiled with -mavx2, the only file that is.
#ifdef __AVX2__
#include "CommonSource/FilterFrame/Source/LineSearchAVX2.h"

#include <immintrin.h>

#include "CommonSource/FilterFrame/Source/LineSearchKernels.h"

namespace {

struct ThirtyTwoBytes {
    static constexpr std::size_t kWidth = 32;
    __m256i bytes;

    static ThirtyTwoBytes Load(const char *at) {
        return {_mm256_loadu_si256(reinterpret_cast<const __m256i *>(at))};
    }
    static ThirtyTwoBytes Equal(ThirtyTwoBytes vector, char character) {
        return {_mm256_cmpeq_epi8(vector.bytes, _mm256_set1_epi8(character))};
    }
    static unsigned Hits(ThirtyTwoBytes vector) {
        return static_cast<unsigned>(_mm256_movemask_epi8(vector.bytes));
    }
    ThirtyTwoBytes operator|(ThirtyTwoBytes other) const {
        return {_mm256_or_si256(bytes, other.bytes)};
    }
    ThirtyTwoBytes operator&(ThirtyTwoBytes other) const {
        return {_mm256_and_si256(bytes, other.bytes)};
    }
};

}  // namespace

constexpr LineSearch lineSearchAVX2 = MakeLineSearch<ThirtyTwoBytes>("avx2");

#endif
