// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/DecompositionPass.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <thread>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/CaptureOutput.h"
#include "support/DecompositionJob.h"
#include "support/ExpectedFeatures.h"
#include "support/FeatureLines.h"
#include "support/Injections.h"
#include "support/RandomDocument.h"
#include "support/ReferenceDecomposition.h"

using namespace std::string_literals;

namespace {

constexpr char kMode2[] = "@PJL SET ECONOMODE=MODE2\n";
constexpr char kMode3[] = "@PJL SET ECONOMODE=MODE3\n";

// Runs the real filter and makes sure that it leaves no file behind.
std::string Print(const std::string &document, const std::string &ppdLines = "") {
    const TempFolder folder;
    FilterJob job = DecompositionJob(folder, document);
    job.ppd = DecompositionPpd(ppdLines);
    const FilterResult result = RunFilter(job);
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(Files(folder).empty());
    return result.output;
}

TEST(DecompositionPass, SendsEveryRowOfTheTable) {
    std::string document = "%!PS\n", pjl;
    for (const ExpectedFeature &row : kExpectedFeatures) {
        document += "%%BeginFeature: "s + row.keyword + " " + row.value + "\n[] setpagedevice\n" +
                    "%%EndFeature\n";
        pjl += row.command;
    }
    EXPECT_EQ(Print(document + "\x04"), Framed(pjl, document));
}

TEST(DecompositionPass, SendsTheFirstResolutionOnly) {
    const std::string document =
        "%%BeginFeature: *KVOutputMode 1200x1200\n"
        "%%BeginFeature: *KVTonerSaver Mode2\n"
        "%%BeginFeature: *KVOutputMode 600x600\n"
        "%%BeginFeature: *KVOutputMode Standard\n";
    EXPECT_EQ(Print(document + "\x04"), Framed("@PJL SET RESOLUTION=1200\n"
                                               "@PJL SET BITSPERPIXEL=1\n"
                                               "@PJL SET JOBATTR=\"@DRDM=RASTER\"\n"
                                               "@PJL SET ECONOMODE=MODE2\n"
                                               "@PJL SET BITSPERPIXEL=8\n",
                                               document));
}

TEST(DecompositionPass, SendsScreensToMonochromeDevicesOnly) {
    const std::string document = "%%BeginFeature: *KVHalftone Gradation\n";
    const std::string screens =
        "@PJL SET JOBATTR=\"@TTRC=66\"\n"
        "@PJL SET JOBATTR=\"@GTRC=66\"\n"
        "@PJL SET JOBATTR=\"@ITRC=66\"\n"
        "@PJL SET JOBATTR=\"@TSCR=66\"\n"
        "@PJL SET JOBATTR=\"@GSCR=66\"\n"
        "@PJL SET JOBATTR=\"@ISCR=66\"\n";
    EXPECT_EQ(Print(document + "\x04", "*ColorDevice: False\n"), Framed(screens, document));
    EXPECT_EQ(Print(document + "\x04", "*ColorDevice: True\n"), Framed("", document));
    EXPECT_EQ(Print(document + "\x04", ""), Framed("", document));
}

TEST(DecompositionPass, SendsBothKindsOfSettings) {
    const std::string document =
        "/TTRC 5 /GTRC 12 /ITRC 7 /TSCR 64 /GSCR 64 /ISCR 64\r\n"
        "/TTRC 5 /GTRC 12 /ITRC 7 /TSCR 64 /GSCR 64\n"  // one is missing
        "/TCPR 1 /GCPR 2 /ICPR 30\n"
        "/TCPR 1 /GCPR 2\n";
    EXPECT_EQ(Print(document + "\x04"), Framed("@PJL SET JOBATTR=\"@TTRC=5\"\n"
                                               "@PJL SET JOBATTR=\"@GTRC=12\"\n"
                                               "@PJL SET JOBATTR=\"@ITRC=7\"\n"
                                               "@PJL SET JOBATTR=\"@TSCR=64\"\n"
                                               "@PJL SET JOBATTR=\"@GSCR=64\"\n"
                                               "@PJL SET JOBATTR=\"@ISCR=64\"\n"
                                               "@PJL SET JOBATTR=\"@TCPR=1\"\n"
                                               "@PJL SET JOBATTR=\"@GCPR=2\"\n"
                                               "@PJL SET JOBATTR=\"@ICPR=30\"\n",
                                               document));
}

TEST(DecompositionPass, KeepsTheOrderOfTheDocument) {
    const std::string document =
        "%!PS\nbp\n"
        "%%BeginFeature: *KVTonerSaver Mode3\n"
        "ep\n"
        "/TCPR 1 /GCPR 2 /ICPR 3\n"
        "bp\n"
        "%%BeginFeature: *KVTonerSaver Mode2\r"
        "ep\n";
    const TempFolder folder;
    FilterJob job = DecompositionJob(folder, document + "\x04");
    job.copies = "3";
    const FilterResult result = RunFilter(job);
    EXPECT_EQ(result.output,
              Framed(kMode3 + "@PJL SET JOBATTR=\"@TCPR=1\"\n"s + "@PJL SET JOBATTR=\"@GCPR=2\"\n" +
                         "@PJL SET JOBATTR=\"@ICPR=3\"\n" + kMode2,
                     document));
    EXPECT_EQ(result.errors, "PAGE:1 3\nPAGE:2 3\n");
}

TEST(DecompositionPass, LeavesUnknownFeaturesInTheDocument) {
    const std::string document =
        "%%BeginFeature: *PageSize A4\n"
        "%%BeginFeature: *KVTonerSaver Mode4\n"
        "%%BeginFeature: *KVTonerSaver\n"
        "%%BeginFeature:\n"
        " %%BeginFeature: *KVTonerSaver Mode2\n";
    EXPECT_EQ(Print(document + "\x04"), Framed("", document));
}

TEST(DecompositionPass, FindsAFeatureBehindAFullLineBuffer) {
    const std::string document = std::string(8065, 'x') +
                                 "%%BeginFeature: *KVTonerSaver Mode2\n" +  //
                                 std::string(8064, 'x') + "%%BeginFeature: *KVTonerSaver Mode3\n";
    EXPECT_EQ(Print(document + "\x04"), Framed(kMode2, document));
}

TEST(DecompositionPass, DropsTheLastLineButForItsLineEnd) {
    const struct {
        std::string document, sent;
    } kCases[] = {
        {"a\nlast\n", "a\n\n"},
        {"a\r\nlast\r\n", "a\r\nlast\r\n"},  // a line and an empty line
        {"a\rlast\r", "a\r\r"},
        {"a\nlast\x04", "a\n"},
        {"a\nlast\n\x04", "a\nlast\n"},
        {"a\nlast\n\x04\n", "a\nlast\n\n"},
        {"a\nlast", "a\n"},
        {"a\nlast\xff", "a\n"},
        {"a", ""},
        {"\n", "\n"},
        {"\r", "\r"},
        {"\x04", ""},
        {"\0"s, ""},
        {"", ""},
        {std::string(8065, 'x'), ""},
        {std::string(8066, 'x'), std::string(8065, 'x')},
        {std::string(8065, 'x') + "\n", std::string(8065, 'x') + "\n"},
        {std::string(8064, 'x') + "\n", "\n"},
    };
    for (const auto &[document, sent] : kCases) {
        EXPECT_EQ(Print(document), Framed("", sent)) << testing::PrintToString(document);
    }
}

TEST(DecompositionPass, RecognisesNothingOnTheLastLine) {
    const TempFolder folder;
    const FilterResult result = RunFilter(DecompositionJob(folder, "a\nep\n"));
    EXPECT_EQ(result.output, Framed("", "a\n\n"));
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(Print("%%BeginFeature: *KVTonerSaver Mode2\n"), Framed("", "\n"));
    EXPECT_EQ(Print("%%BeginFeature: *KVTonerSaver Mode2\r\n"),
              Framed(kMode2, "%%BeginFeature: *KVTonerSaver Mode2\r\n"));
}

TEST(DecompositionPass, ReadsTheFileOnlyAsSeventhArgument) {
    const TempFolder folder;
    const TempFolder documents;
    FilterJob job = DecompositionJob(folder, "standard input\n\x04");
    EXPECT_EQ(RunFilter(job).output, Framed("", "standard input\n"));
    job.more = {documents.Write("job.ps", "the file\n\x04")};
    EXPECT_EQ(RunFilter(job).output, Framed("", "the file\n"));
    job.more.push_back("a further argument");
    EXPECT_EQ(RunFilter(job).output, Framed("", "standard input\n"));
    job.more = {documents.Path().string()};  // a directory opens and has nothing to read
    EXPECT_EQ(RunFilter(job).output, Framed("", ""));
    EXPECT_TRUE(Files(folder).empty());
}

TEST(DecompositionPass, WritesNothingForAFileThatCannotBeOpened) {
    const TempFolder folder;
    FilterJob job = DecompositionJob(folder, "standard input\n");
    job.more = {"/nonexistent/job.ps"};
    const FilterResult result = RunFilter(job);
    EXPECT_TRUE(result.output.starts_with("\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"));
    EXPECT_EQ(result.output.find(kEnterPostScript), std::string::npos);
    EXPECT_TRUE(result.output.ends_with(std::string("\n") + kTrailer));
    EXPECT_EQ(result.errors, "");
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(Files(folder).empty());
}

// Writes `document` to `pipe` in pieces of `sizes` bytes, taken over and over, up to the end or
// until nobody reads on.
void Feed(int pipe, const std::string &document, const std::vector<std::size_t> &sizes) {
    std::string_view rest = document;
    for (std::size_t i = 0; !rest.empty(); i++) {
        const std::size_t size = std::min(sizes[i % sizes.size()], rest.size());
        const ssize_t count = write(pipe, rest.data(), size);
        if (count < 0) break;
        rest.remove_prefix(static_cast<std::size_t>(count));
    }
    close(pipe);
}

// The pass and its reference over one document, in this process. The document comes through a pipe
// in pieces of `sizes`.
class ReferenceTest : public testing::Test {
  protected:
    void SetUp() override {
        if (std::filesystem::is_directory("/private/tmp")) GTEST_SKIP() << "uses /private/tmp";
        setenv("TMPDIR", folder_.Path().c_str(), 1);
        setenv("PPD", ppdFolder_.Write("queue.ppd", DecompositionPpd()).c_str(), 1);
        InializeDescriptionTable();
        standardInput_ = dup(STDIN_FILENO);
        std::signal(SIGPIPE, SIG_IGN);  // a cancelled job does not read all
    }
    void TearDown() override {
        close(standardInput_);
        unsetenv("TMPDIR");
        unsetenv("PPD");
        CloseJobPPD();
        CancelJob = 0;
    }

    void Compare(const std::string &document, const std::vector<std::size_t> &sizes,
                 const std::string &options = "") {
        std::string words[] = {"kvfilter", "1", "user", "title", "2", options};
        char *argv[7] = {};
        for (int i = 0; i < 6; i++) argv[i] = words[i].data();
        GetTicketFromPDE(argv);

        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        dup2(ends[0], STDIN_FILENO);
        close(ends[0]);
        std::thread feeder(Feed, ends[1], std::cref(document), std::cref(sizes));
        testing::internal::CaptureStderr();
        const std::string output =
            CaptureOutput([&] { OutputPSStreamtoFileandInsertPJLforFeaturePDE(6, argv); });
        const std::string log = testing::internal::GetCapturedStderr();
        dup2(standardInput_, STDIN_FILENO);
        feeder.join();

        std::string stored;
        testing::internal::CaptureStderr();
        const std::string expected = CaptureOutput([&] {
            std::FILE *input = fmemopen(const_cast<char *>(document.data()), document.size(), "rb");
            stored = ReferenceDecomposition(input, stdout, argv, true);
            std::fclose(input);
        });
        EXPECT_TRUE(output == expected) << "the passes differ";
        EXPECT_EQ(log, testing::internal::GetCapturedStderr());

        const bool cancelled = expected.find(kEnterPostScript) == expected.npos;
        const auto files = Files(folder_);
        ASSERT_EQ(files.size(), cancelled ? 1U : 0U);
        if (!cancelled) return;
        EXPECT_TRUE(folder_.Read(files[0].filename()) == stored) << "the files differ";
        std::filesystem::remove(files[0]);
    }

  private:
    const TempFolder folder_;
    const TempFolder ppdFolder_;
    int standardInput_ = -1;
};

TEST_F(ReferenceTest, RandomDocuments) {
    for (unsigned seed = 0; seed < 100; seed++) {
        SCOPED_TRACE(seed);
        const Arrival &arrival = RandomArrival(seed);
        RandomDocument random(seed, FeatureLines());
        std::string document = random.Make(arrival.lines);
        if (seed % 3 == 0) document += "\n\x04";
        Compare(document, arrival.sizes, seed % 2 ? kInjecting : "");
    }
}

TEST_F(ReferenceTest, LinesAsLongAsTheLineBuffer) {
    for (const std::size_t length : {8064U, 8065U, 8066U, 8192U, 20000U}) {
        for (const std::string lineEnd : {"\n", "\r", "\r\n"}) {
            for (const std::string &line : FeatureLines()) {
                const std::string filler(length, 'p');
                Compare(
                    filler + line + lineEnd + line + lineEnd + "ep" + lineEnd + filler + lineEnd,
                    {10000, 1}, kInjecting);
            }
        }
    }
}

TEST_F(ReferenceTest, CancelledDocuments) {
    CancelJob = 1;
    for (unsigned seed = 0; seed < 40; seed++) {
        SCOPED_TRACE(seed);
        RandomDocument random(seed, FeatureLines());
        Compare(random.Make(5), RandomArrival(seed).sizes, kInjecting);
    }
    for (const std::string end : {"ep", "endp", "showpage"}) {
        Compare("a\n" + end + "\nb\n", {100}, kInjecting);
        Compare("a\n" + end + "\n", {100});  // the last line does not count
    }
}

}  // namespace
