// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobHeader.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/CaptureOutput.h"
#include "support/Ppd.h"
#include "support/RunFilter.h"
#include "support/TempFolder.h"

namespace {

const std::string kHead = "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n";
const std::string kEnterPostScript = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";
const std::string kRenderMode = "@PJL SET RENDERMODE=GRAYSCALE\n";

// The block of a job without options.
const std::string kBlock =
    "@PJL COMMENT KVJOBINFO VERSION=1.3.0\n"
    "@PJL COMMENT KVJOBINFO BEGIN\n"
    "@PJL COMMENT KVJOBINFO PDLTYPE=PDL[POSTSCRIPT]:VERSION[3]\n"
    "@PJL COMMENT KVJOBINFO JOBTYPE=PRINT\n"
    "@PJL COMMENT KVJOBINFO DUPLEXTYPE=TUMBLE\n"
    "@PJL COMMENT KVJOBINFO COLORMODE=GRAYSCALE\n"
    "@PJL COMMENT KVJOBINFO NUP=1\n"
    "@PJL COMMENT KVJOBINFO END\n";

// "*keyword: "value"", or nothing without a value.
std::string Attribute(const char *keyword, const char *value) {
    if (!value) return "";
    return std::string("*") + keyword + ": \"" + value + "\"\n";
}

class JobHeader : public testing::Test {
  protected:
    ~JobHeader() override {
        CloseJobPPD();
        unsetenv("PPD");
    }

    void UsePpd(const std::string &lines) {
        CloseJobPPD();
        setenv("PPD", folder_.Write("queue.ppd", PpdWith(lines)).c_str(), 1);
        ASSERT_NE(JobPPD(), nullptr);
    }

    // What OutputKPJLCommand writes for a job without options.
    static std::string Header() {
        static char name[] = "kvfilter", id[] = "1", user[] = "u", title[] = "t", copies[] = "1",
                    options[] = "";
        char *argv[] = {name, id, user, title, copies, options, nullptr};
        InializeDescriptionTable();
        GetTicketFromPDE(argv);
        return CaptureOutput([&] { OutputKPJLCommand(argv); });
    }

  private:
    TempFolder folder_;
};

std::string WithoutConditions(const PrtFmtEntry *table, std::int32_t count) {
    EXPECT_EQ(count, 1);
    EXPECT_EQ(table[0].comparationPara, nullptr);
    return CaptureOutput([&] { OutputKPJLCommandFromArray(nullptr, table, count); });
}

}  // namespace

TEST_F(JobHeader, FramingTables) {
    InializeDescriptionTable();
    EXPECT_EQ(WithoutConditions(prtFmtTableKPJLHead, numFmtTableKPJLHead), "\x1b%-12345X");
    EXPECT_EQ(WithoutConditions(prtFmtTableKPJLJobMode, numFmtTableKPJLJobMode),
              "@PJL JOB MODE=PRINTER\r\n");
    EXPECT_EQ(WithoutConditions(prtFmtTableEnterPS, numFmtTableEnterPS),
              "@PJL ENTER LANGUAGE=POSTSCRIPT\n");
    EXPECT_EQ(WithoutConditions(prtFmtTableKPJLTrailer, numFmtTableKPJLTrailer),
              "\x1b%-12345X@PJL EOJ\n");

    EXPECT_STREQ(prtFmtTableKPJLHead[0].prtfmtStr, "%c%c-12345X");
    EXPECT_STREQ(prtFmtTableKPJLJobMode[0].prtfmtStr, "@PJL JOB MODE=PRINTER%c%c");
    EXPECT_STREQ(prtFmtTableEnterPS[0].prtfmtStr, "@PJL ENTER LANGUAGE=POSTSCRIPT\n");
    EXPECT_STREQ(prtFmtTableKPJLTrailer[0].prtfmtStr, "%c%c-12345X@PJL EOJ\n");
    EXPECT_STREQ(prtFmtTableKPJLHead[0].name, "KPJLHead");
    EXPECT_STREQ(prtFmtTableKPJLJobMode[0].name, "KPJLJobMode");
    EXPECT_STREQ(prtFmtTableEnterPS[0].name, "EnterPS");
    EXPECT_STREQ(prtFmtTableKPJLTrailer[0].name, "KPJLTrailer");
    EXPECT_EQ(prtFmtTableEnterPS[0].symPara, nullptr);
    const struct {
        const PrtFmtEntry &row;
        std::vector<const char *> values;
    } sets[] = {
        {prtFmtTableKPJLHead[0], {&CTRLSym_ESC, &CTRLSym_PERCENTAGE}},
        {prtFmtTableKPJLJobMode[0], {&CTRLSym_CR, &CTRLSym_LF}},
        {prtFmtTableKPJLTrailer[0], {&CTRLSym_ESC, &CTRLSym_PERCENTAGE, &CTRLSym_CR, &CTRLSym_LF}},
    };
    for (const auto &set : sets) {
        SCOPED_TRACE(set.row.prtfmtStr);
        ASSERT_EQ(set.row.symPara->num, set.values.size());
        for (std::size_t i = 0; i < set.values.size(); i++) {
            EXPECT_EQ(set.row.symPara->cmdParaList[i].pointer, set.values[i]);
        }
    }
}

TEST_F(JobHeader, BeginsWithTheUniversalExitAndEndsWithTheLanguage) {
    for (const std::string &ppd : {PpdWith(), std::string()}) {
        FilterJob job;
        job.ppd = ppd;
        const std::string output = RunFilter(job).output;
        EXPECT_TRUE(output.starts_with(kHead));
        EXPECT_TRUE(
            output.ends_with(kRenderMode + kEnterPostScript + "\x04\x1b%-12345X@PJL EOJ\n"));
        EXPECT_EQ(output.find("@PJL JOB MODE", kHead.size()), std::string::npos);
    }
}

// One line of each step, in the order of the steps.
TEST_F(JobHeader, StepsStandInThisOrder) {
    FilterJob job;
    job.ppd = PpdWith(
        "*KVPrinterLanguageEncoding: \"UTF-8\"\n"
        "*CommentOn: \"True\"\n");
    job.options =
        "com.korvell.tav.printsettings.KPIFInsertionCountTicket=1 "
        "com.korvell.tav.printsettings.KPIFInsertionValueTicket_0=0,1,1,Blue "
        "com.korvell.tav.printsettings.PrintTypeTicketKey=5 "
        "com.korvell.tav.printsettings.TabMarginSwitchTicket=0 "
        "KVPBindPosition=BindLeft KVPBindTrimming=None KVSignature=LeftSig "
        "KVLineWeightAdjustment=Normal";
    const std::string output = RunFilter(job).output;
    EXPECT_TRUE(output.starts_with("<?xml"));
    std::size_t last = 0;
    for (const std::string &line : {
             kHead,
             std::string("@PJL SET HOLD=BOXSTORE\n"),           // print type
             std::string("@PJL SET JOBATTR=\"@NLPP=1\"\n"),     // accounting
             std::string("@PJL SET JOBATTR=\"@TABS=OFF\"\n"),   // output handling
             std::string("@PJL SET JOBATTR=\"@PBRE=LEFT\"\n"),  // perfect binding
             std::string("@PJL SET JOBATTR=\"@PBCI=OFF\"\n"),
             std::string("@PJL SET JOBATTR=\"@DIND=PORTRAIT\"\n"),  // booklet
             std::string("@PJL SET JOBATTR=\"@DIBB=LEFT\"\n"),
             std::string("@PJL SET JOBATTR=\"@DIBK=NONEDIVIDE\"\n"),
             std::string("@PJL SET JOBATTR=\"@LWAD=0\"\n"),  // device settings
             kRenderMode,
             std::string("@PJL COMMENT KVJOBINFO VERSION=1.3.0\n"),  // job information
             std::string("@PJL COMMENT KVJOBINFO BEGIN\n"),
             std::string("@PJL COMMENT KVJOBINFO END\n"),
             kEnterPostScript,
         }) {
        const std::size_t place = output.find(line);
        ASSERT_NE(place, std::string::npos) << line;
        EXPECT_GT(place, last) << line;
        last = place;
    }
}

TEST_F(JobHeader, JobInformationStandsBetweenSettingsAndLanguage) {
    FilterJob job;
    job.ppd = PpdWith(Attribute("KVPrinterLanguageEncoding", "ISOLatin1"));
    job.input = "%!PS\n";
    const std::string output = RunFilter(job).output;
    EXPECT_TRUE(output.ends_with(kRenderMode + kBlock + kEnterPostScript +
                                 "%!PS\n\x04\x1b%-12345X@PJL EOJ\n"));
}

TEST_F(JobHeader, LeavesTheLanguageToThePassThatTurnsFeaturesIntoPJL) {
    UsePpd("*KVPSDecompMode: \"1\"\n");
    EXPECT_TRUE(Header().ends_with("\n" + kRenderMode));
    UsePpd("*KVPSDecompMode: \"1\"\n*KVPrinterLanguageEncoding: \"SJIS\"\n");
    EXPECT_TRUE(Header().ends_with("\n" + kRenderMode + kBlock));
    for (const char *value : {"1 ", " 1", "true", "True", "0", "", "11", "2"}) {
        SCOPED_TRACE(value);
        UsePpd(Attribute("KVPSDecompMode", value));
        EXPECT_TRUE(Header().ends_with("\n" + kRenderMode + kEnterPostScript));
    }
}

namespace {

struct BlockRow {
    const char *encoding;  // null: the PPD has no such attribute
    const char *fileName;
    const char *commentOn;
    bool block;
};
// One PPD for each branch of the decision.
const BlockRow kBlockRows[] = {
    {"ISOLatin1", nullptr, nullptr, true},
    {"ISOLatin1", nullptr, "False", true},
    {"ISOLatin1", "KV1010P.PPD", "False", true},
    {"utf-8", nullptr, nullptr, true},
    {"UTF-8", nullptr, "True", true},
    {"UTF-8", nullptr, "False", false},
    {"UTF-8", nullptr, nullptr, false},
    {"UTF-8", "KV1010P.PPD", nullptr, false},  // the model does not count here
    {"UTF-8", "KV1010P.PPD", "False", false},
    {nullptr, nullptr, nullptr, false},
    {nullptr, nullptr, "True", false},  // the switch does not count without a name
    {nullptr, "KV1010P.PPD", nullptr, true},
    {nullptr, "KV1010P.PPD", "False", true},
    {nullptr, "KVOTHER.PPD", nullptr, false},
    {nullptr, "KVOTHER.PPD", "False", false},
    {nullptr, "KVOTHER.PPD", "True", true},
    {nullptr, "KVOTHER.PPD", "true", false},
    {nullptr, "KVOTHER.PPD", "True ", false},
    {nullptr, "KVOTHER.PPD", "1", false},
    {"UTF-8", nullptr, "true", false},
    {"UTF-8", nullptr, "TRUE", false},
    {"UTF-8", nullptr, "True ", false},
};

std::string LinesOf(const char *encoding, const char *fileName, const char *commentOn) {
    return Attribute("KVPrinterLanguageEncoding", encoding) + Attribute("PCFileName", fileName) +
           Attribute("CommentOn", commentOn);
}

class BlockDecision : public testing::TestWithParam<BlockRow> {};

}  // namespace

TEST_P(BlockDecision, OfOnePPD) {
    const BlockRow &row = GetParam();
    FilterJob job;
    job.ppd = PpdWith(LinesOf(row.encoding, row.fileName, row.commentOn));
    SCOPED_TRACE(job.ppd);
    const std::string output = RunFilter(job).output;
    EXPECT_NE(output.find(kRenderMode + (row.block ? kBlock : "") + kEnterPostScript),
              std::string::npos);
    EXPECT_EQ(output.find("KVJOBINFO") != std::string::npos, row.block);
}
INSTANTIATE_TEST_SUITE_P(EveryBranch, BlockDecision, testing::ValuesIn(kBlockRows));

TEST_F(JobHeader, WithoutAPPDNoJobInformation) {
    const std::string output = RunFilter(FilterJob{}).output;
    EXPECT_TRUE(output.ends_with(kRenderMode + kEnterPostScript + "\x04\x1b%-12345X@PJL EOJ\n"));
    EXPECT_EQ(output.find("KVJOBINFO"), std::string::npos);
    CloseJobPPD();
    EXPECT_FALSE(WantsCommentBlock());
}

TEST_F(JobHeader, BlockDecisionOfEveryCombination) {
    const std::vector<const char *> encodings = {nullptr, "UTF-8",  "utf-8",     "UTF-8 ",
                                                 "UTF8",  "UTF-16", "ISOLatin1", ""};
    const std::vector<const char *> fileNames = {
        nullptr,       "",        "KVOTHER.PPD", "KV101",        "kv1010p.ppd", "KV1010",
        "KV1010P.PPD", "KV4040X", "XXKV2024CXX", "KV101KV1010P", "KV4042X.PPD", "KV 1010P"};
    const std::vector<const char *> switches = {nullptr, "True",  "False", "true",
                                                "TRUE",  "True ", "1",     ""};
    const std::set<std::string> namesWithModel = {"KV1010P.PPD", "KV4040X", "XXKV2024CXX",
                                                  "KV101KV1010P"};
    for (const char *encoding : encodings) {
        for (const char *fileName : fileNames) {
            for (const char *commentOn : switches) {
                const std::string lines = LinesOf(encoding, fileName, commentOn);
                SCOPED_TRACE(lines);
                const bool utf8 = encoding && std::strcmp(encoding, "UTF-8") == 0;
                const bool on = commentOn && std::strcmp(commentOn, "True") == 0;
                const bool model = fileName && namesWithModel.contains(fileName);
                const bool always = (encoding && !utf8) || (!encoding && model);
                const bool asked = on && (utf8 || (!encoding && fileName));
                UsePpd(lines);
                EXPECT_EQ(WantsCommentBlock(), always || asked);
            }
        }
    }
}

// What the machines are called: a changed digit silences one of them.
const std::vector<std::string> kModels = {
    "KV1010P", "KV1012P", "KV1014P", "KV1016P", "KV1018P", "KV1020P", "KV1022P", "KV1024P",
    "KV1026P", "KV1028P", "KV1030P", "KV1032P", "KV1034P", "KV1036P", "KV1038P", "KV1040P",
    "KV2010C", "KV2012C", "KV2014C", "KV2016C", "KV2018C", "KV2020C", "KV2022C", "KV2024C",
    "KV2026C", "KV2028C", "KV2030C", "KV2032C", "KV2034C", "KV2036C", "KV2038C", "KV2040C",
    "KV3010C", "KV3012C", "KV3014C", "KV3016C", "KV3018C", "KV3020C", "KV3022C", "KV3024C",
    "KV3026C", "KV3028C", "KV3030C", "KV3032C", "KV3034C", "KV3036C", "KV3038C", "KV3040C",
    "KV4010X", "KV4012X", "KV4014X", "KV4016X", "KV4018X", "KV4020X", "KV4022X", "KV4024X",
    "KV4026X", "KV4028X", "KV4030X", "KV4032X", "KV4034X", "KV4036X", "KV4038X", "KV4040X",
};

TEST_F(JobHeader, ModelCodes) {
    EXPECT_EQ(std::vector<std::string>(modelsWithComment, modelsWithComment + 64), kModels);
    EXPECT_EQ(std::set<std::string>(kModels.begin(), kModels.end()).size(), 64U);
    EXPECT_STREQ(modelsWithComment[64], "");
}

TEST_F(JobHeader, EveryModelCodeAnywhereInTheFileName) {
    for (const std::string &code : kModels) {
        SCOPED_TRACE(code);
        for (const std::string &name :
             {code, code + ".PPD", "PRE" + code, "PRE" + code + "POST.PPD"}) {
            UsePpd(LinesOf(nullptr, name.c_str(), "False"));
            EXPECT_TRUE(WantsCommentBlock()) << name;
        }
        for (const std::string &name :
             {code.substr(1), code.substr(0, 6), code.substr(0, 3) + "-" + code.substr(3)}) {
            UsePpd(LinesOf(nullptr, name.c_str(), "False"));
            EXPECT_FALSE(WantsCommentBlock()) << name;
        }
        FilterJob job;
        job.ppd = PpdWith(LinesOf(nullptr, ("X" + code + ".PPD").c_str(), nullptr));
        EXPECT_NE(RunFilter(job).output.find(kBlock + kEnterPostScript), std::string::npos);
    }
}
