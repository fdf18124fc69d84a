// SPDX-License-Identifier: Apache-2.0
//
// The platform's strings, arrays, data and run loop, where the platform lacks them: the part of the
// CoreFoundation API that the filter uses, with its names, types and meanings. On macOS the real
// framework is found under the same name and this folder is not compiled.
//
// Ownership follows the API's rule: what a function with Create in its name returns belongs to the
// caller, who ends it with CFRelease; what one with Get returns belongs to the object asked.
// Functions take no null object unless they say so. Nothing throws: where memory is short, a Create
// function returns null.
#pragma once

#include <cstdint>

using UInt8 = std::uint8_t;
using UInt16 = std::uint16_t;
using UInt32 = std::uint32_t;
using SInt32 = std::int32_t;
using UniChar = UInt16;  // a UTF-16 code unit
using Boolean = unsigned char;
using CFIndex = long;
using CFTypeRef = const void *;

using CFAllocatorRef = const struct __CFAllocator *;
using CFStringRef = const struct __CFString *;
using CFMutableStringRef = struct __CFString *;
using CFDataRef = const struct __CFData *;
using CFArrayRef = const struct __CFArray *;
using CFMutableArrayRef = struct __CFArray *;
using CFRunLoopRef = struct __CFRunLoop *;

extern "C" {

// Objects. All memory comes from operator new, whichever allocator is named.

extern const CFAllocatorRef kCFAllocatorDefault;
extern const CFAllocatorRef kCFAllocatorNull;  // leaves memory alone: for buffers of the caller's

using CFAllocatorRetainCallBack = const void *(*)(const void *info);
using CFAllocatorReleaseCallBack = void (*)(const void *info);
using CFAllocatorCopyDescriptionCallBack = CFStringRef (*)(const void *info);

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);
CFIndex CFGetRetainCount(CFTypeRef object);

// Strings: sequences of UTF-16 code units, which need not form whole characters.

struct CFRange {
    CFIndex location;
    CFIndex length;
};

inline CFRange CFRangeMake(CFIndex location, CFIndex length) {
    return {location, length};
}

constexpr CFIndex kCFNotFound = -1;

using CFStringEncoding = UInt32;

enum : CFStringEncoding {
    kCFStringEncodingISOLatin1 = 0x0201,
    kCFStringEncodingASCII = 0x0600,
    kCFStringEncodingJIS_X0208_83 = 0x0621,  // known by name; nothing is converted from or to it
    kCFStringEncodingUTF8 = 0x08000100,
};

// Null if `bytes` is not valid in `encoding`; a surrogate coded in UTF-8 is not.
CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char *bytes,
                                      CFStringEncoding encoding);

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar *characters,
                                         CFIndex count);

// A string that lives in `characters`, which the caller keeps for it: `count` units now, `capacity`
// at most. Text that does not fit is not appended. The last argument is kCFAllocatorNull; with
// another, which would let the string replace the buffer, there is no string.
CFMutableStringRef CFStringCreateMutableWithExternalCharactersNoCopy(
    CFAllocatorRef allocator, UniChar *characters, CFIndex count, CFIndex capacity,
    CFAllocatorRef externalCharactersAllocator);

void CFStringAppend(CFMutableStringRef string, CFStringRef appended);

CFIndex CFStringGetLength(CFStringRef string);

// Copies the units of `range`, which lies within the string.
void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar *buffer);

// Writes the string and a NUL into `buffer` of `size` bytes. False, with an empty text in the
// buffer, if it does not fit or holds a character that `encoding` lacks.
Boolean CFStringGetCString(CFStringRef string, char *buffer, CFIndex size,
                           CFStringEncoding encoding);

// The most bytes, without a NUL, that `length` units can need; kCFNotFound if that is no CFIndex.
CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);

// Data: bytes that do not change.

CFDataRef CFDataCreate(CFAllocatorRef allocator, const UInt8 *bytes, CFIndex length);
CFIndex CFDataGetLength(CFDataRef data);
const UInt8 *CFDataGetBytePtr(CFDataRef data);  // null for data without bytes

// Arrays: pointers in order. What becomes of a value on its way in and out, its call-backs say.

using CFArrayRetainCallBack = const void *(*)(CFAllocatorRef allocator, const void *value);
using CFArrayReleaseCallBack = void (*)(CFAllocatorRef allocator, const void *value);
using CFArrayCopyDescriptionCallBack = CFStringRef (*)(const void *value);
using CFArrayEqualCallBack = Boolean (*)(const void *first, const void *second);

struct CFArrayCallBacks {
    CFIndex version;
    CFArrayRetainCallBack retain;
    CFArrayReleaseCallBack release;
    CFArrayCopyDescriptionCallBack copyDescription;
    CFArrayEqualCallBack equal;
};

extern const CFArrayCallBacks kCFTypeArrayCallBacks;  // for objects: retained and released

// `capacity` is 0 for an array without a limit. Without call-backs the values are just pointers.
CFMutableArrayRef CFArrayCreateMutable(CFAllocatorRef allocator, CFIndex capacity,
                                       const CFArrayCallBacks *callBacks);
void CFArrayAppendValue(CFMutableArrayRef array, const void *value);
CFIndex CFArrayGetCount(CFArrayRef array);
const void *CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);  // index within the array

// The run loop: each thread has its own, and what is scheduled there makes its calls on that thread
// while CFRunLoopRun runs. There is one set of modes, the common ones.

extern const CFStringRef kCFRunLoopCommonModes;

// The calling thread's; it lasts as long as the thread.
CFRunLoopRef CFRunLoopGetCurrent();

// Runs the calling thread's loop until it is stopped or nothing is scheduled on it.
void CFRunLoopRun();

// Ends the innermost CFRunLoopRun of the loop, once the call it is in returns.
void CFRunLoopStop(CFRunLoopRef runLoop);

// What became of a connection or a resolution: no error if `error` is 0, else a number of `domain`.
struct CFStreamError {
    CFIndex domain;
    SInt32 error;
};

enum : CFIndex {
    kCFStreamErrorDomainPOSIX = 1,  // errno
};

}  // extern "C"
