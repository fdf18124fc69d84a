// SPDX-License-Identifier: Apache-2.0
//
// The modules' commands together.
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"

#include <gtest/gtest.h>

#include <random>

#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "Modules/SpecialPage/SpecialPageTicket.h"
#include "support/RuledJobs.h"

namespace {

const std::map<std::string, std::string> kPrintTypeTicket = {
    {"PrintTypeTicketKey", "2"},
    {"PrintTypeUserNameTicketKey", "bob"},
    {"PrintTypePasswordTicketKey", "secret"},
    {"PrintTypeProductTypeTicketKey", "3"},
    {"DocumentNameTypeTicketKey", "1"},
};

const std::map<std::string, std::string> kFeaturesTicket = {
    {"TabMarginSwitchTicket", "0"},
    {"OffsetStackingListTicket", "4"},
    {"OffsetStackingPagesLArrowTicket", "10"},
    {"EjectOptionsListTicket", "3"},
};

constexpr char kPrintTypeLines[] =
    "@PJL SET HOLD=STORE\n"
    "@PJL SET HOLDTYPE=PRIVATE\n"
    "@PJL SET USERNAME=\"bob\"\r\n"
    "@PJL SET HOLDENCRYPTKEY=\"secret\"\r\n"
    "@PJL SET JOBNAME=\"Report\"\r\n";
constexpr char kFeaturesLines[] =
    "@PJL SET JOBATTR=\"@TABS=OFF\"\n"
    "@PJL SET JOBOFFSET=PAGES\n"
    "@PJL SET JOBATTR=\"@OCSN=10\"\n"
    "@PJL SET JOBATTR=\"@FACE=UP\"\n";
constexpr char kSettingsLines[] =
    "@PJL SET JOBATTR=\"@JOAU=carol\"\r\n"
    "@PJL SET JOBATTR=\"@JOEP=\"\r\n"
    "@PJL SET JOBATTR=\"@DAID=\"\r\n"
    "@PJL SET JOBATTR=\"@ACNA=Report\"\r\n";

TEST(ModuleDispatcher, CommandsComeInTheModulesOrder) {
    for (const auto &[type, side] : {std::pair("1", "JBAAdmin"), std::pair("2", "JBA")}) {
        RuledJob job = PlainJob();
        job.ticket = {{"JBAManageTypeListTicketKey", type},
                      {side + std::string("UserSettingRadioBtnTicket"), "1"},
                      {side + std::string("UserIDListCtrlTicket"), "2"},
                      {side + std::string("UserIDTextEditTicket"), "carol"}};
        job.ticket.insert(kPrintTypeTicket.begin(), kPrintTypeTicket.end());
        job.ticket.insert(kFeaturesTicket.begin(), kFeaturesTicket.end());
        const std::string client = "@PJL SET JOBATTR=\"@CNAM=" + job.host +
                                   "\"\n"
                                   "@PJL SET JOBATTR=\"@LUNA=alice\"\n"
                                   "@PJL SET JOBATTR=\"@NLPP=1\"\n";
        EXPECT_EQ(CommandsOfFilter(job),
                  kPrintTypeLines +
                      (*type == '1' ? kSettingsLines + client : client + kSettingsLines) +
                      kFeaturesLines);
    }
}

TEST(ModuleDispatcher, SpecialPagesBeginWithoutCounts) {
    psOptionSpecialPage = {1, 2, 3};
    InializeDescriptionTable();
    EXPECT_EQ(psOptionSpecialPage.coverCount, 0);
    EXPECT_EQ(psOptionSpecialPage.insertionCount, 0);
    EXPECT_EQ(psOptionSpecialPage.exceptionCount, 0);
}

// A job put together from jobs that get, and just do not get, some of the commands.
RuledJob RandomJob(const std::vector<RuledJob> &parts, std::mt19937 &random) {
    RuledJob job = PlainJob();
    job.address = "I7F000001";
    for (std::size_t i = 1 + random() % 6; i > 0; i--) {
        const RuledJob &part = parts[random() % parts.size()];
        for (const auto &[key, value] : part.ticket) {
            job.ticket[key] = random() % 20 == 0 ? std::string(random() % 300, 'x') : value;
        }
        if (part.user != PlainJob().user) job.user = part.user;
        if (part.host != PlainJob().host) job.host = part.host;
        if (part.title != PlainJob().title) job.title = part.title;
    }
    return job;
}

TEST(ModuleDispatcher, CommandsOfRandomTicketsFollowTheRules) {
    std::vector<RuledJob> parts;
    for (const CommandRule &rule : AllRules()) {
        parts.insert(parts.end(), 5, JobFor(rule));
        for (const BrokenJob &broken : JobsThatBreak(rule)) parts.push_back(broken.job);
    }
    std::mt19937 random(1);
    for (int i = 0; i < 3000 && !HasFailure(); i++) {
        const RuledJob job = RandomJob(parts, random);
        EXPECT_EQ(CommandsInProcess(job), ExpectedCommands(job)) << OptionString(job);
    }
}

}  // namespace
