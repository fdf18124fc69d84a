// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/SystemVersion.h"

#include <gtest/gtest.h>

namespace {

TEST(SystemVersion, ReadsKernelReleases) {
    const std::pair<const char *, std::uint32_t> cases[] = {
        {"11.4.2", 0x1074}, {"10.8.0", 0x1068}, {"11.0.0", 0x1070}, {"9.8.0", 0x1058},
        {"13", 0x1090},     {"11.", 0x1070},    {"11.17", 0x1071},  {"20.1.0", 0x1001},
        {"3.1", 0x10F1},    {"4.0", 0x1000},    {"", 0x1000},       {"abc", 0x1000},
        {"x.5", 0x1000},    {"0.5.1", 0x1005},  {"-3.2", 0x1002},   {"11-rc1", 0x1070},
    };
    for (const auto &[release, version] : cases) {
        EXPECT_EQ(VersionFromKernelRelease(release), version) << release;
    }
}

TEST(SystemVersion, AnswersItsSelectors) {
    osVersion = 0x1074;
    std::int32_t value = 0;
    EXPECT_EQ(Gestalt_ALT(0x73797376, &value), 0);
    EXPECT_EQ(value, 0x1074);
    EXPECT_EQ(Gestalt_ALT(0x73797331, &value), 0);
    EXPECT_EQ(value, 10);
    EXPECT_EQ(Gestalt_ALT(0x73797332, &value), 0);
    EXPECT_EQ(value, 7);
    EXPECT_EQ(Gestalt_ALT(0x73797333, &value), 0);
    EXPECT_EQ(value, 4);
}

TEST(SystemVersion, RefusesOtherSelectors) {
    std::int32_t value = 99;
    testing::internal::CaptureStderr();
    EXPECT_EQ(Gestalt_ALT(0x73797334, &value), -1);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Gestalt_ALT : selector '73797334' not supported.\n");
    EXPECT_EQ(value, 99);
}

TEST(SystemVersion, IsComputedWhenFirstAskedFor) {
    osVersion = 0xFFFFFFFF;
    std::int32_t value = 0;
    EXPECT_EQ(Gestalt_ALT(kGestaltSystemVersion, &value), 0);
    EXPECT_EQ(static_cast<std::uint32_t>(value), osVersion);
#ifndef __APPLE__
    EXPECT_EQ(osVersion, 0x1070U);
#endif
}

}  // namespace
