// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/IPPAttributes.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>

#include "support/TicketJob.h"

namespace {

constexpr char kDirection[] = "com.apple.print.PrintSettings.PMLayoutDirection..n.";
constexpr char kRows[] = "com.apple.print.PrintSettings.PMLayoutRows..n.";
constexpr char kColumns[] = "com.apple.print.PrintSettings.PMLayoutColumns..n.";
constexpr char kCopies[] = "com.apple.print.PrintSettings.PMCopies..n.";

std::string Of(const std::string &options, const std::string &key) {
    return Value(Complete({options}), key);
}

// The word that the job information looks for, and the number of copies.
std::string Copies(const std::string &options, const std::string &copies,
                   const std::string &lines = "") {
    const CompletedTicket ticket = Complete({options, lines, "alice", "Report", copies});
    std::string word = "neither";
    if (ticket.options.find("nocollate") != std::string::npos) {
        word = "nocollate";
    } else if (ticket.options.find("collate") != std::string::npos) {
        word = "collate";
    }
    return word + " " + Value(ticket, kCopies);
}

}  // namespace

TEST(IPPAttributes, OrientationIsTheDialogs) {
    const struct {
        const char *options, *value;
    } kOrientations[] = {
        {"orientation-requested=3", "1"},
        {"orientation-requested=4", "4"},
        {"orientation-requested=5", "5"},
        {"orientation-requested=6", "6"},
        {"orientation-requested=1", "1"},
        {"orientation-requested=7", "absent"},
        {"orientation-requested=x", "absent"},
        {"landscape", "4"},
        {"nolandscape", "absent"},
        {"landscape orientation-requested=5", "5"},
        {"", "absent"},
    };
    for (const auto &[options, value] : kOrientations) {
        EXPECT_EQ(Of(options, "orientation-requested"), value) << options;
    }
    const CompletedTicket turned = Complete({"landscape"});
    const auto entry =
        std::ranges::find(turned.entries, "orientation-requested", &TicketEntry::key);
    ASSERT_NE(entry, turned.entries.end());
    EXPECT_EQ(entry->option, "landscape");
}

TEST(IPPAttributes, LayoutIsTheDialogs) {
    const char *kLayouts[] = {"lrtb", "lrbt", "rltb", "rlbt", "tblr", "tbrl", "btlr", "btrl"};
    for (std::size_t i = 0; i < std::size(kLayouts); i++) {
        const std::string options = std::string("number-up=4 number-up-layout=") + kLayouts[i];
        EXPECT_EQ(Of(options, kDirection), std::to_string(i + 1)) << options;
    }
    EXPECT_EQ(Of("number-up=4", kDirection), "absent");
    EXPECT_EQ(
        Said(Complete({"number-up-layout=abcd"})),
        "number-up-layout=abcd is not understood; allowed: lrtb, lrbt, rltb, rlbt, tblr, tbrl, "
        "btlr, btrl\n");
    EXPECT_EQ(Of(std::string(kDirection) + "=6 number-up-layout=lrtb", kDirection), "6")
        << "the dialog's own stands";
}

TEST(IPPAttributes, PagesOnASheetHaveRowsAndColumnsWherePstopsLaysThemOut) {
    const struct {
        const char *pages, *rows, *columns;
    } kGrids[] = {{"1", "absent", "absent"}, {"2", "1", "2"},     {"3", "1", "3"},
                  {"4", "2", "2"},           {"6", "2", "3"},     {"8", "2", "4"},
                  {"9", "3", "3"},           {"16", "4", "4"},    {"0", "absent", "absent"},
                  {"300", "15", "20"},       {"256", "16", "16"}, {"289", "1", "289"}};
    unsetenv("CONTENT_TYPE");
    for (const auto &[pages, rows, columns] : kGrids) {
        const std::string options = std::string("number-up=") + pages;
        EXPECT_EQ(Of(options, kRows), rows) << pages;
        EXPECT_EQ(Of(options, kColumns), columns) << pages;
    }
    setenv("CONTENT_TYPE", "application/postscript", 1);
    EXPECT_EQ(Of("number-up=2", kColumns), "2");
    setenv("CONTENT_TYPE", "application/pdf", 1);
    EXPECT_EQ(Of("number-up=2", kColumns), "absent");
    unsetenv("CONTENT_TYPE");
}

TEST(IPPAttributes, CopiesAreCounted) {
    EXPECT_EQ(Copies("", "1"), "nocollate 1");
    EXPECT_EQ(Copies("", "3"), "nocollate 3");
    EXPECT_EQ(Copies("collate", "3"), "collate 3");
    EXPECT_EQ(Copies("nocollate", "3"), "nocollate 3");
    EXPECT_EQ(Copies("Collate=True", "3"), "collate 3");
    EXPECT_EQ(Copies("Collate=False", "3"), "nocollate 3");
    EXPECT_EQ(Copies("multiple-document-handling=separate-documents-collated-copies", "3"),
              "collate 3");
    EXPECT_EQ(Copies("multiple-document-handling=separate-documents-uncollated-copies", "3"),
              "nocollate 3");
    EXPECT_EQ(Copies("multiple-document-handling=single-document", "3"), "collate 3");
    EXPECT_EQ(Copies("nocollate multiple-document-handling=single-document", "3"), "nocollate 3");
    EXPECT_EQ(Copies(std::string(kCopies) + "=5 collate", "3"), "collate 5")
        << "as the dialog says";
    const std::string queue = PpdOption("Collate", "True False");
    EXPECT_EQ(Copies("", "3", queue), "collate 3");
    EXPECT_EQ(Copies("Collate=False", "3", queue), "nocollate 3");
    EXPECT_EQ(Copies("", "3", PpdOption("Collate", "False True")), "nocollate 3");
    for (const char *copies : {"", "0", "-2", "many"}) {
        EXPECT_EQ(Copies("", copies), "nocollate 1") << copies;
    }
}

TEST(IPPAttributes, CopiesSayWhereTheyComeFrom) {
    for (const auto &[options, option] :
         {std::pair("collate", "collate"), std::pair("nocollate", "collate"),
          std::pair("multiple-document-handling=separate-documents-collated-copies",
                    "multiple-document-handling"),
          std::pair("", "Collate")}) {
        const CompletedTicket ticket = Complete({options, "", "alice", "Report", "3"});
        const auto entry = std::ranges::find(ticket.entries, "collate", &TicketEntry::key);
        ASSERT_NE(entry, ticket.entries.end()) << options;
        EXPECT_EQ(entry->option, option) << options;
    }
}

TEST(IPPAttributes, NoOtherTextIsTakenForTheWordCollate) {
    EXPECT_EQ(Copies("document-name-supplied=collate.ps xcollate=1", "2"), "nocollate 2");
    const std::string name = KV_TICKET "DocumentNameTicketKey";
    const CompletedTicket coded = Complete({name + "=collated"});
    EXPECT_EQ(Value(coded, name), "/99/111/108/108/97/116/101/100");
    const CompletedTicket tooLong = Complete({name + "=collate" + std::string(249, 'x')});
    EXPECT_EQ(Value(tooLong, name), "absent") << "coded, it would be cut";
    const CompletedTicket typed = Complete({"KVPrintMode=Sample KVJobName=collate"});
    EXPECT_EQ(Value(typed, name), "/99/111/108/108/97/116/101");
}

TEST(IPPAttributes, StandForShortOptions) {
    const std::string charge = "JBAManageTypeListTicketKey=2 JBAUserSettingRadioBtnTicket=1 ";
    EXPECT_EQ(Caused(Complete({"job-account-id=4711"}), "job-account-id"),
              charge + "JBAAccountIDTextEditTicket=4711");
    EXPECT_EQ(Caused(Complete({"job-accounting-user-id=anna"}), "job-accounting-user-id"),
              charge + "JBAUserIDListCtrlTicket=2 JBAUserIDTextEditTicket=anna");
    EXPECT_EQ(Value(Complete({"job-account-id=1 KVAccountID=2"}), "*JBAAccountIDTextEditTicket"),
              "2")
        << "a short option is the first to speak";
    EXPECT_EQ(Caused(Complete({"job-account-id="}), "job-account-id"), "");
    EXPECT_EQ(Caused(Complete({"job-password=1234"}), "job-password"),
              "PrintTypeTicketKey=2 PrintTypePasswordTicketKey=1234");
    EXPECT_EQ(Caused(Complete({"job-password=1234 job-password-encryption=none"}), "job-password"),
              "PrintTypeTicketKey=2 PrintTypePasswordTicketKey=1234");
    const struct {
        const char *delivery, *eject;
    } kDeliveries[] = {{"same-order-face-up", "3"},    {"same-order-face-down", "2"},
                       {"reverse-order-face-up", "3"}, {"reverse-order-face-down", "2"},
                       {"system-specified", "absent"}, {"x", "absent"}};
    for (const auto &[delivery, eject] : kDeliveries) {
        EXPECT_EQ(Of(std::string("page-delivery=") + delivery, "*EjectOptionsListTicket"), eject)
            << delivery;
    }
}

TEST(IPPAttributes, SpeakBeforeTheQueue) {
    const std::string queue = PpdOption("KVDelivery", "FaceUp Default FaceDown", "JCLSetup");
    EXPECT_EQ(Value(Complete({"", queue}), "*EjectOptionsListTicket"), "3");
    EXPECT_EQ(
        Value(Complete({"page-delivery=same-order-face-down", queue}), "*EjectOptionsListTicket"),
        "2");
}
