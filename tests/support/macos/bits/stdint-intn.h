// SPDX-License-Identifier: Apache-2.0
// 64 bits are long long, which is another type than long.
#pragma once
typedef signed char int8_t;
typedef short int16_t;
typedef int int32_t;
typedef long long int64_t;
