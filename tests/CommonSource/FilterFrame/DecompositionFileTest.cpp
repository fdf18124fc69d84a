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
#include <functional>
#include <memory>

#include "CommonSource/FilterFrame/Source/JobCopy.h"
#include "CommonSource/FilterFrame/Source/JobRun.h"
#include "Tools/JobInfo/JobDecoder.h"
#include "support/DecompositionJob.h"
#include "support/FilterProcess.h"

namespace fs = std::filesystem;

namespace {

const std::string kMode2Line = "%%BeginFeature: *KVTonerSaver Mode2\n";
const std::string kMode2 = "@PJL SET ECONOMODE=MODE2\n";
const std::string kMode3Line = "%%BeginFeature: *KVTonerSaver Mode3\n";
const std::string kMode3 = "@PJL SET ECONOMODE=MODE3\n";

// Whether a file is named "kvPPDPJL", 14 digits of time and `suffix`.
bool IsTimeAnd(const std::string &suffix, const fs::path &path) {
    const std::string name = path.filename().string(), start = "kvPPDPJL";
    return name.size() == start.size() + 14 + suffix.size() && name.starts_with(start) &&
           name.ends_with(suffix) &&
           name.substr(start.size(), 14).find_first_not_of("0123456789") == name.npos;
}

class DecompositionFile : public testing::Test {
  protected:
    void SetUp() override {
        if (fs::is_directory("/private/tmp")) GTEST_SKIP() << "the file is made in /private/tmp";
    }

    // A filter at work, with its temporary file in `folder`.
    std::unique_ptr<FilterProcess> Start(const TempFolder &folder,
                                         const std::string &copies = "1") {
        const FilterJob job;
        setenv("TMPDIR", folder.Path().c_str(), 1);
        auto filter = std::make_unique<FilterProcess>(
            std::vector<std::string>{job.id, job.user, job.title, copies, job.options},
            FilterProcess::kPipe, ppd_);
        unsetenv("TMPDIR");
        return filter;
    }

    // The contents of the only file in the folder.
    std::string OnlyFile() const {
        const auto files = Files(folder_);
        return files.size() == 1 ? folder_.Read(files[0].filename())
                                 : std::to_string(files.size()) + " files";
    }

    const TempFolder folder_;
    const TempFolder ppdFolder_;
    const std::string ppd_ = ppdFolder_.Write("queue.ppd", DecompositionPpd());
};

TEST_F(DecompositionFile, IsPrivateAndNamedAfterTheTime) {
    const auto filter = Start(folder_);
    filter->Write("bp\nep\nbp\n");
    ASSERT_EQ(filter->ReadErrorLine(), "PAGE:1 1\n");
    const auto files = Files(folder_);
    ASSERT_EQ(files.size(), 1U);
    EXPECT_TRUE(IsTimeAnd(".job", files[0])) << files[0];
    struct stat status;
    ASSERT_EQ(stat(files[0].c_str(), &status), 0);
    EXPECT_EQ(status.st_mode, S_IFREG | 0600U);
    filter->CloseInput();
    EXPECT_EQ(filter->ReadToEnd(), Framed("", "bp\nep\n\n"));
    EXPECT_TRUE(Files(folder_).empty());
}

// Takes every name that the file may get in the next ten minutes.
std::size_t TakeNames(const TempFolder &folder, const std::function<void(const fs::path &)> &take) {
    const std::time_t now = std::time(nullptr);
    std::size_t count = 0;
    for (std::time_t second = now; second < now + 600; second++, count++) {
        char name[64];
        std::strftime(name, sizeof name, "kvPPDPJL%Y%m%d%H%M%S.job", std::localtime(&second));
        take(folder.Path() / name);
    }
    return count;
}

TEST_F(DecompositionFile, IsNeverMadeThroughATakenName) {
    const std::string precious = ppdFolder_.Write("precious", "do not touch");
    const std::string missing = ppdFolder_.Path() / "missing";
    const std::function<void(const fs::path &)> kWaysToTake[] = {
        [&](const fs::path &path) { fs::create_symlink(precious, path); },
        [&](const fs::path &path) { fs::create_symlink(missing, path); },
        [&](const fs::path &path) { fs::copy(precious, path); },
    };
    for (const auto &take : kWaysToTake) {
        const TempFolder folder;
        const std::size_t taken = TakeNames(folder, take);
        const auto filter = Start(folder);
        filter->Write("bp\nep\nbp\n");
        ASSERT_EQ(filter->ReadErrorLine(), "PAGE:1 1\n");
        const std::string suffix = "-" + std::to_string(filter->Id()) + ".job";
        const auto files = Files(folder);
        EXPECT_EQ(files.size(), taken + 1);
        EXPECT_EQ(std::count_if(files.begin(), files.end(),
                                [&](const fs::path &path) { return IsTimeAnd(suffix, path); }),
                  1);
        filter->CloseInput();
        EXPECT_EQ(filter->ReadToEnd(), Framed("", "bp\nep\n\n"));
        EXPECT_FALSE(fs::exists(missing));
        EXPECT_EQ(Files(folder).size(), taken);
        for (const fs::path &path : Files(folder)) {
            EXPECT_EQ(folder.Read(path.filename()), fs::exists(path) ? "do not touch" : "");
        }
    }
}

TEST_F(DecompositionFile, BelongsToOneOf50JobsStartedAtOnce) {
    constexpr std::size_t kJobs = 50;
    std::vector<std::unique_ptr<FilterProcess>> filters;
    std::vector<std::string> documents;
    for (std::size_t i = 0; i < kJobs; i++) filters.push_back(Start(folder_, std::to_string(i)));
    for (std::size_t i = 0; i < kJobs; i++) {
        const std::string words = "(job " + std::to_string(i) + ") show\n";
        std::string page = "bp\n";
        for (int line = 0; line < 3000; line++) page += words;
        documents.push_back(page + "ep\n" + (i % 2 ? kMode2Line : kMode3Line) + words);
        filters[i]->Write(documents[i]);
    }
    // All files are there at the same time, before any is sent.
    for (std::size_t i = 0; i < kJobs; i++) {
        EXPECT_EQ(filters[i]->ReadErrorLine(), "PAGE:1 " + std::to_string(i) + "\n");
    }
    EXPECT_EQ(Files(folder_).size(), kJobs);
    for (std::size_t i = 0; i < kJobs; i++) {
        filters[i]->Write("\x04");
        filters[i]->CloseInput();
        EXPECT_TRUE(filters[i]->ReadToEnd() == Framed(i % 2 ? kMode2 : kMode3, documents[i])) << i;
        EXPECT_EQ(filters[i]->Wait(), 0);
    }
    EXPECT_TRUE(Files(folder_).empty());
}

TEST_F(DecompositionFile, HoldsWhatWouldNeedMemory) {
    const auto peakMemory = [&](int pages) {
        setenv("TMPDIR", folder_.Path().c_str(), 1);
        FilterProcess filter({"1", "user", "title", "1", ""}, FilterProcess::kDiscardOutput, ppd_);
        unsetenv("TMPDIR");
        const std::string content = kMode2Line + std::string(65535, 'x') + "\nbp\nep\n";
        for (int page = 0; page < pages; page++) filter.Write(content);
        filter.CloseInput();
        filter.ReadErrorsToEnd();
        rusage usage;
        EXPECT_EQ(filter.Wait(&usage), 0);
        return usage.ru_maxrss;
    };
    EXPECT_LT(std::abs(peakMemory(1000) - peakMemory(1)), 1024);
}

TEST_F(DecompositionFile, StaysWhenTheFirstPageIsCancelled) {
    const auto filter = Start(folder_);
    while (Files(folder_).empty()) usleep(1000);  // the job is at its document
    filter->Signal(SIGTERM);
    filter->Write(kMode2Line + "page one\nep\n" + kMode3Line);
    filter->CloseInput();
    EXPECT_EQ(filter->ReadToEnd(), Header() + kMode2 + kTrailer);
    EXPECT_EQ(filter->ReadErrorsToEnd(), "");
    EXPECT_EQ(filter->Wait(), 0);
    EXPECT_EQ(OnlyFile(), kMode2Line + "page one\n");
}

TEST_F(DecompositionFile, StaysWhenTheSecondPageIsCancelled) {
    for (const std::string end : {"ep", "endp", "showpage"}) {
        const auto filter = Start(folder_);
        filter->Write(kMode2Line + "ep\nnext\n");
        ASSERT_EQ(filter->ReadErrorLine(), "PAGE:1 1\n");
        filter->Signal(SIGTERM);
        filter->Write("page two\n" + end + "\n" + kMode3Line);
        filter->CloseInput();
        EXPECT_EQ(filter->ReadToEnd(), Header() + kMode2 + kTrailer);
        EXPECT_EQ(filter->ReadErrorsToEnd(), "");
        EXPECT_EQ(filter->Wait(), 0);
        EXPECT_EQ(OnlyFile(), kMode2Line + "ep\nnext\npage two\n");
        fs::remove(Files(folder_).at(0));
    }
}

TEST_F(DecompositionFile, IsSentToAPageEndAndRemovedWhenCancelledThen) {
    for (const std::string end : {"ep", "endp", "showpage"}) {
        // A page that fills the pipe, so that the job is still at it.
        const std::string page = std::string(4 << 20, 'x') + "\n" + end + "\n";
        const auto filter = Start(folder_);
        filter->Write(page + page + "\x04");
        filter->CloseInput();
        std::string output = filter->ReadUntil(kEnterPostScript);
        filter->Signal(SIGTERM);
        output += filter->ReadToEnd();
        EXPECT_TRUE(output == Framed("", page)) << end;
        EXPECT_EQ(filter->Wait(), 0);
        EXPECT_TRUE(Files(folder_).empty());
    }
}

TEST_F(DecompositionFile, LeavesTheJobWithoutADocumentWhenItIsGone) {
    const auto filter = Start(folder_);
    filter->Write(kMode2Line + "bp\nep\nbp\n");
    ASSERT_EQ(filter->ReadErrorLine(), "PAGE:1 1\n");
    fs::remove(Files(folder_).at(0));
    filter->CloseInput();
    EXPECT_EQ(filter->ReadToEnd(), Framed(kMode2, ""));
    EXPECT_EQ(filter->Wait(), 0);
}

TEST_F(DecompositionFile, IsNotMadeWhereThereIsNoFolder) {
    FilterJob job = DecompositionJob(folder_, kMode2Line + "bp\nep\n\x04");
    for (const std::string folder : {"/nonexistent", "/dev/null"}) {
        job.environment = {{"TMPDIR", folder}};
        const FilterResult result = RunFilter(job);
        EXPECT_EQ(result.output, Header() + kTrailer);
        EXPECT_EQ(result.errors, "");
        EXPECT_EQ(result.status, 0);
    }
}

// What stands between the switch to PostScript and the trailer.
std::string SentDocument(const std::string &output) {
    const std::size_t start = output.find(kEnterPostScript) + sizeof kEnterPostScript - 1;
    EXPECT_NE(output.find(kEnterPostScript), output.npos);
    EXPECT_TRUE(output.ends_with(kTrailer));
    return output.substr(start, output.size() - start - sizeof kTrailer + 1);
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
    EXPECT_TRUE(result.output.starts_with(Header() + pjl + kEnterPostScript));
    const std::string sent = SentDocument(result.output);
    EXPECT_TRUE(document.starts_with(sent));
    EXPECT_TRUE(sent.ends_with('\n'));
    EXPECT_GT(sent.size(), 64U << 10);
    EXPECT_LE(sent.size(), 128U << 10);
    EXPECT_TRUE(result.errors.starts_with("PAGE:1 1\nPAGE:2 1\n"));
    EXPECT_EQ(result.errors.find("PAGE:100 1\n"), std::string::npos);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(Files(folder_).empty());
}

TEST_F(FullFileSystem, SendsAPageThatJustFits) {
    ASSERT_TRUE(Mount("size=128k"));
    std::string page;
    while (page.size() < (128 << 10) - 3) page += std::string(page.empty() ? 60 : 63, 'x') + "\n";
    page += "ep\n";
    ASSERT_EQ(page.size(), 128U << 10);
    const FilterResult result = RunFilter(DecompositionJob(folder_, page + "more\nep\n\x04"));
    EXPECT_EQ(result.output, Framed("", page));
}

TEST_F(FullFileSystem, LeavesNoGapWhenThereIsSpaceAgain) {
    ASSERT_TRUE(Mount("size=128k"));
    folder_.Write("ballast", std::string(64 << 10, 'x'));
    std::string document;
    while (document.size() < 256 << 10) document += std::string(999, 'x') + "\n";
    const std::size_t lines = document.size();
    for (int i = 0; i < 400; i++) document += kMode2Line;  // PJL enough to fill a buffer
    const auto filter = Start(folder_);
    filter->Write(document);
    // The PJL of what stands after the lines is out, so these have been dealt with.
    std::string output = filter->ReadUntil(kMode2);
    fs::remove(folder_.Path() / "ballast");
    filter->Write("more\nlast\n");
    filter->CloseInput();
    output += filter->ReadToEnd();
    const std::string sent = SentDocument(output);
    EXPECT_TRUE(document.starts_with(sent));
    EXPECT_LT(sent.size(), lines);
    EXPECT_GT(sent.size(), 0U);
}

TEST_F(FullFileSystem, DoesNotKeepACancelledJobFromEnding) {
    ASSERT_TRUE(Mount("size=128k"));
    std::string document;
    while (document.size() < 256 << 10) document += std::string(999, 'x') + "\n";
    for (int i = 0; i < 400; i++) document += kMode2Line;  // PJL enough to fill a buffer
    for (const std::string end : {"ep", "endp", "showpage"}) {
        const auto filter = Start(folder_);
        filter->Write(document);
        std::string output = filter->ReadUntil(kMode2);  // the disk is full by now
        filter->Signal(SIGTERM);
        filter->Write("page one\n" + end + "\n" + kMode3Line);
        filter->CloseInput();
        output += filter->ReadToEnd();
        EXPECT_TRUE(output.ends_with(kMode2 + kTrailer)) << end;
        EXPECT_EQ(output.find(kMode3), output.npos);
        EXPECT_EQ(output.find(kEnterPostScript), output.npos);
        EXPECT_EQ(filter->ReadErrorsToEnd(), "");
        EXPECT_EQ(filter->Wait(), 0);
        ASSERT_EQ(Files(folder_).size(), 1U);
        fs::remove(Files(folder_)[0]);
    }
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
    EXPECT_EQ(result.output, Header() + kTrailer);
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
        FilterJob job;
        std::string words[] = {"kvfilter", job.id, job.user, job.title, job.copies, job.options};
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
    EXPECT_EQ(OnlyFile(), Header() + "%!PS\n" + kMode2 + kMode2Line + "bp\nep\n" + settings +
                              "/TCPR 1 /GCPR 2 /ICPR 3\n" + kMode3 + kMode3Line + "showpage\n\x04" +
                              kEnterPostScript + kTrailer);

    // kvjobinfo makes one of the copy again.
    std::string shown;
    JobDecoder decoder([&](std::string_view bytes) { shown += bytes; });
    decoder.Feed(OnlyFile());
    const DecodedJob &job = decoder.Finish();
    EXPECT_TRUE(job.document.isCopy);
    EXPECT_EQ(shown, document + "\x04");
    ASSERT_EQ(job.problems.size(), 1U);  // the document asks for two modes
    EXPECT_EQ(job.problems[0].kind, kProblemGivenTwice);
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
        EXPECT_EQ(OnlyFile(), Header() + copied + kEnterPostScript + kTrailer);
        fs::remove(Files(folder_).at(0));
    }
}

}  // namespace
