// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/CompleteTicket.h"

#include <gtest/gtest.h>

#include "support/TicketJob.h"

TEST(CompleteTicket, FirstSourceThatSpeaksWins) {
    const std::string key = KV_TICKET "EjectOptionsListTicket";
    const std::string queue = PpdOption("KVDelivery", "FaceUpReverse Default", "JCLSetup");
    std::string options;
    const auto eject = [&] { return Value(Complete({options, queue}), key); };
    EXPECT_EQ(eject(), "5") << "the queue";
    options += " page-delivery=same-order-face-down";
    EXPECT_EQ(eject(), "2") << "an IPP attribute";
    options += " KVDelivery=FaceUp";
    EXPECT_EQ(eject(), "3") << "a short option";
    options += " " + key + "=4";
    EXPECT_EQ(eject(), "4") << "a key of the dialog's";
}

TEST(CompleteTicket, KeepsWhatTheJobHas) {
    const CompletedTicket ticket = Complete({"number-up=2 page-label=a\\ b x='{y=z}' fit-to-page"});
    EXPECT_EQ(Value(ticket, "number-up"), "2");
    EXPECT_EQ(Value(ticket, "page-label"), "a b");
    EXPECT_EQ(Value(ticket, "x"), "{y=z}");
    EXPECT_EQ(Value(ticket, "fit-to-page"), "true");
}

// The job information takes the word for the option wherever it stands.
TEST(CompleteTicket, HidesTheWordCollateInOtherTexts) {
    const std::string key = KV_TICKET "JBAAccountIDTextEditTicket";
    const auto written = [&](const std::string &value) {
        return Value(Complete({key + "=" + value + " KVNote=collate"}), key);
    };
    const std::string longest(248, 'x');
    EXPECT_EQ(written("collate"), "/99/111/108/108/97/116/101");
    EXPECT_EQ(written("collate" + longest).substr(0, 30), "/99/111/108/108/97/116/101/120");
    EXPECT_EQ(written("collate" + longest + "x"), "absent");
    EXPECT_EQ(Value(Complete({"KVNote=collate"}), "KVNote"), "absent");
}

TEST(CompleteTicket, KnowsWhereEveryKeyComesFrom) {
    const CompletedTicket ticket =
        Complete({"KVTrim=5 KVPassword=4711 x=y", PpdOption("KVStaple", "LeftDouble None")});
    for (const TicketEntry &entry : ticket.entries) {
        EXPECT_FALSE(entry.key.empty());
        EXPECT_FALSE(entry.option.empty()) << entry.key;
        if (entry.key == "x") {
            EXPECT_EQ(entry.source, TicketSource::Job);
        }
        if (entry.key == KV_TICKET "TrimmerSwitchTicket") {
            EXPECT_EQ(entry.source, TicketSource::ShortOption);
            EXPECT_EQ(entry.option, "KVTrim");
            EXPECT_EQ(entry.given, "5");
        }
        if (entry.value == "4711") {
            EXPECT_EQ(entry.discretion, Discretion::Password) << entry.key;
        }
    }
}

TEST(CompleteTicket, SaysNoMoreThanAnyoneReadsButWhyTheJobIsRefused) {
    std::string options = "KVPrintMode=Secret", lines;
    for (int i = 0; i < 150; i++) {
        const std::string name = "Own" + std::to_string(i);
        lines += PpdOption(name, "On Off");
        options += " " + name + "=Maybe";
    }
    const CompletedTicket ticket = Complete({options, lines});
    ASSERT_EQ(ticket.notices.size(), 101U);
    EXPECT_EQ(ticket.notices[99].kind, TicketNotice::Dropped);
    EXPECT_EQ(ticket.notices[100].kind, TicketNotice::Refused);
    EXPECT_TRUE(ticket.refused);
    EXPECT_EQ(Value(ticket, "Own149"), "absent")
        << "what nothing is said of is dropped all the same";
}

TEST(CompleteTicket, IsReportedWithoutNamesAndPasswords) {
    const CompletedTicket ticket =
        Complete({"KVTrim=5 KVTrimm=6 KVPassword=4711 KVOwner=Anna",
                  PpdOption("KVStaple", "LeftDouble None"), "bob", "Offer"});
    testing::internal::CaptureStderr();
    ReportCompletion(ticket);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "DEBUG: PrintTypeTicketKey=2 (short option KVPassword)\n"
              "DEBUG: PrintTypePasswordTicketKey=**** (short option KVPassword=****)\n"
              "DEBUG: PrintTypeUserNameTicketKey=**** (short option KVOwner=****)\n"
              "DEBUG: DocumentNameTicketKey=**** (short option title=****)\n"
              "DEBUG: DocumentNameTypeTicketKey=2 (short option title)\n"
              "DEBUG: TrimmerSwitchTicket=1 (short option KVTrim=5)\n"
              "DEBUG: TrimmerMMCuttingSizeTicket=5 (short option KVTrim=5)\n"
              "DEBUG: collate=false (queue default Collate)\n"
              "DEBUG: com.apple.print.PrintSettings.PMCopies..n.=1 (IPP attribute copies=1)\n"
              "DEBUG: KVStaple=LeftDouble (queue default)\n"
              "DEBUG: KVSignature=None (queue default)\n"
              "WARNING: KVTrimm=6 is no option of this queue; is KVTrim meant?\n");
}

TEST(CompleteTicket, IsSilentAndUntouchedWithoutTheSwitch) {
    const CompletedTicket ticket = Complete({"KVPrintMode=Secure"});
    EXPECT_TRUE(ticket.refused);
    unsetenv("PPD");
    CloseJobPPD();
    FindFrontEnd("");
    testing::internal::CaptureStderr();
    ReportCompletion(ticket);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST(CompleteTicket, RefusesWithAnErrorWhatCannotBeHad) {
    testing::internal::CaptureStderr();
    ReportCompletion(Complete({"KVPassword=日本"}));
    const std::string said = testing::internal::GetCapturedStderr();
    EXPECT_NE(said.find("\nERROR: KVPassword has more than 16 bytes or letters"), said.npos)
        << said;
    EXPECT_EQ(said.find("日本"), said.npos) << said;
}
