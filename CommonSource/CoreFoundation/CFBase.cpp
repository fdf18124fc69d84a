// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/CoreFoundation/CFObject.h"

struct __CFAllocator {};

namespace {

constexpr __CFAllocator kNullAllocator;

const CFObject *ObjectOf(CFTypeRef object) {
    return static_cast<const CFObject *>(object);
}

}  // namespace

const CFAllocatorRef kCFAllocatorDefault = nullptr;
const CFAllocatorRef kCFAllocatorNull = &kNullAllocator;

CFTypeRef CFRetain(CFTypeRef object) {
    ObjectOf(object)->references.fetch_add(1, std::memory_order_relaxed);
    return object;
}

void CFRelease(CFTypeRef object) {
    if (ObjectOf(object)->references.fetch_sub(1, std::memory_order_acq_rel) == 1) {
        delete ObjectOf(object);
    }
}

CFIndex CFGetRetainCount(CFTypeRef object) {
    return ObjectOf(object)->references.load(std::memory_order_relaxed);
}
