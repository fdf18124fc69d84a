// SPDX-License-Identifier: Apache-2.0
//
// The temporary file of the pass that turns PPD features into PJL: where it is made, what becomes
// of it, and what is sent when there is trouble with it.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <ctime>
#include <memory>
#include <regex>

#include "CommonSource/FilterFrame/Source/JobCopy.h"
#include "CommonSource/FilterFrame/Source/JobRun.h"
#include "support/DecompositionJob.h"

namespace fs = std::filesystem;

namespace {

const std::string kMode2Line = "%%BeginFeature: *KVTonerSaver Mode2\n";
const std::string kMode2 = "@PJL SET ECONOMODE=MODE2\n";
const std::string kMode3Line = "%%BeginFeature: *KVTonerSaver Mode3\n";
const std::string kMode3 = "@PJL SET ECONOMODE=MODE3\n";
const std::string kNoDocument = std::string(kHeader) + kTrailer;

class DecompositionFile : public testing::Test {
  protected:
    void SetUp() override {
        if (fs::is_directory("/private/tmp")) GTEST_SKIP() << "the file is made in /private/tmp";
    }

    // The contents of the only file in the folder.
    std::string OnlyFile() const {
        const auto files = Files(folder_);
        return files.size() == 1 ? folder_.Read(files[0].filename())
                                 : std::to_string(files.size()) + " files";
    }

    const TempFolder folder_;
};

TEST_F(DecompositionFile, IsPrivateAndNamedAfterTheTime) {
    RunningFilter filter(DecompositionJob(folder_, "bp\nep\nbp\n"));
    ASSERT_TRUE(filter.AwaitErrors("PAGE:1 1\n"));
    const auto files = Files(folder_);
    ASSERT_EQ(files.size(), 1U);
    EXPECT_TRUE(
        std::regex_match(files[0].filename().string(), std::regex("kvPPDPJL[0-9]{14}\\.job")));
    struct stat status;
    ASSERT_EQ(stat(files[0].c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0600U);
    EXPECT_EQ(filter.Finish().output, Framed("", "bp\nep\n\n"));
    EXPECT_TRUE(Files(folder_).empty());
}

TEST_F(DecompositionFile, IsNeverMadeThroughATakenName) {
    const fs::path precious = folder_.Write("precious", "do not touch");
    enum { kLink, kDanglingLink, kFile };
    for (const int kind : {kLink, kDanglingLink, kFile}) {
        const TempFolder folder;
        std::size_t planted = 0;
        for (std::time_t second = std::time(nullptr), end = second + 600; second < end; second++) {
            char name[64];
            std::strftime(name, sizeof name, "kvPPDPJL%Y%m%d%H%M%S.job", std::localtime(&second));
            const fs::path path = folder.Path() / name;
            if (kind == kLink) fs::create_symlink(precious, path);
            if (kind == kDanglingLink) fs::create_symlink(folder_.Path() / "new", path);
            if (kind == kFile) folder.Write(name, "do not touch");
            planted++;
        }
        RunningFilter filter(DecompositionJob(folder, "bp\nep\nbp\n"));
        ASSERT_TRUE(filter.AwaitErrors("PAGE:1 1\n"));
        const std::regex ours("kvPPDPJL[0-9]{14}-" + std::to_string(filter.Process()) + "\\.job");
        const auto files = Files(folder);
        EXPECT_EQ(files.size(), planted + 1);
        EXPECT_EQ(std::count_if(files.begin(), files.end(),
                                [&](const fs::path &path) {
                                    return std::regex_match(path.filename().string(), ours);
                                }),
                  1);
        EXPECT_EQ(filter.Finish().output, Framed("", "bp\nep\n\n"));
        EXPECT_EQ(Files(folder).size(), planted);
        EXPECT_EQ(folder_.Read("precious"), "do not touch");
        EXPECT_EQ(Files(folder_).size(), 1U);
        if (kind != kFile) continue;
        for (const fs::path &path : Files(folder)) {
            EXPECT_EQ(folder.Read(path.filename()), "do not touch");
        }
    }
}

TEST_F(DecompositionFile, BelongsToOneOf50JobsStartedAtOnce) {
    constexpr int kJobs = 50;
    std::vector<std::unique_ptr<RunningFilter>> filters;
    std::vector<std::string> documents;
    for (int i = 0; i < kJobs; i++) {
        const std::string words = "(job " + std::to_string(i) + ") show\n";
        std::string page = "bp\n";
        for (int line = 0; line < 3000; line++) page += words;
        documents.push_back(page + "ep\n" + (i % 2 ? kMode2Line : kMode3Line) + words);
        FilterJob job = DecompositionJob(folder_, documents.back());
        job.copies = std::to_string(i);
        filters.push_back(std::make_unique<RunningFilter>(job));
    }
    // All files are there at the same time, before any is sent.
    for (int i = 0; i < kJobs; i++) {
        ASSERT_TRUE(filters[i]->AwaitErrors("PAGE:1 " + std::to_string(i) + "\n"));
    }
    EXPECT_EQ(Files(folder_).size(), kJobs * 1U);
    for (int i = 0; i < kJobs; i++) {
        filters[i]->Send("\x04");
        EXPECT_TRUE(filters[i]->Finish().output == Framed(i % 2 ? kMode2 : kMode3, documents[i]))
            << i;
    }
    EXPECT_TRUE(Files(folder_).empty());
}

TEST_F(DecompositionFile, StaysWhenTheFirstPageIsCancelled) {
    RunningFilter filter(DecompositionJob(folder_));
    while (Files(folder_).empty()) usleep(1000);  // the job is at its document
    kill(filter.Process(), SIGTERM);
    filter.Send(kMode2Line + "page one\nep\n" + kMode3Line);
    const FilterResult result = filter.Finish();
    EXPECT_EQ(result.output, kHeader + kMode2 + kTrailer);
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(OnlyFile(), kMode2Line + "page one\n");
}

TEST_F(DecompositionFile, StaysWhenTheSecondPageIsCancelled) {
    for (const std::string end : {"ep", "endp", "showpage"}) {
        RunningFilter filter(DecompositionJob(folder_, kMode2Line + "ep\nnext\n"));
        ASSERT_TRUE(filter.AwaitErrors("PAGE:1 1\n"));
        kill(filter.Process(), SIGTERM);
        filter.Send("page two\n" + end + "\n" + kMode3Line);
        const FilterResult result = filter.Finish();
        EXPECT_EQ(result.output, kHeader + kMode2 + kTrailer);
        EXPECT_EQ(result.errors, "PAGE:1 1\n");
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(OnlyFile(), kMode2Line + "ep\nnext\npage two\n");
        fs::remove(Files(folder_).at(0));
    }
}

TEST_F(DecompositionFile, IsSentToAPageEndAndRemovedWhenCancelledThen) {
    for (const std::string end : {"ep", "endp", "showpage"}) {
        // A page that fills the pipe, so that the job is still at it.
        const std::string page = std::string(4 << 20, 'x') + "\n" + end + "\n";
        RunningFilter filter(DecompositionJob(folder_, page + page + "\x04"));
        filter.SendAll();
        ASSERT_TRUE(filter.AwaitOutput(kEnterPostScript));
        kill(filter.Process(), SIGTERM);
        const FilterResult result = filter.Finish();
        EXPECT_TRUE(result.output == Framed("", page)) << end;
        EXPECT_EQ(result.status, 0);
        EXPECT_TRUE(Files(folder_).empty());
    }
}

TEST_F(DecompositionFile, LeavesTheJobWithoutADocumentWhenItIsGone) {
    RunningFilter filter(DecompositionJob(folder_, kMode2Line + "bp\nep\n"));
    filter.Send("more\n");
    ASSERT_TRUE(filter.AwaitErrors("PAGE:1 1\n"));
    fs::remove(Files(folder_).at(0));
    const FilterResult result = filter.Finish();
    EXPECT_EQ(result.output, Framed(kMode2, ""));
    EXPECT_EQ(result.status, 0);
}

TEST_F(DecompositionFile, IsNotMadeWhereThereIsNoFolder) {
    FilterJob job = DecompositionJob(folder_, kMode2Line + "bp\nep\n\x04");
    for (const std::string folder : {"/nonexistent", "/dev/null"}) {
        job.environment = {{"TMPDIR", folder}};
        const FilterResult result = RunFilter(job);
        EXPECT_EQ(result.output, kNoDocument);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(result.status, 0);
    }
}

// A small file system of the test's own, on the test's folder.
class FullFileSystem : public DecompositionFile {
  protected:
    void SetUp() override {
        DecompositionFile::SetUp();
        if (IsSkipped()) return;
        if (geteuid() != 0) GTEST_SKIP() << "only root can mount a file system";
        // Seen by this process and its children only.
        if (unshare(CLONE_NEWNS) != 0 ||
            mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0) {
            GTEST_SKIP() << "no mount namespace of one's own here";
        }
    }
    void TearDown() override { umount(folder_.Path().c_str()); }

    bool Mount(const char *options) {
        return mount("none", folder_.Path().c_str(), "tmpfs", 0, options) == 0;
    }
};

TEST_F(FullFileSystem, SendsWhatCouldBeStoredToItsLastLineEnd) {
    ASSERT_TRUE(Mount("size=128k"));
    std::string document, page = "bp\n";
    for (int i = 0; i < 500; i++) page += "line " + std::to_string(i) + "\n";
    for (int i = 0; i < 100; i++) document += page + "ep\n" + (i % 2 ? kMode2Line : kMode3Line);
    const FilterResult result = RunFilter(DecompositionJob(folder_, document + "\x04"));

    std::string pjl;
    for (int i = 0; i < 100; i++) pjl += i % 2 ? kMode2 : kMode3;
    const std::string start = kHeader + pjl + kEnterPostScript;
    ASSERT_TRUE(result.output.starts_with(start));
    ASSERT_TRUE(result.output.ends_with(kTrailer));
    const std::string sent = result.output.substr(
        start.size(), result.output.size() - start.size() - sizeof kTrailer + 1);
    EXPECT_TRUE(document.starts_with(sent));
    EXPECT_TRUE(sent.ends_with('\n'));
    EXPECT_GT(sent.size(), 64U << 10);
    EXPECT_LE(sent.size(), 128U << 10);
    EXPECT_TRUE(result.errors.starts_with("PAGE:1 1\nPAGE:2 1\n"));
    EXPECT_EQ(result.errors.find("PAGE:100 1\n"), std::string::npos);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(Files(folder_).empty());
}

TEST_F(FullFileSystem, SendsNoDocumentWhenNothingCouldBeStored) {
    ASSERT_TRUE(Mount("size=16k"));
    folder_.Write("full", std::string(100000, 'x'));
    const FilterResult result =
        RunFilter(DecompositionJob(folder_, kMode2Line + "ep\n" + kMode3Line + "\x04"));
    EXPECT_EQ(result.output, Framed(kMode2 + kMode3, ""));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(Files(folder_).size(), 1U);
}

TEST_F(FullFileSystem, SendsNoDocumentWhenNoFileCouldBeMade) {
    ASSERT_TRUE(Mount("nr_inodes=1"));
    const FilterResult result = RunFilter(DecompositionJob(folder_, kMode2Line + "ep\n\x04"));
    EXPECT_EQ(result.output, kNoDocument);
    EXPECT_EQ(result.status, 0);
}

// The job with a job copy, in a child process; returns what it put out.
std::string RunWithJobCopy(const TempFolder &work, const TempFolder &folder,
                           const std::string &document) {
    const std::string input = work.Write("input", document), output = work.Write("output", "");
    const std::string marker = work.Write("marker", "");
    const std::string ppd = work.Write("queue.ppd", DecompositionPpd());
    std::fflush(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        FlagPath = marker.c_str();
        setenv("TMPDIR", folder.Path().c_str(), 1);
        setenv("PPD", ppd.c_str(), 1);
        dup2(open(input.c_str(), O_RDONLY), STDIN_FILENO);
        dup2(open(output.c_str(), O_WRONLY), STDOUT_FILENO);
        std::string words[] = {"kvfilter", "1", "user", "title", "1", ""};
        char *argv[7] = {};
        for (int i = 0; i < 6; i++) argv[i] = words[i].data();
        _exit(RunJob(6, argv));
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    return work.Read("output");
}

TEST_F(DecompositionFile, IsInTheJobCopyAsItIsMadeAndNotAsItIsSent) {
    const TempFolder work;
    const std::string document =
        "%!PS\n" + kMode2Line + "bp\nep\n/TCPR 1 /GCPR 2 /ICPR 3\n" + kMode3Line + "showpage\n";
    const std::string settings =
        "@PJL SET JOBATTR=\"@TCPR=1\"\n"
        "@PJL SET JOBATTR=\"@GCPR=2\"\n"
        "@PJL SET JOBATTR=\"@ICPR=3\"\n";
    EXPECT_EQ(RunWithJobCopy(work, folder_, document + "\x04"),
              Framed(kMode2 + settings + kMode3, document));
    EXPECT_EQ(OnlyFile(), std::string(kHeader) + "%!PS\n" + kMode2 + kMode2Line + "bp\nep\n" +
                              settings + "/TCPR 1 /GCPR 2 /ICPR 3\n" + kMode3 + kMode3Line +
                              "showpage\n\x04" + kEnterPostScript + kTrailer);
}

TEST_F(DecompositionFile, IsInTheJobCopyWithTheLastByteAndOneCtrlD) {
    const struct {
        std::string document, copied, sent;
    } kCases[] = {
        {"a\nb\n", "a\n\n\x04", "a\n\n"},
        {"a\nb", "a\nb\x04", "a\n"},
        {"a\n\x04", "a\n\x04", "a\n"},
        {"a", "a\x04", ""},
        {"\x04", "\x04", ""},
        {"", "\x04", ""},
    };
    for (const auto &[document, copied, sent] : kCases) {
        const TempFolder work;
        EXPECT_EQ(RunWithJobCopy(work, folder_, document), Framed("", sent));
        EXPECT_EQ(OnlyFile(), kHeader + copied + kEnterPostScript + kTrailer);
        fs::remove(Files(folder_).at(0));
    }
}

}  // namespace
