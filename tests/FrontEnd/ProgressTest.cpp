// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Progress.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <thread>

#include "FrontEnd/FrontEnd.h"

namespace {

using std::chrono::milliseconds;

// What is reported of page `page` after a pause.
std::string After(milliseconds pause, int page, int copies, int pages) {
    std::this_thread::sleep_for(pause);
    testing::internal::CaptureStderr();
    ReportPage(page, copies, pages);
    return testing::internal::GetCapturedStderr();
}

TEST(Progress, LogsEveryPageAndTellsPeopleNowAndThen) {
    unsetenv("PPD");
    FindFrontEnd("KVFrontEnd=CUPS");
    const std::string first = After(milliseconds(0), 1, 3, 8);
    EXPECT_EQ(first, "PAGE: 1 3\n") << "a short job says nothing";
    EXPECT_EQ(After(milliseconds(260), 2, 3, 8),
              "PAGE: 2 3\nATTR: job-media-progress=25\nINFO: Printing page 2 of 8.\n");
    for (int page = 3; page < 6; page++) {
        EXPECT_EQ(After(milliseconds(1), page, 3, 8), "PAGE: " + std::to_string(page) + " 3\n");
    }
    EXPECT_EQ(After(milliseconds(260), 6, 1, 0), "PAGE: 6 1\nINFO: Printing page 6.\n");
    // More pages than the document has announced.
    EXPECT_EQ(After(milliseconds(260), 9, 1, 8), "PAGE: 9 1\nINFO: Printing page 9.\n");
    EXPECT_EQ(After(milliseconds(260), 2000000000, 1, 2000000000),
              "PAGE: 2000000000 1\nATTR: job-media-progress=100\n"
              "INFO: Printing page 2000000000 of 2000000000.\n");
}

}  // namespace
