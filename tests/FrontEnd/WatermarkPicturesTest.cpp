// SPDX-License-Identifier: Apache-2.0
//
// KVWatermark on paper: documents go through CUPS's own filter and ours, the job's document runs in
// Ghostscript, and what the watermark adds to the sheet must be centred on it, within the printable
// area, and run as the pages do.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <iterator>
#include <numbers>
#include <string>
#include <vector>

#include "support/Ghostscript.h"
#include "support/PsToPs.h"
#include "support/RunFilter.h"
#include "support/TicketJob.h"

namespace {

constexpr double kMargin = 12;  // points, of the PPD

std::string QueuePPD() {
    std::ifstream file(KVFILTER_PPD_DIR "/kv2024c.ppd");
    return {std::istreambuf_iterator<char>(file), {}};
}

// Four pages with a bar along the top of each.
std::string Document(int width, int height) {
    const std::string size = std::to_string(width) + " " + std::to_string(height);
    std::string document = "%!PS-Adobe-3.0\n%%BoundingBox: 0 0 " + size +
                           "\n%%Pages: 4\n%%EndComments\n%%BeginProlog\n%%EndProlog\n"
                           "%%BeginSetup\n%%EndSetup\n";
    for (int page = 1; page <= 4; page++) {
        const std::string number = std::to_string(page);
        document += "%%Page: " + number + " " + number +
                    "\n%%BeginPageSetup\n%%EndPageSetup\n"
                    "0 0 1 setrgbcolor 30 " +
                    std::to_string(height - 60) + " " + std::to_string(width - 60) +
                    " 20 rectfill\n0.7 0.7 scale 33 rotate 0 0 10 10 rectclip\nshowpage\n";
    }
    return document + "%%Trailer\n%%EOF\n";
}

struct Job {
    std::string options;
    std::string document;  // as the filter in front passes it on

    Rendering Print(const std::string &more) const {
        FilterJob job;
        job.ppd = QueuePPD();
        job.options = options + " " + more;
        job.input = document;
        Rendering rendering = Render(DocumentOf(RunFilter(job).output));
        EXPECT_EQ(rendering.status, 0);
        EXPECT_EQ(rendering.messages, "");
        return rendering;
    }
};

struct Point {
    double x, y;  // from the middle of the sheet, in points
};

// The pixels that `counts`.
template <typename Counts>
std::vector<Point> Pixels(const RenderedPage &page, Counts counts) {
    std::vector<Point> points;
    for (std::size_t i = 0; i < page.pixels.size(); i++) {
        if (!counts(i)) continue;
        const int column = static_cast<int>(i) % page.width;
        const int row = static_cast<int>(i) / page.width;
        points.push_back({column + 0.5 - page.width / 2.0, page.height / 2.0 - row - 0.5});
    }
    return points;
}

std::vector<Point> Stamped(const RenderedPage &page, const RenderedPage &bare) {
    return Pixels(page, [&](std::size_t i) { return page.pixels[i] != bare.pixels[i]; });
}

// How far points reach, seen along a direction.
struct Extent {
    double left = 1e9, right = -1e9, bottom = 1e9, top = -1e9;
    double x = 0, y = 0;  // their middle

    Extent(const std::vector<Point> &points, double degrees) {
        const double cosine = std::cos(degrees * std::numbers::pi / 180);
        const double sine = std::sin(degrees * std::numbers::pi / 180);
        for (const Point &point : points) {
            const double along = point.x * cosine + point.y * sine;
            const double up = point.y * cosine - point.x * sine;
            left = std::min(left, along);
            right = std::max(right, along);
            bottom = std::min(bottom, up);
            top = std::max(top, up);
            x += along / static_cast<double>(points.size());
            y += up / static_cast<double>(points.size());
        }
    }
};

// Whether the bars stand towards the top for someone who reads along `degrees`.
bool IsUpright(const RenderedPage &bare, double degrees) {
    constexpr RenderedPage::Pixel kBlue = {0, 0, 255};
    const Extent bars(Pixels(bare, [&](std::size_t i) { return bare.pixels[i] == kBlue; }),
                      degrees);
    return bars.y > 3 * std::abs(bars.x) && bars.y > 10;
}

double Angle(const std::string &options) {
    return std::stod(Value(CompleteOn(QueuePPD(), {options}), "*WMARKAngleTicket"));
}

void ExpectStamp(const RenderedPage &page, const RenderedPage &bare, double degrees) {
    const std::vector<Point> stamp = Stamped(page, bare);
    ASSERT_GT(stamp.size(), 1000U);
    const Extent ink(stamp, degrees);
    EXPECT_NEAR(ink.left + ink.right, 0, 6) << "not centred along the text";
    EXPECT_NEAR(ink.bottom + ink.top, 0, 6) << "not centred across the text";
    const Extent box(stamp, 0);
    EXPECT_LE(std::max(-box.left, box.right), page.width / 2.0 - kMargin + 4);
    EXPECT_LE(std::max(-box.bottom, box.top), page.height / 2.0 - kMargin + 4);
}

struct Layout {
    const char *options;
    bool isWide;  // the document's pages are landscape pages
    int sheets;
};
constexpr Layout kLayouts[] = {
    {"", false, 4},
    {"orientation-requested=6", false, 4},
    {"landscape", true, 4},
    {"orientation-requested=5", true, 4},
    {"number-up=2", false, 2},
    {"number-up=2 landscape", true, 2},
    {"number-up=4", false, 1},
    {"number-up=4 landscape", true, 1},
};

}  // namespace

class WatermarkPictures : public testing::TestWithParam<const char *> {};

TEST_P(WatermarkPictures, AreCentredAndInsideThePage) {
    const std::string size = GetParam();
    const bool isA4 = size == "A4";
    const int width = isA4 ? 595 : 612, height = isA4 ? 842 : 792;
    for (const Layout &layout : kLayouts) {
        const std::string options = "PageSize=" + size + " " + layout.options;
        SCOPED_TRACE(options);
        const std::string document =
            layout.isWide ? Document(height, width) : Document(width, height);
        const Job job = {options, ThroughPsToPs(document, options, QueuePPD())};
        const Rendering bare = job.Print("");
        const Rendering stamped = job.Print("KVWatermark=Draft");
        ASSERT_EQ(bare.pages.size(), static_cast<std::size_t>(layout.sheets));
        ASSERT_EQ(stamped.pages.size(), bare.pages.size());
        const double degrees = Angle(options + " KVWatermark=Draft");
        EXPECT_TRUE(
            IsUpright(bare.pages[0], Angle(options + " KVWatermark=Draft KVWatermarkAngle=0")));
        ExpectStamp(stamped.pages.front(), bare.pages.front(), degrees);
        ExpectStamp(stamped.pages.back(), bare.pages.back(), degrees);
    }
}

INSTANTIATE_TEST_SUITE_P(Sizes, WatermarkPictures, testing::Values("A4", "Letter"),
                         [](const auto &size) { return std::string(size.param); });

// A text with letters of Latin-1, some of which reach below the base line, at odd angles.
TEST(WatermarkPicture, OfAnyTextAtAnyAngleIsCentred) {
    const std::string options = "PageSize=A4";
    const Job job = {options, ThroughPsToPs(Document(595, 842), options, QueuePPD())};
    const Rendering bare = job.Print("");
    for (const char *more : {"KVWatermarkAngle=0", "KVWatermarkAngle=100", "KVWatermarkAngle=-45",
                             "KVWatermarkSize=30", "KVWatermarkFont=Times-Roman",
                             "KVWatermarkFont=Courier KVWatermarkAngle=200"}) {
        const std::string watermark = std::string("KVWatermark='Für Jürgen (100 %)' ") + more;
        SCOPED_TRACE(watermark);
        const Rendering stamped = job.Print(watermark);
        ASSERT_EQ(stamped.pages.size(), 4U);
        ExpectStamp(stamped.pages[3], bare.pages[3], Angle(options + " " + watermark));
    }
}

TEST(WatermarkPicture, StandsOnTheFirstSheetOnly) {
    const std::string options = "PageSize=A4";
    const Job job = {options, ThroughPsToPs(Document(595, 842), options, QueuePPD())};
    const Rendering bare = job.Print("");
    const Rendering stamped = job.Print("KVWatermark=Copy KVWatermarkPages=First");
    ASSERT_EQ(stamped.pages.size(), 4U);
    EXPECT_NE(stamped.pages[0].pixels, bare.pages[0].pixels);
    for (std::size_t sheet = 1; sheet < 4; sheet++) {
        EXPECT_EQ(stamped.pages[sheet].pixels, bare.pages[sheet].pixels);
    }
}

TEST(WatermarkPicture, HasItsColourAndDensity) {
    const std::string options = "PageSize=A4";
    const Job job = {options, ThroughPsToPs(Document(595, 842), options, QueuePPD())};
    const Rendering stamped =
        job.Print("KVWatermark=Draft KVWatermarkStyle=Filled KVWatermarkColor=Red");
    ASSERT_EQ(stamped.pages.size(), 4U);
    const RenderedPage &page = stamped.pages[0];
    const RenderedPage::Pixel red = {255, 153, 153};
    EXPECT_GT(std::count(page.pixels.begin(), page.pixels.end(), red), 5000);
}
