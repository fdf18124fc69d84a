// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/FrontEnd.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>
#include <string>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "FrontEnd/Messages.h"
#include "support/Ppd.h"
#include "support/TempFolder.h"

namespace {

constexpr char kCUPS[] = "*KVFrontEnd: \"CUPS\"\n";
constexpr char kOther[] = "*KVFrontEnd: \"Dialog\"\n";

bool IsOn(const std::string &lines, const char *options) {
    const TempFolder folder;
    setenv("PPD", folder.Write("queue.ppd", PpdWith(lines)).c_str(), 1);
    CloseJobPPD();
    FindFrontEnd(options);
    return FrontEndIsCUPS();
}

}  // namespace

TEST(FrontEnd, IsPlainCUPSOnlyWherePpdOrJobSaySo) {
    EXPECT_FALSE(FrontEndIsCUPS()) << "before it was found";
    EXPECT_TRUE(IsOn(kCUPS, ""));
    EXPECT_TRUE(IsOn("", "sides=one-sided KVFrontEnd=CUPS"));
    EXPECT_TRUE(IsOn(kCUPS, "KVFrontEnd=Dialog")) << "a job does not take it back";
    EXPECT_FALSE(IsOn("", ""));
    EXPECT_FALSE(IsOn(kOther, "KVFrontEnd=cups"));
}

TEST(Messages, AreOneLineEachAndOnlyWithPlainCUPS) {
    testing::internal::CaptureStderr();
    IsOn("", "");
    ReportError("silent");
    EXPECT_FALSE(ErrorWasReported());
    IsOn(kCUPS, "");
    ReportDebug("a\nb\tc\x7F");
    ReportInfo("d");
    ReportWarning(std::string(3000, 'x'));
    ReportWarning("f", ENOENT);
    ReportWarning(std::string(3000, 'x'), ENOENT);
    EXPECT_FALSE(ErrorWasReported());
    ReportError("e");
    EXPECT_TRUE(ErrorWasReported());
    ReportError("g", EIO);
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "DEBUG: a b c \nINFO: d\nWARNING: " + std::string(1014, 'x') +
                  "\nWARNING: f: No such file or directory\nWARNING: " + std::string(1014, 'x') +
                  "\nERROR: e\nERROR: g: Input/output error\n");
}
