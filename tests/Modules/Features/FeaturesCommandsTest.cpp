// SPDX-License-Identifier: Apache-2.0
#include "Modules/Features/FeaturesCommands.h"

#include <gtest/gtest.h>

#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/RuledJobs.h"
#include "support/TableChecks.h"

namespace {

class FeaturesRow : public testing::TestWithParam<CommandRule> {};

TEST_P(FeaturesRow, DependsOnEachConditionInTheFilter) {
    CheckThroughFilter(GetParam());
}

TEST_P(FeaturesRow, DependsOnEachConditionWithEveryValue) {
    CheckInProcess(GetParam());
}

TEST_P(FeaturesRow, TakesValuesThatFillTheirFields) {
    CheckFieldSizes(GetParam());
}

INSTANTIATE_TEST_SUITE_P(, FeaturesRow, testing::ValuesIn(FeaturesRules()),
                         [](const auto &test) { return test.param.row; });

TEST(FeaturesCommands, RowsStandAsTheRulesDo) {
    InializeDescriptionTable();
    ExpectRows({FeaturesFmtTable, std::size_t(FeaturesFmtTableNum)}, FeaturesRules());
}

// What the module writes after the lines that every job has.
std::string FeaturesOf(const std::map<std::string, std::string> &ticket) {
    RuledJob job = PlainJob();
    const std::string client = CommandsOfFilter(job);
    job.ticket = ticket;
    const std::string commands = CommandsOfFilter(job);
    EXPECT_TRUE(commands.starts_with(client));
    return commands.substr(std::min(client.size(), commands.size()));
}

TEST(FeaturesCommands, ASwitchIsOffOrOnOrSaysNothing) {
    const std::map<std::string, std::string> values = {{"TabMarginMMShiftTicket", "12"},
                                                       {"TrimmerMMCuttingSizeTicket", "3.5"},
                                                       {"NumInSequenceLArrowTicket", "7"}};
    // clang-format off
    const struct { const char *value, *tabMargin, *trimmer, *numbering; } cases[] = {
        {"0",  "@TABS=OFF", "@TRMR=0",   "@MDOC=0"},
        {"1",  "@TABS=12",  "@TRMR=3.5", "@MDOC=7"},
        {"2",  "",          "",          ""},
        {"-1", "",          "",          ""},
        {"x",  "@TABS=OFF", "@TRMR=0",   "@MDOC=0"},  // no number counts as 0
    };
    // clang-format on
    const auto line = [](const std::string &attribute) {
        return attribute.empty() ? "" : "@PJL SET JOBATTR=\"" + attribute + "\"\n";
    };
    for (const auto &[value, tabMargin, trimmer, numbering] : cases) {
        std::map<std::string, std::string> ticket = values;
        ticket["TabMarginSwitchTicket"] = value;
        EXPECT_EQ(FeaturesOf(ticket), line(tabMargin));
        ticket["TrimmerSwitchTicket"] = value;
        ticket["NumInSequenceSwitchTicket"] = value;
        EXPECT_EQ(FeaturesOf(ticket), line(tabMargin) + line(trimmer) + line(numbering));
    }
}

TEST(FeaturesCommands, AnEmptyValueLeavesABegunLine) {
    EXPECT_EQ(FeaturesOf({{"TabMarginSwitchTicket", "1"},
                          {"TrimmerSwitchTicket", "1"},
                          {"TrimmerMMCuttingSizeTicket", "/0"},
                          {"NumInSequenceSwitchTicket", "1"},
                          {"NumInSequenceLArrowTicket", "\xFF"},
                          {"OffsetStackingListTicket", "4"},
                          {"EjectOptionsListTicket", "2"}}),
              "@PJL SET JOBATTR=\""
              "@PJL SET JOBATTR=\""
              "@PJL SET JOBATTR=\""
              "@PJL SET JOBOFFSET=PAGES\n"
              "@PJL SET JOBATTR=\""
              "@PJL SET JOBATTR=\"@FACE=DOWN\"\n");
    EXPECT_EQ(FeaturesOf({{"OffsetStackingListTicket", "5"}}),
              "@PJL SET JOBOFFSET=COPIES\n"
              "@PJL SET JOBATTR=\"");
}

TEST(FeaturesCommands, OffsetStackingSaysWhatAndHowMany) {
    std::map<std::string, std::string> ticket = {{"OffsetStackingPagesLArrowTicket", "10"},
                                                 {"OffsetStackingUnitsLArrowTicket", "25"}};
    for (const char *list : {"0", "1", "2", "3", "6"}) {
        ticket["OffsetStackingListTicket"] = list;
        EXPECT_EQ(FeaturesOf(ticket), "") << list;
    }
    ticket["OffsetStackingListTicket"] = "4";
    EXPECT_EQ(FeaturesOf(ticket),
              "@PJL SET JOBOFFSET=PAGES\n"
              "@PJL SET JOBATTR=\"@OCSN=10\"\n");
    ticket["OffsetStackingListTicket"] = "5";
    EXPECT_EQ(FeaturesOf(ticket),
              "@PJL SET JOBOFFSET=COPIES\n"
              "@PJL SET JOBATTR=\"@OCSN=25\"\n");
}

TEST(FeaturesCommands, WithoutAChosenSideTheMediaDecide) {
    constexpr char kOff[] = "@PJL SET JOBATTR=\"@FACE=OFF\"\n";
    constexpr char kUp[] = "@PJL SET JOBATTR=\"@FACE=UP\"\n";
    // clang-format off
    const struct { const char *holes, *tab, *specialTab, *coilFace, *sent; } cases[] = {
        // holes          tab      special  coil face
        {"KVCoil",        "false", "0",     "true",   kOff},
        {"KVCoil",        "true",  "0",     "true",   kUp},
        {"KVCoil",        "false", "1",     "true",   kUp},
        {"KVCoil",        "true",  "1",     "true",   kUp},
        {"KVCoil",        "false", "0",     "false",  kOff},
        {"KVCoil",        "true",  "1",     "false",  kOff},
        {"KVCoil",        "true",  "1",     "",       ""},
        {"KVCoil",        "",      "1",     "true",   ""},
        {"KVCoil",        "false", "2",     "true",   ""},
        {"KVCoil",        "FALSE", "0",     "true",   ""},
        {"2Holes",        "true",  "1",     "true",   kOff},
        {"",              "true",  "1",     "true",   kOff},
        {"coil",          "true",  "1",     "true",   kOff},
        {"2Holes",        "true",  "1",     "false",  kOff},
        {"2Holes",        "true",  "1",     "True",   ""},
    };
    // clang-format on
    for (const auto &[holes, tab, specialTab, coilFace, sent] : cases) {
        SCOPED_TRACE(std::string(holes) + " " + tab + " " + specialTab + " " + coilFace);
        EXPECT_EQ(FeaturesOf({{"EjectOptionsListTicket", "1"},
                              {"KVNumPunchHoles", holes},
                              {"featuresMediaTypeTabTicket", tab},
                              {"whetherMediaTypeTabTicket", specialTab},
                              {"CoilPunchFaceTicket", coilFace}}),
                  sent);
    }
}

TEST(FeaturesCommands, PunchingIsReadAsFarAsItsFieldReaches) {
    constexpr char kOff[] = "@PJL SET JOBATTR=\"@FACE=OFF\"\n";
    constexpr char kUp[] = "@PJL SET JOBATTR=\"@FACE=UP\"\n";
    for (const auto &[length, sent] : {std::pair(94U, kUp), {95U, kUp}, {96U, kOff}}) {
        EXPECT_EQ(FeaturesOf({{"EjectOptionsListTicket", "1"},
                              {"KVNumPunchHoles", std::string(length, '-') + "Coil"},
                              {"featuresMediaTypeTabTicket", "true"},
                              {"whetherMediaTypeTabTicket", "1"},
                              {"CoilPunchFaceTicket", "true"}}),
                  sent)
            << length;
    }
}

}  // namespace
