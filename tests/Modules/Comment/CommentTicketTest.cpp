// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/CommentTicket.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <optional>
#include <set>
#include <string>

#include "support/CommentJob.h"

namespace {

using CommentTicket = CommentJob;
using Text = std::optional<std::string>;

// "key=value", or nothing.
std::string Option(const std::string &key, const Text &value) {
    return value ? key + "=" + *value + " " : "";
}

std::string Name(const Text &value) {
    return value.value_or("(absent)");
}

}  // namespace

TEST_F(CommentTicket, ReadsTheseKeysInThisOrder) {
    const struct {
        const char *key;
        void *destination;
        std::int32_t size;
        TicketGetter getter;
    } expected[] = {
        {"sides", job.sides, 256, GetTicketStringConvertedToPrtLang},
        {"KVColorMode", job.colorMode, 256, GetTicketStringConvertedToPrtLang},
        {"number-up", job.pagesPerSheet, 256, GetNumberUpTicketStringForComment},
        {"KVStaple", job.staple, 256, GetTicketStringConvertedToPrtLang},
        {"KVPunch", job.punch, 256, GetTicketStringConvertedToPrtLang},
        {"KVNumPunchHoles", job.punchHoles, 256, GetTicketStringConvertedToPrtLang},
        {"KVSignature", job.signature, 256, GetTicketStringConvertedToPrtLang},
        {"KVSigVol", job.signatureVolume, 256, GetTicketStringConvertedToPrtLang},
        {"KVLineWeightAdjustment", job.lineWeightAdjustment, 256,
         GetTicketStringConvertedToPrtLang},
        {"DuplexBindingEdge..n.", &job.duplexBindingEdge, 4, GetTicketInteger},
        {"com.apple.print.PrintSettings.PMCopies..n.", &job.copies, 4, GetTicketInteger},
        {"orientation-requested", &job.orientation, 4, GetTicketInteger},
        {"com.apple.print.PrintSettings.PMLayoutDirection..n.", &job.layoutDirection, 4,
         GetTicketInteger},
    };
    ASSERT_EQ(std::size(expected), std::size_t(CommentTicketDataNum));
    for (std::size_t i = 0; i < std::size(expected); i++) {
        SCOPED_TRACE(expected[i].key);
        EXPECT_STREQ(CommentticketData[i].key, expected[i].key);
        EXPECT_EQ(CommentticketData[i].destination, expected[i].destination);
        EXPECT_EQ(CommentticketData[i].size, expected[i].size);
        EXPECT_EQ(CommentticketData[i].getter, expected[i].getter);
    }
}

TEST_F(CommentTicket, StoresEveryText) {
    const struct {
        const char *key;
        const CommentText &field;
    } texts[] = {
        {"KVColorMode", job.colorMode},
        {"number-up", job.pagesPerSheet},
        {"KVStaple", job.staple},
        {"KVPunch", job.punch},
        {"KVNumPunchHoles", job.punchHoles},
        {"KVSignature", job.signature},
        {"KVSigVol", job.signatureVolume},
        {"KVLineWeightAdjustment", job.lineWeightAdjustment},
    };
    for (const auto &text : texts) {
        SCOPED_TRACE(text.key);
        ReadTicket(std::string(text.key) + "=Value4");
        EXPECT_STREQ(text.field, "Value4");
        ReadTicket(std::string(text.key) + "=" + std::string(300, '7'));
        EXPECT_EQ(text.field, std::string(255, '7'));
    }
}

TEST_F(CommentTicket, DecodesSlashCodedTexts) {
    ReadTicket("KVStaple=/76/101/102/116");
    EXPECT_STREQ(job.staple, "Left");
}

TEST_F(CommentTicket, StoresEveryInteger) {
    ReadTicket(
        "DuplexBindingEdge..n.=2 com.apple.print.PrintSettings.PMCopies..n.=12 "
        "orientation-requested=5 com.apple.print.PrintSettings.PMLayoutDirection..n.=6");
    EXPECT_EQ(job.duplexBindingEdge, 2);
    EXPECT_EQ(job.copies, 12);
    EXPECT_EQ(job.orientation, 5);
    EXPECT_EQ(job.layoutDirection, 6);
}

TEST_F(CommentTicket, OfAnEmptyOptionString) {
    ReadTicket("");
    EXPECT_STREQ(job.sides, "two-sided-short-edge");
    EXPECT_STREQ(job.colorMode, "");
    EXPECT_STREQ(job.collation, "");
    EXPECT_STREQ(job.pagesPerSheet, "1");
    EXPECT_STREQ(job.staple, "");
    EXPECT_STREQ(job.punch, "");
    EXPECT_STREQ(job.punchHoles, "");
    EXPECT_STREQ(job.signature, "");
    EXPECT_STREQ(job.signatureVolume, "");
    EXPECT_STREQ(job.lineWeightAdjustment, "");
    EXPECT_EQ(job.duplexBindingEdge, -1);
    EXPECT_EQ(job.copies, -1);
    EXPECT_EQ(job.orientation, 1);
    EXPECT_EQ(job.layoutDirection, 1);
}

TEST_F(CommentTicket, OrientationAndDirectionMinusOneBecomeOne) {
    for (const int value : {-2, -1, 0, 1, 3, 4, 5, 6, 7}) {
        SCOPED_TRACE(value);
        const std::string number = std::to_string(value);
        ReadTicket("orientation-requested=" + number +
                   " com.apple.print.PrintSettings.PMLayoutDirection..n.=" + number);
        EXPECT_EQ(job.orientation, value == -1 ? 1 : value);
        EXPECT_EQ(job.layoutDirection, value == -1 ? 1 : value);
    }
}

TEST_F(CommentTicket, PagesPerSheetComeFromTheLayoutToo) {
    ReadTicket(
        "com.apple.print.PrintSettings.PMLayoutRows..n.=2 "
        "com.apple.print.PrintSettings.PMLayoutColumns..n.=3");
    EXPECT_STREQ(job.pagesPerSheet, "6");
    ReadTicket(
        "com.apple.print.PrintSettings.PMLayoutRows..n.=1 "
        "com.apple.print.PrintSettings.PMLayoutColumns..n.=1");
    EXPECT_STREQ(job.pagesPerSheet, "1");
    ReadTicket(
        "number-up=4 com.apple.print.PrintSettings.PMLayoutRows..n.=2 "
        "com.apple.print.PrintSettings.PMLayoutColumns..n.=3");
    EXPECT_STREQ(job.pagesPerSheet, "4");
}

// A booklet beats all; else a missing value or an edge of 0 means one side.
TEST_F(CommentTicket, SidesOfEveryCombination) {
    const Text sides[] = {std::nullopt, "one-sided", "two-sided-long-edge", "two-sided-short-edge",
                          "both"};
    const Text edges[] = {std::nullopt, "-1", "0", "1", "2", "3", "4", "none"};
    const Text signatures[] = {std::nullopt,   "None",
                               "none",         "NoneAtAll",
                               "LeftSig",      "RightSig",
                               "LeftSigFold",  "LeftSigCenterStaple",
                               "RightSigFold", "RightSigCenterStaple"};
    // A text without digits is the number 0.
    const std::set<Text> edgesOff = {"0", "none"};
    for (const Text &side : sides) {
        for (const Text &edge : edges) {
            for (const Text &signature : signatures) {
                SCOPED_TRACE(Name(side) + " " + Name(edge) + " " + Name(signature));
                ReadTicket(Option("sides", side) + Option("DuplexBindingEdge..n.", edge) +
                           Option("KVSignature", signature));
                std::string expected = "two-sided-short-edge";
                if (signature == "None") {
                    expected = edgesOff.contains(edge) ? "one-sided" : side.value_or("one-sided");
                }
                EXPECT_EQ(job.sides, expected);
                // No rest of a longer value after it.
                EXPECT_TRUE(std::all_of(job.sides + expected.size(), std::end(job.sides),
                                        [](char c) { return c == '\0'; }));
            }
        }
    }
}

TEST_F(CommentTicket, FindsCollationAnywhereInTheOptions) {
    const struct {
        const char *options;
        const char *collation;
    } rows[] = {
        {"", ""},
        {"copies=3", ""},
        {"Collate=True", ""},
        {"COLLATE", ""},
        {"colate", ""},
        {"collate", "collate"},
        {"collate=true", "collate"},
        {"collate=false", "collate"},
        {"x=1 collate y=2", "collate"},
        {"multiple-document-handling=separate-documents-collated-copies", "collate"},
        {"multiple-document-handling=separate-documents-uncollated-copies", "collate"},
        {"nocollate", "nocollate"},
        {"nocollate=true", "nocollate"},
        {"collate nocollate", "nocollate"},
        {"nocollate collate", "nocollate"},
        {"KVStaple=nocollate", "nocollate"},
        {"job-name=\"my nocollated pages\" collate", "nocollate"},
        {"job-name=recollate", "collate"},
        {"no collate", "collate"},
    };
    for (const auto &row : rows) {
        SCOPED_TRACE(row.options);
        job = {};
        ReadTicket(row.options);
        EXPECT_STREQ(job.collation, row.collation);
    }
}

TEST_F(CommentTicket, KeepsNothingButCollation) {
    ReadTicket(
        "nocollate sides=one-sided KVColorMode=Color number-up=4 KVStaple=LeftDouble KVPunch=Left "
        "KVNumPunchHoles=2Holes KVSignature=None KVSigVol=5Sheets KVLineWeightAdjustment=Normal "
        "DuplexBindingEdge..n.=2 com.apple.print.PrintSettings.PMCopies..n.=12 "
        "orientation-requested=5 com.apple.print.PrintSettings.PMLayoutDirection..n.=6");
    ReadTicket("x=1");
    EXPECT_STREQ(job.collation, "nocollate");
    const CommentOptions second = job;

    job = {};
    Set(job.collation, "nocollate");
    ReadTicket("x=1");
    const CommentOptions &fresh = job;
    EXPECT_EQ(std::memcmp(&second, &fresh, sizeof fresh), 0);

    ReadTicket("collate");
    EXPECT_STREQ(job.collation, "collate");
    EXPECT_STREQ(job.collation + 8, "");  // nothing left of the longer word
}
