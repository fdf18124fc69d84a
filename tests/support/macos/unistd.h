// SPDX-License-Identifier: Apache-2.0
// Here as on BSD; glibc keeps it among its own.
#pragma once
#include_next <unistd.h>
extern "C" int mkostemps(char *pattern, int suffixLength, int flags);
