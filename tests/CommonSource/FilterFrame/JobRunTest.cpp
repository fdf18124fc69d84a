// SPDX-License-Identifier: Apache-2.0
#include <gtest/gtest.h>

#include "support/Ppd.h"
#include "support/RunFilter.h"

TEST(JobRun, FramesAnEmptyDocument) {
    FilterJob job;
    job.ppd = PpdWith();
    const FilterResult result = RunFilter(job);
    EXPECT_EQ(result.output,
              "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"
              "@PJL SET RENDERMODE=GRAYSCALE\n"
              "@PJL ENTER LANGUAGE=POSTSCRIPT\n"
              "\x04"
              "\x1b%-12345X@PJL EOJ\n");
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}
