// SPDX-License-Identifier: Apache-2.0
//
// Texts in buffers of fixed size.
#pragma once

#include <cstddef>
#include <cstring>

// Clears `destination` over its `size` bytes and copies as much of `source` as leaves room for a
// NUL. The two do not overlap.
inline void CopyBounded(char *destination, std::size_t size, const char *source) {
    std::memset(destination, 0, size);
    std::memcpy(destination, source, strnlen(source, size - 1));
}

template <std::size_t size>
void CopyBounded(char (&destination)[size], const char *source) {
    CopyBounded(destination, size, source);
}
