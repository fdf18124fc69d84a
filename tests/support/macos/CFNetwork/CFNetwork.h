// SPDX-License-Identifier: Apache-2.0
// As the platform documents them, the names that the filter uses; not taken from the stand-in, so
// that types in which the two differ show.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

typedef struct __CFHost *CFHostRef;

typedef enum CFHostInfoType : int {
    kCFHostAddresses = 0,
} CFHostInfoType;

extern "C" {

typedef void (*CFHostClientCallBack)(CFHostRef host, CFHostInfoType typeInfo,
                                     const CFStreamError *error, void *info);

typedef struct {
    CFIndex version;
    void *info;
    CFAllocatorRetainCallBack retain;
    CFAllocatorReleaseCallBack release;
    CFAllocatorCopyDescriptionCallBack copyDescription;
} CFHostClientContext;

CFHostRef CFHostCreateWithName(CFAllocatorRef allocator, CFStringRef hostname);
Boolean CFHostSetClient(CFHostRef host, CFHostClientCallBack callBack,
                        CFHostClientContext *context);
void CFHostScheduleWithRunLoop(CFHostRef host, CFRunLoopRef loop, CFStringRef mode);
void CFHostUnscheduleFromRunLoop(CFHostRef host, CFRunLoopRef loop, CFStringRef mode);
Boolean CFHostStartInfoResolution(CFHostRef host, CFHostInfoType info, CFStreamError *error);
CFArrayRef CFHostGetAddressing(CFHostRef host, Boolean *hasBeenResolved);

}  // extern "C"
