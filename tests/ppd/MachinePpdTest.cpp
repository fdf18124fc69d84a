// SPDX-License-Identifier: Apache-2.0
//
// The PPDs of the machines: what each offers, what cannot be, and what CUPS makes of IPP
// attributes.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "FrontEnd/ShortOptions.h"
#include "Modules/PBind/PerfectBindParam.h"
#include "Tables/FeaturePJLTable.h"

namespace {

const char *const kMachines[] = {"kv1024p", "kv2024c", "kv4024x"};

ppd_file_t *Open(const std::string &model) {
    setenv("PPD", (KVFILTER_PPD_DIR "/" + model + ".ppd").c_str(), 1);
    CloseJobPPD();
    return JobPPD();
}

std::set<std::string> ChoicesOf(ppd_file_t *ppd, const char *keyword) {
    std::set<std::string> choices;
    const ppd_option_t *option = ppdFindOption(ppd, keyword);
    for (int i = 0; option && i < option->num_choices; i++)
        choices.insert(option->choices[i].choice);
    return choices;
}

std::vector<const ppd_option_t *> OptionsOf(ppd_file_t *ppd) {
    std::vector<const ppd_option_t *> options;
    for (const ppd_option_t *option = ppdFirstOption(ppd); option; option = ppdNextOption(ppd))
        options.push_back(option);
    return options;
}

// How many conflicts the options have, written as "Option Choice Option Choice".
int Conflicts(ppd_file_t *ppd, const std::string &options) {
    ppdMarkDefaults(ppd);
    std::istringstream words(options);
    for (std::string option, choice; words >> option >> choice;) {
        EXPECT_TRUE(ppdFindOption(ppd, option.c_str())) << option;
        EXPECT_TRUE(choice.starts_with("Custom.") ||
                    ChoicesOf(ppd, option.c_str()).contains(choice))
            << option << ' ' << choice;
        ppdMarkOption(ppd, option.c_str(), choice.c_str());
    }
    return ppdConflicts(ppd);
}

}  // namespace

TEST(MachinePpd, SaysHowTheFilterSpeaksToIt) {
    for (const char *model : kMachines) {
        SCOPED_TRACE(model);
        ASSERT_TRUE(Open(model));
        EXPECT_TRUE(JobPPDAttributeIs("KVFrontEnd", "CUPS"));
        EXPECT_TRUE(WantsCommentBlock());
        EXPECT_EQ(JobPPDAttributeIs("KVPSDecompMode", "1"), model == std::string("kv1024p"));
        // Without it the filter writes no line for booklets.
        EXPECT_EQ(JobPPDAttributeIs("KVPrinterLanguageEncoding", "UTF-8"),
                  ppdFindOption(JobPPD(), "KVSignature") != nullptr);
    }
}

TEST(MachinePpd, CanBeMatchedWithAPrinterThatIsFound) {
    for (const char *model : kMachines) {
        ppd_file_t *ppd = Open(model);
        const ppd_attr_t *id = ppdFindAttr(ppd, "1284DeviceID", nullptr);
        ASSERT_TRUE(id) << model;
        const std::string name = ppd->modelname;  // "Korvell KV1024P"
        const std::string code = name.substr(name.find(' ') + 1);
        EXPECT_NE(std::string(id->value).find("MFG:Korvell;MDL:" + code + ";"), std::string::npos)
            << id->value;
    }
}

TEST(MachinePpd, CallsNoTwoOptionsTheSameAndNoneByItsKeyword) {
    for (const char *model : kMachines) {
        SCOPED_TRACE(model);
        std::set<std::string> texts;
        for (const ppd_option_t *option : OptionsOf(Open(model))) {
            if (option->keyword == std::string("PageRegion")) continue;  // what PageSize is called
            EXPECT_TRUE(texts.insert(option->text).second) << option->text;
            EXPECT_EQ(std::string(option->text).find("KV"), std::string::npos) << option->text;
            std::set<std::string> choices;
            for (int i = 0; i < option->num_choices; i++) {
                const std::string text = option->choices[i].text;
                EXPECT_TRUE(choices.insert(text).second) << option->text << ": " << text;
                EXPECT_EQ(text.find("KV"), std::string::npos) << text;
            }
        }
    }
}

TEST(MachinePpd, HasNoConflictAmongItsDefaults) {
    for (const char *model : kMachines) EXPECT_EQ(Conflicts(Open(model), ""), 0) << model;
}

TEST(MachinePpd, ForbidsWhatCannotBe) {
    const struct {
        const char *models, *options;
    } impossible[] = {
        {"kv1024p kv2024c kv4024x", "KVNumPunchHoles 2Holes"},
        {"kv1024p kv2024c kv4024x", "KVPunch Left KVStaple RightDouble"},
        {"kv1024p kv2024c kv4024x", "KVStaple UpperLeftSingle KVHasFinisher False"},
        {"kv1024p kv2024c kv4024x", "KVPunch Top KVHasPunchUnit False"},
        {"kv1024p kv2024c kv4024x", "MediaType Transparency Duplex DuplexTumble"},
        {"kv1024p kv2024c", "MediaType Envelope KVStaple TopDouble"},
        {"kv1024p kv2024c", "OutputBin Inner KVStaple TopDouble"},
        {"kv2024c kv4024x", "KVSignature LeftSigCenterStaple KVStaple UpperLeftSingle"},
        {"kv2024c kv4024x", "KVSignature LeftSig KVPunch Top"},
        {"kv2024c kv4024x", "KVSigVol 5Sheets"},
        {"kv2024c kv4024x", "KVAutoFit True"},
        {"kv4024x", "KVPBindPosition BindLeft KVSignature RightSigFold"},
        {"kv4024x", "KVPBindPosition BindLeft KVStaple LeftDouble"},
        {"kv4024x", "KVPBindPosition BindTop KVHasBinder False"},
        {"kv4024x", "KVSignature LeftSig KVHasBookletMaker False"},
        {"kv4024x", "KVPBindCoverPaperTray PBindInserter KVHasInserter False"},
        {"kv4024x", "MediaType Tab Duplex DuplexNoTumble"},
    };
    for (const auto &row : impossible) {
        std::istringstream models(row.models);
        for (std::string model; models >> model;)
            EXPECT_GT(Conflicts(Open(model), row.options), 0) << model << ": " << row.options;
    }
}

TEST(MachinePpd, AllowsWhatCanBe) {
    const struct {
        const char *models, *options;
    } possible[] = {
        {"kv1024p kv2024c kv4024x", "KVStaple LeftDouble KVPunch Left KVNumPunchHoles 2Holes"},
        {"kv1024p kv2024c kv4024x", "KVPunch Top Duplex DuplexTumble OutputBin Finisher"},
        {"kv2024c kv4024x", "KVSignature LeftSigCenterStaple KVSigVol 5Sheets KVAutoFit True"},
        {"kv4024x", "KVSignature LeftSigFold OutputBin Booklet"},
        {"kv4024x",
         "KVPBindPosition BindLeft KVPBindTrimming 3EdgeCut KVPBindCoverMediaColor Blue"},
        {"kv4024x", "MediaType Tab KVTabShift Custom.12"},
    };
    for (const auto &row : possible) {
        std::istringstream models(row.models);
        for (std::string model; models >> model;)
            EXPECT_EQ(Conflicts(Open(model), row.options), 0) << model << ": " << row.options;
    }
}

// The values of the IPP attribute "finishings". A row for 3, none, would undo the user's own
// option: lp sends it with every job.
TEST(MachinePpd, KnowsWhatIppFinishingsMean) {
    const std::map<std::string, std::set<std::string>> offered = {
        {"kv1024p", {"KVStaple", "KVPunch", "KVNumPunchHoles", "KVOffsetStacking"}},
        {"kv2024c", {"KVStaple", "KVPunch", "KVNumPunchHoles", "KVOffsetStacking", "KVSignature"}},
        {"kv4024x",
         {"KVStaple", "KVPunch", "KVNumPunchHoles", "KVOffsetStacking", "KVSignature",
          "KVPBindPosition", "KVPBindTrimming"}},
    };
    for (const auto &[model, keywords] : offered) {
        SCOPED_TRACE(model);
        ppd_file_t *ppd = Open(model);
        std::map<std::string, std::string> rows;  // gathered first: marking moves the search
        for (const ppd_attr_t *row = ppdFindAttr(ppd, "cupsIPPFinishings", nullptr); row;
             row = ppdFindNextAttr(ppd, "cupsIPPFinishings", nullptr)) {
            EXPECT_TRUE(rows.emplace(row->spec, row->value).second) << row->spec;
        }
        std::set<std::string> named;
        for (auto [value, options] : rows) {
            std::erase(options, '*');
            EXPECT_EQ(Conflicts(ppd, options), 0) << value << ": " << options;
            std::istringstream words(options);
            for (std::string keyword, choice; words >> keyword >> choice;) named.insert(keyword);
        }
        EXPECT_FALSE(rows.contains("3"));
        EXPECT_TRUE(rows.contains("20"));
        EXPECT_EQ(named, keywords);
    }
}

// lp asks for a print-color-mode with every job: a preset for it would beat the queue's default.
TEST(MachinePpd, HasNoPresetForTheColorModeNorForNormalQuality) {
    for (const char *model : kMachines) {
        int presets = 0;
        for (const ppd_attr_t *preset = ppdFindAttr(Open(model), "APPrinterPreset", nullptr);
             preset; preset = ppdFindNextAttr(JobPPD(), "APPrinterPreset", nullptr), presets++) {
            const std::string value = preset->value;
            EXPECT_EQ(value.find("KVColorMode"), std::string::npos) << value;
            EXPECT_EQ(value.find("quality mid"), std::string::npos) << value;
        }
        EXPECT_GE(presets, 2) << model;
    }
}

TEST(MachinePpd, StaplesAndPunchesByPostScript) {
    for (const char *model : kMachines) {
        ppd_file_t *ppd = Open(model);
        for (const char *keyword : {"KVStaple", "KVPunch"}) {
            const ppd_option_t *option = ppdFindOption(ppd, keyword);
            ASSERT_TRUE(option) << keyword;
            for (int i = 0; i < option->num_choices; i++)
                EXPECT_NE(std::string(option->choices[i].code).find("setpagedevice"),
                          std::string::npos)
                    << option->choices[i].choice;
        }
    }
}

TEST(MachinePpd, FoldsAndStitchesBookletsByPostScript) {
    const std::map<std::string, std::string> contained = {
        {"None", "<</Fold 0>>"},         {"LeftSigFold", "<</Fold 3>>"},
        {"RightSig", "<</Fold 0>>"},     {"LeftSigCenterStaple", "/StapleLocation(Saddle)"},
        {"LeftSig", "<</Fold 0>>"},      {"RightSigCenterStaple", "/StapleLocation(Saddle)"},
        {"RightSigFold", "<</Fold 3>>"},
    };
    for (const char *model : {"kv2024c", "kv4024x"}) {
        ppd_file_t *ppd = Open(model);
        const ppd_option_t *booklet = ppdFindOption(ppd, "KVSignature");
        ASSERT_TRUE(booklet);
        EXPECT_EQ(static_cast<std::size_t>(booklet->num_choices), contained.size());
        for (const auto &[choice, code] : contained) {
            const ppd_choice_t *row =
                ppdFindChoice(ppdFindOption(ppd, "KVSignature"), choice.c_str());
            ASSERT_TRUE(row) << choice;
            EXPECT_NE(std::string(row->code).find(code), std::string::npos) << row->code;
        }
        // After what KVStaple says, which would take the stitches out again.
        EXPECT_GT(booklet->order, ppdFindOption(ppd, "KVStaple")->order);
    }
}

TEST(MachinePpd, MonochromePrinterOffersWhatBecomesPjlAndIsNotColor) {
    ppd_file_t *ppd = Open("kv1024p");
    std::map<std::string, std::set<std::string>> features;
    for (std::int32_t i = 0; i < kFeaturePJLRowCount; i++) {
        const FeaturePJLRow &row = FeaturePPDKeyNameandMarkedValuetoPJLCommand[i];
        features[std::string(row.keyword)].emplace(row.value);
    }
    features["KVOutputMode"].insert({"600x600", "1200x1200"});  // by a rule of its own
    for (const char *keyword : {"KVOutputMode", "Smoothing", "KVTonerSaver", "KVBrightnes",
                                "KVLetterHeadDuplexMode", "KVSaveBlankSheet"}) {
        EXPECT_EQ(ChoicesOf(ppd, keyword), features[keyword]) << keyword;
    }
    EXPECT_EQ(ChoicesOf(ppd, "KVHalftone"),
              (std::set<std::string>{"Auto", "Fineness", "Gradation"}));
    EXPECT_FALSE(ppdFindOption(ppd, "KVColorMode"));
}

TEST(MachinePpd, PressBindsAllThatHasAKeyword) {
    ppd_file_t *ppd = Open("kv4024x");
    std::set<std::string> choices;
    for (const char *keyword : {"KVPBindCoverPageSize", "KVPBindCoverMediaType",
                                "KVPBindCoverMediaColor", "KVPBindCoverPaperTray"}) {
        choices.merge(ChoicesOf(ppd, keyword));
    }
    EXPECT_EQ(choices.erase("DL"), 1u) << "the one size that stands for another";
    std::set<std::string> known;
    for (std::size_t i = 0; i < kPerfectBindParamNum; i++)
        known.insert(PerfectBindParam[i].ppdValue);
    EXPECT_EQ(choices, known);
    for (const char *keyword : {"KVPBindPageSize", "KVPBindCutPageSize"}) {
        for (const std::string &choice : ChoicesOf(ppd, keyword))
            EXPECT_TRUE(ppdPageSize(ppd, choice.c_str())) << choice;
    }
}

// The short options of the filter and those of the PPDs are the same list.
TEST(MachinePpd, OffersShortOptionsAsTheFilterUnderstandsThem) {
    std::set<std::string> offered;
    for (const char *model : kMachines) {
        SCOPED_TRACE(model);
        ppd_file_t *ppd = Open(model);
        for (std::size_t i = 0; i < kShortOptionCount; i++) {
            const ShortOption &row = kShortOptions[i];
            SCOPED_TRACE(row.name);
            ppd_option_t *option = ppdFindOption(ppd, row.name);
            if (!option) continue;
            offered.insert(row.name);
            std::istringstream choices(row.choices);
            std::string choice;
            choices >> choice;
            EXPECT_EQ(option->defchoice, choice);
            do {
                EXPECT_TRUE(ppdFindChoice(option, choice.c_str())) << choice;
            } while (choices >> choice);
            for (int j = 0; j < option->num_choices; j++) {
                const char *own = option->choices[j].choice;
                std::string understood;
                EXPECT_TRUE(own == std::string("Custom") ||
                            UnderstandShortOption(row, own, understood))
                    << own;
            }
            const ppd_coption_t *custom = ppdFindCustomOption(ppd, row.name);
            ASSERT_EQ(custom == nullptr, row.own == OwnValue::None);
            if (!custom) continue;
            ppd_cparam_t *parameter = ppdFirstCustomParam(ppdFindCustomOption(ppd, row.name));
            ASSERT_TRUE(parameter);
            const bool whole = row.own == OwnValue::Whole, secret = row.own == OwnValue::Secret;
            EXPECT_EQ(parameter->type, whole    ? PPD_CUSTOM_INT
                                       : secret ? PPD_CUSTOM_PASSWORD
                                                : PPD_CUSTOM_STRING);
            EXPECT_EQ(whole ? parameter->minimum.custom_int : parameter->minimum.custom_string,
                      row.least);
            EXPECT_EQ(whole ? parameter->maximum.custom_int : parameter->maximum.custom_string,
                      row.most);
        }
    }
    EXPECT_EQ(offered.size(), kShortOptionCount);
}
