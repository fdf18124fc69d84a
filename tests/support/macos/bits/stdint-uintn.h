// SPDX-License-Identifier: Apache-2.0
// 64 bits are unsigned long long, which is another type than unsigned long (size_t).
#pragma once
typedef unsigned char uint8_t;
typedef unsigned short uint16_t;
typedef unsigned int uint32_t;
typedef unsigned long long uint64_t;
