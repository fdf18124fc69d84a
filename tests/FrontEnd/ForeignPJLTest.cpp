// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/ForeignPJL.h"

#include <gtest/gtest.h>

#include <string>

namespace {

const std::string kExit(kUniversalExit);

// What is left of a text that is taken in line by line from the first one with PJL.
std::string Document(ForeignPJL &pjl, const std::string &text) {
    std::string document;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t end = std::min(text.find('\n', start), text.size() - 1) + 1;
        std::string_view line = std::string_view(text).substr(start, end - start);
        std::string_view taken;
        while (!(taken = pjl.TakeDocument(line)).empty()) document += taken;
        start = end;
    }
    return document;
}

std::string Document(const std::string &text) {
    ForeignPJL pjl;
    return Document(pjl, text);
}

TEST(ForeignPJL, IsTakenOffBothEnds) {
    EXPECT_EQ(Document(kExit +
                       "@PJL JOB\r\n@PJL SET COPIES=2\r\n@PJL ENTER LANGUAGE=POSTSCRIPT\r\n"
                       "%!PS\nshowpage\n\x04" +
                       kExit + "@PJL EOJ\n" + kExit),
              "%!PS\nshowpage\n");
    EXPECT_EQ(Document(kExit + "%!PS\nshowpage\n" + kExit), "%!PS\nshowpage\n");
}

TEST(ForeignPJL, IsTakenOffUpToThePostScriptWhateverItHolds) {
    EXPECT_EQ(Document(kExit + "@PJL JOB\n<?xml version=\"1.0\"?>\n\n%%Page: 1 1\n%!PS\nshowpage"),
              "%!PS\nshowpage");
}

// pstops puts its own lines right after what it takes for the document.
TEST(ForeignPJL, EndsWithTheLineThatIsNoPJL) {
    EXPECT_EQ(Document("showpage\n\x04" + kExit + "@PJL EOJ\n" + kExit + "%%EndDocument\n%%EOF\n"),
              "showpage\n%%EndDocument\n%%EOF\n");
    EXPECT_EQ(Document("one" + kExit + "@PJL JOB\n@PJL ENTER LANGUAGE=POSTSCRIPT\n\n%!PS\n@PJL\n"),
              "one\n%!PS\n@PJL\n");
}

TEST(ForeignPJL, EndsWithItsLineThoughThatComesInParts) {
    ForeignPJL pjl;
    std::string document;
    for (std::string_view part :
         {std::string_view("one\x04\x1b%-12345X@PJL COMMENT a"), std::string_view("b"),
          std::string_view("@PJL c\n"), std::string_view("two\n")}) {
        std::string_view taken;
        while (!(taken = pjl.TakeDocument(part)).empty()) document += taken;
    }
    EXPECT_EQ(document, "one\ntwo\n");
}

TEST(ForeignPJL, IsSeenToBeginAtTheEndOfAText) {
    const std::string whole = "\x04" + kExit + "@PJL";
    for (std::size_t size = 0; size < whole.size(); size++) {
        EXPECT_EQ(PJLBegunAtEnd("show" + whole.substr(0, size)), size);
        const std::string withoutEnd = whole.substr(1, size);
        const bool isAll = withoutEnd.size() == whole.size() - 1;
        EXPECT_EQ(PJLBegunAtEnd("show" + withoutEnd), isAll ? 0 : withoutEnd.size());
    }
    EXPECT_EQ(PJLBegunAtEnd(whole), 0U);
    EXPECT_EQ(PJLBegunAtEnd(kExit + "x"), 0U);
}

TEST(ForeignPJL, SaysWhatItFound) {
    ForeignPJL none;
    EXPECT_EQ(Document(none, "%!PS\n"), "%!PS\n");
    EXPECT_FALSE(none.WasFound());
    EXPECT_FALSE(none.IsOpen());

    ForeignPJL header;
    EXPECT_EQ(Document(header, kExit + "@PJL\n"), "");
    EXPECT_TRUE(header.WasFound());
    EXPECT_TRUE(header.IsOpen());
    EXPECT_FALSE(header.HasDocument());
    EXPECT_EQ(Document(header, "%!PS\n"), "%!PS\n");
    EXPECT_FALSE(header.IsOpen());
    EXPECT_TRUE(header.HasDocument());
}

TEST(ForeignPJL, LeavesAHalfSequenceAlone) {
    const std::string half = "\x1b%-1234\n\x04\n\x1b%%EOF\n";
    EXPECT_EQ(Document("%!PS\n" + half), "%!PS\n" + half);
}

}  // namespace
