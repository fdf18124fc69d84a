// SPDX-License-Identifier: Apache-2.0
//
// The sample PPDs hold what their names promise to the other tests.
#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>

#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "Modules/PBind/PerfectBindParam.h"

namespace {

const char kAbsent[] = "-";

void Open(const std::string &model) {
    setenv("PPD", (KVFILTER_PPD_DIR "/" + model + ".ppd").c_str(), 1);
    CloseJobPPD();
    ASSERT_TRUE(JobPPD()) << model;
}

std::string Value(const char *keyword) {
    const ppd_attr_t *attribute = ppdFindAttr_ALT(JobPPD(), keyword);
    return attribute ? attribute->value : kAbsent;
}

std::string KnownCode(const std::string &fileName) {
    for (const char *const *code = modelsWithComment; **code != '\0'; code++) {
        if (fileName.find(*code) != std::string::npos) return *code;
    }
    return kAbsent;
}

std::set<std::string> ChoicesOf(const char *keyword) {
    std::set<std::string> choices;
    const ppd_option_t *option = ppdFindOption(JobPPD(), keyword);
    for (int i = 0; option && i < option->num_choices; i++)
        choices.insert(option->choices[i].choice);
    return choices;
}

}  // namespace

TEST(SamplePpd, EachDecidesAboutTheJobInformationInItsOwnWay) {
    const struct {
        const char *model, *encoding, *commentOn, *code;
        bool block;
    } decisions[] = {
        // clang-format off
        {"kv1010p", kAbsent,      kAbsent, "KV1010P", true},
        {"kv1150p", kAbsent,      "True",  kAbsent,   true},
        {"kv1160p", kAbsent,      "False", kAbsent,   false},
        {"kv2110c", "UTF-8",      "True",  kAbsent,   true},
        {"kv2120c", "UTF-8",      "False", kAbsent,   false},
        {"kv2130c", "UTF-8",      kAbsent, kAbsent,   false},
        {"kv4110x", "ISO-8859-1", "False", kAbsent,   true},
        // clang-format on
    };
    for (const auto &row : decisions) {
        SCOPED_TRACE(row.model);
        Open(row.model);
        EXPECT_EQ(Value("KVPrinterLanguageEncoding"), row.encoding);
        EXPECT_EQ(Value("CommentOn"), row.commentOn);
        EXPECT_EQ(KnownCode(Value("PCFileName")), row.code);
        EXPECT_EQ(WantsCommentBlock(), row.block);
    }
}

TEST(SamplePpd, TwoTakeTheirSettingsAsPjl) {
    const struct {
        const char *model, *mode, *colorDevice;
    } modes[] = {
        {"kv1010p", kAbsent, "True"}, {"kv1150p", "1", "False"},    {"kv1160p", "1", "True"},
        {"kv2110c", kAbsent, "True"}, {"kv4110x", kAbsent, "True"},
    };
    for (const auto &row : modes) {
        SCOPED_TRACE(row.model);
        Open(row.model);
        EXPECT_EQ(Value(KPPDPSDecompModeKey), row.mode);
        EXPECT_EQ(Value("ColorDevice"), row.colorDevice);
    }
}

TEST(SamplePpd, OnlyPrintersWithColorHaveTheColorMode) {
    for (const char *model : {"kv1010p", "kv2110c", "kv4110x"}) {
        SCOPED_TRACE(model);
        Open(model);
        EXPECT_EQ(ChoicesOf("KVColorMode"), (std::set<std::string>{"Black", "Color", "Gray"}));
    }
    Open("kv1150p");
    EXPECT_EQ(ChoicesOf("KVColorMode"), std::set<std::string>());
}

TEST(SamplePpd, PressOffersAllThatBindingHasAKeywordFor) {
    Open("kv4110x");
    std::set<std::string> choices;
    for (const char *keyword : {"KVPBindCoverPageSize", "KVPBindCoverMediaType",
                                "KVPBindCoverMediaColor", "KVPBindCoverPaperTray"}) {
        choices.merge(ChoicesOf(keyword));
    }
    EXPECT_EQ(choices.erase("DL"), 1u) << "the one size that stands for another";
    std::set<std::string> known;
    for (std::size_t i = 0; i < kPerfectBindParamNum; i++)
        known.insert(PerfectBindParam[i].ppdValue);
    EXPECT_EQ(choices, known);
}

TEST(SamplePpd, PressKnowsThePageSizesThatItBinds) {
    Open("kv4110x");
    for (const char *keyword : {"KVPBindPageSize", "KVPBindCutPageSize"}) {
        const std::set<std::string> choices = ChoicesOf(keyword);
        EXPECT_EQ(choices.size(), 23u) << keyword;
        for (const std::string &choice : choices)
            EXPECT_TRUE(ppdPageSize(JobPPD(), choice.c_str())) << choice;
    }
}
