// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/JobNames.h"

#include <gtest/gtest.h>

#include <cstring>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "support/TicketJob.h"

namespace {

constexpr char kUTF8[] = "*KVPrinterLanguageEncoding: \"UTF-8\"\n";
constexpr char kLatin1[] = "*KVPrinterLanguageEncoding: \"ISO-8859-1\"\n";

// Sets the names of a job; returns what was said.
std::string Set(const std::string &lines, const char *user, const char *title = "Report") {
    Complete({"", lines});  // opens the PPD
    testing::internal::CaptureStderr();
    SetJobNamesForCUPS(user, title);
    return testing::internal::GetCapturedStderr();
}

}  // namespace

TEST(JobNames, UserIsChargedUnderTheNameWhereThePrinterReadsIt) {
    EXPECT_EQ(Set(kLatin1, "Grüße"), "");
    EXPECT_STREQ(StdUserName,
                 "Gr\xFC\xDF"
                 "e");
    EXPECT_STREQ(StdJBAUserName,
                 "Gr\xFC\xDF"
                 "e");
    EXPECT_EQ(Set(kUTF8, "Grüße 日本"), "");
    EXPECT_STREQ(StdUserName, "Grüße 日本");
    EXPECT_EQ(Set("", "alice"), "");
    EXPECT_STREQ(StdUserName, "alice");
}

TEST(JobNames, UserWhomThePrinterCannotReadIsUnknown) {
    const std::string said =
        "WARNING: the printer does not know the letters of the user's name: UnknownUser is "
        "charged\n";
    EXPECT_EQ(Set("", "Grüße"), said);
    EXPECT_STREQ(StdUserName, "UnknownUser");
    EXPECT_STREQ(StdJBAUserName, "UnknownUser");
    for (const char *user : {"日本", "", "   ", "\xFF"}) {
        EXPECT_EQ(Set(kLatin1, user), said) << user;
        EXPECT_STREQ(StdUserName, "UnknownUser") << user;
        EXPECT_STREQ(StdJBAUserName, "UnknownUser") << user;
    }
}

TEST(JobNames, LongNamesLeaveTheirLinesWhole) {
    const std::string umlauts = [] {
        std::string text;
        for (int i = 0; i < 120; i++) text += "ü";
        return text;
    }();
    Set(kUTF8, umlauts.c_str(), umlauts.c_str());
    EXPECT_EQ(StdUserName, umlauts.substr(0, 200));
    EXPECT_EQ(StdJBAUserName, umlauts.substr(0, 32));
    EXPECT_EQ(StdDocumentName, umlauts.substr(0, 200));
    const std::string letters(300, 'a');
    Set("", letters.c_str(), letters.c_str());
    EXPECT_EQ(StdUserName, letters.substr(0, 200));
    EXPECT_EQ(StdDocumentName, letters.substr(0, 200));
    Set(kUTF8, ("a" + umlauts).c_str());
    EXPECT_EQ(StdJBAUserName, ("a" + umlauts).substr(0, 31)) << "no half letter";
}

TEST(JobNames, OfAnyASCIILetterAreRead) {
    EXPECT_EQ(Set("", "!~", "title"), "");
    EXPECT_STREQ(StdUserName, "!~");
}

TEST(JobNames, DoNotEndTheirLines) {
    std::strcpy(PTStdDocumentName, "an \"x\"");
    EXPECT_EQ(Set("", "a\"b", "a \"title\"\r\n@PJL"),
              "WARNING: the user's name loses letters or quotation marks that the printer does not "
              "know, or is too long\n");
    EXPECT_STREQ(StdUserName, "a'b");
    EXPECT_STREQ(StdDocumentName, "a 'title'@PJL");
    EXPECT_STREQ(PTStdDocumentName, "an 'x'");
}
