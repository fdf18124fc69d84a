// SPDX-License-Identifier: Apache-2.0
// Waiting on another clock is glibc's own.
#pragma once
#include_next <bits/c++config.h>
#undef _GLIBCXX_USE_PTHREAD_COND_CLOCKWAIT
#undef _GLIBCXX_USE_PTHREAD_MUTEX_CLOCKLOCK
