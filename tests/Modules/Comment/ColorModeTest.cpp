// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/ColorMode.h"

#include <gtest/gtest.h>

#include "Modules/Comment/CommentBlock.h"
#include "Modules/Comment/DeviceSettings.h"
#include "support/CaptureOutput.h"
#include "support/CommentJob.h"

namespace {

struct Row {
    const char *field;
    const char *withOption;     // null: left to the PPD
    const char *withoutOption;  // the same without a PPD
};
constexpr Row kRows[] = {
    {"", "GRAYSCALE", "GRAYSCALE"},          {"Color", "COLOR", "COLOR"},
    {"Black", "GRAYSCALE", "GRAYSCALE"},     {"Gray", nullptr, "GRAYSCALE"},
    {"Auto", nullptr, "GRAYSCALE"},          {"color", nullptr, "GRAYSCALE"},
    {"COLOR", nullptr, "GRAYSCALE"},         {"Color ", nullptr, "GRAYSCALE"},
    {"ColorX", nullptr, "GRAYSCALE"},        {"black", nullptr, "GRAYSCALE"},
    {"BlackAndWhite", nullptr, "GRAYSCALE"}, {"None", nullptr, "GRAYSCALE"},
};

}  // namespace

class ColorMode : public CommentJob, public testing::WithParamInterface<Row> {
  protected:
    ColorMode() { Set(job.colorMode, GetParam().field); }

    // The mode itself, and the two lines that carry it.
    void Expect(const char *mode) {
        EXPECT_STREQ(JobColorMode(), mode);
        EXPECT_EQ(CaptureOutput(OutputKPJLCommandforCommentBasic),
                  mode ? Info(std::string("COLORMODE=") + mode) : "");
        EXPECT_EQ(CaptureOutput(OutputKPJLCommandOthers),
                  mode ? std::string("@PJL SET RENDERMODE=") + mode + "\n" : "");
    }
};

TEST_P(ColorMode, WithTheOptionInThePpd) {
    UsePpd(PpdWithColorOption());
    ASSERT_NE(JobPPD(), nullptr);
    Expect(GetParam().withOption);
}

TEST_P(ColorMode, WithoutTheOptionInThePpd) {
    UsePpd(PpdWith());
    ASSERT_NE(JobPPD(), nullptr);
    Expect(GetParam().withoutOption);
}

// A keyword of that name is not yet an option.
TEST_P(ColorMode, WithTheKeywordAsAMereAttribute) {
    UsePpd(PpdWith("*KVColorModeSupported: \"True\"\n"));
    ASSERT_NE(JobPPD(), nullptr);
    Expect(GetParam().withoutOption);
}

TEST_P(ColorMode, WithoutAPpd) {
    Expect(GetParam().withoutOption);
}

TEST_P(ColorMode, WithAPpdThatCannotBeRead) {
    UsePpd("no PPD\n");
    ASSERT_EQ(JobPPD(), nullptr);
    Expect(GetParam().withoutOption);
}

INSTANTIATE_TEST_SUITE_P(EveryValue, ColorMode, testing::ValuesIn(kRows));
