// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/NameValidation.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"

namespace {

constexpr char kProductType[] = "com.korvell.tav.printsettings.PrintTypeProductTypeTicketKey=";

void Set(StdText &buffer, const std::string &text) {
    std::memset(buffer, 0, sizeof buffer);
    std::memcpy(buffer, text.data(), std::min(text.size(), sizeof buffer - 1));
}

std::string CleanUserName(const std::string &name) {
    Set(StdUserName, name);
    InvalidateStdUserName();
    return StdUserName;
}

// Runs `routine` with a ticket of the product type ("" for none).
void WithProductType(void (*routine)(char *const[]), const std::string &type) {
    std::string words[] = {"kvfilter", "1", "user",
                           "title",    "1", type.empty() ? "" : kProductType + type};
    char *argv[7] = {};
    for (int i = 0; i < 6; i++) argv[i] = words[i].data();
    routine(argv);
}

struct Names {
    std::string document, printType;
};

Names CleanDocumentName(const std::string &name, const std::string &type,
                        const std::string &before = "") {
    Set(StdDocumentName, name);
    Set(PTStdDocumentName, before);
    WithProductType(InvalidateStdDocumentNameForProductType, type);
    return {StdDocumentName, PTStdDocumentName};
}

TEST(NameValidation, ReplacesUserNamesThatThePrinterRefuses) {
    for (const char *name :
         {"", " ", "      ", "caf\xE9", "tab\tstop", "\x7F", "\x1F", "\x81\x40"}) {
        EXPECT_EQ(CleanUserName(name), "UnknownUser") << name;
    }
    for (const char *name : {"alice", " a", "a ", "~", "!\"#$%&'()"}) {
        EXPECT_EQ(CleanUserName(name), name);
    }
    EXPECT_STREQ(defaultUserName, "UnknownUser");
}

TEST(NameValidation, KeepsAUserNameOf255Characters) {
    const std::string name(255, 'u');
    EXPECT_EQ(CleanUserName(name), name);
}

TEST(NameValidation, ClearsWhatStoodBehindAReplacedName) {
    CleanUserName(std::string(200, '\x01'));
    for (std::size_t i = std::strlen("UnknownUser"); i < sizeof StdUserName; i++) {
        ASSERT_EQ(StdUserName[i], '\0');
    }
}

TEST(NameValidation, CutsDocumentNamesByProductType) {
    const std::string name(100, 'd');
    struct {
        const char *type;
        std::size_t limit;
    } const cases[] = {{"2", 12}, {"3", 64}, {"7", 24}, {"0", 24}, {"-1", 24}, {"abc", 24}};
    for (const auto &[type, limit] : cases) {
        for (const std::size_t length : {limit - 1, limit, limit + 1, name.size()}) {
            const Names names = CleanDocumentName(name.substr(0, length), type);
            const std::string cut = name.substr(0, std::min(length, limit));
            EXPECT_EQ(names.printType, cut) << type;
            EXPECT_EQ(names.document, cut) << type;
        }
    }
    EXPECT_EQ(CleanDocumentName("A document of 20 cha", "2").printType, "A document o");
}

TEST(NameValidation, TakesNoDocumentNameWithoutAProductType) {
    const Names names = CleanDocumentName(std::string(100, 'd'), "");
    EXPECT_EQ(names.printType, "");
    EXPECT_EQ(names.document, std::string(100, 'd'));
    EXPECT_EQ(CleanDocumentName("new", "", "old").printType, "old");
    EXPECT_EQ(CleanDocumentName("new", "", "o\tld").printType, "");
}

TEST(NameValidation, ClearsBeforeCopyingForTypes2And3Only) {
    const std::string before(100, 'b');
    EXPECT_EQ(CleanDocumentName("name", "2", before).printType, "name");
    EXPECT_EQ(CleanDocumentName("name", "3", before).printType, "name");
    // The first 24 bytes are copied, NULs and all, over what stands there.
    EXPECT_EQ(CleanDocumentName(std::string(30, 'n'), "7", before).printType,
              std::string(24, 'n') + std::string(76, 'b'));
    EXPECT_EQ(CleanDocumentName("name", "7", before).printType, "name");
}

TEST(NameValidation, EmptiesDocumentNamesThatThePrinterRefuses) {
    for (const char *type : {"2", "3", "7"}) {
        for (const char *name : {"a\tb", "caf\xE9", "a\x7F", "\x1F"}) {
            const Names names = CleanDocumentName(name, type);
            EXPECT_EQ(names.printType, "") << name;
            EXPECT_EQ(names.document, name);
        }
        EXPECT_EQ(CleanDocumentName("   ", type).printType, "   ");
        EXPECT_EQ(CleanDocumentName("", type).printType, "");
    }
    // What is cut off does not count.
    EXPECT_EQ(CleanDocumentName("twelve bytes\t", "2").printType, "twelve bytes");
}

TEST(NameValidation, CutsTheDocumentNameTo24Bytes) {
    Set(StdDocumentName, std::string(100, 'd'));
    EXPECT_EQ(InvalidateStdDocumentName(), 100);
    EXPECT_EQ(std::string(StdDocumentName), std::string(24, 'd'));
    EXPECT_EQ(InvalidateStdDocumentName(), 24);
    Set(StdDocumentName, "short");
    EXPECT_EQ(InvalidateStdDocumentName(), 5);
    EXPECT_STREQ(StdDocumentName, "short");
}

TEST(NameValidation, AppliesTheSameRulesToThePrintTypeName) {
    const std::string name(100, 'd');
    struct {
        const char *type;
        std::size_t length;
    } const cases[] = {{"2", 12}, {"3", 64}, {"7", 24}, {"", 100}};
    for (const auto &[type, length] : cases) {
        Set(PTStdDocumentName, name);
        WithProductType(InvalidatePrintTypeDocumentNameForProductType, type);
        EXPECT_EQ(std::string(PTStdDocumentName), name.substr(0, length)) << type;
        Set(PTStdDocumentName, "a\tb");
        WithProductType(InvalidatePrintTypeDocumentNameForProductType, type);
        EXPECT_STREQ(PTStdDocumentName, "") << type;
    }
}

TEST(NameValidation, IsAllSpaceKnowsBothSpaces) {
    EXPECT_EQ(IsAllSpace(""), 1);
    EXPECT_EQ(IsAllSpace("  "), 1);
    EXPECT_EQ(IsAllSpace("\x81\x40\x81\x40"), 1);
    EXPECT_EQ(IsAllSpace(" \x81\x40 "), 1);
    EXPECT_EQ(IsAllSpace("a"), 0);
    EXPECT_EQ(IsAllSpace(" a"), 0);
    EXPECT_EQ(IsAllSpace("\x81"), 0);
    EXPECT_EQ(IsAllSpace("\x81\x41"), 0);
    EXPECT_EQ(IsAllSpace("\x40\x81"), 0);
}

TEST(NameValidation, ScalesHoldTheRangesOfTheirProducts) {
    for (int byte = 1; byte < 256; byte++) {
        const char text[] = {static_cast<char>(byte), 0};
        const int ascii = byte >= 0x20 && byte <= 0x7E;
        EXPECT_EQ(ValidateDada(text, userNameValidateDataScale), ascii);
        EXPECT_EQ(ValidateDada(text, docuNameValidateDataScale), ascii);
        EXPECT_EQ(ValidateDada(text, docuNameValidateDataScaleForProduct02), ascii);
        EXPECT_EQ(ValidateDada(text, docuNameValidateDataScaleForProduct03), ascii);
        EXPECT_EQ(ValidateDada(text, userNameValidateDataScaleForUTF8), byte >= 0x20);
        EXPECT_EQ(ValidateDada(text, docuNameValidateDataScaleForProduct03UTF8), byte >= 0x20);
    }
    EXPECT_EQ(docuNameValidateDataScaleForProduct02.bytes.count, 2U);
    EXPECT_EQ(docuNameValidateDataScaleForProduct03.bytes.count, 2U);
}

TEST(NameValidation, ValidatesTwoByteCharactersAgainstWordRanges) {
    const ValidateScale scale = {{1, {{'a', 'z'}}}, {1, {{0x8140, 0x81FF}}}};
    EXPECT_EQ(ValidateDada("", scale), 1);
    EXPECT_EQ(ValidateDada("ab", scale), 1);
    EXPECT_EQ(ValidateDada("a\x81\x40z", scale), 1);
    EXPECT_EQ(ValidateDada("\x81", scale), 0);
    EXPECT_EQ(ValidateDada("\x81\x3F", scale), 0);
    EXPECT_EQ(ValidateDada("\x82\x40", scale), 0);
    const ValidateScale wordsOnly = {{0, {}}, {1, {{0x8140, 0x81FF}}}};
    EXPECT_EQ(ValidateDada("\x81\x40", wordsOnly), 1);
    EXPECT_EQ(ValidateDada("a", wordsOnly), 0);
    const ValidateScale nothing = {{0, {}}, {0, {}}};
    EXPECT_EQ(ValidateDada("", nothing), 1);
    EXPECT_EQ(ValidateDada("a", nothing), 0);
    // An odd byte at the end is no word with the NUL after it.
    EXPECT_EQ(ValidateDada("abc", userNameValidateDataScaleForUTF8), 1);
}

TEST(NameValidation, RangeTests) {
    const ValidateRanges none = {0, {{0, 0xFFFF}}};
    EXPECT_EQ(ISByteValid("a", none), 0);
    EXPECT_EQ(ISWordValid("ab", none), 0);
    const ValidateRanges two = {2, {{0x30, 0x39}, {0x141, 0x15A}}};
    EXPECT_EQ(ISByteValid("0", two), 1);
    EXPECT_EQ(ISByteValid("9", two), 1);
    EXPECT_EQ(ISByteValid(":", two), 0);
    EXPECT_EQ(ISByteValid("A", two), 1);  // the low eight bits of a range count
    EXPECT_EQ(ISByteSpace("A", two), 1);
    EXPECT_EQ(ISWordValid("\x01\x41", two), 1);
    EXPECT_EQ(ISWordSpace("\x01\x5B", two), 0);
    const ValidateRanges overfull = {99, {{1, 1}}};
    EXPECT_EQ(ISByteValid("a", overfull), 0);  // never looks beyond the slots
}

}  // namespace
