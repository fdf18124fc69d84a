// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/ShortOptions.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <sstream>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "FrontEnd/PrintModeKeys.h"
#include "FrontEnd/QueueDefaults.h"
#include "support/TicketJob.h"

namespace {

std::vector<std::string> Words(const std::string &text) {
    std::istringstream stream(text);
    return {std::istream_iterator<std::string>(stream), {}};
}

bool IsTicketKey(const std::string &key) {
    for (const TicketTable &table : TicketTables()) {
        for (const ticketData &row : table.rows) {
            if (row.key == key) return true;
        }
    }
    return false;
}

// What an option with one value becomes.
struct Becomes {
    const char *option;
    const char *value;
    const char *keys;
};

constexpr char kCharge[] = "JBAManageTypeListTicketKey=2 JBAUserSettingRadioBtnTicket=1 ";

}  // namespace

TEST(ShortOptions, RowsFitAPPD) {
    std::set<std::string> names;
    for (std::size_t i = 0; i < kShortOptionCount; i++) {
        const ShortOption &row = kShortOptions[i];
        const std::string name = row.name;
        EXPECT_TRUE(names.insert(name).second) << name;
        EXPECT_TRUE(name.starts_with("KV"))
            << name << " could be a Boolean that begins with \"no\"";
        EXPECT_LE(name.size(), row.own == OwnValue::None ? 33U : 29U) << name;
        EXPECT_FALSE(Words(row.choices).empty()) << name;
        for (const std::string &choice : Words(row.choices)) {
            EXPECT_LE(choice.size(), 40U) << name;
            EXPECT_EQ(choice.find_first_of(":/*"), std::string::npos) << name << " " << choice;
        }
        EXPECT_LE(row.least, row.most) << name;
        if (row.own == OwnValue::None) {
            EXPECT_EQ(row.most, 0) << name;
        }
        EXPECT_STRNE(row.meaning, "") << name;
        EXPECT_TRUE(std::string(row.example).starts_with(name + "=")) << name;
        EXPECT_EQ(FindShortOption(name), &row);
    }
    EXPECT_EQ(FindShortOption("kvprintmode"), &kShortOptions[0]);
    EXPECT_EQ(FindShortOption("KVPrint"), nullptr);
}

TEST(ShortOptions, AddKeysThatAModuleReads) {
    EXPECT_FALSE(IsTicketKey(KV_TICKET "NoSuchKey"));
    for (std::size_t i = 0; i < kShortOptionCount; i++) {
        for (const auto &[choice, keys] : kShortOptions[i].becomes) {
            for (const std::string &word : Words(keys ? keys : "")) {
                EXPECT_TRUE(IsTicketKey(KV_TICKET + word.substr(0, word.find('=')))) << word;
            }
        }
    }
    for (const char *key :
         {kPrintTypeTicketKey, kPrintTypeUserNameTicketKey, kPrintTypePasswordTicketKey,
          kDocumentNameTypeTicketKey, kDocumentNameTicketKey, kDelayPrintTicketKey,
          kPrintTypeMBNTicketKey, kPrintTypeMBNPasswordTicketKey}) {
        EXPECT_TRUE(IsTicketKey(key)) << key;
    }
    for (const char *const *key = kQueueTicketKeys; *key; key++) {
        EXPECT_TRUE(IsTicketKey(*key)) << *key;
    }
}

TEST(ShortOptions, ExamplesAreUnderstood) {
    for (std::size_t i = 0; i < kShortOptionCount; i++) {
        const std::string example = kShortOptions[i].example;
        const std::string value = example.substr(example.find('=') + 1);
        std::string understood;
        EXPECT_TRUE(UnderstandShortOption(kShortOptions[i], value, understood)) << example;
        EXPECT_EQ(understood, value) << example;
    }
}

TEST(ShortOptions, ValuesAreUnderstoodWithoutRegardToCaseAndAsCustomOnes) {
    const struct {
        const char *option, *value, *understood;  // null: it is not
    } kValues[] = {
        {"KVPrintMode", "secure", "Secure"},
        {"KVPrintMode", "Secur", nullptr},
        {"KVPrintMode", "Custom.Secure", nullptr},
        {"KVPrintMode", "", nullptr},
        {"KVOwner", "Custom.Anna", "Anna"},
        {"KVOwner", "Anna B.", "Anna B."},
        {"KVOwner", "login", "Login"},
        {"KVOwner", "custom.Login", "Login"},
        {"KVOwner", "Custom.", nullptr},
        {"KVTrim", "1", "1"},
        {"KVTrim", "Custom.99", "99"},
        {"KVTrim", "100", nullptr},
        {"KVTrim", "0", nullptr},
        {"KVTrim", "5mm", nullptr},
        {"KVTrim", "5.5", nullptr},
        {"KVTrim", "+5", nullptr},
        {"KVTrim", "99999999999999999999", nullptr},
        {"KVTrim", "off", "Off"},
        {"KVBookletShift", "-99", "-99"},
        {"KVBookletShift", "-100", nullptr},
        {"KVReportAddress", "true", "True"},
        {"KVReportAddress", "yes", nullptr},
    };
    for (const auto &[option, value, understood] : kValues) {
        std::string found;
        EXPECT_EQ(UnderstandShortOption(*FindShortOption(option), value, found),
                  understood != nullptr)
            << option << "=" << value;
        if (understood) {
            EXPECT_EQ(found, understood);
        }
    }
}

TEST(ShortOptions, AllowedValuesAreSaid) {
    EXPECT_EQ(AllowedValues(*FindShortOption("KVPrintMode")),
              "Normal, Secure, Sample, Delay, Mailbox");
    EXPECT_EQ(AllowedValues(*FindShortOption("KVTrim")), "Default, Off, a number from 1 to 99");
    EXPECT_EQ(AllowedValues(*FindShortOption("KVOwner")), "Login, a text of at most 72 bytes");
}

TEST(ShortOptions, BecomeKeys) {
    const std::string charge = kCharge;
    const std::string login = charge + "JBAUserIDListCtrlTicket=1 JBAInfoListTicketKey=0";
    const Becomes kBecomes[] = {
        {"KVAccountUser", "None", ""},
        {"KVAccountUser", "Login", login.c_str()},
        {"KVAccountPassword", "None", ""},
        {"KVAccountID", "None", ""},
        {"KVStorageID", "None", ""},
        {"KVReportAddress", "False", ""},
        {"KVReportAddress", "True", "JBAIPAddressStringTicket=1"},
        {"KVTabShift", "Default", ""},
        {"KVTabShift", "Off", "TabMarginSwitchTicket=0"},
        {"KVTabShift", "12", "TabMarginSwitchTicket=1 TabMarginMMShiftTicket=12"},
        {"KVTrim", "Default", ""},
        {"KVTrim", "Off", "TrimmerSwitchTicket=0"},
        {"KVTrim", "5", "TrimmerSwitchTicket=1 TrimmerMMCuttingSizeTicket=5"},
        {"KVSequence", "Default", ""},
        {"KVSequence", "Off", "NumInSequenceSwitchTicket=0"},
        {"KVSequence", "9999", "NumInSequenceSwitchTicket=1 NumInSequenceLArrowTicket=9999"},
        {"KVOffsetStacking", "None", ""},
        {"KVOffsetStacking", "Copies",
         "OffsetStackingListTicket=5 OffsetStackingUnitsLArrowTicket=1"},
        {"KVOffsetStacking", "Copies:2",
         "OffsetStackingListTicket=5 OffsetStackingUnitsLArrowTicket=2"},
        {"KVOffsetStacking", "Pages:99999",
         "OffsetStackingListTicket=4 OffsetStackingPagesLArrowTicket=99999"},
        {"KVDelivery", "Default", ""},
        {"KVDelivery", "FaceDown", "EjectOptionsListTicket=2"},
        {"KVDelivery", "FaceUp", "EjectOptionsListTicket=3"},
        {"KVDelivery", "FaceDownReverse", "EjectOptionsListTicket=4"},
        {"KVDelivery", "FaceUpReverse", "EjectOptionsListTicket=5"},
        {"KVBookletShift", "None", ""},
        {"KVBookletShift", "-3", "BookletMarginSwitchTicket=1 BookletMarginMMShiftTicket=-3"},
        {"KVAutoFit", "False", ""},
        {"KVAutoFit", "True",
         "BookletMarginSwitchTicket=1 BookletMarginMMShiftTicket=0 AutoFitSwitchTicket=1"},
        {"KVSeparator", "None", ""},
        {"KVSeparator", "3,7", "SeparatorPageListTicket=2 SeparatorPageTicket=3 7"},
        {"KVSeparator", "3-6,9", "SeparatorPageListTicket=2 SeparatorPageTicket=3 4 5 6 9"},
        {"KVSeparator", "12345,1234567", ""},
    };
    std::strcpy(IPAddressStr, "I7F000001");
    for (const auto &[option, value, keys] : kBecomes) {
        const CompletedTicket ticket = Complete({std::string(option) + "=" + value});
        EXPECT_EQ(Caused(ticket, option), keys) << option << "=" << value;
        EXPECT_FALSE(ticket.refused);
    }
    IPAddressStr[0] = '\0';
}

TEST(ShortOptions, TextsBecomeKeys) {
    const std::string charge = kCharge;
    const CompletedTicket named =
        Complete({"KVAccountUser=Custom.Anna KVAccountPassword=sword "
                  "KVAccountID=47/11 KVStorageID=box KVStoragePassword=p"});
    EXPECT_EQ(Said(named), "");
    EXPECT_EQ(Caused(named, "KVAccountUser"),
              charge + "JBAUserIDListCtrlTicket=2 JBAUserIDTextEditTicket=Anna");
    EXPECT_EQ(Caused(named, "KVAccountPassword"),
              "JBAInfoListTicketKey=0 JBAUserPasswordTextEditTicket=sword");
    EXPECT_EQ(Caused(named, "KVAccountID"), "JBAAccountIDTextEditTicket=47/11");
    EXPECT_EQ(Caused(named, "KVStorageID"), "JBAStorageIDTextEditTicket=box");
    EXPECT_EQ(Caused(named, "KVStoragePassword"), "JBAStoragePasswordTextEditTicket=p");
    const CompletedTicket dialogs =
        Complete({"KVStoragePassword=p " KV_TICKET "JBAStorageIDTextEditTicket=box"});
    EXPECT_EQ(Caused(dialogs, "KVStoragePassword"), "JBAStoragePasswordTextEditTicket=p");

    const CompletedTicket alone = Complete({"KVAccountPassword=sword"});
    EXPECT_EQ(Caused(alone, "KVAccountPassword"),
              charge +
                  "JBAUserIDListCtrlTicket=1 JBAInfoListTicketKey=0 "
                  "JBAUserPasswordTextEditTicket=sword")
        << "of the user who prints";
}

TEST(ShortOptions, ShiftAndFitOfABookletGoTogether) {
    const CompletedTicket ticket = Complete({"KVBookletShift=4 KVAutoFit"});
    EXPECT_EQ(Value(ticket, "*BookletMarginMMShiftTicket"), "4");
    EXPECT_EQ(Value(ticket, "*AutoFitSwitchTicket"), "1");
}

TEST(ShortOptions, AddressIsReportedOnlyWhereThereIsOne) {
    const CompletedTicket ticket = Complete({"KVReportAddress"});
    EXPECT_EQ(Said(ticket), "KVReportAddress=true cannot be: this computer has no address\n");
    EXPECT_EQ(Value(ticket, "*JBAIPAddressStringTicket"), "absent");
}

TEST(ShortOptions, WhatIsNotUnderstoodIsDroppedWithAWord) {
    const struct {
        const char *option, *said;
    } kSlips[] = {
        {"KVDelivery=Sideways",
         "KVDelivery=Sideways is not understood; allowed: Default, FaceDown, FaceUp, "
         "FaceDownReverse, FaceUpReverse\n"},
        {"KVTrim=wide",
         "KVTrim=wide is not understood; allowed: Default, Off, a number from 1 to 99\n"},
        {"KVOffsetStacking=Pages:0",
         "KVOffsetStacking=Pages:0 is not understood; allowed: None, Copies, Copies:N, Pages:N\n"},
        {"KVOffsetStacking=Pages:3x",
         "KVOffsetStacking=Pages:3x is not understood; allowed: None, Copies, Copies:N, Pages:N\n"},
        {"KVOffsetStacking=Copies:100000",
         "KVOffsetStacking=Copies:100000 is not understood; allowed: None, Copies, Copies:N, "
         "Pages:N\n"},
        {"KVSeparator=a", "KVSeparator=a is no list of pages as 3,7-9\n"},
        {"KVSeparator=7-3", "KVSeparator=7-3 is no list of pages as 3,7-9\n"},
        {"KVSeparator=3-", "KVSeparator=3- is no list of pages as 3,7-9\n"},
        {"KVSeparator=3,", "KVSeparator=3, is no list of pages as 3,7-9\n"},
        {"KVSeparator=3]put", "KVSeparator=3]put is no list of pages as 3,7-9\n"},
        {"KVSeparator=1-99999", "KVSeparator=1-99999 names more pages than fit\n"},
        {"KVStoragePassword=pass",
         "KVStoragePassword belongs to KVStorageID, which is not given\n"},
        {"KVAccountUser=日本", "KVAccountUser has no letters that the printer knows\n"},
        {"KVAccountID=a\\\"b",
         "KVAccountID=a\"b loses letters or quotation marks that the printer does not know, or is "
         "too long\n"},
    };
    for (const auto &[option, said] : kSlips) {
        const CompletedTicket ticket = Complete({option});
        EXPECT_EQ(Said(ticket), said);
        EXPECT_FALSE(ticket.refused) << option;
    }
}

TEST(ShortOptions, PasswordThatWouldBeChangedRefusesTheJob) {
    for (const char *option : {"KVAccountPassword=日本", "KVAccountPassword=a\\\"b",
                               "KVStorageID=1 KVStoragePassword=12345678901234567"}) {
        const CompletedTicket ticket = Complete({option});
        EXPECT_TRUE(ticket.refused) << option;
        EXPECT_EQ(Said(ticket).find("2345"), std::string::npos) << "a password in a message";
    }
}

TEST(ShortOptions, ReachThePrinterByTheirExamples) {
    std::strcpy(IPAddressStr, "I7F000001");
    for (std::size_t i = 0; i < kShortOptionCount; i++) {
        std::string options = kShortOptions[i].example;
        // What an option needs beside it.
        if (options.starts_with("KVStoragePassword")) options += " KVStorageID=1";
        if (options.starts_with("KVPrintMode")) options += " KVPassword=1";
        if (options.starts_with("KVOwner") || options.starts_with("KVJobName")) {
            options += " KVPrintMode=Sample";
        }
        const CompletedTicket ticket = Complete({options});
        EXPECT_EQ(Said(ticket), "") << options;
    }
    IPAddressStr[0] = '\0';
}
