// SPDX-License-Identifier: Apache-2.0
// As the platform documents them, the names that the filter uses; not taken from the stand-in, so
// that types in which the two differ show.
#pragma once

#include <stdint.h>

typedef unsigned char UInt8;
typedef unsigned short UInt16;
typedef unsigned int UInt32;
typedef int SInt32;
typedef UInt16 UniChar;
typedef unsigned char Boolean;
typedef long CFIndex;
typedef const void *CFTypeRef;
typedef const struct __CFAllocator *CFAllocatorRef;
typedef const struct __CFString *CFStringRef;
typedef struct __CFString *CFMutableStringRef;
typedef const struct __CFData *CFDataRef;
typedef const struct __CFArray *CFArrayRef;
typedef struct __CFRunLoop *CFRunLoopRef;
typedef CFStringRef CFRunLoopMode;
typedef UInt32 CFStringEncoding;

typedef struct {
    CFIndex location;
    CFIndex length;
} CFRange;

typedef enum CFStringBuiltInEncodings : CFStringEncoding {
    kCFStringEncodingISOLatin1 = 0x0201,
    kCFStringEncodingASCII = 0x0600,
    kCFStringEncodingUTF8 = 0x08000100,
} CFStringBuiltInEncodings;

typedef enum CFStringEncodings : CFIndex {
    kCFStringEncodingJIS_X0208_83 = 0x0621,
} CFStringEncodings;

typedef enum CFStreamErrorDomain : CFIndex {
    kCFStreamErrorDomainPOSIX = 1,
} CFStreamErrorDomain;

typedef struct {
    CFIndex domain;
    SInt32 error;
} CFStreamError;

extern "C" {

extern const CFAllocatorRef kCFAllocatorDefault;
extern const CFAllocatorRef kCFAllocatorNull;
extern const CFRunLoopMode kCFRunLoopCommonModes;

typedef const void *(*CFAllocatorRetainCallBack)(const void *info);
typedef void (*CFAllocatorReleaseCallBack)(const void *info);
typedef CFStringRef (*CFAllocatorCopyDescriptionCallBack)(const void *info);

CFTypeRef CFRetain(CFTypeRef cf);
void CFRelease(CFTypeRef cf);
CFRange CFRangeMake(CFIndex location, CFIndex length);

CFIndex CFArrayGetCount(CFArrayRef array);
const void *CFArrayGetValueAtIndex(CFArrayRef array, CFIndex index);
CFIndex CFDataGetLength(CFDataRef data);
const UInt8 *CFDataGetBytePtr(CFDataRef data);

CFStringRef CFStringCreateWithCString(CFAllocatorRef allocator, const char *text,
                                      CFStringEncoding encoding);
CFStringRef CFStringCreateWithCharacters(CFAllocatorRef allocator, const UniChar *characters,
                                         CFIndex count);
CFMutableStringRef CFStringCreateMutableWithExternalCharactersNoCopy(
    CFAllocatorRef allocator, UniChar *characters, CFIndex count, CFIndex capacity,
    CFAllocatorRef externalCharactersAllocator);
void CFStringAppend(CFMutableStringRef string, CFStringRef appended);
CFIndex CFStringGetLength(CFStringRef string);
void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar *buffer);
Boolean CFStringGetCString(CFStringRef string, char *buffer, CFIndex size,
                           CFStringEncoding encoding);
CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding);

CFRunLoopRef CFRunLoopGetCurrent(void);
void CFRunLoopRun(void);
void CFRunLoopStop(CFRunLoopRef loop);

}  // extern "C"
