// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobTicket.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"

namespace {

constexpr std::int32_t kMax = 2147483647;
constexpr std::int32_t kMin = -2147483647 - 1;

struct Getting {
    int present;
    std::string text;
};

// What a text getter stores in a field of `size` bytes that held something else before; every byte
// after the text must have been cleared.
Getting GetText(TicketGetter getter, const std::string &optionString, const char *key = "key",
                std::int32_t size = 64) {
    const TicketOptions options(optionString.c_str());
    std::string field(static_cast<std::size_t>(size) + 1, '#');
    const int present = getter(key, options.count, options.list, field.data(), size);
    EXPECT_EQ(field.back(), '#') << "wrote beyond the field";
    field.pop_back();
    const std::string text = field.c_str();
    EXPECT_EQ(field.find_first_not_of('\0', text.size()), std::string::npos) << "not cleared";
    return {present, text};
}

std::pair<int, std::int32_t> GetInteger(TicketGetter getter, const std::string &optionString) {
    const TicketOptions options(optionString.c_str());
    std::int32_t value = 77;
    const int present = getter("key", options.count, options.list, &value, sizeof value);
    return {present, value};
}

std::pair<int, float> GetFloat(const std::string &optionString) {
    const TicketOptions options(optionString.c_str());
    float value = 77;
    const int present = GetTicketFloat("key", options.count, options.list, &value, sizeof value);
    return {present, value};
}

TEST(JobTicket, CheckTicketKeyIsOneForAnAbsentKey) {
    EXPECT_EQ(GetInteger(CheckTicketKey, "other=1"), std::pair(1, 1));
    EXPECT_EQ(GetInteger(CheckTicketKey, "key=5"), std::pair(1, 0));
    EXPECT_EQ(GetInteger(CheckTicketKey, "key="), std::pair(1, 0));
}

TEST(JobTicket, GetTicketIntegerReadsLeadingDigits) {
    EXPECT_EQ(GetInteger(GetTicketInteger, ""), std::pair(0, -1));
    EXPECT_EQ(GetInteger(GetTicketInteger, "key=abc"), std::pair(1, 0));
    EXPECT_EQ(GetInteger(GetTicketInteger, "key=42mm"), std::pair(1, 42));
    EXPECT_EQ(GetInteger(GetTicketInteger, "key=-7"), std::pair(1, -7));
    EXPECT_EQ(GetInteger(GetTicketInteger, "key=' +8'"), std::pair(1, 8));
    EXPECT_EQ(GetInteger(GetTicketInteger, "key=99999999999999999999"), std::pair(1, kMax));
    EXPECT_EQ(GetInteger(GetTicketInteger, "key=-99999999999999999999"), std::pair(1, kMin));
    EXPECT_EQ(GetInteger(GetTicketInteger, "key=2147483648"), std::pair(1, kMax));
    EXPECT_EQ(GetInteger(GetTicketInteger, "key=-2147483648"), std::pair(1, kMin));
}

TEST(JobTicket, LeadingIntegerTakesBlanksASignAndDigits) {
    EXPECT_EQ(LeadingInteger(""), 0);
    EXPECT_EQ(LeadingInteger("\t\n 12 34"), 12);
    EXPECT_EQ(LeadingInteger("+-3"), 0);
    EXPECT_EQ(LeadingInteger("- 3"), 0);
    EXPECT_EQ(LeadingInteger("007"), 7);
}

TEST(JobTicket, GetTicketFloatReadsADecimalNumber) {
    EXPECT_EQ(GetFloat(""), std::pair(0, -1.0F));
    EXPECT_EQ(GetFloat("key=0.25"), std::pair(1, 0.25F));
    EXPECT_EQ(GetFloat("key=-12.5pt"), std::pair(1, -12.5F));
    EXPECT_EQ(GetFloat("key=+3"), std::pair(1, 3.0F));
    EXPECT_EQ(GetFloat("key=' 1e2'"), std::pair(1, 100.0F));
    EXPECT_EQ(GetFloat("key=12,5"), std::pair(1, 12.0F));
    EXPECT_EQ(GetFloat("key=abc"), std::pair(1, 0.0F));
    for (const char *text : {"key=nan", "key=inf", "key=-inf", "key=1e99", "key=1e9999"}) {
        EXPECT_EQ(GetFloat(text), std::pair(1, 0.0F)) << text;
    }
}

TEST(JobTicket, TextGettersClearTheFieldAndCutToIt) {
    for (TicketGetter getter : {GetTicketString, GetTicketStringConvertedToPrtLang,
                                GetTicketStringConvertedToPrtLangForUTF8}) {
        Getting got = GetText(getter, "other=x");
        EXPECT_EQ(got.present, 0);
        EXPECT_EQ(got.text, "");
        got = GetText(getter, "key=value");
        EXPECT_EQ(got.present, 1);
        EXPECT_EQ(got.text, "value");
        EXPECT_EQ(GetText(getter, "key=12345678", "key", 8).text, "1234567");
        EXPECT_EQ(GetText(getter, "key=1234567", "key", 8).text, "1234567");
        EXPECT_EQ(GetText(getter, "key=123456", "key", 8).text, "123456");
        EXPECT_EQ(GetText(getter, "key=").text, "");
    }
}

TEST(JobTicket, OnlyDecodingGettersDecodeSlashes) {
    EXPECT_EQ(GetText(GetTicketString, "key=/72/105").text, "/72/105");
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLang, "key=/72/105").text, "Hi");
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLangForUTF8, "key=/72/105").text, "Hi");
    EXPECT_EQ(GetText(GetTicketStringConvertedToPPDEncodingString, "key=/72/105").text, "(Hi)");
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLang, "key=/0").text, "");
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLang, "key=/0").present, 1);
    EXPECT_EQ(GetText(GetTicketStringConvertedToPPDEncodingString, "other=1").present, 0);
}

TEST(JobTicket, DecodedBytesAreTakenForUTF8) {
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLang, "key=/195/169").text, "\xE9");
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLangForUTF8, "key=/195/169").text, "\xC3\xA9");
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLang, "key=/65/233").text, "");  // not UTF-8
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLang, "key=/65/233").present, 1);
}

TEST(JobTicket, TheWorkingCopyHolds1023Bytes) {
    const std::string whole = "key=" + std::string(1023, 'a');
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLang, whole + "b", "key", 2000).text,
              std::string(1023, 'a'));
    // A character that is split there makes the value invalid, and so empty.
    const std::string split = "key=" + std::string(1022, 'a') + "\xC3\xA9";
    EXPECT_EQ(GetText(GetTicketStringConvertedToPrtLang, split, "key", 2000).text, "");
    // A plain text has no working copy.
    EXPECT_EQ(GetText(GetTicketString, split, "key", 2000).text, std::string(1022, 'a') + "\xE9");
}

TEST(JobTicket, AKeyGivenTwiceHasTheValueThatTheOptionListKeeps) {
    const TicketOptions options("key=first key=second");
    const std::string kept = cupsGetOption("key", options.count, options.list);
    EXPECT_EQ(GetText(GetTicketString, "key=first key=second").text, kept);
    EXPECT_EQ(kept, "second");
}

std::string NumberUp(const std::string &options, std::int32_t size = 10) {
    const Getting got = GetText(GetNumberUpTicketString, options, kNumberUpTicketKey, size);
    EXPECT_EQ(got.present, 1);
    return got.text;
}

std::string NumberUpForComment(const std::string &options) {
    const Getting got =
        GetText(GetNumberUpTicketStringForComment, options, kNumberUpTicketKey, 256);
    EXPECT_EQ(got.present, 1);
    return got.text;
}

std::string Layout(const std::string &rows, const std::string &columns) {
    std::string options;
    if (!rows.empty()) options += std::string(kLayoutRowCountTicketKey) + "=" + rows + " ";
    if (!columns.empty()) options += std::string(kLayoutColumnCountTicketKey) + "=" + columns;
    return options;
}

TEST(JobTicket, NumberUpCodes) {
    struct {
        std::string options, code, comment;
    } const cases[] = {
        {"", "1", "1"},
        {"number-up=4", "N4", "4"},
        {"number-up=1", "N1", "1"},
        {"number-up=", "N", ""},
        {"number-up=4 " + Layout("3", "3"), "N4", "4"},
        {Layout("2", "2"), "N4", "4"},
        {Layout("1", "1"), "1", "1"},
        {Layout("2", ""), "N2", "2"},  // a missing one counts as 1
        {Layout("", "3"), "N3", "3"},
        {Layout("1", ""), "1", "1"},
        {Layout("9", "11"), "N99", "99"},
        {Layout("12", "12"), "N44", "44"},  // digits that do not fit are dropped on the left
        {Layout("0", "2"), "N", ""},
        {Layout("-2", "2"), "N", ""},
        {Layout("2000000000", "2000000000"), "N47", "47"},
    };
    for (const auto &[options, code, comment] : cases) {
        EXPECT_EQ(NumberUp(options), code) << options;
        EXPECT_EQ(NumberUpForComment(options), comment) << options;
    }
    EXPECT_EQ(NumberUp("number-up=1234567890"), "N12345678");
    EXPECT_EQ(NumberUp("number-up=" + std::string(2000, '7'), 2000), "N" + std::string(1022, '7'));
}

std::string Decode(std::string text) {
    text.resize(text.size() + 1);
    numstrtochar(text.data(), static_cast<std::int32_t>(text.size()));
    return text.c_str();
}

TEST(JobTicket, DecodesSlashCodes) {
    EXPECT_EQ(Decode("/65/66/67"), "ABC");
    EXPECT_EQ(Decode("/72/105"), "Hi");
    EXPECT_EQ(Decode("65/66"), "65/66");
    EXPECT_EQ(Decode(""), "");
    EXPECT_EQ(Decode("/"), "");
    EXPECT_EQ(Decode("/0"), "");
    EXPECT_EQ(Decode("/65//66"), "A");
    EXPECT_EQ(Decode("/65/"), "A");
    EXPECT_EQ(Decode("//65"), "");
    EXPECT_EQ(Decode("/255"), "\xFF");
    EXPECT_EQ(Decode("/65/256/66"), "A");
    EXPECT_EQ(Decode("/65/257/66"), "A");
    EXPECT_EQ(Decode("/65/99999999999/66"), "A");
    EXPECT_EQ(Decode("/-191"), "A");
    EXPECT_EQ(Decode("/65x/ 66"), "AB");
    EXPECT_EQ(Decode("/abc/66"), "");
    std::string every, coded;
    for (int byte = 1; byte < 256; byte++) {
        every += static_cast<char>(byte);
        coded += "/" + std::to_string(byte);
    }
    EXPECT_EQ(Decode(coded), every);
}

TEST(JobTicket, WritesDecimalNumbersRightAligned) {
    char buffer[4] = "###";
    EXPECT_EQ(itoa(7, buffer, 3), buffer + 1);
    EXPECT_STREQ(itoa(7, buffer, 3), "7");
    EXPECT_STREQ(itoa(99, buffer, 3), "99");
    EXPECT_STREQ(itoa(0, buffer, 3), "");
    EXPECT_STREQ(itoa(123, buffer, 3), "23");
    EXPECT_STREQ(itoa(kMax, buffer, 3), "47");
    EXPECT_STREQ(itoa(-5, buffer, 3), "");
    EXPECT_EQ(buffer[3], '\0');
}

TEST(JobTicket, ReadsRowsInOrderAndALaterRowWins) {
    char text[10] = "";
    std::int32_t flag = 7;
    const ticketData table[] = {
        {"first", text, sizeof text, GetTicketString},
        {"second", text, sizeof text, GetTicketString},
        {"second", &flag, sizeof flag, CheckTicketKey},
        {"third", text, sizeof text, GetTicketString},
    };
    std::string words[] = {"kvfilter", "1", "user", "title", "1", "second=b first=a"};
    char *argv[7] = {};
    for (int i = 0; i < 6; i++) argv[i] = words[i].data();
    EXPECT_EQ(GetTicketFromArray(argv, table, 1), 1);
    EXPECT_STREQ(text, "a");
    EXPECT_EQ(GetTicketFromArray(argv, table, 3), 1);
    EXPECT_STREQ(text, "b");
    EXPECT_EQ(flag, 0);
    EXPECT_EQ(GetTicketFromArray(argv, table, 4), 1);
    EXPECT_STREQ(text, "");
}

TEST(JobTicket, SurvivesHostileOptionStrings) {
    const struct {
        std::string options;
        int present;  // whether there is a key "key"
        std::string value;
    } kCases[] = {
        {"key=\"unbalanced", 1, "unbalanced"},
        {"key='unbalanced", 1, "unbalanced"},
        {"=", 0, ""},
        {"=value", 0, ""},
        {"key", 1, "true"},
        {"nokey", 1, "false"},
        {"{key=1", 0, ""},
        {"key={a b", 1, "{a b"},
        {"key=\\", 1, "\\"},
        {"\x01\xFF\xFE", 0, ""},
        {std::string(1 << 20, '='), 0, ""},
        {"key=" + std::string(1 << 20, 'x'), 1, std::string(63, 'x')},
        {std::string(1 << 20, '"'), 0, ""},
    };
    for (const auto &[options, present, value] : kCases) {
        SCOPED_TRACE(options.substr(0, 20));
        const Getting got = GetText(GetTicketString, options);
        EXPECT_EQ(got.present, present);
        EXPECT_EQ(got.text, value);
        EXPECT_EQ(GetInteger(GetTicketInteger, options).first, present);
        EXPECT_EQ(GetFloat(options).first, present);
        NumberUp(options);  // stays within its buffers
    }
}

}  // namespace
