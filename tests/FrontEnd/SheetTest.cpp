// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Sheet.h"

#include <gtest/gtest.h>

// How the pages stand on the sheets of a PPD, WatermarkOptionsTest says.
TEST(Sheet, IsCupssOwnWithoutAPPD) {
    const CompletionContext context{.argv = nullptr, .ppd = nullptr, .job = {}};
    const Sheet sheet = SheetOf(context);
    EXPECT_EQ(sheet.width, 612);
    EXPECT_EQ(sheet.height, 792);
    EXPECT_EQ(sheet.left, 18);
    EXPECT_EQ(sheet.bottom, 36);
    EXPECT_EQ(sheet.right, 594);
    EXPECT_EQ(sheet.top, 756);
    EXPECT_EQ(sheet.turn, 0);
}
