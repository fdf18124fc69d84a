// SPDX-License-Identifier: Apache-2.0
#include <CoreFoundation/CoreFoundation.h>

#include <vector>

#include "CommonSource/CoreFoundation/CFObject.h"

struct __CFData : CFObject {
    __CFData(const UInt8 *source, CFIndex length) : bytes(source, source + length) {}

    const std::vector<UInt8> bytes;
};

CFDataRef CFDataCreate(CFAllocatorRef, const UInt8 *bytes, CFIndex length) {
    return NewObject<__CFData>(bytes, length);
}

CFIndex CFDataGetLength(CFDataRef data) {
    return static_cast<CFIndex>(data->bytes.size());
}

const UInt8 *CFDataGetBytePtr(CFDataRef data) {
    return data->bytes.empty() ? nullptr : data->bytes.data();
}
