// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Terminal.h"

#include <gtest/gtest.h>

#include <sstream>

#include "Tools/JobInfo/Text.h"

namespace {

std::string Laid(const Terminal &terminal) {
    Printout printout(terminal);
    printout.Heading("a heading", "and a remark on it");
    printout.Rows({{"short", "a meaning of several words that does not fit one line"},
                   {"a left text that is longer than half the line", "meaning"},
                   {"part", "", Style::kHeading},
                   {"alone", ""},
                   {"bad", "x", Style::kBad}});
    printout.Paragraph("one paragraph", 2);
    return printout.Text();
}

TEST(Printout, AlignsColumnsAndFoldsThem) {
    EXPECT_EQ(Laid({.width = 40}), R"(a heading: and a remark on it
  short  a meaning of several words that
         does not fit one line
  a left text that is longer than half
  the line
         meaning
part
  alone
  bad    x
  one paragraph
)");
}

TEST(Printout, FoldsAtTheBlankThatJustFits) {
    const auto folded = [](const char *text) {
        Printout printout({.width = 20});
        printout.Paragraph(text, 2);
        return printout.Text();
    };
    EXPECT_EQ(folded("123456 89012345678 x"), "  123456 89012345678\n  x\n");
    EXPECT_EQ(folded("123456 8901234567 9x"), "  123456 8901234567\n  9x\n");
    EXPECT_EQ(folded("123456 890123456789 x"), "  123456\n  890123456789 x\n");
}

TEST(Printout, LeavesAQuarterToTextsThatAreAllTooLong) {
    Printout printout({.width = 40});
    printout.Rows({{"a left text that is longer than half the line", "meaning"}});
    EXPECT_EQ(printout.Text(),
              "  a left text that is longer than half\n  the line\n             meaning\n");
}

TEST(Printout, HasLongLinesWhereNothingLimitsThem) {
    EXPECT_EQ(Laid({}), R"(a heading: and a remark on it
  short  a meaning of several words that does not fit one line
  a left text that is longer than half the line
         meaning
part
  alone
  bad    x
  one paragraph
)");
}

TEST(Printout, NeverExceedsItsWidthWhateverItIsGiven) {
    for (std::size_t width = 20; width < 130; width++) {
        Printout printout({.width = width});
        const std::string word(200, 'w');
        printout.Heading(word, word);
        printout.Rows({{word, word + " " + word}, {"a b c", "\x1b\r" + word}, {"", word}});
        printout.Paragraph(word, 10);
        std::istringstream lines(printout.Text());
        for (std::string line; std::getline(lines, line);) EXPECT_LE(line.size(), width) << line;
    }
}

TEST(Printout, ColoursTextAndNotBlanks) {
    const std::string text = Laid({.width = 40, .hasColour = true});
    EXPECT_NE(text.find("\x1b[1ma heading\x1b[0m: and"), std::string::npos) << text;
    EXPECT_NE(text.find("  \x1b[31mbad\x1b[0m    x\n"), std::string::npos) << text;
    Printout printout({.width = 40, .hasColour = true});
    printout.Rows({{"", "x", Style::kBad}});
    EXPECT_EQ(printout.Text().find('\x1b'), std::string::npos) << printout.Text();
}

}  // namespace
