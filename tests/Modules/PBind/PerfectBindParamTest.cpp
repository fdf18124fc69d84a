// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PerfectBindParam.h"

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <string>

namespace {

const char *const pairs[][2] = {
    {"A3", "A3"},
    {"A4", "A4"},
    {"A5", "A5"},
    {"B4", "JISB4"},
    {"B5", "JISB5"},
    {"SRA3", "SA3"},
    {"8x10", "8X10"},
    {"KV11x15", "11X15"},
    {"KV889x122", "SPECIALA4"},
    {"KV122x170", "DT_SPECIALA3"},
    {"KV126x192", "126X192"},
    {"KV13x18", "13X18"},
    {"KV13x19", "13X19"},
    {"KV16-KAI", "ROC16K"},
    {"KV16-KAI-GCO", "16KAIGCO"},
    {"KV8-KAI", "ROC8K"},
    {"KV8-KAI-GCO", "8KAIGCO"},
    {"KVA4Cover", "A4COVER"},
    {"9x11", "LETTERCOVER"},
    {"Letter", "LETTER"},
    {"Executive", "EXECUTIVE"},
    {"Tabloid", "LEDGER"},
    {"TabloidExtra", "12X18"},
    {"Default", "OFF"},
    {"Stationary", "NORMAL"},
    {"StationaryS1", "NORMALS1"},
    {"RecyclePaper", "RECYCLE"},
    {"RecyclePaperS1", "RECYCLES1"},
    {"ThickPaper", "THICK"},
    {"ThickPaperS1", "THICKS1"},
    {"ThickPaper2", "SUPERTHICK"},
    {"ThickPaper2S1", "SUPERTHICKS1"},
    {"CoatingPaper1", "COATEDPAPER"},
    {"CoatingPaper1A", "COATEDPAPERA"},
    {"CoatingPaper1B", "COATEDPAPERB"},
    {"CoatingPaper2", "COATEDPAPER2"},
    {"PrePrintedPaper", "PREPRINTED"},
    {"PrePrintedThickPaper1", "PREPRINTEDTHICK1"},
    {"PrePrintedThickPaper1S1", "PREPRINTEDTHICK1S1"},
    {"PrePrintedThickPaper2", "PREPRINTEDTHICK2"},
    {"PrePrintedThickPaper2S1", "PREPRINTEDTHICK2S1"},
    {"PrePrintedPlainPaperS1", "PREPRINTEDS1"},
    {"CustomSizedPaper1", "USER1"},
    {"CustomSizedPaper2", "USER2"},
    {"CustomSizedPaper3", "USER3"},
    {"CustomSizedPaper4", "USER4"},
    {"CustomSizedPaper5", "USER5"},
    {"White", "WHITE"},
    {"Blue", "BLUE"},
    {"Yellow", "YELLOW"},
    {"Green", "GREEN"},
    {"Pink", "PINK"},
    {"Clear", "CLEAR"},
    {"Ivory", "IVORY"},
    {"Gray", "GRAY"},
    {"Buff", "BUFF"},
    {"Goldenrod", "GOLDENROD"},
    {"Red", "RED"},
    {"Orange", "ORANGE"},
    {"Custom1", "CUSTOM1"},
    {"Custom2", "CUSTOM2"},
    {"Custom3", "CUSTOM3"},
    {"Custom4", "CUSTOM4"},
    {"Custom5", "CUSTOM5"},
    {"Other", "OTHER"},
    {"Any", "UNSPECIFIED"},
    {"AutoTray", "AUTO"},
    {"1stTray", "INTRAY1"},
    {"2ndTray", "INTRAY2"},
    {"3rdTray", "INTRAY3"},
    {"4thTray", "INTRAY4"},
    {"MSI", "INTRAY5"},
    {"6thTrayOverSized", "INTRAY6"},
    {"7thTrayOverSized", "INTRAY7"},
    {"HCF1", "INTRAY6"},
    {"HCF2", "INTRAY7"},
    {"PBindInserter", "INTRAY9"},
};

std::string Keyword(const char *value) {
    char keyword[256] = "left over";
    convertPBindPPDValue(value, keyword, sizeof keyword);
    return keyword;
}

}  // namespace

TEST(PerfectBindParam, HasEveryPairAndEndsWithANullPair) {
    ASSERT_EQ(kPerfectBindParamNum, std::size(pairs));
    for (std::size_t i = 0; i < std::size(pairs); i++) {
        SCOPED_TRACE(pairs[i][0]);
        EXPECT_STREQ(PerfectBindParam[i].ppdValue, pairs[i][0]);
        EXPECT_STREQ(PerfectBindParam[i].keyword, pairs[i][1]);
        EXPECT_EQ(Keyword(pairs[i][0]), pairs[i][1]);
    }
    EXPECT_EQ(PerfectBindParam[kPerfectBindParamNum].ppdValue, nullptr);
    EXPECT_EQ(PerfectBindParam[kPerfectBindParamNum].keyword, nullptr);
}

TEST(PerfectBindParam, NoChoiceNameStandsTwice) {
    std::set<std::string> names;
    for (const auto &pair : pairs) EXPECT_TRUE(names.insert(pair[0]).second) << pair[0];
}

TEST(PerfectBindParam, ComparesTheWholeName) {
    EXPECT_EQ(Keyword("a4"), "");
    EXPECT_EQ(Keyword("A4 "), "");
    EXPECT_EQ(Keyword("A"), "");
    EXPECT_EQ(Keyword("Stationery"), "");
    EXPECT_EQ(Keyword("A4.Fullbleed"), "");
    EXPECT_EQ(Keyword(""), "");
}

TEST(PerfectBindParam, CutsTheKeywordToTheDestination) {
    char keyword[6];
    convertPBindPPDValue("Goldenrod", keyword, sizeof keyword);
    EXPECT_STREQ(keyword, "GOLDE");
    convertPBindPPDValue("Goldenrod", keyword, 1);
    EXPECT_STREQ(keyword, "");
}

TEST(PerfectBindParam, ReplacesAValueInPlace) {
    char text[256] = "Letter";
    convertPBindPPDValue(text, text, sizeof text);
    EXPECT_STREQ(text, "LETTER");
    convertPBindPPDValue(text, text, sizeof text);
    EXPECT_STREQ(text, "");
}
