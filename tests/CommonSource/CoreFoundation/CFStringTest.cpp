// SPDX-License-Identifier: Apache-2.0
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

namespace {

constexpr CFStringEncoding kEncodings[] = {kCFStringEncodingUTF8, kCFStringEncodingISOLatin1,
                                           kCFStringEncodingASCII};

// The units of `bytes`; {0} if there is no string.
std::vector<UniChar> Decode(const std::string &bytes, CFStringEncoding encoding) {
    const CFStringRef string =
        CFStringCreateWithCString(kCFAllocatorDefault, bytes.c_str(), encoding);
    if (!string) return {0};
    std::vector<UniChar> units(static_cast<std::size_t>(CFStringGetLength(string)));
    CFStringGetCharacters(string, CFRangeMake(0, CFStringGetLength(string)), units.data());
    CFRelease(string);
    return units;
}

// The bytes of `units`; "#" if they cannot be had, in which case nothing must be left to use.
std::string Encode(const std::vector<UniChar> &units, CFStringEncoding encoding,
                   CFIndex size = 100) {
    const CFStringRef string = CFStringCreateWithCharacters(kCFAllocatorDefault, units.data(),
                                                            static_cast<CFIndex>(units.size()));
    std::vector<char> buffer(static_cast<std::size_t>(size) + 1, '#');
    const bool done = CFStringGetCString(string, buffer.data(), size, encoding);
    CFRelease(string);
    EXPECT_EQ(buffer.back(), '#');
    if (done) return buffer.data();
    EXPECT_TRUE(size == 0 || buffer.front() == '\0');
    return "#";
}

using Units = std::vector<UniChar>;
const Units kNoString = {0};

}  // namespace

TEST(CFString, DecodesUTF8) {
    EXPECT_EQ(Decode("", kCFStringEncodingUTF8), Units{});
    EXPECT_EQ(Decode("aé", kCFStringEncodingUTF8), (Units{'a', 0xE9}));
    EXPECT_EQ(Decode("田", kCFStringEncodingUTF8), Units{0x7530});
    EXPECT_EQ(Decode("\U0001F5A8", kCFStringEncodingUTF8), (Units{0xD83D, 0xDDA8}));
    EXPECT_EQ(Decode("\U0010FFFF", kCFStringEncodingUTF8), (Units{0xDBFF, 0xDFFF}));
    EXPECT_EQ(Decode("\uFFFE\uFFFF", kCFStringEncodingUTF8), (Units{0xFFFE, 0xFFFF}));
    for (const char *invalid :
         {"\x80", "a\xC3", "\xC3(", "\xC0\x80", "\xE0\x9F\xBF", "\xF0\x8F\xBF\xBF", "\xED\xA0\x80",
          "\xED\xBF\xBF", "\xED\xA0\xBD\xED\xB6\xA8", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80\x80",
          "\xFE", "\xFF"}) {
        SCOPED_TRACE(testing::PrintToString(invalid));
        EXPECT_EQ(Decode(invalid, kCFStringEncodingUTF8), kNoString);
    }
}

TEST(CFString, DecodesSingleBytes) {
    EXPECT_EQ(Decode("a\x7F", kCFStringEncodingASCII), (Units{'a', 0x7F}));
    EXPECT_EQ(Decode("a\x80", kCFStringEncodingASCII), kNoString);
    EXPECT_EQ(Decode("a\x80\xE9\xFF", kCFStringEncodingISOLatin1), (Units{'a', 0x80, 0xE9, 0xFF}));
}

TEST(CFString, DecodesNoOtherEncoding) {
    EXPECT_EQ(Decode("a", kCFStringEncodingJIS_X0208_83), kNoString);
    EXPECT_EQ(Decode("a", 0xFFFFFFFF), kNoString);
}

TEST(CFString, EncodesWhatTheEncodingHas) {
    for (const CFStringEncoding encoding : kEncodings) {
        EXPECT_EQ(Encode({}, encoding), "");
        EXPECT_EQ(Encode({'a', 0x7F}, encoding), "a\x7F");
    }
    EXPECT_EQ(Encode({0x80, 0xFF}, kCFStringEncodingISOLatin1), "\x80\xFF");
    EXPECT_EQ(Encode({0x80, 0x7FF, 0x800, 0xFFFF}, kCFStringEncodingUTF8),
              "\u0080\u07FF\u0800\uFFFF");
    EXPECT_EQ(Encode({0xD83D, 0xDDA8}, kCFStringEncodingUTF8), "\U0001F5A8");
    EXPECT_EQ(Encode({0xD800, 0xDC00}, kCFStringEncodingUTF8), "\U00010000");
    EXPECT_EQ(Encode({0xDBFF, 0xDFFF}, kCFStringEncodingUTF8), "\U0010FFFF");
}

TEST(CFString, EncodesAllOrNothing) {
    EXPECT_EQ(Encode({'a', 0x80}, kCFStringEncodingASCII), "#");
    EXPECT_EQ(Encode({'a', 0x100}, kCFStringEncodingISOLatin1), "#");
    EXPECT_EQ(Encode({0xD83D, 0xDDA8}, kCFStringEncodingISOLatin1), "#");
    EXPECT_EQ(Encode({'a'}, kCFStringEncodingJIS_X0208_83), "#");
    EXPECT_EQ(Encode({'a'}, 0xFFFFFFFF), "#");
    // Halves of surrogate pairs are no characters.
    EXPECT_EQ(Encode({'a', 0xD83D}, kCFStringEncodingUTF8), "#");
    EXPECT_EQ(Encode({0xD83D, 'a'}, kCFStringEncodingUTF8), "#");
    EXPECT_EQ(Encode({0xDDA8, 0xD83D}, kCFStringEncodingUTF8), "#");
    EXPECT_EQ(Encode({0xD83D, 0xD83D}, kCFStringEncodingUTF8), "#");
    for (const UniChar half : std::vector<UniChar>{0xD800, 0xDBFF, 0xDC00, 0xDFFF}) {
        EXPECT_EQ(Encode({half}, kCFStringEncodingUTF8), "#") << half;
    }
    EXPECT_EQ(Encode({0xD7FF, 0xE000}, kCFStringEncodingUTF8), "\uD7FF\uE000");
    EXPECT_EQ(Encode({0xDBFF, 0xE000}, kCFStringEncodingUTF8), "#");
    EXPECT_EQ(Encode({0xD7FF, 0xDC00}, kCFStringEncodingUTF8), "#");
}

TEST(CFString, EncodesIntoBoundedBuffers) {
    for (const CFStringEncoding encoding : kEncodings) {
        EXPECT_EQ(Encode({'a', 'b', 'c'}, encoding, 4), "abc");
        EXPECT_EQ(Encode({'a', 'b', 'c'}, encoding, 3), "#");
        EXPECT_EQ(Encode({}, encoding, 1), "");
        EXPECT_EQ(Encode({}, encoding, 0), "#");
    }
    EXPECT_EQ(Encode({0xD83D, 0xDDA8}, kCFStringEncodingUTF8, 5), "\U0001F5A8");
    EXPECT_EQ(Encode({0xD83D, 0xDDA8}, kCFStringEncodingUTF8, 4), "#");
}

TEST(CFString, GivesAnyRange) {
    const CFStringRef string =
        CFStringCreateWithCString(kCFAllocatorDefault, "abc", kCFStringEncodingASCII);
    UniChar units[] = {'#', '#', '#'};
    CFStringGetCharacters(string, CFRangeMake(1, 2), units);
    EXPECT_EQ(units[0], 'b');
    EXPECT_EQ(units[1], 'c');
    EXPECT_EQ(units[2], '#');
    CFStringGetCharacters(string, CFRangeMake(3, 0), units);
    EXPECT_EQ(units[0], 'b');
    CFRelease(string);
}

TEST(CFString, GrowsOverTheBufferOfAnother) {
    UniChar buffer[] = {'a', 0, 0, 0, '#'};
    const CFMutableStringRef string = CFStringCreateMutableWithExternalCharactersNoCopy(
        kCFAllocatorDefault, buffer, 1, 4, kCFAllocatorNull);
    const CFStringRef two =
        CFStringCreateWithCString(kCFAllocatorDefault, "bc", kCFStringEncodingASCII);
    CFStringAppend(string, two);
    EXPECT_EQ(CFStringGetLength(string), 3);
    EXPECT_EQ(buffer[1], 'b');
    EXPECT_EQ(buffer[2], 'c');
    CFStringAppend(string, two);  // there is room for one
    EXPECT_EQ(CFStringGetLength(string), 3);
    EXPECT_EQ(buffer[3], 0);
    EXPECT_EQ(buffer[4], '#');
    buffer[0] = 'x';
    char bytes[8];
    EXPECT_TRUE(CFStringGetCString(string, bytes, sizeof bytes, kCFStringEncodingASCII));
    EXPECT_STREQ(bytes, "xbc");
    CFRelease(two);
    CFRelease(string);
    EXPECT_EQ(buffer[0], 'x');  // the buffer is not the string's to free
}

TEST(CFString, TakesNoBufferItWouldHaveToReplace) {
    UniChar buffer[4] = {};
    EXPECT_EQ(CFStringCreateMutableWithExternalCharactersNoCopy(kCFAllocatorDefault, buffer, 0, 4,
                                                                kCFAllocatorDefault),
              nullptr);
}

TEST(CFString, MaximumSizes) {
    constexpr CFIndex most = std::numeric_limits<CFIndex>::max();
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(7, kCFStringEncodingASCII), 7);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(7, kCFStringEncodingISOLatin1), 7);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(7, kCFStringEncodingUTF8), 21);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(0, kCFStringEncodingUTF8), 0);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(most / 3, kCFStringEncodingUTF8), most / 3 * 3);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(most / 3 + 1, kCFStringEncodingUTF8), kCFNotFound);
    EXPECT_EQ(CFStringGetMaximumSizeForEncoding(1, kCFStringEncodingJIS_X0208_83), kCFNotFound);
}

TEST(CFString, LivesAsLongAsItsReferences) {
    const CFStringRef string =
        CFStringCreateWithCString(kCFAllocatorDefault, "abc", kCFStringEncodingASCII);
    EXPECT_EQ(CFGetRetainCount(string), 1);
    EXPECT_EQ(CFRetain(string), string);
    EXPECT_EQ(CFGetRetainCount(string), 2);
    CFRelease(string);
    EXPECT_EQ(CFGetRetainCount(string), 1);
    EXPECT_EQ(CFStringGetLength(string), 3);
    CFRelease(string);
}
