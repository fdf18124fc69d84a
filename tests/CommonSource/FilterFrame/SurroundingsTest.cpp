// SPDX-License-Identifier: Apache-2.0
//
// Jobs whose descriptors are closed or do not wait, and what becomes of their memory.
#include "CommonSource/FilterFrame/Source/Surroundings.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#ifdef __linux__
#include <sys/prctl.h>
#endif
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <functional>

#include "CommonSource/FilterFrame/Source/JobCopy.h"
#include "CommonSource/FilterFrame/Source/JobRun.h"
#include "support/DecompositionJob.h"
#include "support/Ppd.h"

namespace {

const std::string kDocument = "%!PS\nbp\nep\nbp\nep\n";

std::size_t Count(const std::string &text, const std::string &part) {
    std::size_t count = 0;
    for (std::size_t at = 0; (at = text.find(part, at)) != text.npos; at += part.size()) count++;
    return count;
}

// The job of kDocument with its streams in files of `folder`: "output", "errors".
class SurroundingsTest : public testing::TestWithParam<const char *> {
  protected:
    // Runs `run` in a child process after `prepare`; returns its exit status, or 128 and a signal.
    int InChild(const std::function<void()> &prepare, const std::function<int()> &run) {
        const std::string input = folder_.Write("input", kDocument + "\x04");
        const std::string output = folder_.Write("output", ""),
                          errors = folder_.Write("errors", "");
        const std::string ppd = folder_.Write(
            "queue.ppd", PpdWith("*KVPSDecompMode: \"" + std::string(GetParam()) + "\"\n"));
        std::filesystem::create_directory(TempPath());
        std::fflush(nullptr);
        const pid_t child = fork();
        if (child == 0) {
            dup2(open(input.c_str(), O_RDONLY), STDIN_FILENO);
            dup2(open(output.c_str(), O_WRONLY | O_APPEND), STDOUT_FILENO);
            dup2(open(errors.c_str(), O_WRONLY | O_APPEND), STDERR_FILENO);
            setenv("PPD", ppd.c_str(), 1);
            setenv("TMPDIR", TempPath().c_str(), 1);
            for (int file = 3; file < 64; file++) close(file);
            prepare();
            _exit(run());
        }
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

    // The same with the real filter.
    int RunFilterBehind(const std::function<void()> &prepare) {
        return InChild(prepare, [] {
            execl(KVFILTER_BINARY, "kvfilter", "1", "alice", "Report", "1", "", nullptr);
            return 127;
        });
    }

    std::string TempPath() const { return folder_.Path() / "temp"; }
    std::string Output() const { return folder_.Read("output"); }

    // What the job puts out when nothing is wrong.
    std::string WholeJob() {
        EXPECT_EQ(RunFilterBehind([] {}), 0);
        const std::string output = Output();
        EXPECT_NE(output.find(kDocument), output.npos);
        EXPECT_EQ(folder_.Read("errors"), "PAGE:1 1\nPAGE:2 1\n");
        return output;
    }

    const TempFolder folder_;
};
INSTANTIATE_TEST_SUITE_P(BothPasses, SurroundingsTest, testing::Values("0", "1"));

TEST_P(SurroundingsTest, ClosedErrorOutputIsNotMixedIntoTheDocument) {
    const std::string whole = WholeJob();
    EXPECT_EQ(RunFilterBehind([] { close(STDERR_FILENO); }), 0);
    EXPECT_EQ(Output(), whole);
}

TEST_P(SurroundingsTest, ClosedInputIsAnEmptyDocument) {
    EXPECT_EQ(RunFilterBehind([] { close(STDIN_FILENO); }), 0);
    const std::string output = Output();
    EXPECT_TRUE(output.starts_with("\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"));
    EXPECT_EQ(output.find("bp\n"), output.npos);
    EXPECT_TRUE(output.ends_with(kTrailer));
    EXPECT_EQ(folder_.Read("errors"), "");
}

TEST_P(SurroundingsTest, JobsWithoutAnyDescriptorEnd) {
    EXPECT_EQ(RunFilterBehind([] {
                  close(STDIN_FILENO);
                  close(STDOUT_FILENO);
                  close(STDERR_FILENO);
              }),
              0);
    EXPECT_EQ(Output(), "");
}

TEST_P(SurroundingsTest, ClosedOutputLeavesTheJobCopyAlone) {
    const std::string marker = folder_.Write("marker", "");
    EXPECT_EQ(InChild([] { close(STDOUT_FILENO); },
                      [&marker] {
                          SecureSurroundings();
                          FlagPath = marker.c_str();
                          std::string words[] = {"kvfilter", "1", "alice", "Report", "1", ""};
                          char *argv[7] = {};
                          for (int i = 0; i < 6; i++) argv[i] = words[i].data();
                          return RunJob(6, argv);
                      }),
              0);
    std::string copy;
    for (const auto &entry : std::filesystem::directory_iterator(TempPath())) {
        EXPECT_EQ(copy, "") << "one file";
        copy = folder_.Read("temp/" + entry.path().filename().string());
    }
    EXPECT_EQ(Count(copy, "MODE=PRINTER"), 1U);
    EXPECT_EQ(Count(copy, kDocument), 1U);
    EXPECT_EQ(Count(copy, kTrailer), 1U);
}

bool MemoryIsPrivate() {
    rlimit limit;
    if (getrlimit(RLIMIT_CORE, &limit) != 0 || limit.rlim_max != 0) return false;
#ifdef __linux__
    if (prctl(PR_GET_DUMPABLE) != 0) return false;
#endif
    return true;
}

TEST_P(SurroundingsTest, MemoryIsInNoCoreDump) {
    EXPECT_EQ(InChild([] {}, [] { return MemoryIsPrivate() ? 1 : 0; }), 0) << "without";
    EXPECT_EQ(InChild(SecureSurroundings, [] { return MemoryIsPrivate() ? 0 : 1; }), 0);
}

// A document of several pipes' size.
std::string LargeDocument() {
    std::string document;
    while (document.size() < 3 << 20) document += std::to_string(document.size()) + " show\n";
    return document;
}

TEST_P(SurroundingsTest, OutputThatDoesNotWaitLosesNothing) {
    const std::string document = LargeDocument();
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    ASSERT_EQ(fcntl(ends[1], F_SETFL, O_WRONLY | O_NONBLOCK), 0);
    std::string received;
    const TempFolder folder;
    const std::string input = folder.Write("document", document + "\x04");
    const std::string ppd = folder.Write(
        "queue.ppd", PpdWith("*KVPSDecompMode: \"" + std::string(GetParam()) + "\"\n"));
    const pid_t child = fork();
    if (child == 0) {
        dup2(open(input.c_str(), O_RDONLY), STDIN_FILENO);
        dup2(ends[1], STDOUT_FILENO);
        setenv("PPD", ppd.c_str(), 1);
        execl(KVFILTER_BINARY, "kvfilter", "1", "alice", "Report", "1", "", nullptr);
        _exit(127);
    }
    close(ends[1]);
    usleep(100'000);  // the pipe is full by now
    char buffer[65536];
    for (ssize_t count; (count = read(ends[0], buffer, sizeof buffer)) > 0;) {
        received.append(buffer, static_cast<std::size_t>(count));
    }
    close(ends[0]);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_NE(received.find(document), received.npos) << received.size();
    EXPECT_TRUE(received.ends_with(kTrailer));
}

}  // namespace
