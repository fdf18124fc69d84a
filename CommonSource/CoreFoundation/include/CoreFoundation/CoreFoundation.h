// SPDX-License-Identifier: Apache-2.0
#pragma once
#include <cstdint>
typedef std::uint32_t CFStringEncoding;
typedef const struct __CFString *CFStringRef;
typedef const struct __CFArray *CFArrayRef;
