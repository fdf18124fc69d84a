// SPDX-License-Identifier: Apache-2.0
//
// scripts/render-job, which shows people a job's pages.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/Ppd.h"
#include "support/PrintSystemDocument.h"
#include "support/RunFilter.h"
#include "support/TempFolder.h"

namespace {

std::string JobOf(const std::string &document) {
    FilterJob job;
    job.ppd = PpdWith();
    job.input = document;
    return RunFilter(job).output;
}

// Runs the script on `job`; returns its exit status.
int RenderJob(const TempFolder &folder, const std::string &job, const std::string &page = "") {
    const std::string command =
        KVFILTER_SOURCE_DIR "/scripts/render-job '" + folder.Write("job", job) + "' '" +
        (folder.Path() / "page.png").string() + "' " + page + " 2>/dev/null";
    return WEXITSTATUS(std::system(command.c_str()));
}

// Bytes 16 to 24 of a PNG are its width and height.
std::string Size(const std::string &png) {
    if (!png.starts_with("\x89PNG\r\n\x1a\n") || png.size() < 24) return "no picture";
    const auto number = [&png](std::size_t at) {
        return std::to_string(static_cast<unsigned char>(png[at + 2]) * 256 +
                              static_cast<unsigned char>(png[at + 3]));
    };
    return number(16) + "x" + number(20);
}

TEST(RenderJob, LeavesThePageAsAPicture) {
    const TempFolder folder;
    const std::string job = JobOf(PrintSystemDocument(2, "ep", 400, 300));
    ASSERT_EQ(RenderJob(folder, job), 0);
    const std::string first = folder.Read("page.png");
    EXPECT_EQ(Size(first), "400x300");
    ASSERT_EQ(RenderJob(folder, job, "2"), 0);
    EXPECT_EQ(Size(folder.Read("page.png")), "400x300");
    EXPECT_NE(folder.Read("page.png"), first);
}

TEST(RenderJob, FailsOnWhatItCannotShow) {
    const TempFolder folder;
    const std::string job = JobOf(PrintSystemDocument(2));
    EXPECT_EQ(RenderJob(folder, job, "3"), 1);
    EXPECT_EQ(RenderJob(folder, "%!PS\nshowpage\n"), 1);
    EXPECT_EQ(RenderJob(folder, JobOf("nosuchprocedure\n")), 1);
    EXPECT_EQ(folder.Read("page.png"), "");
}

}  // namespace
