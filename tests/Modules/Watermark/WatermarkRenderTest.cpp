// SPDX-License-Identifier: Apache-2.0
//
// The watermark on paper: the job's document runs in Ghostscript, and what the watermark adds to
// the page must lie in its box.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <string>

#include "support/Ghostscript.h"
#include "support/Injections.h"
#include "support/PrintSystemDocument.h"
#include "support/PsToPs.h"
#include "support/WatermarkJob.h"

namespace {

// "DRAFT" in Courier at 60 points is 180 points wide and 34 high, with some air at both ends.
constexpr double kTextWidth = 180;
constexpr double kTextHeight = 34;

// Where the text belongs.
struct Box {
    double centreX, centreY;
    int angle;         // degrees
    double scale = 1;  // of the page on the sheet
};

// Where the ink that differs between two pages lies: pixels in the box, a pixel's width tolerated,
// and elsewhere; how far those in the box reach from its centre, along its sides.
struct Ink {
    int inside = 0, outside = 0;
    double left = 1e9, right = -1e9, bottom = 1e9, top = -1e9;
};

Ink MeasureInk(const RenderedPage &page, const RenderedPage &bare, const Box &box) {
    const double turn = box.angle * std::acos(-1.0) / 180.0;
    Ink ink;
    for (int y = 0; y < page.height; y++) {
        for (int x = 0; x < page.width; x++) {
            if (page.At(x, y) == bare.At(x, y)) continue;
            const double fromX = x + 0.5 - box.centreX;
            const double fromY = y + 0.5 - box.centreY;
            const double along = fromX * std::cos(turn) + fromY * std::sin(turn);
            const double across = fromY * std::cos(turn) - fromX * std::sin(turn);
            if (std::abs(along) > box.scale * kTextWidth / 2 + 1 ||
                std::abs(across) > box.scale * kTextHeight / 2 + 1) {
                ink.outside++;
                continue;
            }
            ink.inside++;
            ink.left = std::min(ink.left, along);
            ink.right = std::max(ink.right, along);
            ink.bottom = std::min(ink.bottom, across);
            ink.top = std::max(ink.top, across);
        }
    }
    return ink;
}

Rendering RenderJob(const std::string &options, const std::string &document) {
    Rendering rendering = Render(PrintedDocument(options, document));
    EXPECT_EQ(rendering.status, 0);
    EXPECT_EQ(rendering.messages, "");
    return rendering;
}

// The text fills its box.
void ExpectText(const Ink &ink, double scale = 1) {
    EXPECT_GT(ink.inside, 1000 * scale * scale);
    EXPECT_NEAR(ink.left, scale * -kTextWidth / 2, 5 * scale);
    EXPECT_NEAR(ink.right, scale * kTextWidth / 2, 5 * scale);
    EXPECT_NEAR(ink.bottom, scale * -kTextHeight / 2, 2);
    EXPECT_NEAR(ink.top, scale * kTextHeight / 2, 2);
}

// The text fills its box and is all that is new on the page.
void ExpectTextAlone(const RenderedPage &page, const RenderedPage &bare, const Box &box) {
    const Ink ink = MeasureInk(page, bare, box);
    EXPECT_EQ(ink.outside, 0);
    ExpectText(ink);
}

bool Same(const RenderedPage &page, const RenderedPage &other) {
    return page.width == other.width && page.height == other.height && page.pixels == other.pixels;
}

TEST(WatermarkRender, AnErrorInTheDocumentShows) {
    const Rendering rendering = Render("%!PS\nnosuchprocedure\n");
    EXPECT_NE(rendering.status, 0);
    EXPECT_NE(rendering.messages.find("undefined"), std::string::npos);
}

TEST(WatermarkRender, StandsInTheMiddleAtEveryAngle) {
    const std::string document = PrintSystemDocument(1);
    const Rendering bare = RenderJob("", document);
    ASSERT_EQ(bare.pages.size(), 1U);
    for (const int angle : {0, 30, 45, 90, 91, 135, 180, 181, 225, 270, 271, 315, 360}) {
        SCOPED_TRACE(angle);
        WatermarkJob job;
        job.angle = angle;
        const Rendering stamped = RenderJob(job.Options(), document);
        ASSERT_EQ(stamped.pages.size(), 1U);
        ExpectTextAlone(stamped.pages[0], bare.pages[0], {306, 396, angle});
    }
}

TEST(WatermarkRender, StandsInTheMiddleOfAPageOnItsSide) {
    const std::string document = PrintSystemDocument(1, "ep", 792, 612);
    const Rendering bare = RenderJob("", document);
    WatermarkJob job;
    job.orientation = 2;
    job.angle = 45;
    const Rendering stamped = RenderJob(job.Options(), document);
    ASSERT_EQ(stamped.pages.size(), 1U);
    ExpectTextAlone(stamped.pages[0], bare.pages[0], {396, 306, 45});
}

TEST(WatermarkRender, MovesByItsOffsets) {
    const std::string document = PrintSystemDocument(1);
    const Rendering bare = RenderJob("", document);
    WatermarkJob job;
    job.angle = 45;
    job.horizontalOffset = "-100.5";
    job.verticalOffset = "200";
    const Rendering stamped = RenderJob(job.Options(), document);
    ASSERT_EQ(stamped.pages.size(), 1U);
    ExpectTextAlone(stamped.pages[0], bare.pages[0], {205.5, 596, 45});
}

TEST(WatermarkRender, StampsAllPagesOrTheFirst) {
    for (const char *pageEnd : {"ep", "endp"}) {
        const std::string document = PrintSystemDocument(3, pageEnd);
        const Rendering bare = RenderJob("", document);
        ASSERT_EQ(bare.pages.size(), 3U);
        for (const int onlyFirst : {0, 1}) {
            SCOPED_TRACE(testing::Message() << pageEnd << ", " << onlyFirst);
            WatermarkJob job;
            job.onlyFirst = onlyFirst;
            const Rendering stamped = RenderJob(job.Options(), document);
            ASSERT_EQ(stamped.pages.size(), 3U);
            for (std::size_t page = 0; page < 3; page++) {
                SCOPED_TRACE(page);
                if (onlyFirst == 1 && page > 0) {
                    EXPECT_TRUE(Same(stamped.pages[page], bare.pages[page]));
                } else {
                    ExpectTextAlone(stamped.pages[page], bare.pages[page], {306, 396, 0});
                }
            }
        }
    }
}

// The sample documents (A4) end their pages in one way each.
TEST(WatermarkRender, StampsTheSampleDocuments) {
    for (const char *name : {"report.ps", "book.ps"}) {
        SCOPED_TRACE(name);
        std::ifstream file(std::string(KVFILTER_SOURCE_DIR "/samples/") + name);
        const std::string document(std::istreambuf_iterator<char>(file), {});
        const Rendering bare = RenderJob("", document);
        WatermarkJob job;
        job.paperWidth = 595;
        job.paperHeight = 842;
        job.angle = 45;
        const Rendering stamped = RenderJob(job.Options(), document);
        ASSERT_GE(bare.pages.size(), 3U);
        ASSERT_EQ(stamped.pages.size(), bare.pages.size());
        for (std::size_t page = 0; page < bare.pages.size(); page++) {
            SCOPED_TRACE(page);
            ExpectTextAlone(stamped.pages[page], bare.pages[page], {297.5, 421, 45});
        }
    }
}

// Letter pages, shrunk to 0.647 and turned onto their right side, stand one above the other.
TEST(WatermarkRender, StampsBothPagesOfASheet) {
    const std::string document =
        ThroughPsToPs(PrintSystemDocument(3), "number-up=2 PageSize=Letter");
    const Rendering bare = RenderJob("number-up=2", document);
    const Rendering stamped = RenderJob(WatermarkJob{}.Options() + "number-up=2", document);
    ASSERT_EQ(bare.pages.size(), 2U);
    ASSERT_EQ(stamped.pages.size(), 2U);
    const Box firstPage = {306, 594, 270, 0.647};
    const Box secondPage = {306, 198, 270, 0.647};
    const Ink first = MeasureInk(stamped.pages[0], bare.pages[0], firstPage);
    const Ink second = MeasureInk(stamped.pages[0], bare.pages[0], secondPage);
    ExpectText(first, 0.647);
    ExpectText(second, 0.647);
    EXPECT_EQ(first.outside, second.inside);
    const Ink third = MeasureInk(stamped.pages[1], bare.pages[1], firstPage);
    ExpectText(third, 0.647);
    EXPECT_EQ(third.outside, 0);
}

// The colours of the ink, at the densities that a person picks.
TEST(WatermarkRender, PrintsTheColourAtItsDensity) {
    const std::string document = PrintSystemDocument(1);
    const Rendering bare = RenderJob("", document);
    struct {
        int density;
        RenderedPage::Pixel ink;
    } const cases[] = {{100, {255, 51, 0}}, {50, {255, 153, 128}}, {20, {255, 214, 204}}};
    for (const auto &colour : cases) {
        SCOPED_TRACE(colour.density);
        WatermarkJob job;
        job.colour[0] = "1";
        job.colour[1] = "0.2";
        job.density = colour.density;
        const Rendering stamped = RenderJob(job.Options(), document);
        ASSERT_EQ(stamped.pages.size(), 1U);
        const RenderedPage &page = stamped.pages[0];
        for (std::size_t i = 0; i < page.pixels.size(); i++) {
            if (page.pixels[i] == bare.pages[0].pixels[i]) continue;
            for (std::size_t part = 0; part < 3; part++) {
                ASSERT_NEAR(page.pixels[i][part], colour.ink[part], 1);
            }
        }
    }
}

TEST(WatermarkRender, DensityZeroLeavesNoTrace) {
    const std::string document = PrintSystemDocument(1);
    WatermarkJob job;
    job.density = 0;
    const Rendering stamped = RenderJob(job.Options(), document);
    ASSERT_EQ(stamped.pages.size(), 1U);
    EXPECT_TRUE(Same(stamped.pages[0], RenderJob("", document).pages[0]));
}

// A text as long as the field still is a whole line of PostScript.
TEST(WatermarkRender, TheLongestTextRuns) {
    WatermarkJob job;
    job.text = "(" + std::string(253, 'A') + ")";
    EXPECT_EQ(RenderJob(job.Options(), PrintSystemDocument(2)).pages.size(), 2U);
}

}  // namespace
