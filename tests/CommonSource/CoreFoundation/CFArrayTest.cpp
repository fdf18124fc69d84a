// SPDX-License-Identifier: Apache-2.0
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

TEST(CFArray, KeepsObjectsInOrder) {
    const UInt8 bytes[] = {1, 2, 3};
    const CFDataRef first = CFDataCreate(kCFAllocatorDefault, bytes, 1);
    const CFDataRef second = CFDataCreate(kCFAllocatorDefault, bytes, 2);
    const CFMutableArrayRef array =
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks);
    EXPECT_EQ(CFArrayGetCount(array), 0);
    for (const CFDataRef data : {first, second, first}) CFArrayAppendValue(array, data);
    EXPECT_EQ(CFArrayGetCount(array), 3);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 0), first);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 1), second);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 2), first);
    EXPECT_EQ(CFGetRetainCount(first), 3);
    EXPECT_EQ(CFGetRetainCount(second), 2);
    CFRelease(array);
    EXPECT_EQ(CFGetRetainCount(first), 1);
    EXPECT_EQ(CFGetRetainCount(second), 1);
    CFRelease(first);
    CFRelease(second);
}

TEST(CFArray, KeepsBarePointersWithoutCallBacks) {
    const int value = 7;
    const CFMutableArrayRef array = CFArrayCreateMutable(kCFAllocatorDefault, 0, nullptr);
    CFArrayAppendValue(array, &value);
    CFArrayAppendValue(array, nullptr);
    EXPECT_EQ(CFArrayGetCount(array), 2);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 0), &value);
    EXPECT_EQ(CFArrayGetValueAtIndex(array, 1), nullptr);
    CFRelease(array);
}
