// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PutPJL.h"

#include <gtest/gtest.h>

#include <string>

#include "support/CaptureOutput.h"
#include "support/CommentJob.h"

TEST(PutPJL, BeginsAsItsKindDoes) {
    EXPECT_EQ(CaptureOutput([] { EXPECT_GE(PutJobInfo("A=%d[%s]\n", 7, "x%sy"), 0); }),
              "@PJL COMMENT KVJOBINFO A=7[x%sy]\n");
    EXPECT_EQ(CaptureOutput([] { EXPECT_GE(PutSetting("B=%c\n", '3'), 0); }), "@PJL SET B=3\n");
}

TEST(PutPJL, SetsAJobAttribute) {
    EXPECT_EQ(CaptureOutput([] { EXPECT_GE(PutJobAttribute("PBTP", "a%sb"), 0); }),
              "@PJL SET JOBATTR=\"@PBTP=a%sb\"\n");
    EXPECT_EQ(CaptureOutput([] { EXPECT_GE(PutJobAttribute("PBTW", -2147483647 - 1), 0); }),
              "@PJL SET JOBATTR=\"@PBTW=-2147483648\"\n");
    const std::string text(200, 'z');
    EXPECT_EQ(CaptureOutput([&] { PutJobAttribute("PBTP", text.c_str()); }),
              ("@PJL SET JOBATTR=\"@PBTP=" + text).substr(0, 99));
}

// The line end counts: a line that is too long loses it first.
TEST(PutPJL, IsCutAt99Bytes) {
    const std::string prefix = "@PJL COMMENT KVJOBINFO ";
    for (const std::size_t length : {74U, 75U, 76U, 77U, 255U, 5000U}) {
        SCOPED_TRACE(length);
        const std::string text(length, 'x');
        EXPECT_EQ(CaptureOutput([&] { PutJobInfo("%s\n", text.c_str()); }),
                  (prefix + text + "\n").substr(0, 99));
    }
    const std::string text(200, 'y');
    EXPECT_EQ(CaptureOutput([&] { PutSetting("%s\n", text.c_str()); }),
              ("@PJL SET " + text).substr(0, 99));
}

TEST(PutPJL, ReturnsTheFailureOfTheWrite) {
    EXPECT_EQ(ResultOfFailedWrite([] { return PutJobInfo("A\n"); }), EOF);
    EXPECT_EQ(ResultOfFailedWrite([] { return PutSetting("A\n"); }), EOF);
    EXPECT_EQ(ResultOfFailedWrite([] { return PutJobAttribute("A", "b"); }), EOF);
    EXPECT_EQ(ResultOfFailedWrite([] { return PutJobAttribute("A", 1); }), EOF);
}
