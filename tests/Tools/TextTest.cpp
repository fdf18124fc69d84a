// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Text.h"

#include <gtest/gtest.h>

#include <clocale>
#include <string>

namespace {

TEST(Text, ShowsWhatATerminalWouldObeyByName) {
    const struct {
        std::string bytes;
        const char *visible;
        const char *ascii;
    } cases[] = {
        {"plain ~ text", "plain ~ text", "plain ~ text"},
        {"\x1b[31m\r\n\x04\x7f", "<ESC>[31m<CR><LF><04><7F>", "<ESC>[31m<CR><LF><04><7F>"},
        {std::string("a\0b", 3), "a<00>b", "a<00>b"},
        // UTF-8 as it is, anything else as ISO Latin-1.
        {"Gr\xc3\xbc\xc3\x9f"
         "e",
         "Gr\xc3\xbc\xc3\x9f"
         "e",
         "Gr<C3><BC><C3><9F>e"},
        {"Gr\xfc\xdf"
         "e",
         "Gr\xc3\xbc\xc3\x9f"
         "e",
         "Gr<FC><DF>e"},
        {"\xe6\x97\xa5", "\xe6\x97\xa5", "<E6><97><A5>"},
        {"\xc3", "\xc3\x83", "<C3>"},
        {"\xc0\xaf", "\xc3\x80\xc2\xaf", "<C0><AF>"},
        {"\xed\xa0\x80", "\xc3\xad\xc2\xa0<80>", "<ED><A0><80>"},
        {"\x9b"
         "31m",
         "<9B>31m", "<9B>31m"},
        {"\xc2\x9b"
         "31m",
         "<9B>31m", "<C2><9B>31m"},
        {"a\xe2\x80\xae"
         "b",
         "a<202E>b", "a<E2><80><AE>b"},
        {"\xe2\x80\x8d\xe2\x80\x8f\xe2\x80\x90", "\xe2\x80\x8d<200F>\xe2\x80\x90",
         "<E2><80><8D><E2><80><8F><E2><80><90>"},
        {"\xe2\x80\xa8\xe2\x80\xaf", "<2028>\xe2\x80\xaf", "<E2><80><A8><E2><80><AF>"},
        {"\xe2\x81\xa6\xe2\x81\xaa", "<2066>\xe2\x81\xaa", "<E2><81><A6><E2><81><AA>"},
        {"\xee\x80\x80", "\xee\x80\x80", "<EE><80><80>"},
        {"\xf4\x8f\xbf\xbf", "\xf4\x8f\xbf\xbf", "<F4><8F><BF><BF>"},
        {"\xf4\x90\x80\x80", "\xc3\xb4<90><80><80>", "<F4><90><80><80>"},
        {"\xf8", "\xc3\xb8", "<F8>"},
        {"\xc2\xa0", "\xc2\xa0", "<C2><A0>"},
    };
    for (const auto &test : cases) {
        EXPECT_EQ(Visible(test.bytes), test.visible);
        EXPECT_EQ(VisibleASCII(test.bytes), test.ascii);
    }
}

TEST(Text, TakesOneByteOfWhatIsNoUTF8) {
    for (const std::string begin :
         {"\xfc", "\xc3", "\xe6\x97", "\xed\xa0\x80", "\xed\xbf\xbf", "\x80"}) {
        const std::string bytes = begin + "bc";
        std::string_view text = bytes;
        EXPECT_EQ(TakeCharacter(text), -1);
        EXPECT_EQ(text, bytes.substr(1));
    }
}

TEST(Text, TakesTheFirstAndTheLastLetterOfEachLength) {
    const struct {
        std::string bytes;
        std::int32_t code;
    } letters[] = {
        {std::string(1, '\0'), 0},     {"\x7f", 0x7F},           {"\xc2\x80", 0x80},
        {"\xdf\xbf", 0x7FF},           {"\xe0\xa0\x80", 0x800},  {"\xed\x9f\xbf", 0xD7FF},
        {"\xee\x80\x80", 0xE000},      {"\xef\xbf\xbf", 0xFFFF}, {"\xf0\x90\x80\x80", 0x10000},
        {"\xf4\x8f\xbf\xbf", 0x10FFFF}};
    for (const auto &letter : letters) {
        const std::string bytes = letter.bytes + "bc";
        std::string_view text = bytes;
        EXPECT_EQ(TakeCharacter(text), letter.code);
        EXPECT_EQ(text, "bc");
    }
}

TEST(Text, TakesTheCellsOfATerminal) {
    ASSERT_NE(std::setlocale(LC_CTYPE, "C.UTF-8"), nullptr);
    EXPECT_EQ(DisplayWidth(""), 0U);
    EXPECT_EQ(DisplayWidth("abc"), 3U);
    EXPECT_EQ(DisplayWidth("\xc2\x80"), 0U);
    EXPECT_EQ(DisplayWidth("Gr\xc3\xbc\xc3\x9f"
                           "e"),
              5U);
    EXPECT_EQ(DisplayWidth("\xe6\x97\xa5\xe6\x9c\xac"), 4U);
}

TEST(Text, CountsThings) {
    EXPECT_EQ(Count(0, "byte"), "0 bytes");
    EXPECT_EQ(Count(1, "byte"), "1 byte");
    EXPECT_EQ(Count(999, "byte"), "999 bytes");
    EXPECT_EQ(Count(1000, "byte"), "1,000 bytes");
    EXPECT_EQ(Count(1234567890, "page"), "1,234,567,890 pages");
}

}  // namespace
