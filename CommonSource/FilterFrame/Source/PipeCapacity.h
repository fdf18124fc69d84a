// SPDX-License-Identifier: Apache-2.0
//
// How much a pipe holds. CUPS connects its filters with the system's default, 64 kB on Linux, so
// that on a fast job the filters mostly wake each other; wider ones nearly halve the time that a
// document takes.
#pragma once

#include <cstddef>

// Bytes that are read at a time.
constexpr std::size_t kReadSize = std::size_t{256} * 1024;

// Bytes that the filter's pipes hold where the system lets it choose: while one block is looked at,
// all of the one before it leaves, though neither begins where a page of memory does.
constexpr std::size_t kPipeCapacity = 2 * kReadSize;

// Gives the pipe behind `file` that capacity. What is no pipe, or may not grow, stays as it is.
void WidenPipe(int file);
