// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/TextEncoding.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "support/Ppd.h"
#include "support/TempFolder.h"

namespace {

using Conversion = int (*)(const char *source, char *destination, std::int32_t size);

int ToPPDEncoding(const char *source, char *destination, std::int32_t size) {
    return ConvertUTF8ToPPDEncoding(source, destination, size, kCFStringEncodingUTF8);
}

constexpr Conversion kConversions[] = {ConvertUTF8ToEncoding, ConvertUTF8ToEncodingForUTF8,
                                       ToPPDEncoding};

// Converts into a field of `size` bytes that held something else, and checks what every conversion
// promises: the length returned, and zeros from there to the end of the field.
std::string Convert(Conversion conversion, const std::string &source, std::int32_t size) {
    std::vector<char> field(static_cast<std::size_t>(size), '#');
    const int length = conversion(source.c_str(), field.data(), size);
    const std::string text(field.data(), strnlen(field.data(), field.size()));
    EXPECT_EQ(static_cast<std::size_t>(length), text.size());
    EXPECT_TRUE(std::all_of(field.begin() + length, field.end(), [](char c) { return c == 0; }));
    return text;
}

std::string ToPrinter(const std::string &source, std::int32_t size = 255) {
    return Convert(ConvertUTF8ToEncoding, source, size);
}

std::string ToUTF8(const std::string &source, std::int32_t size = 255) {
    return Convert(ConvertUTF8ToEncodingForUTF8, source, size);
}

std::string ToPPD(const std::string &source, std::int32_t size = 1024) {
    return Convert(ToPPDEncoding, source, size);
}

std::string Parenthesised(const std::string &text) {
    return std::string(1, '(').append(text).append(")");
}

const std::string kTanaka = "田中";
const std::string kPrinterEmoji = "\U0001F5A8";  // outside the basic plane

// What no conversion takes for UTF-8.
const std::vector<std::string> kInvalid = {
    "\x80",                      // continuation without a start
    "abc\xFF",                   // never a byte of UTF-8
    "abc\xC3",                   // cut after the start
    "\xE7\x94",                  // cut in the middle
    "\xC0\xAF",                  // two bytes for one
    "\xE0\x80\xAF",              // three bytes for one
    "\xED\xA0\x80",              // half of a surrogate pair
    "\xED\xA0\xBD\xED\xB6\xA8",  // a surrogate pair
    "\xF4\x90\x80\x80",          // above the last code point
};

}  // namespace

TEST(TextEncoding, ToPrinterKeepsLatin1) {
    EXPECT_EQ(ToPrinter("Zoë–é"), "Zo\xEB\xE9");
    EXPECT_EQ(ToPrinter("résumé"), "r\xE9sum\xE9");
    EXPECT_EQ(ToPrinter(""), "");
}

TEST(TextEncoding, ToPrinterMapsEveryCodeOfLatin1) {
    for (unsigned code = 1; code < 0x100; code++) {
        SCOPED_TRACE(code);
        const std::string source = code < 0x80
                                       ? std::string(1, static_cast<char>(code))
                                       : std::string{static_cast<char>(0xC0 | code >> 6),
                                                     static_cast<char>(0x80 | (code & 0x3F))};
        EXPECT_EQ(ToPrinter(source), std::string(1, static_cast<char>(code)));
    }
    EXPECT_EQ(ToPrinter("\\~"), "\\~");
}

TEST(TextEncoding, ToPrinterDropsOnlyWhatLatin1Lacks) {
    EXPECT_EQ(ToPrinter(kTanaka), "");
    EXPECT_EQ(ToPrinter("A4 " + kTanaka + " B5 €"), "A4  B5 ");
    EXPECT_EQ(ToPrinter("a" + kPrinterEmoji + "b"), "ab");
    EXPECT_EQ(ToPrinter("\u0100"), "");        // the first code after Latin-1
    EXPECT_EQ(ToPrinter("Zoe\u0308"), "Zoe");  // a combining mark goes, its letter stays
}

TEST(TextEncoding, ToUTF8KeepsTheBasicPlane) {
    EXPECT_EQ(ToUTF8("résumé \\~"), "résumé \\~");
    EXPECT_EQ(ToUTF8(kTanaka), kTanaka);
    EXPECT_EQ(ToUTF8("\uFFFD\uD7FF\uE000"), "\uFFFD\uD7FF\uE000");
    EXPECT_EQ(ToUTF8("a" + kPrinterEmoji + "b"), "ab");
}

TEST(TextEncoding, FieldsCutLongText) {
    EXPECT_EQ(ToPrinter("abcdef", 4), "abc");
    EXPECT_EQ(ToPrinter("abc", 4), "abc");
    EXPECT_EQ(ToPrinter("ééé", 3), "\xE9\xE9");
    EXPECT_EQ(ToPrinter(std::string(1 << 20, 'x'), 255), std::string(254, 'x'));
    EXPECT_EQ(ToUTF8("a" + kTanaka, 5), "a\xE7\x94\xB0");
    EXPECT_EQ(ToUTF8("a" + kTanaka, 6), "a\xE7\x94\xB0\xE4");  // a character may be cut
    EXPECT_EQ(ToPrinter("a", 1), "");
    EXPECT_EQ(ToUTF8("a", 1), "");
    EXPECT_EQ(ToPPD("a", 1), "");
}

TEST(TextEncoding, FieldsWithoutRoomAreLeftAlone) {
    for (const Conversion conversion : kConversions) {
        for (const std::int32_t size : {0, -1}) {
            char field = '#';
            EXPECT_EQ(conversion("abc", &field, size), 0);
            EXPECT_EQ(field, '#');
        }
    }
}

TEST(TextEncoding, InvalidUTF8IsEmpty) {
    for (const std::string &source : kInvalid) {
        SCOPED_TRACE(testing::PrintToString(source));
        for (const Conversion conversion : kConversions) {
            EXPECT_EQ(Convert(conversion, source, 20), "");
        }
    }
}

TEST(TextEncoding, ToPPDPutsParenthesesAround) {
    EXPECT_EQ(ToPPD("abc", 10), "(abc)");
    EXPECT_EQ(ToPPD("", 10), "()");
    EXPECT_EQ(ToPPD(kTanaka + kPrinterEmoji), Parenthesised(kTanaka + kPrinterEmoji));
}

TEST(TextEncoding, ToPPDIsUTF8WhateverTheEncoding) {
    constexpr CFStringEncoding encodings[] = {
        kCFStringEncodingUTF8,
        kCFStringEncodingISOLatin1,
        kCFStringEncodingJIS_X0208_83,
    };
    for (const CFStringEncoding encoding : encodings) {
        char field[20];
        EXPECT_EQ(ConvertUTF8ToPPDEncoding("é", field, sizeof field, encoding), 4);
        EXPECT_STREQ(field, "(é)");
    }
}

TEST(TextEncoding, ToPPDIsAllOrNothing) {
    EXPECT_EQ(ToPPD("abc", 6), "(abc)");
    EXPECT_EQ(ToPPD("abc", 5), "");
    EXPECT_EQ(ToPPD("é", 5), "(é)");
    EXPECT_EQ(ToPPD("é", 4), "");
}

TEST(TextEncoding, ToPPDLeavesLongTextWithoutParentheses) {
    const std::string longest(253, 'x');
    EXPECT_EQ(ToPPD(longest), Parenthesised(longest));
    EXPECT_EQ(ToPPD(longest + "x"), longest + "x");
    EXPECT_EQ(ToPPD(longest + "xxx"), longest + "xxx");
    std::string wide;
    for (int i = 0; i < 253; i++) wide += "田";
    EXPECT_EQ(ToPPD(wide), Parenthesised(wide));
    EXPECT_EQ(ToPPD(wide + "中"), wide + "中");
    // A character outside the basic plane counts as two.
    EXPECT_EQ(ToPPD(std::string(251, 'x') + kPrinterEmoji),
              Parenthesised(std::string(251, 'x') + kPrinterEmoji));
    EXPECT_EQ(ToPPD(std::string(252, 'x') + kPrinterEmoji), std::string(252, 'x') + kPrinterEmoji);
}

TEST(TextEncoding, EncodingOfThePPD) {
    const struct {
        const char *line;
        CFStringEncoding encoding;
    } cases[] = {
        {"", kCFStringEncodingUTF8},
        {"*LanguageEncoding: ISOLatin1\n", kCFStringEncodingUTF8},
        {"*LanguageEncoding: WindowsANSI\n", kCFStringEncodingUTF8},
        {"*LanguageEncoding: JIS83-RKSJ\n", kCFStringEncodingJIS_X0208_83},
        {"*LanguageEncoding: \"JIS83-RKSJ\"\n", kCFStringEncodingJIS_X0208_83},
        {"*LanguageEncoding: JIS83-RKSJ\n*KVText: \"\x83\x65\x83\x58\x83\x67\"\n",
         kCFStringEncodingJIS_X0208_83},
        {"*LanguageEncoding: JIS83-RKSJ2\n", kCFStringEncodingUTF8},
        {"*LanguageEncoding: UTF-8\n", kCFStringEncodingUTF8},
        {"*LanguageEncoding: MacStandard\n", kCFStringEncodingUTF8},
        {"*LanguageEncodingHint: JIS83-RKSJ\n", kCFStringEncodingUTF8},
    };
    const TempFolder folder;
    for (const auto &[line, encoding] : cases) {
        SCOPED_TRACE(line);
        ppd_file_t *ppd = ppdOpenFile(folder.Write("queue.ppd", PpdWith(line)).c_str());
        ASSERT_NE(ppd, nullptr);
        EXPECT_EQ(GetCFStringSimEncodingFromPPD(ppd), encoding);
        ppdClose(ppd);
    }
    EXPECT_EQ(GetCFStringSimEncodingFromPPD(nullptr), kCFStringEncodingUTF8);
}

TEST(TextEncoding, EncodingsHaveThePlatformsNumbers) {
    EXPECT_EQ(kCFStringEncodingUTF8, 0x08000100U);
    EXPECT_EQ(kCFStringEncodingISOLatin1, 0x0201U);
    EXPECT_EQ(kCFStringEncodingASCII, 0x0600U);
    EXPECT_EQ(kCFStringEncodingJIS_X0208_83, 0x0621U);
}
