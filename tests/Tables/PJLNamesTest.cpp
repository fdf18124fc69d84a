// SPDX-License-Identifier: Apache-2.0
#include "Tables/PJLNames.h"

#include <gtest/gtest.h>

#include <cstring>
#include <set>
#include <string>

#include "Tables/FeaturePJLTable.h"
#include "Tools/JobInfo/PJLLine.h"

namespace {

TEST(PJLNames, AreUniqueWithinTheirKind) {
    std::set<std::string> seen;
    for (const PJLName &row : PJLNames()) {
        EXPECT_TRUE(seen.insert(std::to_string(row.kind) + std::string(row.name)).second)
            << row.name;
        EXPECT_EQ(FindPJLName(row.kind, row.name), &row);
    }
    EXPECT_GT(seen.size(), 90U);
}

TEST(PJLNames, HaveMeaningsThatFitALine) {
    for (const PJLName &row : PJLNames()) {
        const std::string meaning = row.meaning;
        EXPECT_GT(meaning.size(), 5U) << row.name;
        EXPECT_LE(meaning.size(), 60U) << row.name;
        EXPECT_NE(meaning.back(), '.') << row.name;
    }
}

TEST(PJLNames, StandInTheOrderOfTheHeader) {
    PJLGroup last = kGroupJob;
    for (const PJLName &row : PJLNames()) {
        EXPECT_GE(row.group, last) << row.name;
        last = row.group;
    }
}

TEST(PJLNames, NamePasswordsAsSecretsAndNothingElse) {
    for (const PJLName &row : PJLNames()) {
        const bool isPassword =
            std::strstr(row.meaning, "password of") || std::strstr(row.meaning, "password that");
        EXPECT_EQ(row.secrecy == kSecret, isPassword) << row.name;
    }
}

TEST(PJLNames, KnowEveryFeatureOfThePPDs) {
    for (std::int32_t i = 0; i < kFeaturePJLRowCount; i++) {
        std::string line = FeaturePPDKeyNameandMarkedValuetoPJLCommand[i].command;
        line.pop_back();
        const PJLLine parsed = ParsePJL(line);
        ASSERT_TRUE(parsed.row) << line;
        EXPECT_EQ(parsed.row->group, kGroupFeatures) << line;
    }
}

TEST(PJLNames, SayWhatAValueMeans) {
    const PJLName &hold = *FindPJLName(kPJLVariable, "HOLD");
    EXPECT_STREQ(MeaningOfPJLValue(hold, "STORE"), "until its owner releases it");
    EXPECT_STREQ(MeaningOfPJLValue(hold, "BOXSTORE"), "in a mailbox");
    EXPECT_EQ(MeaningOfPJLValue(hold, "PRIVATE"), nullptr);
    const PJLName &last = *(PJLNames().last - 1);
    EXPECT_EQ(MeaningOfPJLValue(last, "x"), nullptr);
    const PJLName &screen = *FindPJLName(kPJLAttribute, "FACE");
    EXPECT_STREQ(MeaningOfPJLValue(screen, "UP_REVERSE"), "face up, last page first");
    EXPECT_EQ(FindPJLName(kPJLVariable, "FACE"), nullptr);
}

}  // namespace
