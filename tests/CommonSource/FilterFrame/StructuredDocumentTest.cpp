// SPDX-License-Identifier: Apache-2.0
//
// Jobs of the real filter with documents of any maker, where plain CUPS stands in front of it.
#include <gtest/gtest.h>

#include <csignal>
#include <sstream>
#include <string>

#include "support/DecompositionJob.h"
#include "support/FilterProcess.h"
#include "support/Ghostscript.h"
#include "support/Injections.h"
#include "support/Messages.h"
#include "support/TempFolder.h"
#include "support/TicketOption.h"

namespace {

constexpr char kCUPS[] = "*KVFrontEnd: \"CUPS\"\n";
constexpr char kDecomposition[] = "*KVPSDecompMode: \"1\"\n";

class StructuredDocument : public testing::TestWithParam<const char *> {
  protected:
    FilterResult Run(const std::string &document, const std::string &options = "") {
        FilterJob job;
        job.ppd = PpdWith(std::string(kCUPS) + GetParam());
        job.options = options;
        job.copies = "5";  // which are not made by argv[4]
        job.input = document;
        job.environment = {{"TMPDIR", folder_.Path().string()}};
        FilterResult result = RunFilter(job);
        result.errors = SteadyMessages(result.errors);
        EXPECT_TRUE(Files(folder_).empty());
        return result;
    }

    TempFolder folder_;
};

INSTANTIATE_TEST_SUITE_P(Passes, StructuredDocument, testing::Values("", kDecomposition),
                         [](const auto &mode) {
                             return std::string(*mode.param ? "Decomposition" : "Plain");
                         });

constexpr char kTwoPages[] =
    "%!PS-Adobe-3.0\n"
    "%%Pages: 2\n"
    "%%EndComments\n"
    "%%BeginProlog\n"
    "%%EndProlog\n"
    "%%BeginSetup\n"
    "%%EndSetup\n"
    "%%Page: 1 1\n"
    "%%BeginPageSetup\n"
    "%%EndPageSetup\n"
    "showpage\n"
    "%%Page: 2 2\n"
    "showpage\n"
    "%%Trailer\n"
    "%%EOF\n";

TEST_P(StructuredDocument, TellsEachOfManyPages) {
    std::string document = "%!PS-Adobe-3.0\n%%EndComments\n", told;
    for (int page = 1; page <= 20000; page++) {
        document += "%%Page: 1 1\nshowpage\n";
        told += "PAGE: " + std::to_string(page) + " 1\n";
    }
    const FilterResult result = Run(document);
    EXPECT_NE(result.output.find(document + "\x04"), result.output.npos);
    std::istringstream lines(result.errors);
    std::string line, pages;
    while (std::getline(lines, line)) {
        if (line.starts_with("PAGE:")) pages += line + "\n";
    }
    EXPECT_TRUE(pages == told) << pages.size() << " bytes of " << told.size();
}

// Without a ticket, the document comes out as it came in, with one Ctrl-D, on a line of its own.
TEST_P(StructuredDocument, IsPassedOnToTheByte) {
    const std::string binary = "%%BeginBinary: 8\n\n%%Page:\n%%EndBinary\n";
    for (const std::string &document :
         {std::string(kTwoPages), std::string("%!PS\nshowpage\n"), kTwoPages + binary + "\r\n\r",
          "%!PS-Adobe-3.0\r" + binary + "\r\r", std::string(kEveryInjectionLine)}) {
        const FilterResult result = Run(document);
        EXPECT_EQ(DocumentOf(result.output), document + "\x04");
        EXPECT_EQ(result.status, 0);
    }
    EXPECT_EQ(DocumentOf(Run("%!PS\nshowpage").output), "%!PS\nshowpage\n\x04");
    EXPECT_EQ(DocumentOf(Run("%!PS\nshowpage\n\x04").output), "%!PS\nshowpage\n\x04");
    EXPECT_EQ(DocumentOf(Run("%!PS").output), "%!PS\n\x04");
    EXPECT_EQ(DocumentOf(Run("%!PS-Adobe-3.0\n%%EndComments").output),
              "%!PS-Adobe-3.0\n%%EndComments\n\x04");
    EXPECT_EQ(DocumentOf(Run("").output), "\x04");
}

TEST_P(StructuredDocument, LogsEachPageOnceWithTheCopiesOfTheDocument) {
    EXPECT_EQ(Run(kTwoPages).errors, "PAGE: 1 1\nPAGE: 2 1\n");
    EXPECT_EQ(Run("%!PS-Adobe-3.0\n%%Requirements: numcopies(3)\n%%Page: 1 1\nep\n%%Page: 2 2\nep\n"
                  "%%Trailer\n%%EOF\n")
                  .errors,
              "PAGE: 1 3\nPAGE: 2 3\n");
    EXPECT_EQ(Run("%!PS\nshowpage\nshowpage\n").errors, "PAGE: 1 1\n");
    EXPECT_EQ(Run("%!PS\nep\nep\n").errors, "PAGE: 1 1\nPAGE: 2 1\n");
    EXPECT_EQ(Run("%!PS-Adobe-3.0\n").errors, "");
    EXPECT_EQ(Run("").errors, "");
}

constexpr char kFeatures[] =
    "com.korvell.tav.printsettings.SeparatorPageListTicket=2 "
    "com.korvell.tav.printsettings.BookletMarginSwitchTicket=1";

const std::string kSeparator =
    "[{\n%%BeginNonPPDFeatures\n1 dict dup/SeparatorPages[]put/Custom/ProcSet findresource/"
    "setcoverseparator get exec\n%%EndNonPPDFeatures\n} stopped cleartomark\n";
const std::string kShift =
    "[{\n%%BeginNonPPDFeatures\n.000/Custom/ProcSet findresource/setsignatureimageshift get "
    "exec\n%%EndNonPPDFeatures\n} stopped cleartomark\n";
constexpr char kTwoUp[] =
    " com.apple.print.PrintSettings.PMLayoutRows..n.=1 "
    "com.apple.print.PrintSettings.PMLayoutColumns..n.=2";

// Puts `text` in front of the first `line` of `document`.
std::string Before(std::string document, const std::string &line, const std::string &text) {
    return document.insert(document.find("\n" + line) + 1, text);
}

TEST_P(StructuredDocument, HasTheFeaturesAtTheirLines) {
    EXPECT_EQ(
        DocumentOf(Run(kTwoPages, kFeatures).output),
        Before(Before(kTwoPages, "%%EndProlog\n", kSeparator), "%%EndSetup\n", kShift) + "\x04");
}

TEST_P(StructuredDocument, HasTheFeaturesOnceWhereTheirLinesAreMissing) {
    const std::string pages = "%%Page: 1 1\nshowpage\n%%Page: 2 2\nshowpage\n%%Trailer\n";
    const std::string structured = "%!PS-Adobe-3.0\n%%EndComments\n/a 1 def\n";
    EXPECT_EQ(DocumentOf(Run(structured + pages, kFeatures).output),
              structured + kSeparator + kShift + pages + "\x04");
    EXPECT_EQ(DocumentOf(Run("%!PS\nshowpage\n", kFeatures).output),
              "%!PS\n" + kSeparator + kShift + "showpage\n\x04");
    EXPECT_EQ(DocumentOf(Run("showpage\nshowpage\n", kFeatures).output),
              kSeparator + kShift + "showpage\nshowpage\n\x04");
    // The end of the input's setup, which has no beginning, stands before that of pstops.
    const std::string added = "%%EndProlog\n%%EndSetup\n%%BeginProlog\n%%EndProlog\n%%BeginSetup\n";
    EXPECT_EQ(DocumentOf(Run(structured + added + "%%EndSetup\n" + pages, kFeatures).output),
              structured + kSeparator + added + kShift + "%%EndSetup\n" + pages + "\x04");
}

// Several pages on a sheet have both features where setpagedevice is disabled; a document that was
// imposed before it became PostScript lacks that line.
TEST_P(StructuredDocument, HasTheFeaturesOfSeveralPagesOnASheetOnce) {
    const std::string options = std::string(kFeatures) + kTwoUp;
    const std::string line = "userdict/setpagedevice{pop}bind put\n";
    const std::string disabling = Before(kTwoPages, "%%EndSetup\n", line);
    EXPECT_EQ(DocumentOf(Run(disabling, options).output),
              Before(disabling, line, kSeparator + kShift) + "\x04");
    EXPECT_EQ(DocumentOf(Run(kTwoPages, options).output),
              Before(kTwoPages, "%%EndSetup\n", kSeparator + kShift) + "\x04");
}

TEST_P(StructuredDocument, PutsNothingIntoDocumentsWithinIt) {
    const std::string picture =
        "%%BeginDocument: a.eps\n%!PS-Adobe-3.0 EPSF-3.0\n%%EndComments\n%%BeginProlog\n"
        "%%EndProlog\n%%BeginSetup\nuserdict/setpagedevice{pop}bind put\n%%EndSetup\n%%Page: 1 1\n"
        "ep\n%%Trailer\n%%EOF\n%%EndDocument\n";
    const std::string document = "%!PS-Adobe-3.0\n" + picture + "%%Page: 1 1\n" + picture;
    const FilterResult result = Run(document, std::string(kInjecting));
    const std::string printed = DocumentOf(result.output);
    EXPECT_EQ(result.errors, "PAGE: 1 1\n");
    const std::size_t first = printed.find("\n%%EndDocument\n");
    EXPECT_EQ(printed.substr(0, first), document.substr(0, first));
    EXPECT_TRUE(printed.ends_with("%%Page: 1 1\n" + picture + "\x04"));
    EXPECT_GT(printed.size(), document.size() + 400);
}

// The page ends at which the print system's pages are stamped are left alone: EndPage does it.
TEST_P(StructuredDocument, HasTheWatermarkBeforeItsFirstLineOfCode) {
    const std::string printed = DocumentOf(Run(kEveryInjectionLine, kInjecting).output);
    EXPECT_EQ(printed.find("kvxbp"), printed.npos);
    EXPECT_EQ(printed.find("pgsave"), printed.npos);
    const std::size_t stamp = printed.find("/EndPage[");
    EXPECT_LT(stamp, printed.find("%%BeginProlog"));
    EXPECT_EQ(printed.find("/EndPage[", stamp + 1), printed.npos);

    const std::string twoPages = DocumentOf(Run(kTwoPages, kInjecting).output);
    EXPECT_TRUE(twoPages.starts_with("%!PS-Adobe-3.0\n%%Pages: 2\n%%EndComments\n4 dict begin\n"));
    for (const char *line : {"userdict/setpagedevice{pop}bind put\n", "%%BeginSetup\n",
                             "%%Page: 1 1\n", "%%EndProlog\n", "%%BeginProlog\n"}) {
        const std::string other =
            DocumentOf(Run("%!PS-Adobe-3.0\n/a 1 def\n" + std::string(line), kInjecting).output);
        EXPECT_TRUE(other.starts_with("%!PS-Adobe-3.0\n/a 1 def\n4 dict begin\n")) << line;
    }
    EXPECT_TRUE(
        DocumentOf(Run("%!PS\nshowpage\n", kInjecting).output).starts_with("%!PS\n4 dict begin\n"));
}

const std::string kHeader =
    "\x1b%-12345X@PJL JOB\r\n@PJL SET COPIES=2\r\n@PJL ENTER LANGUAGE=POSTSCRIPT\r\n";

TEST_P(StructuredDocument, LosesThePJLThatItBringsAlong) {
    const std::string warning = "WARNING: The PJL that the document brought along was left out.\n";
    const FilterResult both = Run(kHeader + kTwoPages + "\x04\x1b%-12345X@PJL EOJ\n\x1b%-12345X");
    EXPECT_EQ(DocumentOf(both.output), std::string(kTwoPages) + "\x04");
    EXPECT_NE(both.errors.find(warning), both.errors.npos) << both.errors;
    EXPECT_NE(both.errors.find("PAGE: 2 1\n"), both.errors.npos);
    EXPECT_EQ(both.status, 0);

    // As pstops leaves it in a document without structure.
    const std::string wrapped = "%!PS-Adobe-3.0\n%%Page: 1 1\n%%BeginDocument: nondsc\n%!PS\n";
    const FilterResult end =
        Run(wrapped + "showpage\n\x04\x1b%-12345X@PJL EOJ\n\x1b%-12345X%%EndDocument\n%%EOF\n");
    EXPECT_EQ(DocumentOf(end.output), wrapped + "showpage\n%%EndDocument\n%%EOF\n\x04");
    EXPECT_TRUE(end.errors == warning + "PAGE: 1 1\n" || end.errors == "PAGE: 1 1\n" + warning);

    // Even in a comment.
    const FilterResult comments =
        Run("%!PS-Adobe-3.0\n%%Title: a\x1b%-12345X@PJL SET COPIES=2\n%%EndComments\n"
            "%%Page: 1 1\x1b%-12345X@PJL EOJ\n@PJL\r\nshowpage\n%%EOF\n");
    EXPECT_EQ(DocumentOf(comments.output),
              "%!PS-Adobe-3.0\n%%Title: a\n%%EndComments\n%%Page: 1 1\nshowpage\n%%EOF\n\x04");
    EXPECT_NE(comments.errors.find("PAGE: 1 1\n"), comments.errors.npos) << comments.errors;

    const FilterResult unstructured = Run("\x1b%-12345X%!PS\nshowpage\n");
    EXPECT_EQ(DocumentOf(unstructured.output), "%!PS\nshowpage\n\x04");
    EXPECT_NE(unstructured.errors.find("PAGE: 1 1\n"), both.errors.npos) << unstructured.errors;
}

// Long enough to be passed on from pipe to pipe, where what is left out must be taken out.
TEST_P(StructuredDocument, LosesThePJLBetweenLongPages) {
    std::string page = "%%Page: 1 1\n";
    while (page.size() < 700000) page += "0 0 moveto 100 100 lineto stroke % -12345X\n";
    const std::string pages = "%!PS-Adobe-3.0\n%%EndComments\n" + page;
    const FilterResult result = Run(kHeader + pages + "\x04\x1b%-12345X@PJL EOJ\n" + kHeader +
                                        "%!PS-Adobe-3.0\n" + page + "%%EOF\n\x04\x1b%-12345X",
                                    kFeatures);
    const std::string expected = "%!PS-Adobe-3.0\n%%EndComments\n" + kSeparator + kShift + page +
                                 "%!PS-Adobe-3.0\n" + page + "%%EOF\n\x04";
    EXPECT_TRUE(DocumentOf(result.output) == expected);
    EXPECT_NE(result.errors.find("PAGE: 2 1\n"), result.errors.npos) << result.errors;
}

TEST_P(StructuredDocument, IsAnErrorIfItHoldsNothingButPJL) {
    const FilterResult result = Run(kHeader + "text\n");
    EXPECT_EQ(DocumentOf(result.output), "\x04");
    EXPECT_NE(result.errors.find("ERROR: The document holds PJL, but no PostScript.\n"),
              result.errors.npos);
    EXPECT_EQ(result.status, 1);
}

// A cancelled job ends in front of the next page, or of the line that would print this one.
TEST(StructuredDocumentCancelled, EndsAtAPageEnd) {
    for (const std::string next : {"%%Page: 3 3\n", "ep\n", "showpage\n", "%%Trailer\n"}) {
        const TempFolder folder;
        FilterProcess filter({"1", "user", "title", "1", ""}, FilterProcess::kPipe,
                             folder.Write("queue.ppd", PpdWith(kCUPS)));
        const std::string pages = "%!PS-Adobe-3.0\n%%Page: 1 1\n%%Page: 2 2\n% last line\n";
        filter.Write(pages);
        const std::string output = filter.ReadUntil("% last line\n");
        filter.Signal(SIGTERM);
        filter.Write(next + "more\n%%Page: 9 9\nmore\n");
        filter.CloseInput();
        EXPECT_EQ(filter.ReadToEnd(), kTrailer) << next;
        const bool pageIsWhole = next.starts_with("%%");
        EXPECT_EQ(SteadyMessages(filter.ReadErrorsToEnd()),
                  pageIsWhole ? "PAGE: 1 1\nPAGE: 2 1\n" : "PAGE: 1 1\n");
        EXPECT_EQ(filter.Wait(), 0);
    }
}

// So does one whose next page stands behind PJL.
TEST(StructuredDocumentCancelled, EndsInFrontOfAnotherDocument) {
    const TempFolder folder;
    FilterProcess filter({"1", "user", "title", "1", ""}, FilterProcess::kPipe,
                         folder.Write("queue.ppd", PpdWith(kCUPS)));
    filter.Write("%!PS-Adobe-3.0\n%%Page: 1 1\n% last line\n");
    const std::string output = filter.ReadUntil("% last line\n");
    filter.Signal(SIGTERM);
    filter.Write(kHeader + "%%Page: 1 1\nmore\n");
    filter.CloseInput();
    EXPECT_EQ(filter.ReadToEnd(), kTrailer);
    EXPECT_NE(filter.ReadErrorsToEnd().find("PAGE: 1 1\n"), std::string::npos);
    EXPECT_EQ(filter.Wait(), 0);
}

// Without the switch none of this holds.
TEST(StructuredDocumentOff, LeavesJobsAsTheyAre) {
    FilterJob job;
    job.ppd = PpdWith();
    job.input = kHeader + kTwoPages + "last";
    const FilterResult result = RunFilter(job);
    EXPECT_EQ(DocumentOf(result.output.substr(result.output.find("POSTSCRIPT\n"))), "");
    EXPECT_TRUE(result.output.ends_with(kHeader + kTwoPages + "\x04" + kTrailer));
    EXPECT_EQ(result.errors, "");
}

}  // namespace
