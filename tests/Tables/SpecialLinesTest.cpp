// SPDX-License-Identifier: Apache-2.0
#include "Tables/SpecialLines.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace {

TEST(SpecialLines, AreThoseOfThePrintSystem) {
    const struct {
        const char *text;
        int point;
    } kLines[] = {
        {"%%BeginProlog", 13},
        {"%%EndProlog", 14},
        {"%%EndSetup", 16},
        {"userdict/setpagedevice{pop}bind put", 21},
        {"bp", 23},
        {"%%EndPageSetup", 24},
        {"ep", 27},
        {"endp", 28},
        {"showpage", 0},
    };
    ASSERT_EQ(std::size(kLines), std::size(specialLines));
    std::size_t longest = 0;
    for (const auto &[text, point] : kLines) {
        ASSERT_NE(FindSpecialLine(text), nullptr) << text;
        EXPECT_EQ(FindSpecialLine(text)->point, point) << text;
        longest = std::max(longest, std::string(text).size());
    }
    EXPECT_EQ(longest, kLongestSpecialLine);
}

}  // namespace
