// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobPPD.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "support/Ppd.h"
#include "support/TempFolder.h"

namespace {

class JobPPDTest : public testing::Test {
  protected:
    void TearDown() override { CloseJobPPD(); }

    void Use(const std::string &text) {
        setenv("PPD", folder_.Write("queue.ppd", text).c_str(), 1);
        CloseJobPPD();
    }

    TempFolder folder_;
};

TEST_F(JobPPDTest, IsOpenedOnceAndShared) {
    Use(PpdWith());
    ppd_file_t *ppd = JobPPD();
    ASSERT_NE(ppd, nullptr);
    setenv("PPD", "/nonexistent", 1);
    EXPECT_EQ(JobPPD(), ppd);
}

TEST_F(JobPPDTest, IsNullWhenMissingOrUnreadable) {
    using namespace std::string_literals;
    for (const std::string &path :
         {"/nonexistent"s, folder_.Path().string(), ""s, folder_.Write("empty.ppd", ""),
          folder_.Write("binary.ppd", "\x7F\0\xFF\x80*%"s)}) {
        setenv("PPD", path.c_str(), 1);
        CloseJobPPD();
        EXPECT_EQ(JobPPD(), nullptr) << path;
        EXPECT_FALSE(JobPPDAttributeIs("CommentOn", "True"));
    }
    unsetenv("PPD");
    CloseJobPPD();
    EXPECT_EQ(JobPPD(), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT(nullptr, "CommentOn"), nullptr);
}

TEST_F(JobPPDTest, FindsTheFirstAttributeThatBeginsWithAName) {
    Use(PpdWith("*CommentOnX: \"first\"\n*CommentOn: \"second\"\n*Comment: \"third\"\n"));
    EXPECT_STREQ(ppdFindAttr_ALT(JobPPD(), "CommentOn")->value, "first");
    EXPECT_STREQ(ppdFindAttr_ALT(JobPPD(), "CommentOnX")->value, "first");
    EXPECT_STREQ(ppdFindAttr_ALT(JobPPD(), "Comment")->value, "first");
    EXPECT_EQ(ppdFindAttr_ALT(JobPPD(), "CommentOnXY"), nullptr);
    EXPECT_EQ(ppdFindAttr_ALT(JobPPD(), "commenton"), nullptr);
}

TEST_F(JobPPDTest, ComparesValuesExactly) {
    Use(PpdWith("*KVPSDecompMode: \"1 \"\n*CommentOn: \"true\"\n*KVOther: True\n"));
    EXPECT_FALSE(JobPPDAttributeIs("KVPSDecompMode", "1"));
    EXPECT_TRUE(JobPPDAttributeIs("KVPSDecompMode", "1 "));
    EXPECT_FALSE(JobPPDAttributeIs("CommentOn", "True"));
    EXPECT_TRUE(JobPPDAttributeIs("KVOther", "True"));
    EXPECT_FALSE(JobPPDAttributeIs("KVMissing", ""));
}

// The keywords that the filter reads must survive libcups's own handling of them.
TEST_F(JobPPDTest, KeepsTheKeywordsThatTheFilterReads) {
    Use(
        PpdWith("*LanguageEncoding: ISOLatin1\n*ColorDevice: False\n*PCFileName: \"KV1010P.PPD\"\n"
                "*KVPrinterLanguageEncoding: \"UTF-8\"\n"));
    EXPECT_TRUE(JobPPDAttributeIs("LanguageEncoding", "ISOLatin1"));
    EXPECT_TRUE(JobPPDAttributeIs("ColorDevice", "False"));
    EXPECT_TRUE(JobPPDAttributeIs("PCFileName", "KV1010P.PPD"));
    EXPECT_TRUE(JobPPDAttributeIs("KVPrinterLanguageEncoding", "UTF-8"));
}

}  // namespace
