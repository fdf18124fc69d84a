// SPDX-License-Identifier: Apache-2.0
#include <CoreFoundation/CoreFoundation.h>

#include <vector>

#include "CommonSource/CoreFoundation/CFObject.h"

namespace {

const void *RetainValue(CFAllocatorRef, const void *value) {
    return CFRetain(value);
}

void ReleaseValue(CFAllocatorRef, const void *value) {
    CFRelease(value);
}

}  // namespace

const CFArrayCallBacks kCFTypeArrayCallBacks = {0, RetainValue, ReleaseValue, nullptr, nullptr};

struct __CFArray : CFObject {
    explicit __CFArray(const CFArrayCallBacks *calls)
        : callBacks(calls ? *calls : CFArrayCallBacks{}) {}
    ~__CFArray() override {
        if (!callBacks.release) return;
        for (const void *value : values) callBacks.release(kCFAllocatorDefault, value);
    }

    const CFArrayCallBacks callBacks;
    std::vector<const void *> values;
};

CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef, CFIndex, const CFArrayCallBacks *callBacks) {
    return NewObject<__CFArray>(callBacks);
}

void CFArrayAppendValue(CFMutableArrayRef array, const void *value) {
    try {
        array->values.push_back(value);
    } catch (const std::bad_alloc &) {  // GCOVR_EXCL_START: fault
        return;
    }  // GCOVR_EXCL_STOP
    if (array->callBacks.retain) {
        array->values.back() = array->callBacks.retain(kCFAllocatorDefault, value);
    }
}

CFIndex CFArrayGetCount(CFArrayRef array) {
    return static_cast<CFIndex>(array->values.size());
}

const void *CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index) {
    return array->values[static_cast<std::size_t>(index)];
}
