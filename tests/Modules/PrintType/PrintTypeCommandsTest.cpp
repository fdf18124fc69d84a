// SPDX-License-Identifier: Apache-2.0
#include "Modules/PrintType/PrintTypeCommands.h"

#include <gtest/gtest.h>

#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/RuledJobs.h"
#include "support/TableChecks.h"

namespace {

class PrintTypeRow : public testing::TestWithParam<CommandRule> {};

TEST_P(PrintTypeRow, DependsOnEachConditionInTheFilter) {
    CheckThroughFilter(GetParam());
}

TEST_P(PrintTypeRow, DependsOnEachConditionWithEveryValue) {
    CheckInProcess(GetParam());
}

TEST_P(PrintTypeRow, TakesValuesThatFillTheirFields) {
    CheckFieldSizes(GetParam());
}

INSTANTIATE_TEST_SUITE_P(, PrintTypeRow, testing::ValuesIn(PrintTypeRules()),
                         [](const auto &test) { return test.param.row; });

TEST(PrintTypeCommands, RowsStandAsTheRulesDo) {
    InializeDescriptionTable();
    ExpectRows({PrintTypeFmtTable, std::size_t(PrintTypeFmtTableNum)}, PrintTypeRules());
}

// What the module writes in front of the lines that every job has.
std::string PrintTypeOf(const RuledJob &job) {
    const std::string commands = CommandsOfFilter(job);
    return commands.substr(0, commands.find("@PJL SET JOBATTR=\"@CNAM="));
}

RuledJob JobWith(const std::map<std::string, std::string> &ticket) {
    RuledJob job;
    job.ticket = ticket;
    return job;
}

TEST(PrintTypeCommands, SecurePrint) {
    std::map<std::string, std::string> ticket = {{"PrintTypeTicketKey", "2"},
                                                 {"PrintTypeUserNameTicketKey", "bob"},
                                                 {"PrintTypePasswordTicketKey", "secret"},
                                                 {"DocumentNameTypeTicketKey", "2"},
                                                 {"DocumentNameTicketKey", "Plan"}};
    EXPECT_EQ(PrintTypeOf(JobWith(ticket)),
              "@PJL SET HOLD=STORE\n"
              "@PJL SET HOLDTYPE=PRIVATE\n"
              "@PJL SET USERNAME=\"bob\"\r\n"
              "@PJL SET HOLDENCRYPTKEY=\"secret\"\r\n"
              "@PJL SET JOBNAME=\"Plan\"\r\n");
    ticket.erase("PrintTypePasswordTicketKey");
    EXPECT_EQ(PrintTypeOf(JobWith(ticket)),
              "@PJL SET HOLD=STORE\n"
              "@PJL SET USERNAME=\"bob\"\r\n"
              "@PJL SET JOBNAME=\"Plan\"\r\n");
    ticket["PrintTypePasswordTicketKey"] = "secret";
    ticket.erase("PrintTypeUserNameTicketKey");
    EXPECT_EQ(PrintTypeOf(JobWith(ticket)), "@PJL SET JOBNAME=\"Plan\"\r\n");
}

TEST(PrintTypeCommands, SamplePrint) {
    EXPECT_EQ(PrintTypeOf(JobWith({{"PrintTypeTicketKey", "3"},
                                   {"PrintTypeUserNameTicketKey", "bob"},
                                   {"PrintTypePasswordTicketKey", "secret"},
                                   {"DocumentNameTypeTicketKey", "2"},
                                   {"DocumentNameTicketKey", "Plan"}})),
              "@PJL SET HOLD=PROOF\n"
              "@PJL SET USERNAME=\"bob\"\r\n"
              "@PJL SET JOBNAME=\"Plan\"\r\n");
}

TEST(PrintTypeCommands, Mailbox) {
    std::map<std::string, std::string> ticket = {
        {"PrintTypeTicketKey", "5"},        {"PrintTypeUserNameTicketKey", "bob"},
        {"PrintTypeMBNTicketKey", "0042"},  {"PrintTypeMBNPasswordTicketKey", "secret"},
        {"DocumentNameTypeTicketKey", "2"}, {"DocumentNameTicketKey", "Plan"}};
    EXPECT_EQ(PrintTypeOf(JobWith(ticket)),
              "@PJL SET HOLD=BOXSTORE\n"
              "@PJL SET HOLDTYPE=PRIVATE\n"
              "@PJL SET BOXNUMBER=0042\r\n"
              "@PJL SET BOXENCRYPTKEY=\"secret\"\r\n"
              "@PJL SET JOBNAME=\"Plan\"\r\n");
    ticket.erase("PrintTypeMBNTicketKey");  // the line stays empty
    ticket.erase("PrintTypeMBNPasswordTicketKey");
    EXPECT_EQ(PrintTypeOf(JobWith(ticket)),
              "@PJL SET HOLD=BOXSTORE\n"
              "@PJL SET JOBNAME=\"Plan\"\r\n");
}

TEST(PrintTypeCommands, DelayPrint) {
    EXPECT_EQ(PrintTypeOf(JobWith({{"PrintTypeTicketKey", "4"},
                                   {"PrintTypeUserNameTicketKey", "bob"},
                                   {"DelayPrintTicketKey", "23:30"},
                                   {"DocumentNameTypeTicketKey", "2"},
                                   {"DocumentNameTicketKey", "Plan"}})),
              "@PJL SET JOBNAME=\"Plan\"\r\n"
              "@PJL SET JOBATTR=\"@PRTM=23:30\"\r\n");
}

TEST(PrintTypeCommands, OrdinaryPrintingSaysNothingAndAnAbsentTypeNamesTheJob) {
    std::map<std::string, std::string> ticket = {{"PrintTypeTicketKey", "1"},
                                                 {"PrintTypeUserNameTicketKey", "bob"},
                                                 {"PrintTypePasswordTicketKey", "secret"},
                                                 {"DocumentNameTypeTicketKey", "2"},
                                                 {"DocumentNameTicketKey", "Plan"}};
    EXPECT_EQ(PrintTypeOf(JobWith(ticket)), "");
    for (const char *type : {"", "0", "6", "x"}) {
        ticket["PrintTypeTicketKey"] = type;
        EXPECT_EQ(PrintTypeOf(JobWith(ticket)),
                  "@PJL SET USERNAME=\"bob\"\r\n"
                  "@PJL SET JOBNAME=\"Plan\"\r\n");
    }
    ticket.erase("PrintTypeTicketKey");
    EXPECT_EQ(PrintTypeOf(JobWith(ticket)),
              "@PJL SET USERNAME=\"bob\"\r\n"
              "@PJL SET JOBNAME=\"Plan\"\r\n");
}

TEST(PrintTypeCommands, ValuesStandAsTheyAre) {
    EXPECT_EQ(PrintTypeOf(JobWith({{"PrintTypeTicketKey", "2"},
                                   {"PrintTypeUserNameTicketKey", "/34/37/100/9/195/188"},
                                   {"PrintTypePasswordTicketKey", "/0"},
                                   {"DocumentNameTypeTicketKey", "2"},
                                   {"DocumentNameTicketKey", "J\xC3\xBCrgen's \"plan\" %s"}})),
              "@PJL SET HOLD=STORE\n"
              "@PJL SET USERNAME=\"\"%d\t\xFC\"\r\n"
              "@PJL SET JOBNAME=\"J\xFCrgen's \"plan\" %s\"\r\n");
    // No UTF-8 is no name.
    EXPECT_EQ(PrintTypeOf(JobWith({{"PrintTypeTicketKey", "2"},
                                   {"PrintTypeUserNameTicketKey", "/255"},
                                   {"PrintTypePasswordTicketKey", "secret"},
                                   {"DocumentNameTypeTicketKey", "2"},
                                   {"DocumentNameTicketKey", "\xC3"}})),
              "");
}

// ---- Titles. They become the name of a held job as far as the printer accepts them, and of a
// stored job (ACNA) as they are; the product type cuts both.

struct TitleCase {
    const char *productType;  // null for none
    std::string title;
    std::string jobName;  // empty for no JOBNAME line
    std::string stored;   // empty for no ACNA line
};

void ExpectTitle(const TitleCase &test) {
    SCOPED_TRACE(test.title);
    RuledJob job = JobWith({{"PrintTypeTicketKey", "3"},
                            {"DocumentNameTypeTicketKey", "1"},
                            {"JBAManageTypeListTicketKey", "2"},
                            {"JBAUserInputRadioBtnTicket", "1"}});
    if (test.productType) job.ticket["PrintTypeProductTypeTicketKey"] = test.productType;
    job.title = test.title;
    const std::string commands = CommandsOfFilter(job);
    std::string expected;
    if (!test.jobName.empty()) expected = "@PJL SET JOBNAME=\"" + test.jobName + "\"\r\n";
    EXPECT_EQ(commands.substr(0, commands.find("@PJL SET JOBATTR=\"@CNAM=")), expected);
    expected = "@PJL SET JOBATTR=\"@NLPP=1\"\n";
    if (!test.stored.empty()) expected += "@PJL SET JOBATTR=\"@ACNA=" + test.stored + "\"\r\n";
    EXPECT_EQ(commands.substr(commands.find("@PJL SET JOBATTR=\"@NLPP=")), expected);
}

TEST(PrintTypeCommands, TitlesAreCutByTheProductType) {
    std::string name;
    while (name.size() < 100) name += static_cast<char>('A' + name.size() % 26);
    const auto first = [&](std::size_t length) { return name.substr(0, length); };
    const TitleCase cases[] = {
        {nullptr, first(10), "", first(10)},      {nullptr, first(100), "", first(100)},
        {"2", first(11), first(11), first(11)},   {"2", first(12), first(12), first(12)},
        {"2", first(13), first(12), first(12)},   {"2", first(20), first(12), first(12)},
        {"3", first(63), first(63), first(63)},   {"3", first(64), first(64), first(64)},
        {"3", first(65), first(64), first(64)},   {"3", first(100), first(64), first(64)},
        {"7", first(23), first(23), first(23)},   {"7", first(24), first(24), first(24)},
        {"7", first(25), first(24), first(24)},   {"7", first(100), first(24), first(24)},
        {"-1", first(100), first(24), first(24)}, {"x", first(100), first(24), first(24)},
    };
    for (const TitleCase &test : cases) ExpectTitle(test);
}

TEST(PrintTypeCommands, TitlesThatThePrinterRefusesAreNoJobNames) {
    for (const char *productType : {"2", "3", "7"}) {
        const TitleCase cases[] = {
            {productType, "", "", ""},
            {productType, "   ", "   ", "   "},
            {productType, "~ \"%s\"", "~ \"%s\"", "~ \"%s\""},
            {productType, "a\tb", "", "a\tb"},
            {productType, "a\x7F", "", "a\x7F"},
            {productType, "B\xC3\xBCro", "", "B\xFCro"},
            {productType, "\xE6\x97\xA5 1", " 1", " 1"},  // what Latin-1 lacks is dropped
            {productType, "a\rb", "", ""},                // a line end would end the command
            {productType, "a\nb", "", ""},
            {productType, "a\r\nb", "", ""},
            {productType, "\xFF", "", ""},
        };
        for (const TitleCase &test : cases) ExpectTitle(test);
    }
    ExpectTitle({nullptr, "   ", "", "   "});
    ExpectTitle({nullptr, "a\tb", "", "a\tb"});
    ExpectTitle({nullptr, "B\xC3\xBCro", "", "B\xFCro"});
    ExpectTitle({nullptr, "a\nb", "", ""});
}

TEST(PrintTypeCommands, OnlyWhatIsLeftOfATitleMustBeAcceptable) {
    ExpectTitle({"2", "ABCDEFGHIJKL\xC3\xBC", "ABCDEFGHIJKL", "ABCDEFGHIJKL"});
    ExpectTitle({"2", "ABCDEFGHIJK\xC3\xBC", "", "ABCDEFGHIJK\xFC"});
}

}  // namespace
