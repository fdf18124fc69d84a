// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/DocumentStructure.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

// Takes in a document line by line, each a run of its own; returns the lines before which a page
// has ended, "" for the end, and "ep" after that line.
std::vector<std::string> PageEnds(DocumentStructure &structure, const std::string &document) {
    std::vector<std::string> ends;
    std::istringstream lines(document);
    std::string line;
    for (bool first = true; std::getline(lines, line); first = false) {
        if (first) structure.TakeFirstLine(line + "\n");
        const Comment comment = FindComment(line);
        if (comment != Comment::kNone) {
            if (structure.TakeComment(comment, line + "\n")) ends.push_back(line);
        } else if (line == "ep") {
            if (structure.TakePageEndLine()) ends.push_back(line);
        } else {
            structure.TakeText(line + "\n");
        }
    }
    if (structure.TakeEnd()) ends.push_back("");
    return ends;
}

std::vector<std::string> PageEnds(const std::string &document) {
    DocumentStructure structure;
    return PageEnds(structure, document);
}

using Lines = std::vector<std::string>;

TEST(DocumentComments, AreFoundByTheirBeginning) {
    for (const DocumentComment &row : documentComments) {
        EXPECT_EQ(FindComment(row.text), row.comment);
        EXPECT_EQ(FindComment(std::string(row.text) + " (a) 1"), row.comment);
        EXPECT_EQ(FindComment(" " + std::string(row.text)), Comment::kNone);
        EXPECT_EQ(FindComment(row.text.substr(0, row.text.size() - 1)), Comment::kNone);
    }
    // "%%Page:" and "%%Pages:" begin alike, and so does what is neither.
    EXPECT_EQ(FindComment("%%Pages: 3"), Comment::kPages);
    EXPECT_EQ(FindComment("%%PageTrailer"), Comment::kNone);
    EXPECT_EQ(FindComment("%%PageBoundingBox: 0 0 1 1"), Comment::kNone);
}

TEST(DocumentStructure, EndsAPageWhereTheNextOrTheTrailerBegins) {
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0\n%%Page: 1 1\nshowpage\n%%Page: 2 2\n%%Trailer\n%%EOF\n"),
              (Lines{"%%Page: 2 2", "%%Trailer"}));
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0\n%%Page: 1 1\n%%EOF\n"), Lines{"%%EOF"});
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0\n%%Page: 1 1\nshowpage\n"), Lines{""});
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0\n%%Trailer\n%%EOF\n"), Lines{});
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0\n%%Page: 1 1\n%%Trailer\n%%Page: 2 2\n%%EOF\n"),
              (Lines{"%%Trailer", "%%EOF"}));
}

TEST(DocumentStructure, CountsAPageOfThePrintSystemOnce) {
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0\n%%Page: 1 1\nep\n%%Page: 2 2\nep\n%%Trailer\n"),
              (Lines{"%%Page: 2 2", "%%Trailer"}));
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0\n%%Page: (1) 1\nep\nep\n%%Trailer\n"), Lines{"%%Trailer"});
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0\nep\nep\n%%Trailer\n"), (Lines{"ep", "ep"}));
    EXPECT_EQ(PageEnds("%!PS\nep\nep\n"), (Lines{"ep", "ep"}));
}

TEST(DocumentStructure, TakesAnUnstructuredDocumentForOnePage) {
    EXPECT_EQ(PageEnds("%!PS\nshowpage\nshowpage\n"), Lines{""});
    EXPECT_EQ(PageEnds("%!\n%%Page: 1 1\nshowpage\n%%Page: 2 2\n"), (Lines{"%%Page: 2 2", ""}));
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0 EPSF-3.0\nshowpage\n"), Lines{});
}

TEST(DocumentStructure, PassesDocumentsWithinTheDocumentBy) {
    const std::string picture =
        "%%BeginDocument: a.eps\n%!PS-Adobe-3.0 EPSF-3.0\n%%Pages: 7\n%%Requirements: "
        "numcopies(9)\n"
        "%%Page: 1 1\nep\n%%BeginDocument: b\n%%Page: 1 1\n%%EndDocument\n%%Trailer\n%%EOF\n"
        "%%EndDocument\n";
    DocumentStructure structure;
    EXPECT_EQ(PageEnds(structure, "%!PS-Adobe-3.0\n%%Pages: 2\n%%Page: 1 1\n" + picture +
                                      "%%Page: 2 2\n" + picture + "%%EndDocument\n%%Trailer\n"),
              (Lines{"%%Page: 2 2", "%%Trailer"}));
    EXPECT_EQ(structure.PagesAnnounced(), 2);
    EXPECT_EQ(structure.PagesEnded(), 2);
    EXPECT_EQ(structure.Copies(), 1);
    EXPECT_FALSE(structure.IsEmbedded());
    // One that is never closed takes the rest with it, but for the page that it stands in.
    EXPECT_EQ(PageEnds("%!PS-Adobe-3.0\n%%Page: 1 1\n%%BeginDocument\n%%Page: 2 2\n"), Lines{""});
}

int CopiesOf(const std::string &lines) {
    DocumentStructure structure;
    PageEnds(structure, "%!PS-Adobe-3.0\n" + lines + "%%Page: 1 1\n/#copies 77 def\n%%Trailer\n");
    return structure.Copies();
}

TEST(DocumentStructure, KnowsTheCopiesThatTheDocumentAsksFor) {
    EXPECT_EQ(CopiesOf(""), 1);
    EXPECT_EQ(CopiesOf("%%Requirements: numcopies(3)\n"), 3);
    EXPECT_EQ(CopiesOf("%%Requirements: duplex numcopies(12) collate\n"), 12);
    EXPECT_EQ(CopiesOf("%%Requirements: duplex\n"), 1);
    EXPECT_EQ(CopiesOf("%%Requirements: numcopies(0)\n"), 1);
    EXPECT_EQ(CopiesOf("%%Requirements: numcopies(-4)\n"), 1);
    EXPECT_EQ(CopiesOf("%%Requirements: numcopies(99999999999)\n"), 1);
    EXPECT_EQ(CopiesOf("/#copies 4 def\n"), 4);
    EXPECT_EQ(CopiesOf("userdict/#copies 5 put\n"), 5);
    EXPECT_EQ(CopiesOf("<</NumCopies 6>>setpagedevice\n"), 6);
    EXPECT_EQ(CopiesOf("<</NumCopies 6/Collate true>>setpagedevice\n"), 6);
    EXPECT_EQ(CopiesOf("/NumCopies 7\n/#copies 8\n"), 8);
    EXPECT_EQ(CopiesOf("%%BeginSetup\n/#copies 9 def\n%%EndSetup\n"), 9);
    // What pstops writes.
    EXPECT_EQ(CopiesOf("%RBIBeginNonPPDFeature: *NumCopies 3\n3\n/languagelevel where{pop "
                       "languagelevel 2 ge}{false}ifelse\n{1 dict begin/NumCopies exch def "
                       "currentdict end setpagedevice}\n{userdict/#copies 3 -1 roll put}ifelse\n"),
              3);
}

TEST(DocumentStructure, KnowsCopiesAtTheEndOfTheText) {
    DocumentStructure structure;
    structure.TakeFirstLine("%!PS-Adobe-3.0\n");
    structure.TakeText("/NumCopies 3");
    EXPECT_EQ(structure.Copies(), 3);
}

TEST(DocumentStructure, OfNothingHasNoPage) {
    for (const char *nothing : {"\n", "\r\n", "\x04\n"}) EXPECT_EQ(PageEnds(nothing), Lines{});
    EXPECT_EQ(PageEnds("1\n"), Lines{""});
}

TEST(DocumentStructure, TakesNoProcedureForARequest) {
    EXPECT_EQ(CopiesOf("userdict/#copies 3 -1 roll put\n"), 1);
    EXPECT_EQ(CopiesOf("/NumCopies exch def\n"), 1);
    EXPECT_EQ(CopiesOf("/NumCopies\n"), 1);
    EXPECT_EQ(CopiesOf("%%BeginProlog\n/#copies 9 def\n%%EndProlog\n"), 1);
    EXPECT_EQ(CopiesOf("%%BeginDocument\n/#copies 9 def\n%%EndDocument\n"), 1);
}

TEST(DocumentStructure, KnowsThePagesThatTheDocumentAnnounces) {
    const auto announced = [](const std::string &lines) {
        DocumentStructure structure;
        PageEnds(structure, "%!PS-Adobe-3.0\n" + lines);
        return structure.PagesAnnounced();
    };
    EXPECT_EQ(announced(""), 0);
    EXPECT_EQ(announced("%%Pages: 12\n"), 12);
    EXPECT_EQ(announced("%%Pages:12 1\n"), 12);
    EXPECT_EQ(announced("%%Pages: (atend)\n"), 0);
    EXPECT_EQ(announced("%%Pages: (atend)\n%%Page: 1 1\n%%Trailer\n%%Pages: 1\n"), 1);
    EXPECT_EQ(announced("%%Pages: -3\n"), 0);
}

TEST(AnnouncedData, AreBytesUnlessTheLineSaysLines) {
    const auto data = [](const char *line) { return FindAnnouncedData(FindComment(line), line); };
    EXPECT_EQ(data("%%BeginBinary: 4096").bytes, 4096U);
    EXPECT_EQ(data("%%BeginBinary: 4096\r").bytes, 4096U);
    EXPECT_EQ(data("%%BeginData: 17").bytes, 17U);
    EXPECT_EQ(data("%%BeginData: 17 Binary Bytes").bytes, 17U);
    EXPECT_EQ(data("%%BeginData: 17 Hex Lines").lines, 17U);
    EXPECT_EQ(data("%%BeginData: 17 Hex Lines").bytes, 0U);
    EXPECT_EQ(data("%%BeginBinary: 18446744073709551615").bytes, 18446744073709551615U);
    for (const char *line : {"%%BeginBinary:", "%%BeginBinary: x", "%%BeginBinary: -1",
                             "%%BeginData: 99999999999999999999 ASCII Lines"}) {
        EXPECT_EQ(data(line).bytes + data(line).lines, 0U) << line;
    }
}

}  // namespace
