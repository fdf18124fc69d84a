// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Slips.h"

#include <gtest/gtest.h>

#include "support/TicketJob.h"

TEST(Slips, DistanceCountsLetters) {
    const struct {
        const char *a, *b;
        std::size_t distance;
    } kPairs[] = {
        {"KVStaple", "kvstaple", 0},
        {"KVStaple", "KVStapel", 1},
        {"KVStaple", "KVStapl", 1},
        {"KVStaple", "KVStapple", 1},
        {"KVStaple", "KVStaxle", 1},
        {"KVStaple", "VKStapel", 2},
        {"abc", "", 3},
        {"", "abc", 3},
        {"", "", 0},
        {"KVTrim", "KVPunch", 5},
        {"kitten", "sitting", 3},
    };
    for (const auto &[a, b, distance] : kPairs) {
        EXPECT_EQ(SlipDistance(a, b), distance) << a << " " << b;
        EXPECT_EQ(SlipDistance(b, a), distance) << b << " " << a;
    }
    EXPECT_EQ(SlipDistance(std::string(40, 'x'), std::string(40, 'x')), 0U) << "as long as any";
    EXPECT_GT(SlipDistance(std::string(41, 'x'), std::string(41, 'x')), 2U) << "too long to be one";
}

TEST(Slips, AreNamedWithWhatIsMeant) {
    const struct {
        const char *options, *said;
    } kSlips[] = {
        {"KVStapel=LeftDouble",
         "KVStapel=LeftDouble is no option of this queue; is KVStaple meant?\n"},
        {"KVTrimm=5", "KVTrimm=5 is no option of this queue; is KVTrim meant?\n"},
        {"KTrim=5", "KTrim=5 is no option of this queue; is KVTrim meant?\n"},
        {"KVFrontend2=CUPS", "KVFrontend2=CUPS is no option of this queue; is KVFrontEnd meant?\n"},
        {"KVNothingOfTheKind=5", "KVNothingOfTheKind=5 is no option of this queue\n"},
        {"KVOwnr=Anna", "KVOwnr is no option of this queue; is KVOwner meant?\n"},
        {"KVOwn=Custom.1", "KVOwn is no option of this queue; is KVOwner meant?\n"},
        {"KVKnown=1", ""},
        {"kvtrim=5", ""},
        {"sides=one-sided number-up=1 finishings=3 job-uuid=x fit-to-page", ""},
        {"sides=one-sided time-at-processing=1 KVDerived=x", ""},
        {"com.korvell.tav.printsettings.Anything=1", ""},
        {"noKVPBindImagePosition=4", ""},
    };
    for (const auto &[options, said] : kSlips) {
        const CompletedTicket ticket = Complete({options, PpdOption("KVKnown", "0 1")});
        EXPECT_EQ(Said(ticket), said) << options;
        EXPECT_FALSE(ticket.refused) << options;
    }
}

TEST(Slips, OfAConfidentialOptionRefuseTheJobAndShowNothing) {
    const CompletedTicket password = Complete({"KVPasword=4711"});
    EXPECT_TRUE(password.refused);
    EXPECT_EQ(Said(password),
              "refused: KVPasword is no option of this queue; is KVPassword meant?\n");
    const CompletedTicket mailbox = Complete({"KVMailbx=12"});
    EXPECT_TRUE(mailbox.refused);
    EXPECT_EQ(Said(mailbox),
              "refused: KVMailbx=12 is no option of this queue; is KVMailbox meant?\n");
    const CompletedTicket mode = Complete({"KVPrintMod=Secure"});
    EXPECT_TRUE(mode.refused);
    EXPECT_EQ(Said(mode),
              "refused: KVPrintMod=Secure is no option of this queue; is KVPrintMode meant?\n");
}

TEST(Slips, OfAHostileJobAreNotAllLookedInto) {
    std::string options;
    for (int i = 0; i < 5000; i++) options += "KVx" + std::to_string(i) + "=1 ";
    EXPECT_EQ(Complete({options}).notices.size(), 20U);
}
