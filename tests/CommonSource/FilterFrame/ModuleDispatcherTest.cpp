// SPDX-License-Identifier: Apache-2.0
//
// The modules' tables and commands together.
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <random>
#include <set>
#include <sstream>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "Modules/SpecialPage/SpecialPageTicket.h"
#include "support/RuledJobs.h"

namespace {

// ---- Tables

TEST(ModuleDispatcher, EveryTicketRowIsWhole) {
    constexpr TicketGetter getters[] = {CheckTicketKey,
                                        GetTicketInteger,
                                        GetTicketFloat,
                                        GetTicketString,
                                        GetTicketStringConvertedToPrtLang,
                                        GetTicketStringConvertedToPrtLangForUTF8,
                                        GetTicketStringConvertedToPPDEncodingString,
                                        GetNumberUpTicketString,
                                        GetNumberUpTicketStringForComment};
    for (const TicketTable &table : TicketTables()) {
        EXPECT_FALSE(table.rows.empty()) << table.title;
        for (const ticketData &row : table.rows) {
            SCOPED_TRACE(row.key);
            EXPECT_STRNE(row.key, "");
            EXPECT_STRNE(row.values, "");
            EXPECT_STRNE(row.meaning, "");
            EXPECT_NE(std::ranges::find(getters, row.getter), std::end(getters));
            EXPECT_EQ(row.size > 0, row.destination != nullptr);
            EXPECT_EQ(*row.field != '\0', row.destination != nullptr);
        }
    }
}

TEST(ModuleDispatcher, NoTwoTicketRowsShareAByte) {
    std::map<const char *, const ticketData *> places;
    for (const TicketTable &table : TicketTables()) {
        for (const ticketData &row : table.rows) {
            if (!row.destination) continue;
            EXPECT_TRUE(places.emplace(static_cast<const char *>(row.destination), &row).second)
                << row.key;
        }
    }
    const char *end = nullptr;
    for (const auto &[place, row] : places) {
        EXPECT_TRUE(std::less_equal<>()(end, place)) << row->key;
        end = place + row->size;
    }
}

// Each key alone changes its own destinations and leaves every other as an empty ticket does.
TEST(ModuleDispatcher, EachKeyFillsItsFieldsAlone) {
    const auto read = [](std::string options) {
        char empty[] = "";
        char *argv[] = {empty, empty, empty, empty, empty, options.data(), nullptr};
        std::map<const ticketData *, std::string> fields;
        for (const TicketTable &table : TicketTables()) {
            if (!table.rows[0].destination) continue;
            GetTicketFromArray(argv, table.rows.data(), static_cast<int>(table.rows.size()));
            for (const ticketData &row : table.rows) {
                fields[&row].assign(static_cast<const char *>(row.destination),
                                    static_cast<std::size_t>(row.size));
            }
        }
        return fields;
    };
    const auto before = read("");
    for (const auto &[given, unused] : before) {
        const auto after = read(std::string(given->key) + "=7");
        for (const auto &[row, bytes] : after) {
            const std::string key = given->key;
            // Rows and columns stand in for the number of pages on a sheet.
            const bool own =
                row->key == key ||
                (row->key == std::string(kNumberUpTicketKey) &&
                 row->field != std::string("StdLayoutInfo") &&
                 (key == kLayoutRowCountTicketKey || key == kLayoutColumnCountTicketKey));
            EXPECT_EQ(bytes != before.at(row), own) << key << " and " << row->field;
        }
    }
}

// What docs/options.md leaves out, which names each key of a table once.
TEST(ModuleDispatcher, KeysThatAreReadAgainHaveMeaningsOfTheirOwn) {
    std::vector<std::string> listed;
    for (const TicketTable &table : TicketTables()) {
        for (auto row = table.rows.begin(); row != table.rows.end(); ++row) {
            if (std::any_of(row + 1, table.rows.end(), [&](const ticketData &later) {
                    return std::string(row->key) == later.key;
                })) {
                listed.push_back(std::string(row->key) + ": " + row->meaning);
            }
        }
    }
    EXPECT_EQ(listed, (std::vector<std::string>{
                          "number-up: pages on a sheet, as the printer writes them: \"N4\"; "
                          "without the key rows times columns",
                          KV_TICKET "JBAUserIDTextEditTicket: whether the user is not named; "
                                    "no command asks for it"}));
}

// The commands and what they tell, as tests/CommonSource/FilterFrame/commands.txt lists them.
TEST(ModuleDispatcher, EveryCommandRowIsWhole) {
    InializeDescriptionTable();
    std::vector<std::string> names;
    std::ostringstream listed;
    for (const CommandTable &table : CommandTables()) {
        for (const PrtFmtEntry &row : table) {
            listed << row.name << ": " << row.meaning << "\n";
            names.push_back(row.name);
        }
    }
    std::ifstream list(KVFILTER_SOURCE_DIR "/tests/CommonSource/FilterFrame/commands.txt");
    EXPECT_EQ(listed.str(), std::string(std::istreambuf_iterator<char>(list), {}));
    std::vector<std::string> ruled;
    for (const CommandRule &rule : AllRules()) ruled.push_back(rule.row);
    EXPECT_EQ(names, ruled);
}

// What a condition asks for is a ticket value or one of the job's texts, so that a tool can say
// which.
TEST(ModuleDispatcher, ConditionsAskForTicketValuesOrTextsOfTheJob) {
    InializeDescriptionTable();
    std::set<const void *> known = {StdUserName, StdDocumentName, PTStdDocumentName, HostNameStr};
    for (const TicketTable &table : TicketTables()) {
        for (const ticketData &row : table.rows) known.insert(row.destination);
    }
    for (const CommandTable &table : CommandTables()) {
        for (const PrtFmtEntry &row : table) {
            for (std::uint32_t k = 0; k < row.comparationPara->num; k++) {
                const CommandValue &value = row.comparationPara->items[k].value;
                EXPECT_TRUE(known.contains(value.pointer)) << row.name << ": " << value.name;
            }
        }
    }
}

// ---- Commands

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

TEST(ModuleDispatcher, ReadsNothingForTheKeyOfManySpecialPages) {
    EXPECT_FALSE(TicketWasReadAs(KV_TICKET "KPIFCoverValueTicket_", ""));
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
