// SPDX-License-Identifier: Apache-2.0
//
// Jobs that cannot be printed whole and jobs that are cancelled, with plain CUPS in front of the
// filter and without: there people hear of it, elsewhere everything is as ever.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <cstdlib>
#include <functional>

#include "CommonSource/FilterFrame/Source/JobRun.h"
#include "FrontEnd/Cancel.h"
#include "support/DecompositionJob.h"
#include "support/Messages.h"

namespace {

constexpr char kCUPS[] = "*KVFrontEnd: \"CUPS\"\n";

std::string Ppd(bool isDecomposition, bool isCUPS) {
    return PpdWith("*KVPSDecompMode: \"" + std::string(isDecomposition ? "1" : "0") + "\"\n" +
                   (isCUPS ? kCUPS : ""));
}

class Failures : public testing::TestWithParam<bool> {  // the decomposition pass, or the plain one
  protected:
    // The same job with plain CUPS and without.
    FilterResult Run(bool isCUPS, const std::string &document) {
        FilterJob job;
        job.ppd = Ppd(GetParam(), isCUPS);
        job.more = {document};
        job.environment = {{"TMPDIR", folder_.Path().string()}};
        return RunFilter(job);
    }

    // Starts a job in a child of this process: it reads `input`, a descriptor, and leaves "output"
    // and "errors" in the folder.
    pid_t Start(bool isCUPS, int input) {
        const std::string output = folder_.Write("output", ""),
                          errors = folder_.Write("errors", "");
        const std::string ppd = folder_.Write("queue.ppd", Ppd(GetParam(), isCUPS));
        std::filesystem::create_directory(folder_.Path() / "temp");
        std::fflush(nullptr);
        const pid_t child = fork();
        if (child != 0) return child;
        dup2(input, STDIN_FILENO);
        dup2(open(output.c_str(), O_WRONLY | O_APPEND), STDOUT_FILENO);
        dup2(open(errors.c_str(), O_WRONLY | O_APPEND), STDERR_FILENO);
        for (int file = 3; file < 64; file++) close(file);
        setenv("PPD", ppd.c_str(), 1);
        setenv("TMPDIR", (folder_.Path() / "temp").c_str(), 1);
        cancelGrace = std::chrono::milliseconds(200);
        std::string words[] = {"kvfilter", "1", "alice", "Report", "1", ""};
        char *argv[7] = {};
        for (int i = 0; i < 6; i++) argv[i] = words[i].data();
        _exit(RunJob(6, argv));
    }

    static int Status(pid_t child) {
        int status = -1;
        waitpid(child, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }

    bool NoFileIsLeft() const { return std::filesystem::is_empty(folder_.Path() / "temp"); }

    const TempFolder folder_;
};
INSTANTIATE_TEST_SUITE_P(BothPasses, Failures, testing::Bool());

TEST_P(Failures, DocumentThatCannotBeOpened) {
    const FilterResult silent = Run(false, "/nonexistent/a"), told = Run(true, "/nonexistent/a");
    EXPECT_EQ(silent.errors, "");
    EXPECT_EQ(silent.status, 0);
    EXPECT_EQ(SteadyMessages(told.errors),
              "ERROR: /nonexistent/a could not be read: No such file or directory\n");
    EXPECT_EQ(told.status, 1);
    EXPECT_TRUE(told.output.ends_with(kTrailer));
    EXPECT_EQ(told.output.find('\x04'), told.output.npos);
}

TEST_P(Failures, DocumentThatCannotBeRead) {
    const FilterResult silent = Run(false, "/"), told = Run(true, "/");
    EXPECT_EQ(silent.errors, "");
    EXPECT_EQ(silent.status, 0);
    EXPECT_TRUE(silent.output.ends_with(GetParam() ? std::string(kEnterPostScript) + kTrailer
                                                   : "\x04" + std::string(kTrailer)));
    EXPECT_EQ(SteadyMessages(told.errors), "ERROR: / could not be read: Is a directory\n");
    EXPECT_EQ(told.status, 1);
    EXPECT_TRUE(told.output.ends_with(kTrailer));
    EXPECT_EQ(told.output.find('\x04'), told.output.npos) << "not as if whole";
    EXPECT_EQ(told.output.find(kEnterPostScript) == told.output.npos, GetParam());
}

TEST_P(Failures, ClosedInput) {
    for (const bool isCUPS : {false, true}) {
        const pid_t job = Start(isCUPS, open("/dev/null", O_WRONLY));  // as the filter opens it
        EXPECT_EQ(Status(job), isCUPS ? 1 : 0);
        EXPECT_EQ(SteadyMessages(folder_.Read("errors")),
                  isCUPS ? "ERROR: Standard input could not be read: Bad file descriptor\n" : "");
        EXPECT_TRUE(NoFileIsLeft());
    }
}

TEST_P(Failures, InputThatDoesNotWaitIsWaitedFor) {
    for (const bool isCUPS : {false, true}) {
        int ends[2];
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
        ASSERT_EQ(fcntl(ends[0], F_SETFL, O_NONBLOCK), 0);
        const pid_t job = Start(isCUPS, ends[0]);
        std::string document;
        for (int page = 1; page <= 5; page++) {
            usleep(20'000);
            const std::string text = "page " + std::to_string(page) + "\nep\n";
            ASSERT_GT(write(ends[1], text.data(), text.size()), 0);
            document += text;
        }
        ASSERT_EQ(write(ends[1], "\x04", 1), 1);
        close(ends[1]);
        EXPECT_EQ(Status(job), 0);
        close(ends[0]);
        EXPECT_NE(folder_.Read("output").find(document), std::string::npos);
    }
}

TEST_P(Failures, CancelledJobWhoseInputStallsEnds) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const pid_t job = Start(true, ends[0]);
    const std::string text = "%!PS\nep\nhalf a page\n";
    ASSERT_GT(write(ends[1], text.data(), text.size()), 0);
    usleep(300'000);
    kill(job, SIGTERM);
    EXPECT_EQ(Status(job), 0);  // although nothing more comes
    close(ends[1]);
    close(ends[0]);
    const std::string output = folder_.Read("output");
    EXPECT_TRUE(output.ends_with(kTrailer));
    EXPECT_EQ(output.find('\x04'), output.npos);
    EXPECT_EQ(output.find(text) == output.npos, GetParam()) << "whole lines";
    EXPECT_EQ(SteadyMessages(folder_.Read("errors")).find("ERROR"), std::string::npos);
    EXPECT_TRUE(NoFileIsLeft());
}

TEST_P(Failures, CancelledJobWithoutPageEndsEnds) {
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    const pid_t job = Start(true, ends[0]);
    close(ends[0]);
    std::signal(SIGPIPE, SIG_IGN);
    const std::string lines = std::string(99, 'x') + "\n";
    for (int i = 0; write(ends[1], lines.data(), lines.size()) > 0; i++) {
        if (i == 1000) kill(job, SIGTERM);
        if (i > 1000) usleep(1000);
    }
    EXPECT_EQ(Status(job), 0);
    close(ends[1]);
    const std::string output = folder_.Read("output");
    EXPECT_TRUE(output.ends_with(kTrailer));
    EXPECT_EQ(output.find('\x04'), output.npos);
    EXPECT_TRUE(NoFileIsLeft());
}

TEST_P(Failures, CancelledJobEndsAtItsPageEndAsEverWhenOneComes) {
    for (const bool isCUPS : {false, true}) {
        int ends[2];
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
        const pid_t job = Start(isCUPS, ends[0]);
        const std::string start = "%!PS\nbp\n", rest = "more\nep\nnext\nep\n";
        ASSERT_GT(write(ends[1], start.data(), start.size()), 0);
        usleep(100'000);
        kill(job, SIGTERM);
        ASSERT_GT(write(ends[1], rest.data(), rest.size()), 0);
        EXPECT_EQ(Status(job), 0);
        close(ends[1]);
        close(ends[0]);
        const std::string output = folder_.Read("output");
        EXPECT_TRUE(output.ends_with(kTrailer));
        EXPECT_EQ(output.find("next"), output.npos);
        if (isCUPS) {
            EXPECT_TRUE(NoFileIsLeft());
        }
        std::filesystem::remove_all(folder_.Path() / "temp");
    }
}

TEST_P(Failures, OutputThatNobodyReads) {
    for (const bool isCUPS : {false, true}) {
        const std::string ppd = folder_.Write("queue.ppd", Ppd(GetParam(), isCUPS));
        const std::string page = std::string(99, 'x') + "\nep\n";
        std::string document;
        while (document.size() < 4 << 20) document += page;
        folder_.Write("document", document + "\x04");
        const pid_t child = fork();
        if (child == 0) {
            int ends[2];
            if (pipe2(ends, O_CLOEXEC) != 0) _exit(126);
            close(ends[0]);
            dup2(ends[1], STDOUT_FILENO);
            dup2(open((folder_.Path() / "document").c_str(), O_RDONLY), STDIN_FILENO);
            const std::string errors = folder_.Write("errors", "");
            dup2(open(errors.c_str(), O_WRONLY | O_APPEND), STDERR_FILENO);
            signal(SIGPIPE, SIG_DFL);
            setenv("PPD", ppd.c_str(), 1);
            execl(KVFILTER_BINARY, "kvfilter", "1", "alice", "Report", "1", "", nullptr);
            _exit(127);
        }
        EXPECT_EQ(Status(child), 1);
        const std::string errors = SteadyMessages(folder_.Read("errors"));
        if (isCUPS) {
            EXPECT_EQ(errors.substr(0, 200),
                      "ERROR: Standard output could not be written: Broken pipe\n")
                << "and no page is logged";
        } else {
            EXPECT_TRUE(errors.starts_with("PAGE:1 1\nPAGE:2 1\n"));
            EXPECT_EQ(errors.find("ERROR"), errors.npos);
        }
    }
}

}  // namespace
