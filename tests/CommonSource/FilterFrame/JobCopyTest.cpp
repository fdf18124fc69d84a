// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobCopy.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "FrontEnd/FrontEnd.h"
#include "support/TempFolder.h"

namespace {

constexpr char kCUPS[] = "KVFrontEnd=CUPS";

class JobCopy : public testing::Test {
  protected:
    void SetUp() override {
        if (access("/private/tmp", W_OK) == 0) {
            GTEST_SKIP() << "/private/tmp takes the place of $TMPDIR here";
        }
    }

    // Makes a copy of 10,000 bytes in a process whose files may have `room` bytes, with the job's
    // `options`. Returns the permission bits of the copy, or 0 if there is none.
    mode_t Copy(const char *options, rlim_t room, const char *folder = nullptr) {
        std::filesystem::remove_all(copies_);
        std::filesystem::create_directory(copies_);
        const std::string errors = folder_.Write("errors", "");
        const pid_t child = fork();
        if (child == 0) {
            const rlimit limit = {room, room};
            std::signal(SIGXFSZ, SIG_IGN);
            setrlimit(RLIMIT_FSIZE, &limit);
            setenv("TMPDIR", folder ? folder : copies_.c_str(), 1);
            if (!std::freopen(errors.c_str(), "w", stderr)) _exit(1);
            FlagPath = marker_.c_str();
            FindFrontEnd(options);
            OpenJobCopy();
            std::FILE *const nowhere = std::fopen("/dev/null", "wb");
            for (int i = 0; i < 1000; i++) KVfputs("ten bytes\n", nowhere);
            CloseJobCopy();
            std::fflush(stderr);
            _exit(gJobFilefp != nullptr);
        }
        int status = -1;
        waitpid(child, &status, 0);
        EXPECT_EQ(status, 0);
        mode_t mode = 0;
        for (const auto &entry : std::filesystem::directory_iterator(copies_)) {
            struct stat found;
            EXPECT_EQ(stat(entry.path().c_str(), &found), 0);
            EXPECT_EQ(mode, 0U) << "one copy";
            mode = found.st_mode & 07777;
        }
        return mode;
    }

    std::string Errors() const { return folder_.Read("errors"); }

    const TempFolder folder_;
    const std::string copies_ = folder_.Path() / "copies";
    const std::string marker_ = folder_.Write("marker", "");
};

TEST_F(JobCopy, IsReadableForAllWhenItIsFinished) {
    for (const char *options : {"", kCUPS}) {
        EXPECT_EQ(Copy(options, RLIM_INFINITY), 0676U);
        EXPECT_EQ(Errors(), "");
    }
}

TEST_F(JobCopy, CutShortDoesNotPassForAFinishedOneWithPlainCUPS) {
    for (const rlim_t room : {rlim_t{100}, rlim_t{8192}, rlim_t{9999}}) {
        EXPECT_EQ(Copy(kCUPS, room), 0600U);
        EXPECT_EQ(Errors(), "WARNING: The copy of the job is not whole: File too large\n");
        EXPECT_EQ(Copy("", room), 0676U);
        EXPECT_EQ(Errors(), "");
    }
}

TEST_F(JobCopy, ThatCannotBeMadeIsReportedToPlainCUPS) {
    EXPECT_EQ(Copy(kCUPS, RLIM_INFINITY, "/nonexistent"), 0U);
    EXPECT_EQ(Errors(), "WARNING: No copy of the job can be made: No such file or directory\n");
    EXPECT_EQ(Copy("", RLIM_INFINITY, "/nonexistent"), 0U);
    EXPECT_EQ(Errors(), "");
}

}  // namespace
