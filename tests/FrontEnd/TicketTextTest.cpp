// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/TicketText.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/OptionString.h"
#include "support/Ppd.h"
#include "support/TempFolder.h"

namespace {

constexpr char kUTF8[] = "*KVPrinterLanguageEncoding: \"UTF-8\"\n";
constexpr char kLatin1[] = "*KVPrinterLanguageEncoding: \"ISO-8859-1\"\n";

void UsePpd(const std::string &lines) {
    const TempFolder folder;
    setenv("PPD", folder.Write("queue.ppd", PpdWith(lines)).c_str(), 1);
    CloseJobPPD();
    JobPPD();
}

// The bytes that the ticket's getter makes of the text's value in an option string.
std::string Got(const PrinterText &text) {
    std::string options;
    AppendOption(options, "key", TicketValueOf(text));
    const TicketOptions parsed(options.c_str());
    char field[300];
    GetTicketStringConvertedToPrtLang("key", parsed.count, parsed.list, field, sizeof field);
    return field;
}

}  // namespace

TEST(TicketText, GoesInThePrintersEncoding) {
    UsePpd("");
    EXPECT_EQ(MakePrinterText("Grüße", 30).bytes,
              "Gr\xFC\xDF"
              "e");
    UsePpd(kLatin1);
    EXPECT_EQ(MakePrinterText("Grüße", 30).bytes,
              "Gr\xFC\xDF"
              "e");
    UsePpd(kUTF8);
    EXPECT_EQ(MakePrinterText("Grüße 日本 \U0001F600", 30).bytes, "Grüße 日本 \U0001F600");
    EXPECT_FALSE(MakePrinterText("Grüße 日本", 30).changed);
}

TEST(TicketText, TheGettersMakeJustItsBytesOfIt) {
    for (const char *lines : {"", kLatin1, kUTF8}) {
        UsePpd(lines);
        for (const char *text :
             {"Grüße", "plain", "/etc", "/65/66", "a\\b~c", "x", "'", "collate"}) {
            const PrinterText made = MakePrinterText(text, 40);
            EXPECT_EQ(Got(made), made.bytes) << text;
            EXPECT_EQ(made.shown, text);
            EXPECT_FALSE(made.changed) << text;
        }
    }
    EXPECT_EQ(Got(MakePrinterText("日本", 40)), "日本") << "with UTF-8";
}

TEST(TicketText, LeavesOutWhatThePrinterDoesNotKnowOrWouldEndItsString) {
    UsePpd(kLatin1);
    const struct {
        const char *text, *shown;
    } kTexts[] = {{"日本", ""},
                  {"ÿĀ", "ÿ"},
                  {"\u009F\u00A0", "\u00A0"},
                  {"a日b", "ab"},
                  {"say \"hi\"", "say 'hi'"},
                  {"a\r\nb", "ab"},
                  {"a\x1B%-12345X", "a%-12345X"},
                  {"\x7F"
                   "a",
                   "a"},
                  {"a\u0085b", "ab"},
                  {"\xFF\xFE", ""},
                  {"caf\xC3", ""}};
    for (const auto &[text, shown] : kTexts) {
        const PrinterText made = MakePrinterText(text, 40);
        EXPECT_EQ(made.shown, shown) << text;
        EXPECT_TRUE(made.changed) << text;
    }
    EXPECT_FALSE(MakePrinterText("", 40).changed);
}

TEST(TicketText, LeavesOutWhatIsBeyondUnicode) {
    UsePpd(kUTF8);
    const PrinterText made = MakePrinterText("a\xF4\x90\x80\x80z", 40);
    EXPECT_EQ(made.bytes, "az");
    EXPECT_TRUE(made.changed);
}

TEST(TicketText, IsCutBetweenLetters) {
    UsePpd(kUTF8);
    EXPECT_EQ(MakePrinterText("aüb", 2).shown, "a");
    EXPECT_EQ(MakePrinterText("aüb", 3).shown, "aü");
    EXPECT_TRUE(MakePrinterText("aüb", 3).changed);
    EXPECT_FALSE(MakePrinterText("aüb", 4).changed);
    UsePpd(kLatin1);
    EXPECT_EQ(MakePrinterText("aüb", 2).shown, "aü");
    EXPECT_FALSE(MakePrinterText("aüb", 3).changed);
}

TEST(TicketText, PrinterBytesAreFaithfulOrNot) {
    bool faithful = false;
    EXPECT_EQ(PrinterBytes("4711", 17, faithful), "4711");
    EXPECT_TRUE(faithful);
    EXPECT_EQ(PrinterBytes("/52/55", 17, faithful), "47");
    EXPECT_TRUE(faithful);
    EXPECT_EQ(PrinterBytes("Grüße", 17, faithful),
              "Gr\xFC\xDF"
              "e");
    EXPECT_TRUE(faithful);
    EXPECT_EQ(PrinterBytes("1234567890123456", 17, faithful), "1234567890123456");
    EXPECT_TRUE(faithful);
    for (const char *text :
         {"", "日本", "47日11", "12345678901234567", "a\"b", "a\nb", "a\x7F", "/0", "\xFF"}) {
        PrinterBytes(text, 17, faithful);
        EXPECT_FALSE(faithful) << text;
    }
}
