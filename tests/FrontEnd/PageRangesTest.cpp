// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/PageRanges.h"

#include <gtest/gtest.h>

#include <string>

namespace {

// The ranges as "first-last" with blanks between; "-" if the text is not understood.
std::string Read(std::string_view text, int least = 1) {
    std::vector<PageRange> ranges;
    if (!ReadPageRanges(text, least, ranges)) return "-";
    std::string read;
    for (const PageRange &range : ranges) {
        if (!read.empty()) read += ' ';
        read += std::to_string(range.first) + "-" + std::to_string(range.last);
    }
    return read;
}

}  // namespace

TEST(PageRanges, AreReadAsIPPWritesThem) {
    EXPECT_EQ(Read("3"), "3-3");
    EXPECT_EQ(Read("3,7,10-12"), "3-3 7-7 10-12");
    EXPECT_EQ(Read("-4,9-"), "1-4 9-2147483647");
    EXPECT_EQ(Read("5-5"), "5-5");
    EXPECT_EQ(Read("0,2", 0), "0-0 2-2");
    EXPECT_EQ(Read("2147483647"), "2147483647-2147483647");
}

TEST(PageRanges, NothingElseIsUnderstood) {
    for (const char *text :
         {"", ",", "3,", "-", "0", "x", "3x", "3-x", "7-3", "3--5", "1-2-3", " 3", "3 ", "+3", "-0",
          "2147483648", "1-2147483648", "99999999999999999999"}) {
        EXPECT_EQ(Read(text), "-") << text;
    }
    EXPECT_EQ(Read("-1", 2), "-");
}

TEST(PageRanges, NumbersLieInTheirRange) {
    int number = 7;
    EXPECT_TRUE(ReadWholeNumber("-5", -5, 5, number));
    EXPECT_EQ(number, -5);
    for (const char *text : {"-6", "6", "", "1.5", "1e0"}) {
        EXPECT_FALSE(ReadWholeNumber(text, -5, 5, number)) << text;
    }
    EXPECT_EQ(number, -5);
}

TEST(PageRanges, PiecesStandBetweenSeparators) {
    EXPECT_EQ(SplitAt(':', "a::b"), (std::vector<std::string_view>{"a", "", "b"}));
    EXPECT_EQ(SplitAt(':', ""), std::vector<std::string_view>{""});
    EXPECT_EQ(SplitAt(':', "a:"), (std::vector<std::string_view>{"a", ""}));
}
