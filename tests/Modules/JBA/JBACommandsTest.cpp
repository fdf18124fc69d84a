// SPDX-License-Identifier: Apache-2.0
#include "Modules/JBA/JBACommands.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/RuledJobs.h"
#include "support/TableChecks.h"

namespace {

class JBAAdminRow : public testing::TestWithParam<CommandRule> {};
class JBACommonRow : public testing::TestWithParam<CommandRule> {};

TEST_P(JBAAdminRow, DependsOnEachConditionInTheFilter) {
    CheckThroughFilter(GetParam());
}

TEST_P(JBAAdminRow, DependsOnEachConditionWithEveryValue) {
    CheckInProcess(GetParam());
}

TEST_P(JBAAdminRow, TakesValuesThatFillTheirFields) {
    CheckFieldSizes(GetParam());
}

TEST_P(JBACommonRow, DependsOnEachConditionInTheFilter) {
    CheckThroughFilter(GetParam());
}

TEST_P(JBACommonRow, DependsOnEachConditionWithEveryValue) {
    CheckInProcess(GetParam());
}

TEST_P(JBACommonRow, TakesValuesThatFillTheirFields) {
    CheckFieldSizes(GetParam());
}

INSTANTIATE_TEST_SUITE_P(, JBAAdminRow, testing::ValuesIn(JBAAdminRules()),
                         [](const auto &test) { return test.param.row; });
INSTANTIATE_TEST_SUITE_P(, JBACommonRow, testing::ValuesIn(JBACommonRules()),
                         [](const auto &test) { return test.param.row; });

TEST(JBACommands, RowsStandAsTheRulesDo) {
    InializeDescriptionTable();
    ExpectRows({JBAFmtTableAdmin, std::size_t(JBAFmtTableAdminNum)}, JBAAdminRules());
    ExpectRows({JBAFmtTableCommon, std::size_t(JBAFmtTableCommonNum)}, JBACommonRules());
}

// ---- The client

std::string HostName() {
    char name[256] = "";
    gethostname(name, sizeof name - 1);
    return std::string(name).substr(0, 96);
}

std::string ClientLines(const std::string &user) {
    return "@PJL SET JOBATTR=\"@CNAM=" + HostName() +
           "\"\n"
           "@PJL SET JOBATTR=\"@LUNA=" +
           user +
           "\"\n"
           "@PJL SET JOBATTR=\"@NLPP=1\"\n";
}

TEST(JBACommands, AJobWithoutAccountingKeysNamesItsClientOnly) {
    EXPECT_EQ(CommandsOfFilter(PlainJob()), ClientLines("alice"));
}

TEST(JBACommands, AnAddressIsSentIfTheTicketHasOne) {
    RuledJob job;
    job.host = "office";
    job.address = "I7F000001";
    job.ticket["JBAIPAddressStringTicket"] = "10.0.0.9";
    EXPECT_EQ(CommandsInProcess(job),
              "@PJL SET JOBATTR=\"@CNAM=office\"\n"
              "@PJL SET JOBATTR=\"@LUNA=alice\"\n"
              "@PJL SET JOBATTR=\"@HOAD=I7F000001\"\n"
              "@PJL SET JOBATTR=\"@NLPP=1\"\n");
    job.address = "";  // the line is begun and the next one follows
    EXPECT_EQ(CommandsInProcess(job),
              "@PJL SET JOBATTR=\"@CNAM=office\"\n"
              "@PJL SET JOBATTR=\"@LUNA=alice\"\n"
              "@PJL SET JOBATTR=\""
              "@PJL SET JOBATTR=\"@NLPP=1\"\n");
    job.ticket["JBAIPAddressStringTicket"] = "/0";  // an empty text
    EXPECT_EQ(CommandsInProcess(job),
              "@PJL SET JOBATTR=\"@CNAM=office\"\n"
              "@PJL SET JOBATTR=\"@LUNA=alice\"\n"
              "@PJL SET JOBATTR=\"@NLPP=1\"\n");
}

TEST(JBACommands, AClientWithoutNamesIsUnknown) {
    RuledJob job;
    job.user = "";
    EXPECT_EQ(CommandsInProcess(job),
              "@PJL SET JOBATTR=\"@CNAM=UnknownHost\"\n"
              "@PJL SET JOBATTR=\"@LUNA=UnknownUser\"\n"
              "@PJL SET JOBATTR=\"@NLPP=1\"\n");
}

TEST(JBACommands, TheLongestHostNameFits) {
    RuledJob job;
    job.host = std::string(96, 'h');
    EXPECT_TRUE(
        CommandsInProcess(job).starts_with("@PJL SET JOBATTR=\"@CNAM=" + job.host + "\"\n"));
}

TEST(JBACommands, PagesOnASheet) {
    // clang-format off
    const struct { const char *numberUp, *sent; } cases[] = {
        {"1",         "@PJL SET JOBATTR=\"@NLPP=N1\"\n"},
        {"4",         "@PJL SET JOBATTR=\"@NLPP=N4\"\n"},
        {"1234567",   "@PJL SET JOBATTR=\"@NLPP=N1234567\"\n"},
        {"12345678",  "@PJL SET JOBATTR=\"@NLPP=N12345678\"\n"},
        {"123456789", "@PJL SET JOBATTR=\"@NLPP=N12345678\"\n"},
        {"",          "@PJL SET JOBATTR=\"@NLPP=N\"\n"},
        {"/52",       "@PJL SET JOBATTR=\"@NLPP=N/52\"\n"},
        {"\xFF",      "@PJL SET JOBATTR=\""},  // no UTF-8, no text
    };
    // clang-format on
    for (const auto &[numberUp, sent] : cases) {
        RuledJob job = PlainJob();
        job.ticket["number-up"] = numberUp;
        EXPECT_TRUE(CommandsOfFilter(job).ends_with("@LUNA=alice\"\n" + std::string(sent)))
            << numberUp;
    }
}

// ---- The user

// A job whose login user is charged.
RuledJob LoginJob(const std::string &user) {
    RuledJob job = PlainJob();
    job.user = user;
    job.title = "";
    job.ticket = {{"JBAManageTypeListTicketKey", "2"},
                  {"JBAUserSettingRadioBtnTicket", "1"},
                  {"JBAUserIDListCtrlTicket", "1"},
                  {"JBAInfoListTicketKey", "0"}};
    return job;
}

constexpr char kNoPasswordNoAccount[] =
    "@PJL SET JOBATTR=\"@JOEP=\"\r\n"
    "@PJL SET JOBATTR=\"@DAID=\"\r\n";

TEST(JBACommands, TheLoginUserIsChargedByTheFirst32BytesOfItsName) {
    const std::string name = "abcdefghijklmnopqrstuvwxyz0123456789";
    for (const std::size_t length : {31U, 32U, 33U}) {
        const std::string user = name.substr(0, length);
        EXPECT_EQ(CommandsOfFilter(LoginJob(user)),
                  ClientLines(user) + "@PJL SET JOBATTR=\"@JOAU=" +
                      name.substr(0, length > 32 ? 32 : length) + "\"\r\n" + kNoPasswordNoAccount);
    }
}

TEST(JBACommands, TheLoginUserIsChargedByTheNameThatIsNotCleaned) {
    EXPECT_EQ(CommandsOfFilter(LoginJob("J\xC3\xBCrgen")),
              ClientLines("UnknownUser") + "@PJL SET JOBATTR=\"@JOAU=J\xFCrgen\"\r\n" +
                  kNoPasswordNoAccount);
    EXPECT_EQ(
        CommandsOfFilter(LoginJob("   ")),
        ClientLines("UnknownUser") + "@PJL SET JOBATTR=\"@JOAU=   \"\r\n" + kNoPasswordNoAccount);
    EXPECT_EQ(CommandsOfFilter(LoginJob("a\tb\r\nc")),
              ClientLines("UnknownUser") + "@PJL SET JOBATTR=\"@JOAU=a\tb\r\nc\"\r\n" +
                  kNoPasswordNoAccount);
}

TEST(JBACommands, AnEmptyLoginNameLeavesABegunLine) {
    for (const char *user : {"", "\xFF", "\xE6\x97\xA5\xE6\x9C\xAC"}) {
        EXPECT_EQ(CommandsOfFilter(LoginJob(user)),
                  ClientLines("UnknownUser") + "@PJL SET JOBATTR=\"" + kNoPasswordNoAccount);
    }
}

TEST(JBACommands, AListEntryCanWithholdTheUser) {
    RuledJob job = LoginJob("alice");
    job.ticket["JBAInfoListTicketKey"] = "3";
    job.ticket["JBAInfoSetListTicketKey"] = "8";
    EXPECT_EQ(
        CommandsOfFilter(job),
        ClientLines("alice") + "@PJL SET JOBATTR=\"@JOAU=UnknownUser\"\n" + kNoPasswordNoAccount);
}

TEST(JBACommands, ALongUserNameLosesItsLineEnd) {
    for (const std::size_t length : {203U, 204U, 205U, 254U, 255U, 300U}) {
        RuledJob job = PlainJob();
        job.user = std::string(length, 'u');
        std::string line = "@PJL SET JOBATTR=\"@LUNA=" + job.user + "\"\n";
        line.resize(std::min<std::size_t>(line.size(), 229));
        EXPECT_EQ(CommandsOfFilter(job), "@PJL SET JOBATTR=\"@CNAM=" + HostName() + "\"\n" + line +
                                             "@PJL SET JOBATTR=\"@NLPP=1\"\n");
    }
}

// ---- Passwords and other values

// The password lines of a job whose entered user has this password.
std::string PasswordLine(const std::string &password) {
    RuledJob job = PlainJob();
    job.title = "";
    job.ticket = {{"JBAManageTypeListTicketKey", "2"},
                  {"JBAUserSettingRadioBtnTicket", "1"},
                  {"JBAUserIDListCtrlTicket", "2"},
                  {"JBAUserIDTextEditTicket", "bob"},
                  {"JBAUserPasswordTextEditTicket", password}};
    const std::string before = ClientLines("alice") + "@PJL SET JOBATTR=\"@JOAU=bob\"\r\n";
    const std::string after = "@PJL SET JOBATTR=\"@DAID=\"\r\n";
    const std::string commands = CommandsOfFilter(job);
    EXPECT_TRUE(commands.starts_with(before)) << commands;
    EXPECT_TRUE(commands.ends_with(after)) << commands;
    if (commands.size() < before.size() + after.size()) return commands;
    return commands.substr(before.size(), commands.size() - before.size() - after.size());
}

std::string Coded(const std::string &text) {
    std::string coded;
    for (const char byte : text) {
        coded += '/' + std::to_string(static_cast<unsigned char>(byte));
    }
    return coded;
}

TEST(JBACommands, APasswordHoldsAnyByte) {
    std::string ascii;
    for (int byte = 1; byte < 0x80; byte++) ascii += static_cast<char>(byte);
    EXPECT_EQ(PasswordLine(Coded(ascii)), "@PJL SET JOBATTR=\"@JOEP=" + ascii + "\"\r\n");

    for (const int first : {0x80, 0xC0}) {
        std::string latin1, utf8;
        for (int byte = first; byte < first + 0x40; byte++) {
            latin1 += static_cast<char>(byte);
            utf8 += static_cast<char>(0xC0 | byte >> 6);
            utf8 += static_cast<char>(0x80 | (byte & 0x3F));
        }
        EXPECT_EQ(PasswordLine(Coded(utf8)), "@PJL SET JOBATTR=\"@JOEP=" + latin1 + "\"\r\n");
        EXPECT_EQ(PasswordLine(utf8), "@PJL SET JOBATTR=\"@JOEP=" + latin1 + "\"\r\n");
    }
}

TEST(JBACommands, SlashCodedPasswords) {
    // clang-format off
    const struct { const char *coded, *sent; } cases[] = {
        {"/72/105",            "Hi"},
        {"Hi/72",              "Hi/72"},
        {"/",                  ""},         // an empty number is the byte 0
        {"/0",                 ""},
        {"/256",               ""},
        {"/65//66",            "A"},
        {"/65/300/66",         "A"},
        {"/65/256/66",         "A"},
        {"/65/-1",             ""},         // the byte 255: no UTF-8
        {"/255",               ""},
        {"/195/169",           "\xE9"},
        {"/195",               ""},         // half a character
        {"/65/230/151/165/66", "AB"},       // a character that Latin-1 lacks
        {"/47/54/53",          "/65"},      // decoded once
        {"/37/115/37/110",     "%s%n"},
        {"/34/92/126",         "\"\\~"},
        {"a\"b",               "a\"b"},
    };
    // clang-format on
    for (const auto &[coded, sent] : cases) {
        EXPECT_EQ(PasswordLine(coded), "@PJL SET JOBATTR=\"@JOEP=" + std::string(sent) + "\"\r\n")
            << coded;
    }
}

TEST(JBACommands, ALongPasswordIsCutWithItsLine) {
    for (const std::size_t length : {202U, 203U, 204U, 205U, 253U, 254U, 255U}) {
        std::string line = "@PJL SET JOBATTR=\"@JOEP=" + std::string(length, 'p') + "\"\r\n";
        line.resize(std::min<std::size_t>(line.size(), 229));
        EXPECT_EQ(PasswordLine(std::string(length, 'p')), line) << length;
        EXPECT_EQ(PasswordLine(Coded(std::string(length, 'p'))), line) << length;
    }
}

// ---- Rows that hold at once

TEST(JBACommands, AStoredJobOfAnIdentifiedUserHasTheLinesOfBoth) {
    for (const auto &[type, side] : {std::pair("1", "JBAAdmin"), std::pair("2", "JBA")}) {
        RuledJob job = PlainJob();
        job.ticket = {{"JBAManageTypeListTicketKey", type},
                      {side + std::string("UserInputRadioBtnTicket"), "1"},
                      {"JBAInputAuthRadioBtnTicketKey", "1"},
                      {"JBAInputStrgRadioBtnTicketKey", "1"},
                      {"JBAInputStorageIDTextEditTicket", "box"}};
        const std::string lines =
            "@PJL SET JOBATTR=\"@JOAU=UnknownUser\"\r\n"
            "@PJL SET JOBATTR=\"@JOEP=\"\r\n"
            "@PJL SET JOBATTR=\"@DAID=\"\r\n"
            "@PJL SET JOBATTR=\"@DAID=\"\r\n"
            "@PJL SET JOBATTR=\"@DAID=\"\r\n"
            "@PJL SET JOBATTR=\"@ACID=box\"\r\n"
            "@PJL SET JOBATTR=\"@ACNA=Report\"\r\n"
            "@PJL SET JOBATTR=\"@JOAU=UnknownUser\"\n"
            "@PJL SET JOBATTR=\"@JOEP=\"\n"
            "@PJL SET JOBATTR=\"@ACEP=\"\r\n";
        EXPECT_EQ(CommandsOfFilter(job),
                  *type == '1' ? lines + ClientLines("alice") : ClientLines("alice") + lines);
    }
}

}  // namespace
