// SPDX-License-Identifier: Apache-2.0
//
// Texts in buffers of fixed size, and the numbers in them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

// The type of a text of at most size - 1 bytes.
template <std::size_t size>
using TextField = char[size];

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

// Writes the positive `number` right-aligned into `buffer` of `size` bytes and returns its first
// digit; zero is an empty text. Digits that do not fit on the left are dropped.
char *itoa(std::int32_t number, char *buffer, std::int32_t size);

// The decimal integer that `text` begins with, after blanks and a sign, clamped to 32 bits; 0 if
// there is none. Independent of the locale.
std::int32_t LeadingInteger(const char *text);
