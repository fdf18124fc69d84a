// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkPostScript.h"

#include <gtest/gtest.h>

#include <string>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "Modules/Watermark/WatermarkTicket.h"
#include "Tables/SpecialLines.h"
#include "support/CaptureOutput.h"

namespace {

WatermarkOptions &w = psOptionWatermark;

// Letter paper, upright, a black text in a box of 200 by 40, on every page.
class WatermarkPostScript : public testing::Test {
  protected:
    WatermarkPostScript() {
        w = {};
        CopyBounded(w.name, "draft");
        CopyBounded(w.text, "(DRAFT)");
        CopyBounded(w.font, "Helvetica-Bold");
        w.orientation = 1;
        w.paperWidth = 612;
        w.paperHeight = 792;
        w.fontSize = 48;
        w.density = 100;
        w.width = 200;
        w.height = 40;
    }
};

std::string At(int point) {
    return CaptureOutput([point] { WatermarkOutputPSCommandFromFilter(point, 7, stdout); });
}

// The lines of the stamp at "ep", counted from 0: start, colour, font, place, angle, text, end.
enum StampLine { kColourLine = 1, kFontLine = 2, kPlaceLine = 3, kAngleLine = 4, kTextLine = 5 };

std::string Stamp(StampLine line) {
    const std::string stamp = At(kPointBeforeEp);
    std::size_t start = 0;
    for (int i = 0; i < line; i++) start = stamp.find('\n', start) + 1;
    return stamp.substr(start, stamp.find('\n', start) + 1 - start);
}

constexpr char kWholeStamp[] =
    "0.00 0.00 0.00 setrgbcolor\n"
    "/Helvetica-Bold 48 selectfont\n"
    "206.00 376.00 moveto\n"
    "0 rotate\n"
    "(DRAFT) show\n"
    "grestore\n";

TEST_F(WatermarkPostScript, AnswersItsPointsAtEveryOccurrence) {
    for (int page = 1; page <= 3; page++) {
        EXPECT_EQ(At(13),
                  "userdict/kvxInfo 2 dict dup begin\n"
                  "/kvxpgsave 0 def\n"
                  "/kvxbp{/kvxpgsave save store} bind def\n");
        EXPECT_EQ(At(24), "kvxbp\n");
        EXPECT_EQ(At(27), std::string("pgsave restore /pgsave save store gsave\n") + kWholeStamp);
        EXPECT_EQ(At(28), std::string("pm restore /pm save store gsave\n") + kWholeStamp);
    }
}

// No line of a document raises this point. Once a watermark for the first page alone has been
// stamped, it stays away, whatever the ticket says then.
TEST_F(WatermarkPostScript, AnswersThePageRestoreUntilItIsForTheFirstPageAlone) {
    const std::string expected =
        std::string("kvxpgsave restore /kvxpgsave save store gsave\n") + kWholeStamp;
    EXPECT_EQ(At(29), expected);
    EXPECT_EQ(At(29), expected);
    w.onlyFirst = 1;
    EXPECT_EQ(At(29), expected);
    EXPECT_EQ(At(29), "");
    w.onlyFirst = 0;
    EXPECT_EQ(At(29), "");
}

TEST_F(WatermarkPostScript, SaysNothingAtOtherPoints) {
    for (int point = -2; point <= 40; point++) {
        if (point == 13 || point == 24 || (point >= 27 && point <= 29)) continue;
        SCOPED_TRACE(point);
        w.options = -1;
        EXPECT_EQ(At(point), "");
        EXPECT_EQ(w.options, 1);
    }
}

TEST_F(WatermarkPostScript, SaysNothingWithoutAName) {
    w.name[0] = '\0';
    w.options = -1;
    for (int point = 0; point <= 30; point++) EXPECT_EQ(At(point), "");
    EXPECT_EQ(w.options, -1);
}

TEST_F(WatermarkPostScript, SaysNothingForAnythingButText) {
    for (const int type : {1, 2, -1}) {
        w.type = type;
        w.options = -1;
        for (int point = 0; point <= 30; point++) EXPECT_EQ(At(point), "");
        EXPECT_EQ(w.options, -1);
    }
}

TEST_F(WatermarkPostScript, ThinsTheColourToItsDensity) {
    struct {
        std::int32_t density;
        float red, green, blue;
        const char *line;
    } const cases[] = {
        {100, 0.5F, 0, 0, "0.50 0.00 0.00 setrgbcolor\n"},
        {50, 0.5F, 0, 0, "0.75 0.50 0.50 setrgbcolor\n"},
        {0, 0.5F, 0, 0, "1.00 1.00 1.00 setrgbcolor\n"},
        {100, 0.1F, 0.2F, 0.3F, "0.10 0.20 0.30 setrgbcolor\n"},
        {25, 1, 0.2F, 0, "1.00 0.80 0.75 setrgbcolor\n"},
        {50, -1, -1, -1, "0.00 0.00 0.00 setrgbcolor\n"},    // colours that the ticket lacks
        {-1, 0.5F, 0, 0, "1.00 1.01 1.01 setrgbcolor\n"},    // a density that it lacks
        {200, 0, 0.5F, 1, "-1.00 0.00 1.00 setrgbcolor\n"},  // the printer limits the values
        // Each step in single precision; in double it is 0.83 and 0.79.
        {22, 0.25F, 0.25F, 0.25F, "0.84 0.84 0.84 setrgbcolor\n"},
        {25, 0.14F, 0, 0, "0.78 0.75 0.75 setrgbcolor\n"},
    };
    for (const auto &colour : cases) {
        SCOPED_TRACE(colour.line);
        w.density = colour.density;
        w.red = colour.red;
        w.green = colour.green;
        w.blue = colour.blue;
        EXPECT_EQ(Stamp(kColourLine), colour.line);
    }
}

TEST_F(WatermarkPostScript, TurnsTheTextAroundTheCentre) {
    struct {
        std::int32_t angle;
        const char *place, *rotation;
    } const cases[] = {
        {0, "206.00 376.00 moveto\n", "0 rotate\n"},
        {45, "249.43 311.15 moveto\n", "45 rotate\n"},
        {90, "326.00 296.00 moveto\n", "90 rotate\n"},
        {91, "327.74 296.36 moveto\n", "91 rotate\n"},
        {180, "406.00 416.00 moveto\n", "180 rotate\n"},
        {181, "405.64 417.74 moveto\n", "181 rotate\n"},
        {270, "286.00 496.00 moveto\n", "270 rotate\n"},
        {271, "284.26 495.64 moveto\n", "271 rotate\n"},
        {360, "206.00 376.00 moveto\n", "360 rotate\n"},
        {361, "0.00 0.00 moveto\n", "361 rotate\n"},
        {400, "0.00 0.00 moveto\n", "400 rotate\n"},
        {-1, "0.00 0.00 moveto\n", "-1 rotate\n"},
    };
    for (const auto &turn : cases) {
        SCOPED_TRACE(turn.angle);
        w.angle = turn.angle;
        EXPECT_EQ(Stamp(kPlaceLine), turn.place);
        EXPECT_EQ(Stamp(kAngleLine), turn.rotation);
    }
}

TEST_F(WatermarkPostScript, AddsTheOffsets) {
    w.horizontalOffset = 10.25F;
    w.verticalOffset = -400;
    EXPECT_EQ(Stamp(kPlaceLine), "216.25 -24.00 moveto\n");
    w.angle = 400;
    EXPECT_EQ(Stamp(kPlaceLine), "10.25 -400.00 moveto\n");
}

TEST_F(WatermarkPostScript, FollowsThePageOrientation) {
    const char *const upright = "206.00 376.00 moveto\n";
    const char *const onItsSide = "296.00 286.00 moveto\n";
    const char *const unknown = "-100.00 -20.00 moveto\n";
    const char *const places[] = {unknown, upright, onItsSide, upright, onItsSide, unknown};
    for (int orientation = 0; orientation <= 5; orientation++) {
        SCOPED_TRACE(orientation);
        w.orientation = orientation;
        EXPECT_EQ(Stamp(kPlaceLine), places[orientation]);
    }
    w.orientation = -1;
    EXPECT_EQ(Stamp(kPlaceLine), unknown);
}

TEST_F(WatermarkPostScript, WritesTheSizesThatTheTicketLacks) {
    w.fontSize = 0;
    EXPECT_EQ(Stamp(kFontLine), "/Helvetica-Bold 0 selectfont\n");
    w.fontSize = -1;
    EXPECT_EQ(Stamp(kFontLine), "/Helvetica-Bold -1 selectfont\n");
}

// Of what a person types, only a doubled per-cent sign changes.
TEST_F(WatermarkPostScript, LeavesTextAndFontAsTheyAre) {
    struct {
        const char *text, *printed;
    } const cases[] = {
        {"", ""},
        {"(\\(a\\) \\\\ 'b' \"c\")", "(\\(a\\) \\\\ 'b' \"c\")"},
        {"((", "(("},
        {"(100%)", "(100%)"},
        {"(100%%)", "(100%)"},
        {"(%%%)", "(%%)"},
        {"(%n%n%s%s%d%c%1$s%99999d)", "(%n%n%s%s%d%c%1$s%99999d)"},
        {"<44524146540a>", "<44524146540a>"},
    };
    for (const auto &name : cases) {
        SCOPED_TRACE(name.text);
        CopyBounded(w.text, name.text);
        CopyBounded(w.font, name.text);
        EXPECT_EQ(Stamp(kTextLine), std::string(name.printed) + " show\n");
        EXPECT_EQ(Stamp(kFontLine).substr(1), std::string(name.printed) + " 48 selectfont\n");
    }
}

// A text that lost its closing parenthesis would swallow the page's end.
TEST_F(WatermarkPostScript, HoldsTheLongestTextAndFontWithTheirOperators) {
    const std::string text = "(" + std::string(253, 'A') + ")";
    const std::string font(255, 'F');
    CopyBounded(w.text, text.c_str());
    CopyBounded(w.font, font.c_str());
    w.fontSize = -2147483647 - 1;
    EXPECT_EQ(Stamp(kTextLine), text + " show\n");
    EXPECT_EQ(Stamp(kFontLine), "/" + font + " -2147483648 selectfont\n");
}

TEST_F(WatermarkPostScript, HoldsTheLongestNumbers) {
    w.red = w.green = w.blue = -3e38F;
    w.horizontalOffset = w.verticalOffset = -3e38F;
    const std::string number = "-300000000549775575777803994281145270272.00";
    ASSERT_EQ(number.size(), 43U);
    EXPECT_EQ(Stamp(kColourLine), number + " " + number + " " + number + " setrgbcolor\n");
    EXPECT_EQ(Stamp(kPlaceLine), number + " " + number + " moveto\n");
}

}  // namespace
