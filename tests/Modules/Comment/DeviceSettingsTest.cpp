// SPDX-License-Identifier: Apache-2.0
//
// The render mode of every colour mode and PPD is in ColorModeTest.
#include "Modules/Comment/DeviceSettings.h"

#include <gtest/gtest.h>

#include <string>

#include "support/CaptureOutput.h"
#include "support/CommentJob.h"

namespace {

class DeviceSettings : public CommentJob {
  protected:
    DeviceSettings() { Set(job.colorMode, "Color"); }

    // The line weight's line; the render mode follows always.
    static std::string LineWeight() {
        std::string lines = CaptureOutput(OutputKPJLCommandOthers);
        const std::string last = "@PJL SET RENDERMODE=COLOR\n";
        EXPECT_TRUE(lines.ends_with(last));
        lines.resize(lines.size() - last.size());
        return lines;
    }
};

struct LineWeightRow {
    const char *value, *line;
};
const LineWeightRow kLineWeightRows[] = {
    {"", ""},
    {"Normal", "@PJL SET JOBATTR=\"@LWAD=0\"\n"},
    {"Normal3", ""},
    {"normal", ""},
    {"VeryNormal", ""},
    {"None", ""},
    {"5", ""},
    {"strongly2", ""},
    {"WEAKLY2", ""},

    {"Strongly0", "@PJL SET JOBATTR=\"@LWAD=-0\"\n"},
    {"Strongly1", "@PJL SET JOBATTR=\"@LWAD=-1\"\n"},
    {"Strongly2", "@PJL SET JOBATTR=\"@LWAD=-2\"\n"},
    {"Strongly9", "@PJL SET JOBATTR=\"@LWAD=-9\"\n"},
    {"Strongly12", "@PJL SET JOBATTR=\"@LWAD=-1\"\n"},
    {"3Strongly", "@PJL SET JOBATTR=\"@LWAD=-3\"\n"},
    {"Level4Strongly5", "@PJL SET JOBATTR=\"@LWAD=-4\"\n"},
    {"Strongly-6", "@PJL SET JOBATTR=\"@LWAD=-6\"\n"},
    {"NormalStrongly7", "@PJL SET JOBATTR=\"@LWAD=-7\"\n"},

    {"Weakly0", "@PJL SET JOBATTR=\"@LWAD=0\"\n"},
    {"Weakly1", "@PJL SET JOBATTR=\"@LWAD=1\"\n"},
    {"Weakly2", "@PJL SET JOBATTR=\"@LWAD=2\"\n"},
    {"Weakly9", "@PJL SET JOBATTR=\"@LWAD=9\"\n"},
    {"Weakly21", "@PJL SET JOBATTR=\"@LWAD=2\"\n"},
    {"3 Weakly", "@PJL SET JOBATTR=\"@LWAD=3\"\n"},

    {"Weakly1Strongly2", "@PJL SET JOBATTR=\"@LWAD=-1\"\n"},
    {"Strongly1Weakly2", "@PJL SET JOBATTR=\"@LWAD=-1\"\n"},

    {"Strongly", ""},
    {"Weakly", ""},
    {"StronglyWeakly", ""},
    {"Weakly\xB2", ""},  // superscript two
};

class LineWeightTable : public DeviceSettings, public testing::WithParamInterface<LineWeightRow> {};

}  // namespace

TEST_P(LineWeightTable, Line) {
    Set(job.lineWeightAdjustment, GetParam().value);
    EXPECT_EQ(LineWeight(), GetParam().line);
}
INSTANTIATE_TEST_SUITE_P(EveryRow, LineWeightTable, testing::ValuesIn(kLineWeightRows));

// Digits in the field after this one are not of this value.
TEST_F(DeviceSettings, TheSearchForTheDigitEndsWithTheField) {
    job.duplexBindingEdge = 0x31313131;
    job.copies = 0x32323232;
    for (const std::string word : {"Strongly", "Weakly"}) {
        SCOPED_TRACE(word);
        const std::string sign = word == "Strongly" ? "-" : "";
        Set(job.lineWeightAdjustment, word + std::string(255 - word.size(), 'x'));
        EXPECT_EQ(LineWeight(), "");
        Set(job.lineWeightAdjustment, word + std::string(254 - word.size(), 'x') + "7");
        EXPECT_EQ(LineWeight(), "@PJL SET JOBATTR=\"@LWAD=" + sign + "7\"\n");
        Set(job.lineWeightAdjustment, std::string(255 - word.size(), '8') + word);
        EXPECT_EQ(LineWeight(), "@PJL SET JOBATTR=\"@LWAD=" + sign + "8\"\n");
    }
}

// What a longer value left in the field is not of this one.
TEST_F(DeviceSettings, TheSearchForTheDigitEndsWithTheValue) {
    Set(job.lineWeightAdjustment, "Strongly");
    job.lineWeightAdjustment[9] = '3';
    EXPECT_EQ(LineWeight(), "");
}

TEST_F(DeviceSettings, LineWeightStandsBeforeRenderMode) {
    ReadTicket("KVLineWeightAdjustment=Weakly2 KVColorMode=Black");
    EXPECT_EQ(CaptureOutput(OutputKPJLCommandOthers),
              "@PJL SET JOBATTR=\"@LWAD=2\"\n"
              "@PJL SET RENDERMODE=GRAYSCALE\n");
}

TEST_F(DeviceSettings, OfAnEmptyTicket) {
    ReadTicket("");
    EXPECT_EQ(CaptureOutput(OutputKPJLCommandOthers), "@PJL SET RENDERMODE=GRAYSCALE\n");
}

TEST_F(DeviceSettings, NormalIsFixedWhateverThePpdOffers) {
    UsePpd(
        PpdWith("*OpenUI *KVLineWeightAdjustment/Line Weight: PickOne\n"
                "*DefaultKVLineWeightAdjustment: Strongly2\n"
                "*KVLineWeightAdjustment Strongly2/Strongly: \"\"\n"
                "*KVLineWeightAdjustment Normal/Normal: \"\"\n"
                "*CloseUI: *KVLineWeightAdjustment\n"));
    ASSERT_NE(JobPPD(), nullptr);
    Set(job.lineWeightAdjustment, "Normal");
    EXPECT_EQ(LineWeight(), "@PJL SET JOBATTR=\"@LWAD=0\"\n");
}

TEST_F(DeviceSettings, ReturnsTheResultOfTheLastWrite) {
    EXPECT_EQ(ResultOfFailedWrite(OutputKPJLCommandOthers), EOF);
    CaptureOutput([] { EXPECT_GE(OutputKPJLCommandOthers(), 0); });
    // Without a render mode line: not zero.
    UsePpd(PpdWithColorOption());
    Set(job.colorMode, "Auto");
    EXPECT_EQ(CaptureOutput([] { EXPECT_NE(OutputKPJLCommandOthers(), 0); }), "");
}
