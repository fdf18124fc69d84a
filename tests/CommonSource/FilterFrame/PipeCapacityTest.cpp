// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PipeCapacity.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>

#ifdef F_SETPIPE_SZ
namespace {

struct Pipe {
    Pipe() { EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0); }
    ~Pipe() {
        close(ends[0]);
        close(ends[1]);
    }
    int Capacity() const { return fcntl(ends[0], F_GETPIPE_SZ); }

    int ends[2];
};

constexpr int kWide = static_cast<int>(kPipeCapacity);

TEST(PipeCapacity, GrowsFromEitherEnd) {
    for (const int end : {0, 1}) {
        const Pipe pipe;
        ASSERT_LT(pipe.Capacity(), kWide);
        WidenPipe(pipe.ends[end]);
        EXPECT_EQ(pipe.Capacity(), kWide);
    }
}

TEST(PipeCapacity, IsNeverTakenAway) {
    const Pipe pipe;
    ASSERT_EQ(fcntl(pipe.ends[0], F_SETPIPE_SZ, 2 * kWide), 2 * kWide);
    WidenPipe(pipe.ends[0]);
    EXPECT_EQ(pipe.Capacity(), 2 * kWide);
}

TEST(PipeCapacity, IsWhatTheFilterGivesBothEndsOfItsJob) {
    const Pipe input, output;
    const pid_t child = fork();
    if (child == 0) {
        dup2(input.ends[0], STDIN_FILENO);
        dup2(output.ends[1], STDOUT_FILENO);
        unsetenv("PPD");
        execl(KVFILTER_BINARY, "kvfilter", "1", "user", "title", "1", "", nullptr);
        _exit(127);
    }
    EXPECT_EQ(write(input.ends[1], "%!\n\x04", 4), 4);
    close(input.ends[1]);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(input.Capacity(), kWide);
    EXPECT_EQ(output.Capacity(), kWide);
}

TEST(PipeCapacity, ConcernsNothingButPipes) {
    const int file = open("/dev/null", O_WRONLY);
    WidenPipe(file);
    EXPECT_EQ(fcntl(file, F_GETFL) & O_ACCMODE, O_WRONLY);
    close(file);
    WidenPipe(-1);
    EXPECT_EQ(errno, EBADF);
}

}  // namespace
#endif
