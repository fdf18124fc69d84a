// SPDX-License-Identifier: Apache-2.0
//
// The version of the operating system, in the binary-coded form that the filter's platform uses:
// 0x10MB, M the minor and B the bug-fix release of version 10.
#pragma once

#include <cstdint>

constexpr std::uint32_t kGestaltSystemVersion = 0x73797376;        // 'sysv', the whole word
constexpr std::uint32_t kGestaltSystemVersionMajor = 0x73797331;   // 'sys1', 10 for 0x10MB
constexpr std::uint32_t kGestaltSystemVersionMinor = 0x73797332;   // 'sys2'
constexpr std::uint32_t kGestaltSystemVersionBugFix = 0x73797333;  // 'sys3'

// The version word, or 0xFFFFFFFF while it has not been asked for.
extern std::uint32_t osVersion;

// Stores what `selector` asks for and returns 0. An unknown selector gets one line on standard
// error and -1, and leaves `result` alone.
int Gestalt_ALT(std::uint32_t selector, std::int32_t *result);

// The version word that a kernel release such as "11.4.2" stands for (0x1074).
std::uint32_t VersionFromKernelRelease(const char *release);
