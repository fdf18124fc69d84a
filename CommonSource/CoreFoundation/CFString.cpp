// SPDX-License-Identifier: Apache-2.0
#include <CoreFoundation/CoreFoundation.h>
#include <utf8/core.h>
#include <utf8/unchecked.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>
#include <vector>

#include "CommonSource/CoreFoundation/CFObject.h"

struct __CFString : CFObject {
    // Owns its units.
    explicit __CFString(std::vector<UniChar> &&text)
        : own(std::move(text)),
          units(own.data()),
          length(static_cast<CFIndex>(own.size())),
          capacity(length) {}
    // Lives in a buffer of somebody else's.
    __CFString(UniChar *buffer, CFIndex count, CFIndex room)
        : units(buffer), length(count), capacity(room) {}

    std::vector<UniChar> own;
    UniChar *units;
    CFIndex length;
    CFIndex capacity;
};

namespace {

constexpr CFIndex kMostUTF8PerUnit = 3;  // a pair of units is four bytes

// Adds the text to `units`; false if it is not valid in `encoding`.
bool Decode(const char *bytes, CFStringEncoding encoding, std::vector<UniChar> &units) {
    const char *const end = bytes + std::strlen(bytes);
    const auto widen = [](char byte) -> UniChar { return static_cast<unsigned char>(byte); };
    switch (encoding) {
        case kCFStringEncodingUTF8:
            if (utf8::find_invalid(bytes, end) != end) return false;
            utf8::unchecked::utf8to16(bytes, end, std::back_inserter(units));
            return true;
        case kCFStringEncodingASCII:
            if (std::any_of(bytes, end, [&](char byte) { return widen(byte) > 0x7F; })) {
                return false;
            }
            [[fallthrough]];
        case kCFStringEncodingISOLatin1:
            std::transform(bytes, end, std::back_inserter(units), widen);
            return true;
        default:
            return false;
    }
}

bool IsSurrogate(UInt32 code) {
    return code >= 0xD800 && code <= 0xDFFF;
}

// The code point at `position`, which moves on after it. Half of a surrogate pair stands for
// itself.
UInt32 NextCodePoint(CFStringRef string, CFIndex &position) {
    const UInt32 first = string->units[position++];
    if (first < 0xD800 || first > 0xDBFF || position == string->length) return first;
    const UInt32 second = string->units[position];
    if (second < 0xDC00 || second > 0xDFFF) return first;
    position++;
    return 0x10000 + ((first - 0xD800) << 10) + (second - 0xDC00);
}

// Writes up to four bytes; returns how many, 0 if `encoding` lacks the character.
CFIndex Encode(UInt32 code, CFStringEncoding encoding, char *bytes) {
    if (encoding == kCFStringEncodingUTF8) {
        return IsSurrogate(code) ? 0 : utf8::unchecked::append(code, bytes) - bytes;
    }
    const bool known = (encoding == kCFStringEncodingASCII && code < 0x80) ||
                       (encoding == kCFStringEncodingISOLatin1 && code < 0x100);
    *bytes = static_cast<char>(code);
    return known ? 1 : 0;
}

}  // namespace

CFStringRef CFStringCreateWithCString(CFAllocatorRef, const char *bytes,
                                      CFStringEncoding encoding) {
    try {
        std::vector<UniChar> units;
        return Decode(bytes, encoding, units) ? NewObject<__CFString>(std::move(units)) : nullptr;
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

CFStringRef CFStringCreateWithCharacters(CFAllocatorRef, const UniChar *characters, CFIndex count) {
    try {
        return NewObject<__CFString>(std::vector<UniChar>(characters, characters + count));
    } catch (const std::bad_alloc &) {
        return nullptr;
    }
}

CFMutableStringRef CFStringCreateMutableWithExternalCharactersNoCopy(
    CFAllocatorRef, UniChar *characters, CFIndex count, CFIndex capacity,
    CFAllocatorRef externalCharactersAllocator) {
    if (externalCharactersAllocator != kCFAllocatorNull) return nullptr;
    return NewObject<__CFString>(characters, count, capacity);
}

void CFStringAppend(CFMutableStringRef string, CFStringRef appended) {
    if (appended->length > string->capacity - string->length) return;
    std::copy_n(appended->units, appended->length, string->units + string->length);
    string->length += appended->length;
}

CFIndex CFStringGetLength(CFStringRef string) {
    return string->length;
}

void CFStringGetCharacters(CFStringRef string, CFRange range, UniChar *buffer) {
    std::copy_n(string->units + range.location, range.length, buffer);
}

Boolean CFStringGetCString(CFStringRef string, char *buffer, CFIndex size,
                           CFStringEncoding encoding) {
    if (size <= 0) return false;
    char *out = buffer;
    const char *const last = buffer + size - 1;
    for (CFIndex position = 0; position < string->length;) {
        char bytes[4];
        const CFIndex count = Encode(NextCodePoint(string, position), encoding, bytes);
        if (count == 0 || count > last - out) {
            *buffer = '\0';
            return false;
        }
        out = std::copy_n(bytes, count, out);
    }
    *out = '\0';
    return true;
}

CFIndex CFStringGetMaximumSizeForEncoding(CFIndex length, CFStringEncoding encoding) {
    if (encoding == kCFStringEncodingASCII || encoding == kCFStringEncodingISOLatin1) return length;
    if (encoding != kCFStringEncodingUTF8) return kCFNotFound;
    if (length > std::numeric_limits<CFIndex>::max() / kMostUTF8PerUnit) return kCFNotFound;
    return length * kMostUTF8PerUnit;
}
