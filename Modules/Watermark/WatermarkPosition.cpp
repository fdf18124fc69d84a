// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkPosition.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "Modules/Watermark/WatermarkTicket.h"

namespace {

// Pi to seven decimals and its multiples: what the print dialog reckons with.
constexpr double kPi = 3.1415926;
constexpr double kHalfPi = 1.5707963;
constexpr double kThreeHalvesPi = 4.7123889000000005;

struct Point {
    double x, y;
};

bool IsUpright() {
    return psOptionWatermark.orientation == 1 || psOptionWatermark.orientation == 3;
}

bool IsOnItsSide() {
    return psOptionWatermark.orientation == 2 || psOptionWatermark.orientation == 4;
}

Point PageCentre() {
    const double halfWidth = psOptionWatermark.paperWidth / 2.0;
    const double halfHeight = psOptionWatermark.paperHeight / 2.0;
    if (IsUpright()) return {halfWidth, halfHeight};
    if (IsOnItsSide()) return {halfHeight, halfWidth};
    return {0.0, 0.0};
}

// The corner of the turned box from which the text runs.
Point StartCorner(double halfWidth, double halfHeight) {
    // A negative angle becomes a large one, which is none of a circle.
    const auto angle = static_cast<std::uint32_t>(psOptionWatermark.angle);
    if (angle > 360) return {0.0, 0.0};

    const double quarterTurns = angle <= 90    ? 0.0
                                : angle <= 180 ? kHalfPi
                                : angle <= 270 ? kPi
                                               : kThreeHalvesPi;
    const double rest = angle * kPi / 180.0 - quarterTurns;
    const double across = halfWidth * std::cos(rest) - halfHeight * std::sin(rest);
    const double up = halfHeight * std::cos(rest) + halfWidth * std::sin(rest);
    const Point centre = PageCentre();
    if (angle <= 90) return {centre.x - across, centre.y - up};
    if (angle <= 180) return {centre.x + up, centre.y - across};
    if (angle <= 270) return {centre.x + across, centre.y + up};
    return {centre.x - up, centre.y + across};
}

std::int32_t CountFrom(const char *text) {
    return std::max(LeadingInteger(text), 1);
}

// The start of the text on a sheet that the layout divides, its pages shrunk by the square root of
// their number. Two and six pages stand across the sheet.
Point StartOnSheet(double width, double height) {
    const std::int32_t pages = CountFrom(StdLayoutInfo);
    const double shrink = std::sqrt(pages);
    const double scale = psOptionWatermark.scale / 100.0;
    const Point centre = PageCentre();
    Point page = {centre.x / shrink, centre.y / shrink};
    if (pages == 2 || pages == 6) {
        page = {centre.y / CountFrom(StdLayoutColumnInfo), centre.x / CountFrom(StdLayoutRowInfo)};
    }
    if (IsOnItsSide()) std::swap(page.x, page.y);
    return {page.x - 0.5 * width * scale / shrink, page.y + 0.5 * scale * height / shrink};
}

}  // namespace

void GetWatermarkPostion(float *x, float *y, int layout, float width, float height,
                         float horizontalOffset, float verticalOffset) {
    if (layout != kWatermarkOnPage) {
        if (!IsUpright() && !IsOnItsSide()) return;
        const Point start = StartOnSheet(width, height);
        *x = static_cast<float>(start.x);
        *y = static_cast<float>(start.y);
        return;
    }
    const Point start = StartCorner(width / 2.0, height / 2.0);
    *x = static_cast<float>(start.x) + horizontalOffset;
    *y = static_cast<float>(start.y) + verticalOffset;
}
