// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PostScriptPass.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/CaptureOutput.h"
#include "support/Injections.h"
#include "support/Ppd.h"
#include "support/RandomDocument.h"
#include "support/ReferencePass.h"
#include "support/RunFilter.h"
#include "support/TempFolder.h"

namespace {

int OpenDescriptors() {
    int count = 0;
    for (int file = 0; file < 1000; file++) count += fcntl(file, F_GETFD) >= 0;
    return count;
}

// Both passes over one document, in this process.
void ComparePasses(const std::string &document, const std::string &options) {
    const TempFolder folder;
    std::string words[] = {
        "kvfilter", "1", "user", "title", "2", options, folder.Write("document.ps", document)};
    char *argv[8] = {};
    for (int i = 0; i < 7; i++) argv[i] = words[i].data();
    GetTicketFromPDE(argv);

    const int open = OpenDescriptors();
    testing::internal::CaptureStderr();
    const std::string output = CaptureOutput([&] { OutputPSStream(7, argv); });
    const std::string log = testing::internal::GetCapturedStderr();
    EXPECT_EQ(OpenDescriptors(), open) << "a file stays open";

    testing::internal::CaptureStderr();
    const std::string expected = CaptureOutput([&] {
        std::FILE *input = std::fopen(argv[6], "rb");
        ReferencePSStream(input, stdout, argv);
        std::fclose(input);
    });
    EXPECT_TRUE(output == expected) << "the passes differ";
    EXPECT_EQ(log, testing::internal::GetCapturedStderr());
}

TEST(PostScriptPass, PutsOutWhatTheDescriptionDoes) {
    InializeDescriptionTable();
    for (unsigned seed = 0; seed < 100; seed++) {
        SCOPED_TRACE(seed);
        RandomDocument random(seed);
        ComparePasses(random.Make(60), seed % 2 ? kInjecting : "");
    }
}

TEST(PostScriptPass, PutsOutWhatTheDescriptionDoesWhenCancelled) {
    InializeDescriptionTable();
    CancelJob = 1;
    for (unsigned seed = 0; seed < 20; seed++) {
        RandomDocument random(seed);
        ComparePasses(random.Make(5), kInjecting);
    }
    ComparePasses("a\nep\nb\n", "");
    ComparePasses("a\nendp\nb\n", kInjecting);
    ComparePasses("a\nshowpage\nb\n", kInjecting);
    CancelJob = 0;
}

// The document part of the job that the real filter makes of `document`.
std::string DocumentPart(const FilterResult &result) {
    constexpr std::string_view kStart = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";
    constexpr std::string_view kTrailer = "\x1b%-12345X@PJL EOJ\n";
    const std::size_t start = result.output.find(kStart);
    EXPECT_NE(start, std::string::npos);
    EXPECT_TRUE(result.output.ends_with(kTrailer));
    return result.output.substr(start + kStart.size(),
                                result.output.size() - start - kStart.size() - kTrailer.size());
}

FilterResult Print(const std::string &document, const std::string &options = "") {
    FilterJob job;
    job.ppd = PpdWith();
    job.input = document;
    job.options = options;
    job.copies = "3";
    return RunFilter(job);
}

// Documents that arrive in large pieces, which the filter passes on within the kernel.
TEST(PostScriptPass, PassesLargeDocumentsOnAsTheDescriptionDoes) {
    InializeDescriptionTable();
    const TempFolder folder;
    for (unsigned seed = 0; seed < 12; seed++) {
        SCOPED_TRACE(seed);
        RandomDocument random(seed);
        FilterJob job;
        job.ppd = PpdWith();
        job.options = seed % 2 ? kInjecting : "";
        std::string document;
        while (document.size() < 1500000) {
            document += random.Make(40);
            document.append(random.Below(300000), 'p');  // unlike the rest, long without a line
        }
        const std::string path = folder.Write("document.ps", document);

        std::string words[] = {"kvfilter", job.id, job.user, job.title, job.copies, job.options};
        char *argv[7] = {};
        for (int i = 0; i < 6; i++) argv[i] = words[i].data();
        GetTicketFromPDE(argv);
        testing::internal::CaptureStderr();
        const std::string expected = CaptureOutput([&] {
            std::FILE *input = std::fopen(path.c_str(), "rb");
            ReferencePSStream(input, stdout, argv);
            std::fclose(input);
        });
        const std::string log = testing::internal::GetCapturedStderr();

        job.input = document;
        const FilterResult piped = RunFilter(job);
        EXPECT_TRUE(DocumentPart(piped) == expected);
        EXPECT_EQ(piped.errors, log);
        job.more = {path};
        const FilterResult fromFile = RunFilter(job);
        EXPECT_TRUE(DocumentPart(fromFile) == expected);
        EXPECT_EQ(fromFile.errors, log);
    }
}

TEST(PostScriptPass, EndsWithCtrlDAndLogsPagesThatEndWithEp) {
    const FilterResult result = Print("%!PS\nbp\nep\nbp\nep\n");
    EXPECT_EQ(DocumentPart(result), "%!PS\nbp\nep\nbp\nep\n\x04");
    EXPECT_EQ(result.errors, "PAGE:1 3\nPAGE:2 3\n");
}

TEST(PostScriptPass, CountsButDoesNotLogPagesThatEndWithEndp) {
    const FilterResult result = Print("ep\nendp\nep\n");
    EXPECT_EQ(result.errors, "PAGE:1 3\nPAGE:3 3\n");
}

TEST(PostScriptPass, LogsNothingForShowpage) {
    const FilterResult result = Print("showpage\nshowpage\n");
    EXPECT_EQ(DocumentPart(result), "showpage\nshowpage\n\x04");
    EXPECT_EQ(result.errors, "");
}

TEST(PostScriptPass, KeepsLineEndsAndDropsAFinalLineWithoutOne) {
    EXPECT_EQ(DocumentPart(Print("a\r\nb\rc\n\n\rlast")), "a\r\nb\rc\n\n\r\x04");
    EXPECT_EQ(DocumentPart(Print("")), "\x04");
    EXPECT_EQ(DocumentPart(Print("ep")), "\x04");
}

TEST(PostScriptPass, WritesALineOf9000BytesWhole) {
    const std::string line = std::string(9000, 'x') + "\n";
    EXPECT_EQ(DocumentPart(Print(line)), line + "\x04");
    // Without a line end only what filled the line buffer goes out.
    EXPECT_EQ(DocumentPart(Print(std::string(9000, 'x'))), std::string(8065, 'x') + "\x04");
}

TEST(PostScriptPass, ReadsTheFileArgument) {
    const TempFolder folder;
    FilterJob job;
    job.ppd = PpdWith();
    job.input = "standard input\n";
    job.more = {folder.Write("job.ps", "the file\n")};
    EXPECT_EQ(DocumentPart(RunFilter(job)), "the file\n\x04");
    job.more.push_back("a further argument");
    EXPECT_EQ(DocumentPart(RunFilter(job)), "the file\n\x04");
    job.more = {folder.Path().string()};  // a directory opens and has nothing to read
    EXPECT_EQ(DocumentPart(RunFilter(job)), "\x04");
}

TEST(PostScriptPass, WritesOnlyHeaderAndTrailerForAFileThatCannotBeOpened) {
    FilterJob job;
    job.ppd = PpdWith();
    job.input = "standard input\n";
    job.more = {"/nonexistent/job.ps"};
    const FilterResult result = RunFilter(job);
    EXPECT_EQ(DocumentPart(result), "");
    EXPECT_EQ(result.status, 0);
}

}  // namespace
