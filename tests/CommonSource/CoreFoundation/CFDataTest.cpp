// SPDX-License-Identifier: Apache-2.0
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <algorithm>

TEST(CFData, KeepsACopy) {
    UInt8 bytes[] = {0, 255, 7};
    const CFDataRef data = CFDataCreate(kCFAllocatorDefault, bytes, sizeof bytes);
    std::fill(bytes, bytes + sizeof bytes, UInt8{1});
    ASSERT_EQ(CFDataGetLength(data), 3);
    EXPECT_EQ(CFDataGetBytePtr(data)[0], 0);
    EXPECT_EQ(CFDataGetBytePtr(data)[1], 255);
    EXPECT_EQ(CFDataGetBytePtr(data)[2], 7);
    CFRelease(data);
}

TEST(CFData, MayBeEmpty) {
    const CFDataRef data = CFDataCreate(kCFAllocatorDefault, nullptr, 0);
    EXPECT_EQ(CFDataGetLength(data), 0);
    EXPECT_EQ(CFDataGetBytePtr(data), nullptr);
    CFRelease(data);
}
