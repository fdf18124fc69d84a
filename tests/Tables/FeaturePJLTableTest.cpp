// SPDX-License-Identifier: Apache-2.0
#include "Tables/FeaturePJLTable.h"

#include <gtest/gtest.h>

#include <set>
#include <utility>

#include "support/ExpectedFeatures.h"

namespace {

TEST(FeaturePJLTable, HoldsTheExpectedRowsInOrder) {
    ASSERT_EQ(std::size(kExpectedFeatures), std::size_t(kFeaturePJLRowCount));
    for (std::int32_t i = 0; i < kFeaturePJLRowCount; i++) {
        const FeaturePJLRow &row = FeaturePPDKeyNameandMarkedValuetoPJLCommand[i];
        SCOPED_TRACE(i);
        EXPECT_EQ(row.keyword, kExpectedFeatures[i].keyword + 1);  // without its "*"
        EXPECT_EQ(row.value, kExpectedFeatures[i].value);
        EXPECT_STREQ(row.command, kExpectedFeatures[i].command);
    }
}

TEST(FeaturePJLTable, HasEachChoiceOnce) {
    std::set<std::pair<std::string_view, std::string_view>> choices;
    for (std::int32_t i = 0; i < kFeaturePJLRowCount; i++) {
        const FeaturePJLRow &row = FeaturePPDKeyNameandMarkedValuetoPJLCommand[i];
        EXPECT_TRUE(choices.emplace(row.keyword, row.value).second) << row.keyword << row.value;
    }
}

TEST(FeaturePJLTable, FindsEveryRow) {
    for (const ExpectedFeature &row : kExpectedFeatures) {
        EXPECT_STREQ(GetThePJLCommandfromKeywordsandMarkedValue(row.keyword, row.value),
                     row.command);
    }
}

TEST(FeaturePJLTable, ComparesExactly) {
    struct {
        const char *keyword, *value;
    } const kOthers[] = {
        {"KVTonerSaver", "Mode2"},
        {"**KVTonerSaver", "Mode2"},
        {"*KVTonersaver", "Mode2"},
        {"*KVTonerSaver", "mode2"},
        {"*KVTonerSaver", "Mode"},
        {"*KVTonerSaver", "Mode22"},
        {"*KVTonerSave", "Mode2"},
        {"*KVTonerSaver ", "Mode2"},
        {"*KVTonerSaver", ""},
        {"*KVOutputMode", "600x600"},
        {"*KVBrightness", "Normal"},
        {"*KVRGBCorrection", "Off"},
        {"*KVHalftone", "Fineness"},
        {"*PageSize", "A4"},
        {"*", "Mode2"},
        {"*KVColorDensity", "0"},
        {"*KVColorDensityCyanLow", "+0"},
        {"*KVColorDensityCyanLow", "1"},
        {"", ""},
    };
    for (const auto &other : kOthers) {
        EXPECT_EQ(GetThePJLCommandfromKeywordsandMarkedValue(other.keyword, other.value), nullptr)
            << other.keyword << " " << other.value;
    }
}

}  // namespace
