// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/SystemVersion.h"

#include <cstdio>
#include <cstdlib>
#ifdef __APPLE__
#include <sys/sysctl.h>
#endif

namespace {

constexpr std::uint32_t kVersionNotAsked = 0xFFFFFFFF;
constexpr std::uint32_t kVersionBase = 0x1000;

std::uint32_t SystemVersion() {
#ifdef __APPLE__
    char release[16] = "";
    std::size_t size = sizeof release - 1;
    int name[] = {CTL_KERN, KERN_OSRELEASE};
    if (sysctl(name, 2, release, &size, nullptr, 0) != 0) return kVersionBase;
    return VersionFromKernelRelease(release);
#else
    // The CUPS scheduler counts the pages of a queue with a filter of its own only from the page
    // log, so other systems pass for the oldest release whose jobs are logged.
    return VersionFromKernelRelease("11.0.0");
#endif
}

}  // namespace

std::uint32_t osVersion = kVersionNotAsked;

std::uint32_t VersionFromKernelRelease(const char *release) {
    std::uint32_t version = kVersionBase;
    char *end = nullptr;
    const long kernel = std::strtol(release, &end, 10);
    if (kernel > 0) version += (static_cast<std::uint32_t>(kernel - 4) << 4) & 0xF0;
    if (*end == '\0') return version;
    const long bugFix = std::strtol(end + 1, nullptr, 10);
    if (bugFix > 0) version += static_cast<std::uint32_t>(bugFix) & 0x0F;
    return version;
}

int Gestalt_ALT(std::uint32_t selector, std::int32_t *result) {
    if (osVersion == kVersionNotAsked) osVersion = SystemVersion();
    switch (selector) {
        case kGestaltSystemVersion:
            *result = static_cast<std::int32_t>(osVersion);
            return 0;
        case kGestaltSystemVersionMajor:
            *result =
                static_cast<std::int32_t>((osVersion >> 12 & 0x0F) * 10 + (osVersion >> 8 & 0x0F));
            return 0;
        case kGestaltSystemVersionMinor:
            *result = static_cast<std::int32_t>(osVersion >> 4 & 0x0F);
            return 0;
        case kGestaltSystemVersionBugFix:
            *result = static_cast<std::int32_t>(osVersion & 0x0F);
            return 0;
        default:
            std::fprintf(stderr, "Gestalt_ALT : selector '%x' not supported.\n", selector);
            return -1;
    }
}
