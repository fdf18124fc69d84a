// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkPosition.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "Modules/Watermark/WatermarkTicket.h"

namespace {

struct Start {
    float x, y;
};

// Letter paper, upright, and no scaling.
class WatermarkPosition : public testing::Test {
  protected:
    WatermarkPosition() {
        psOptionWatermark = {};
        psOptionWatermark.orientation = 1;
        psOptionWatermark.paperWidth = 612;
        psOptionWatermark.paperHeight = 792;
        psOptionWatermark.scale = 100;
        ClearLayoutBuffers();
    }

    static Start OnPage(float width, float height, float horizontalOffset = 0,
                        float verticalOffset = 0) {
        Start start = {-7777, -7777};
        GetWatermarkPostion(&start.x, &start.y, kWatermarkOnPage, width, height, horizontalOffset,
                            verticalOffset);
        return start;
    }

    static Start OnSheet(float width, float height) {
        Start start = {-7777, -7777};
        GetWatermarkPostion(&start.x, &start.y, kWatermarkOnSheet, width, height, 1000, 1000);
        return start;
    }

    static void SetLayout(const char *pages, const char *rows, const char *columns) {
        CopyBounded(StdLayoutInfo, pages);
        CopyBounded(StdLayoutRowInfo, rows);
        CopyBounded(StdLayoutColumnInfo, columns);
    }
};

// Puts the box's lower left corner on the page and turns it around the page's centre.
Start TurnedCorner(long double centreX, long double centreY, long double width, long double height,
                   int degrees) {
    const long double turn = degrees * std::acos(-1.0L) / 180.0L;
    const long double x = -width / 2;
    const long double y = -height / 2;
    return {static_cast<float>(centreX + x * std::cos(turn) - y * std::sin(turn)),
            static_cast<float>(centreY + x * std::sin(turn) + y * std::cos(turn))};
}

TEST_F(WatermarkPosition, CentresTheTurnedBoxAtEveryAngle) {
    for (int orientation = 1; orientation <= 4; orientation++) {
        psOptionWatermark.orientation = orientation;
        const bool upright = orientation % 2 == 1;
        for (int angle = 0; angle <= 360; angle++) {
            SCOPED_TRACE(testing::Message()
                         << "orientation " << orientation << ", angle " << angle);
            psOptionWatermark.angle = angle;
            const Start start = OnPage(217, 43);
            const Start expected =
                TurnedCorner(upright ? 306 : 396, upright ? 396 : 306, 217, 43, angle);
            EXPECT_NEAR(start.x, expected.x, 1e-3);
            EXPECT_NEAR(start.y, expected.y, 1e-3);
        }
    }
}

TEST_F(WatermarkPosition, OtherOrientationsCentreOnTheOrigin) {
    psOptionWatermark.angle = 45;
    for (const int orientation : {-1, 0, 5, std::numeric_limits<int>::max()}) {
        SCOPED_TRACE(orientation);
        psOptionWatermark.orientation = orientation;
        const Start start = OnPage(200, 40);
        const Start expected = TurnedCorner(0, 0, 200, 40, 45);
        EXPECT_NEAR(start.x, expected.x, 1e-3);
        EXPECT_NEAR(start.y, expected.y, 1e-3);
    }
}

TEST_F(WatermarkPosition, AnglesOutsideACircleLeaveTheOffsets) {
    for (const int angle : {361, 400, 720, -1, -45, -360, std::numeric_limits<int>::max(),
                            std::numeric_limits<int>::min()}) {
        SCOPED_TRACE(angle);
        psOptionWatermark.angle = angle;
        const Start start = OnPage(200, 40, 12.5F, -3.25F);
        EXPECT_EQ(start.x, 12.5F);
        EXPECT_EQ(start.y, -3.25F);
    }
}

TEST_F(WatermarkPosition, OffsetsMoveTheBoxAtEveryAngle) {
    for (const int angle : {0, 45, 135, 225, 315}) {
        SCOPED_TRACE(angle);
        psOptionWatermark.angle = angle;
        const Start centred = OnPage(200, 40);
        const Start moved = OnPage(200, 40, 30, -17);
        EXPECT_NEAR(moved.x - centred.x, 30, 1e-3);
        EXPECT_NEAR(moved.y - centred.y, -17, 1e-3);
    }
}

TEST_F(WatermarkPosition, HalvesAnOddSizeExactly) {
    psOptionWatermark.paperWidth = 595;
    psOptionWatermark.paperHeight = 841;
    const Start start = OnPage(0, 0);
    EXPECT_EQ(start.x, 297.5F);
    EXPECT_EQ(start.y, 420.5F);
}

// A box without width whose half height is 1e8 shows the eighth decimal of the angle: the cosine of
// 1.5707963 is 2.67949e-8, that of a right angle is nothing.
TEST_F(WatermarkPosition, ReckonsWithPiToSevenDecimals) {
    psOptionWatermark.orientation = 0;
    const float height = 2e8F;
    psOptionWatermark.angle = 90;
    EXPECT_NEAR(OnPage(0, height).y, -2.67949, 1e-4);
    psOptionWatermark.angle = 180;
    EXPECT_NEAR(OnPage(0, height).x, 2.67949, 1e-4);
    psOptionWatermark.angle = 270;
    EXPECT_NEAR(OnPage(0, height).y, 2.67949, 1e-4);
    psOptionWatermark.angle = 360;
    EXPECT_NEAR(OnPage(0, height).x, -2.67949, 1e-4);
}

TEST_F(WatermarkPosition, KeepsResultsInSinglePrecision) {
    psOptionWatermark.paperWidth = 1 << 25;
    EXPECT_EQ(OnPage(0, 0, 1.0F).x, 16777216.0F);
    // So is the centred position before the offsets move it: 16777217 has become 16777216.
    psOptionWatermark.paperWidth = (1 << 25) + 2;
    psOptionWatermark.paperHeight = (1 << 25) + 2;
    EXPECT_EQ(OnPage(0, 0, 1.0F, 1.0F).x, 16777216.0F);
    EXPECT_EQ(OnPage(0, 0, 1.0F, 1.0F).y, 16777216.0F);
}

struct SheetCase {
    const char *pages, *rows, *columns;
    int orientation;
    Start start;
};

// Letter paper (centre 306, 396; on its side 396, 306) and a box of 200 by 40.
TEST_F(WatermarkPosition, StandsOnTheFirstPageOfASheet) {
    // clang-format off
    const SheetCase cases[] = {
        // pages rows columns orientation
        {"1",  "1", "1", 1, {206.0F,    416.0F}},     // 306 - 100,          396 + 20
        {"2",  "1", "2", 1, {127.2893F, 320.1421F}},  // 198 - 100 / sqrt 2, 306 + 20 / sqrt 2
        {"4",  "2", "2", 1, {103.0F,    208.0F}},     // 153 - 50,           198 + 10
        {"6",  "2", "3", 1, {91.1752F,  161.1650F}},  // 132 - 100 / sqrt 6, 153 + 20 / sqrt 6
        {"9",  "3", "3", 1, {68.6667F,  138.6667F}},  // 102 - 100 / 3,      132 + 20 / 3
        {"16", "4", "4", 1, {51.5F,     104.0F}},     // 76.5 - 25,          99 + 5
        {"1",  "1", "1", 2, {206.0F,    416.0F}},
        {"2",  "1", "2", 2, {325.2893F, 167.1421F}},  // 396 - 100 / sqrt 2, 153 + 20 / sqrt 2
        {"4",  "2", "2", 2, {103.0F,    208.0F}},
        {"6",  "2", "3", 2, {157.1752F, 110.1650F}},  // 198 - 100 / sqrt 6, 102 + 20 / sqrt 6
        {"9",  "3", "3", 2, {68.6667F,  138.6667F}},
        {"16", "4", "4", 2, {51.5F,     104.0F}},
    };
    // clang-format on
    for (const SheetCase &sheet : cases) {
        for (const int orientation : {sheet.orientation, sheet.orientation + 2}) {
            SCOPED_TRACE(testing::Message() << sheet.pages << ", orientation " << orientation);
            SetLayout(sheet.pages, sheet.rows, sheet.columns);
            psOptionWatermark.orientation = orientation;
            const Start start = OnSheet(200, 40);
            EXPECT_NEAR(start.x, sheet.start.x, 1e-3);
            EXPECT_NEAR(start.y, sheet.start.y, 1e-3);
        }
    }
}

TEST_F(WatermarkPosition, ScalesTheBoxOnASheet) {
    SetLayout("4", "2", "2");
    psOptionWatermark.scale = 50;
    const Start start = OnSheet(200, 40);
    EXPECT_FLOAT_EQ(start.x, 153 - 25);
    EXPECT_FLOAT_EQ(start.y, 198 + 5);
}

TEST_F(WatermarkPosition, IgnoresTheAngleOnASheet) {
    SetLayout("4", "2", "2");
    psOptionWatermark.angle = 45;
    EXPECT_FLOAT_EQ(OnSheet(200, 40).x, 103);
}

TEST_F(WatermarkPosition, OtherOrientationsKeepTheirStartOnASheet) {
    SetLayout("4", "2", "2");
    for (const int orientation : {-1, 0, 5}) {
        SCOPED_TRACE(orientation);
        psOptionWatermark.orientation = orientation;
        const Start start = OnSheet(200, 40);
        EXPECT_EQ(start.x, -7777);
        EXPECT_EQ(start.y, -7777);
    }
}

// No count of a layout divides by zero or takes the root of a negative number.
TEST_F(WatermarkPosition, CountsBelowOneAreOneOnASheet) {
    for (const char *count : {"", "0", "-4", "pages", "-99999999999"}) {
        SCOPED_TRACE(count);
        SetLayout(count, count, count);
        const Start single = OnSheet(200, 40);
        EXPECT_FLOAT_EQ(single.x, 206);
        EXPECT_FLOAT_EQ(single.y, 416);

        SetLayout("2", count, count);
        const Start two = OnSheet(200, 40);
        EXPECT_NEAR(two.x, 396 - 70.7107, 1e-3);
        EXPECT_NEAR(two.y, 306 + 14.1421, 1e-3);
    }
}

}  // namespace
