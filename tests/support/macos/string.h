// SPDX-License-Identifier: Apache-2.0
// Here as on BSD; glibc keeps it among its own.
#pragma once
#include_next <string.h>
extern "C" void *memmem(const void *big, size_t bigSize, const void *little, size_t littleSize);
