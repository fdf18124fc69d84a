// SPDX-License-Identifier: Apache-2.0
//
// The platform's host resolution, where the platform lacks it: the part of the CFNetwork API that
// the filter uses, in the manner of CoreFoundation.h. A host is used by one thread, the one whose
// run loop it is scheduled on.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

using CFHostRef = struct __CFHost *;

enum CFHostInfoType : int {
    kCFHostAddresses = 0,
};

extern "C" {

using CFHostClientCallBack = void (*)(CFHostRef host, CFHostInfoType typeInfo,
                                      const CFStreamError *error, void *info);

// `info` goes to the call-back; it is kept with `retain` and let go with `release`, if given.
struct CFHostClientContext {
    CFIndex version;  // 0
    void *info;
    CFAllocatorRetainCallBack retain;
    CFAllocatorReleaseCallBack release;
    CFAllocatorCopyDescriptionCallBack copyDescription;
};

extern const SInt32 kCFStreamErrorDomainNetDB;  // getaddrinfo's EAI_ numbers

// Null also if `hostname` is not text.
CFHostRef CFHostCreateWithName(CFAllocatorRef allocator, CFStringRef hostname);

// Makes `callBack` the one to call when a resolution has ended; null takes the client away, with
// any resolution under way. Returns whether the client is set.
Boolean CFHostSetClient(CFHostRef host, CFHostClientCallBack callBack,
                        CFHostClientContext *context);

// A host is scheduled on one run loop at most. A resolution under way ends unheard when the host
// leaves its loop.
void CFHostScheduleWithRunLoop(CFHostRef host, CFRunLoopRef runLoop, CFStringRef mode);
void CFHostUnscheduleFromRunLoop(CFHostRef host, CFRunLoopRef runLoop, CFStringRef mode);

// Starts to look up the host's addresses. The answer goes to the client, on the scheduled run loop;
// without one within 5 seconds the client is called with ETIMEDOUT. False, with `error` filled if
// it is not null, if nothing was started: the host has no client or no run loop, another resolution
// is under way, or addresses are not what is asked for.
Boolean CFHostStartInfoResolution(CFHostRef host, CFHostInfoType info, CFStreamError *error);

// The addresses as CFData, each a socket address, in the resolver's order; null before they are
// known. `hasBeenResolved`, if not null, says whether they are.
CFArrayRef CFHostGetAddressing(CFHostRef host, Boolean *hasBeenResolved);

}  // extern "C"
