// SPDX-License-Identifier: Apache-2.0
// macOS's sizes of what system calls take and give.
#pragma once
#include_next <bits/typesizes.h>
#undef __OFF_T_TYPE
#undef __MODE_T_TYPE
#undef __DEV_T_TYPE
#undef __NLINK_T_TYPE
#undef __INO_T_TYPE
#undef __BLKSIZE_T_TYPE
#undef __BLKCNT_T_TYPE
#undef __RLIM_T_TYPE
#undef __CLOCK_T_TYPE
#undef __SUSECONDS_T_TYPE
#define __OFF_T_TYPE long long
#define __MODE_T_TYPE unsigned short
#define __DEV_T_TYPE int
#define __NLINK_T_TYPE unsigned short
#define __INO_T_TYPE unsigned long long
#define __BLKSIZE_T_TYPE int
#define __BLKCNT_T_TYPE long long
#define __RLIM_T_TYPE unsigned long long
#define __CLOCK_T_TYPE unsigned long
#define __SUSECONDS_T_TYPE int
