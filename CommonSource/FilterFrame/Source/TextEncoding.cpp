// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/TextEncoding.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "CommonSource/FilterFrame/Source/OutputWriter.h"

namespace {

// Room for one UTF-16 unit in any encoding.
constexpr std::size_t kUnitSize = 6;

// The UTF-16 units that the parenthesised form may have.
constexpr CFIndex kParenthesisedLength = 255;

using EncodingOfUnit = CFStringEncoding (*)(UniChar unit);

// A text that is lost for want of memory is part of a job that could not be written whole.
CFStringRef NoteMemory(CFStringRef string) {
    if (!string && errno == ENOMEM && writeError == 0) {  // GCOVR_EXCL_BR_LINE: fault
        writeError = ENOMEM;
    }
    return string;
}

CFStringRef StringFromUTF8(const char *text) {
    errno = 0;
    return NoteMemory(CFStringCreateWithCString(kCFAllocatorDefault, text, kCFStringEncodingUTF8));
}

// Encodes one unit; false if it has no character of its own in `encoding`.
bool EncodeUnit(UniChar unit, CFStringEncoding encoding, char (&encoded)[kUnitSize]) {
    errno = 0;
    const CFStringRef string =
        NoteMemory(CFStringCreateWithCharacters(kCFAllocatorDefault, &unit, 1));
    if (!string) return false;
    const Boolean done = CFStringGetCString(string, encoded, kUnitSize, encoding);
    CFRelease(string);
    return done;
}

int ConvertUnits(const char *source, char *destination, std::int32_t size,
                 EncodingOfUnit encodingOf) {
    if (size <= 0) return 0;
    std::memset(destination, 0, static_cast<std::size_t>(size));
    const CFStringRef string = StringFromUTF8(source);
    if (!string) return 0;
    char *out = destination;
    char *const last = destination + size - 1;
    const CFIndex length = CFStringGetLength(string);
    for (CFIndex i = 0; i < length && out != last; i++) {
        UniChar unit = 0;
        CFStringGetCharacters(string, CFRangeMake(i, 1), &unit);
        char encoded[kUnitSize] = "";
        if (!EncodeUnit(unit, encodingOf(unit), encoded)) continue;
        const auto room = static_cast<std::size_t>(last - out);
        out = std::copy_n(encoded, std::min(std::strlen(encoded), room), out);
    }
    CFRelease(string);
    return static_cast<int>(out - destination);
}

// "(" `string` ")" in `units`, or null where it does not fit.
CFStringRef CreateParenthesised(CFStringRef string, UniChar (&units)[kParenthesisedLength]) {
    if (CFStringGetLength(string) > kParenthesisedLength - 2) return nullptr;
    const CFMutableStringRef whole = CFStringCreateMutableWithExternalCharactersNoCopy(
        kCFAllocatorDefault, units, 0, kParenthesisedLength, kCFAllocatorNull);
    const CFStringRef open = StringFromUTF8("(");
    const CFStringRef close = StringFromUTF8(")");
    const bool isWhole = NoteMemory(whole) && open && close;  // GCOVR_EXCL_BR_LINE: fault
    if (isWhole) {                                            // GCOVR_EXCL_BR_LINE: fault
        for (const CFStringRef piece : {open, string, close}) CFStringAppend(whole, piece);
    }
    const CFStringRef unfinished = isWhole ? nullptr : whole;  // GCOVR_EXCL_BR_LINE: fault
    for (const CFStringRef part : {open, close, unfinished}) {
        if (part) CFRelease(part);
    }
    return isWhole ? whole : nullptr;  // GCOVR_EXCL_BR_LINE: fault
}

}  // namespace

int ConvertUTF8ToEncoding(const char *source, char *destination, std::int32_t size) {
    return ConvertUnits(source, destination, size, [](UniChar unit) -> CFStringEncoding {
        // Japanese single-byte sets have the yen sign and the overline in their places; in UTF-8
        // they are what they are.
        if (unit == '\\' || unit == '~') return kCFStringEncodingUTF8;
        return kCFStringEncodingISOLatin1;
    });
}

int ConvertUTF8ToEncodingForUTF8(const char *source, char *destination, std::int32_t size) {
    return ConvertUnits(source, destination, size,
                        [](UniChar) -> CFStringEncoding { return kCFStringEncodingUTF8; });
}

int ConvertUTF8ToPPDEncoding(const char *source, char *destination, std::int32_t size,
                             CFStringEncoding) {
    if (size <= 0) return 0;
    std::memset(destination, 0, static_cast<std::size_t>(size));
    const CFStringRef string = StringFromUTF8(source);
    if (!string) return 0;
    UniChar units[kParenthesisedLength] = {};
    const CFStringRef parenthesised = CreateParenthesised(string, units);
    const CFStringRef text = parenthesised ? parenthesised : string;
    if (!CFStringGetCString(text, destination, size, kCFStringEncodingUTF8)) {
        std::memset(destination, 0, static_cast<std::size_t>(size));
    }
    if (parenthesised) CFRelease(parenthesised);
    CFRelease(string);
    return static_cast<int>(std::strlen(destination));
}

CFStringEncoding GetCFStringSimEncodingFromPPD(ppd_file_t *ppd) {
    // On opening, CUPS converts what it reads and puts "UTF-8" into lang_encoding.
    const ppd_attr_t *encoding = ppd ? ppdFindAttr(ppd, "LanguageEncoding", nullptr) : nullptr;
    if (encoding && encoding->value && std::strcmp(encoding->value, "JIS83-RKSJ") == 0) {
        return kCFStringEncodingJIS_X0208_83;
    }
    return kCFStringEncodingUTF8;
}
