// SPDX-License-Identifier: Apache-2.0
//
// Whole jobs, as the scheduler runs them.
#include "CommonSource/FilterFrame/Source/JobRun.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#ifdef __linux__
#include <sys/inotify.h>
#endif
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstring>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobCopy.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/FilterProcess.h"
#include "support/GermanLocale.h"
#include "support/Matches.h"
#include "support/Ppd.h"
#include "support/RunFilter.h"
#include "support/TempFolder.h"
#include "support/TicketOption.h"
#include "support/WatermarkJob.h"

namespace {

constexpr char kTrailer[] = "\x1b%-12345X@PJL EOJ\n";
constexpr char kEnterPostScript[] = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";

// What the filter writes to both outputs when it is called with `arguments`, and its wait status.
std::pair<std::string, int> CalledWith(const std::string &arguments) {
    std::FILE *output = popen((KVFILTER_BINARY " " + arguments + " 2>&1").c_str(), "r");
    char text[256] = "";
    text[std::fread(text, 1, sizeof text - 1, output)] = '\0';
    return {text, pclose(output)};
}

TEST(JobRun, TellsItsVersionAndItsUsage) {
    const auto [version, status] = CalledWith("--version");
    EXPECT_TRUE(Matches(version, "kvfilter \\d+\\.\\d+\\.\\d+\n")) << version;
    EXPECT_EQ(status, 0);
    const std::string usage = "Usage: kvfilter job-id user title copies options [file]\n";
    for (const char *arguments : {"", "--versions", "--version 2", "1 alice Report 1"}) {
        EXPECT_EQ(CalledWith(arguments), std::pair(usage, 1 << 8)) << arguments;
    }
}

TEST(JobRun, FramesAnEmptyDocument) {
    FilterJob job;
    job.ppd = PpdWith();
    const FilterResult result = RunFilter(job);
    EXPECT_TRUE(result.output.starts_with("\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"));
    EXPECT_TRUE(result.output.ends_with(std::string(kEnterPostScript) + "\x04" + kTrailer));
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
}

TEST(JobRun, SaysHowItIsCalled) {
    for (int argc = 1; argc < 6; argc++) {
        FilterProcess filter(std::vector<std::string>(static_cast<std::size_t>(argc) - 1, "1"));
        filter.CloseInput();
        EXPECT_EQ(filter.ReadErrorsToEnd(),
                  "Usage: kvfilter job-id user title copies options [file]\n");
        EXPECT_EQ(filter.ReadToEnd(), "");
        EXPECT_EQ(filter.Wait(), 1);
    }
}

// A job ends properly whatever it is given: complete header, document, trailer.
void ExpectCompleteJob(const FilterJob &job, const std::string &document) {
    const FilterResult result = RunFilter(job);
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.output.find("\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"), std::string::npos);
    EXPECT_TRUE(result.output.ends_with(kEnterPostScript + document + kTrailer));
}

TEST(JobRun, SurvivesEveryText) {
    using namespace std::string_literals;
    const std::string texts[] = {"",
                                 " ",
                                 "\"unbalanced",
                                 "'",
                                 "=",
                                 "==",
                                 "%s%n%999999d",
                                 "\x01\x7F\xFF\xFE",
                                 "\xED\xA0\x80",  // a surrogate
                                 std::string(254, 'x'),
                                 std::string(255, 'x'),
                                 std::string(256, 'x'),
                                 std::string(100000, 'x'),
                                 std::string(100000, '=')};
    for (const std::string &text : texts) {
        SCOPED_TRACE(text.substr(0, 20));
        for (std::string FilterJob::*field : {&FilterJob::id, &FilterJob::user, &FilterJob::title,
                                              &FilterJob::copies, &FilterJob::options}) {
            FilterJob job;
            job.ppd = PpdWith();
            job.input = "%!PS\n";
            job.*field = text;
            ExpectCompleteJob(job, "%!PS\n\x04");
        }
    }
}

TEST(JobRun, TakesAMissingPPDForOneWithoutAttributes) {
    const TempFolder folder;
    FilterJob job;
    job.input = "a\n";
    for (const std::string &path :
         {std::string("/nonexistent"), folder.Path().string(), folder.Write("empty", ""),
          folder.Write("binary", std::string("\0\xFF\x01*PPD", 7))}) {
        job.environment = {{"PPD", path}};
        ExpectCompleteJob(job, "a\n\x04");
    }
    job.environment.clear();
    ExpectCompleteJob(job, "a\n\x04");
}

TEST(JobRun, ChoosesThePassByTheExactValue) {
    for (const char *value : {"1 ", "true", "0", "", "11"}) {
        FilterJob job;
        job.ppd = PpdWith("*KVPSDecompMode: \"" + std::string(value) + "\"\n");
        job.input = "a\nb\n";
        ExpectCompleteJob(job, "a\nb\n\x04");
    }
}

TEST(JobRun, IgnoresTheLocale) {
    const GermanLocale german;
    const std::vector<std::pair<std::string, std::string>> environments[] = {
        german.Environment(), {{"LC_ALL", "C.UTF-8"}}, {{"LC_ALL", "nonsense"}}};
    for (const auto &environment : environments) {
        FilterJob job;
        job.ppd = PpdWith();
        job.options = WatermarkJob{.width = "180.5", .horizontalOffset = "1.5"}.Options();
        job.input = "%%BeginProlog\n%%EndProlog\nep\n";
        const FilterResult expected = RunFilter(job);
        job.environment = environment;
        EXPECT_EQ(RunFilter(job).output, expected.output);
    }
}

TEST(JobRun, NamesNoDocumentWhoseTitleBreaksTheLine) {
    FilterJob job;
    job.ppd = PpdWith();
    job.options = TicketOption("PrintTypeTicketKey", "2") +
                  TicketOption("PrintTypeProductTypeTicketKey", "3") +
                  TicketOption("DocumentNameTypeTicketKey", "1") +
                  TicketOption("JBAManageTypeListTicketKey", "2") +
                  TicketOption("JBAUserSettingRadioBtnTicket", "1");
    job.title = "Report";
    const std::string name = "@PJL SET JOBNAME=\"Report\"\r\n";
    const std::string account = "@PJL SET JOBATTR=\"@ACNA=Report\"\r\n";
    std::string expected = RunFilter(job).output;
    for (const std::string &line : {name, account}) {
        ASSERT_NE(expected.find(line), expected.npos) << expected;
        expected.erase(expected.find(line), line.size());
    }
    EXPECT_EQ(expected.find("Report"), expected.npos);
    for (const char *title : {"Report\n", "\rReport", "Rep\r\nort"}) {
        job.title = title;
        EXPECT_EQ(RunFilter(job).output, expected);
    }
}

// A three-page document that arrives slowly, one page when the last is out.
std::string Page(int number) {
    return "page " + std::to_string(number) + "\nep\n";
}

TEST(JobRun, StopsACancelledJobAtTheNextPageEnd) {
    FilterProcess filter({"1", "user", "title", "1", ""});
    filter.Write(Page(1));
    EXPECT_EQ(filter.ReadErrorLine(), "PAGE:1 1\n");
    filter.Signal(SIGTERM);
    filter.Write(Page(2) + Page(3));  // at once: the filter need not read on beyond page 2
    filter.CloseInput();
    const std::string output = filter.ReadToEnd();
    EXPECT_TRUE(output.ends_with(kEnterPostScript + Page(1) + "page 2\n" + kTrailer)) << output;
    EXPECT_EQ(filter.ReadErrorsToEnd(), "");
    EXPECT_EQ(filter.Wait(), 0);
}

TEST(JobRun, PassesOnWhatHasArrivedBeforeItWaitsForMore) {
    FilterProcess filter({"1", "user", "title", "1", ""});
    for (int page = 1; page <= 3; page++) {
        filter.Write(Page(page));
        EXPECT_TRUE(filter.ReadUntil(Page(page)).ends_with(Page(page)));
    }
    filter.CloseInput();
    EXPECT_EQ(filter.ReadToEnd(), std::string("\x04") + kTrailer);
    EXPECT_EQ(filter.Wait(), 0);
}

TEST(JobRun, GoesOnWhenThePrinterHasGoneAndSaysSo) {
    FilterProcess filter({"1", "user", "title", "1", ""});
    filter.CloseOutput();
    for (int page = 1; page <= 3; page++) {
        filter.Write(std::string(20000, 'x') + "\n" + Page(page));
        EXPECT_EQ(filter.ReadErrorLine(), "PAGE:" + std::to_string(page) + " 1\n");
    }
    filter.CloseInput();
    EXPECT_EQ(filter.Wait(), 1);
}

TEST(JobRun, SaysSoEvenIfTheWholeJobFitsABuffer) {
    FilterProcess filter({"1", "user", "title", "1", ""});
    filter.CloseOutput();
    filter.CloseInput();
    EXPECT_EQ(filter.Wait(), 1);
}

TEST(JobRun, HandlersSetTheirFlags) {
    CancelJob = 0;
    CancelJobForPipe = 0;
    SignalHandler(SIGTERM);
    EXPECT_EQ(CancelJob, 1);
    EXPECT_EQ(CancelJobForPipe, 0);
    SignalPipeHandler(SIGPIPE);
    EXPECT_EQ(CancelJobForPipe, 1);
    CancelJob = 0;
    CancelJobForPipe = 0;
}

// Runs RunJob in a child of this process, with `prepare` called first; returns its output.
template <class Prepare>
std::string RunJobInChild(std::vector<std::string> words, Prepare prepare, int *status = nullptr) {
    const TempFolder folder;
    const std::string output = folder.Path() / "output";
    std::fflush(stdout);
    const pid_t child = fork();
    if (child == 0) {
        const int file = open(output.c_str(), O_WRONLY | O_CREAT, 0600);
        dup2(file, STDOUT_FILENO);
        dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
        prepare();
        words.insert(words.begin(), "kvfilter");
        std::vector<char *> argv;
        for (std::string &word : words) argv.push_back(word.data());
        argv.push_back(nullptr);
        _exit(RunJob(static_cast<int>(words.size()), argv.data()));
    }
    int ignored;
    waitpid(child, status ? status : &ignored, 0);
    return folder.Read("output");
}

// Longer than some systems hand to a program, so they are given to the job run itself.
TEST(JobRun, SurvivesOptionStringsOfAMegabyte) {
    const TempFolder folder;
    const std::string document = folder.Write("a.ps", "ep\n");
    const std::string filler(1 << 20, 'x');
    for (const std::string &options :
         {filler, std::string(1 << 20, '='), std::string(1 << 20, '"'), "number-up=" + filler,
          "number-up='" + filler, WatermarkJob{.text = filler}.Options(),
          TicketOption("PrintTypeTicketKey", filler)}) {
        int status = -1;
        const std::string output = RunJobInChild(
            {"1", "user", "title", "1", options, document}, [] {}, &status);
        SCOPED_TRACE(options.substr(0, 20));
        EXPECT_EQ(status, 0);
        EXPECT_TRUE(output.starts_with("\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"));
        EXPECT_NE(output.find(kEnterPostScript), output.npos);
        EXPECT_TRUE(output.ends_with(std::string("ep\n\x04") + kTrailer));
    }
}

TEST(JobRun, KeepsACopyOfTheJobWhenTheMarkerFileExists) {
    if (std::filesystem::is_directory("/private/tmp")) {
        GTEST_SKIP() << "/private/tmp takes the place of $TMPDIR here";
    }
    const TempFolder folder, copies;
    const std::string document =
        folder.Write("a.ps", "%%BeginProlog\nep\n" + std::string(9000, 'x') + "\n");
    const std::string flag = folder.Write("kvjobcopy", "");
    const std::string options = WatermarkJob().Options();
    const std::string output = RunJobInChild({"1", "user", "title", "1", options, document}, [&] {
        setenv("TMPDIR", copies.Path().c_str(), 1);
        FlagPath = flag.c_str();
    });
    ASSERT_TRUE(output.ends_with(kTrailer));
    ASSERT_NE(output.find("(DRAFT) show\n"), output.npos);  // injected PostScript
    std::vector<std::filesystem::path> files;
    for (const auto &entry : std::filesystem::directory_iterator(copies.Path())) {
        files.push_back(entry.path());
    }
    ASSERT_EQ(files.size(), 1U);
    EXPECT_TRUE(Matches(files[0].filename().string(), "kv\\d{14}\\.job"));
    EXPECT_EQ(copies.Read(files[0].filename()), output);
    struct stat status;
    ASSERT_EQ(stat(files[0].c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0676U);
}

TEST(JobRun, RunsWithoutACopyThatCannotBeMade) {
    const TempFolder folder;
    const std::string flag = folder.Write("kvjobcopy", "");
    int status = -1;
    const std::string output = RunJobInChild(
        {"1", "user", "title", "1", "", folder.Write("a.ps", "a\n")},
        [&] {
            setenv("TMPDIR", "/nonexistent", 1);
            FlagPath = flag.c_str();
        },
        &status);
    EXPECT_TRUE(output.ends_with("a\n\x04" + std::string(kTrailer)));
    EXPECT_EQ(status, 0);
}

TEST(JobRun, KeepsNoCopyWithoutTheMarkerFile) {
    EXPECT_STREQ(FlagPath, "/Library/Printers/Korvell/kvjobcopy");
    const TempFolder folder, copies;
    RunJobInChild({"1", "user", "title", "1", "", folder.Write("a.ps", "a\n")}, [&] {
        setenv("TMPDIR", copies.Path().c_str(), 1);
        FlagPath = "/nonexistent";
    });
    EXPECT_TRUE(std::filesystem::is_empty(copies.Path()));
}

#ifdef __linux__
TEST(JobRun, OpensThePPDOnce) {
    for (const char *mode : {"0", "1"}) {
        const TempFolder folder;
        const std::string ppd = folder.Write(
            "queue.ppd", PpdWith("*KVPSDecompMode: \"" + std::string(mode) +
                                 "\"\n*KVPrinterLanguageEncoding: \"UTF-8\"\n*CommentOn: True\n"));
        const int watch = inotify_init1(IN_NONBLOCK);
        inotify_add_watch(watch, ppd.c_str(), IN_OPEN);
        FilterProcess filter({"1", "user", "title", "1",
                              "KVColorMode=Gray KVPBindPosition=BindLeft KVPBindPageSize=A4 "
                              "KVPBindCutPageSize=Letter KVPBindTrimming=3EdgeSpecifySize"},
                             FilterProcess::kPipe, ppd);
        for (int i = 0; i < 100; i++) filter.Write("%%BeginFeature: *KVTonerSaver Mode2\nx\n");
        filter.CloseInput();
        filter.ReadToEnd();
        EXPECT_EQ(filter.Wait(), 0);
        alignas(inotify_event) char events[16 * sizeof(inotify_event)];
        EXPECT_EQ(read(watch, events, sizeof events), static_cast<ssize_t>(sizeof(inotify_event)));
        close(watch);
    }
}
#endif

// Runs a job in this process: what it leaves in the name buffers outlives the run.
void RunHere(const std::string &user, const std::string &title, const std::string &options) {
    std::string words[] = {"kvfilter", "1", user, title, "1", options, "/dev/null"};
    char *argv[8] = {};
    for (int i = 0; i < 7; i++) argv[i] = words[i].data();
    const int saved = dup(STDOUT_FILENO);
    std::fflush(stdout);
    dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
    RunJob(7, argv);
    dup2(saved, STDOUT_FILENO);
    close(saved);
    std::signal(SIGTERM, SIG_DFL);
}

// Whatever the environment says: nothing, no library either, may make a comma of a decimal point.
TEST(JobRun, LeavesTheLocaleAlone) {
    const TempFolder folder;
    CloseJobPPD();
    setenv("PPD", folder.Write("queue.ppd", PpdWith()).c_str(), 1);
    setenv("LC_ALL", "C.UTF-8", 1);
    RunHere("alice", "Report", WatermarkJob().Options());
    ASSERT_NE(JobPPD(), nullptr);
    EXPECT_STREQ(std::setlocale(LC_ALL, nullptr), "C");
    unsetenv("LC_ALL");
    unsetenv("PPD");
    CloseJobPPD();
}

TEST(JobRun, FillsTheNameBuffers) {
    const std::string type = "com.korvell.tav.printsettings.PrintTypeProductTypeTicketKey=3";
    RunHere("alice", "Report", type);
    EXPECT_STREQ(StdUserName, "alice");
    EXPECT_STREQ(StdJBAUserName, "alice");
    EXPECT_STREQ(StdDocumentName, "Report");
    EXPECT_STREQ(PTStdDocumentName, "Report");

    // Nothing of an earlier name is left; a break in the title empties the document's name.
    for (const char *title : {"two\nlines", "two\rlines", "\n"}) {
        RunHere("b", title, type);
        EXPECT_STREQ(StdUserName, "b");
        EXPECT_STREQ(StdJBAUserName, "b");
        EXPECT_STREQ(StdDocumentName, "");
        EXPECT_STREQ(PTStdDocumentName, "");
    }
}

TEST(JobRun, CutsTheAccountingNameTo32BytesBeforeItIsCleaned) {
    for (const std::size_t length : {31U, 32U, 33U, 254U, 255U, 300U}) {
        const std::string name(length, 'u');
        RunHere(name, "t", "");
        EXPECT_EQ(std::string(StdJBAUserName), name.substr(0, 32));
        EXPECT_EQ(std::string(StdUserName), name.substr(0, 254));
    }
    RunHere("caf\xC3\xA9", "t", "");
    EXPECT_STREQ(StdJBAUserName, "caf\xE9");
    EXPECT_STREQ(StdUserName, "UnknownUser");
    RunHere("", "t", "");
    EXPECT_STREQ(StdJBAUserName, "");
    EXPECT_STREQ(StdUserName, "UnknownUser");
}

// The peak resident size in kilobytes of a job with a document of `size` bytes.
long PeakMemory(std::size_t size) {
    FilterProcess filter({"1", "user", "title", "1", ""}, FilterProcess::kDiscardOutput);
    std::string block;
    while (block.size() < 65536) block += "100 200 moveto 300 400 lineto\n";
    for (std::size_t sent = 0; sent < size; sent += block.size()) {
        filter.Write(block.substr(0, std::min(block.size(), size - sent)));
    }
    filter.CloseInput();
    rusage usage;
    EXPECT_EQ(filter.Wait(&usage), 0);
    return usage.ru_maxrss;
}

TEST(JobRun, NeedsTheSameMemoryForEveryDocument) {
    const long small = PeakMemory(1024);
    const long large = PeakMemory(std::size_t{1} << 30);
    EXPECT_LT(std::abs(large - small), 1024);
}

}  // namespace
