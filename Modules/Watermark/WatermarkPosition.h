// SPDX-License-Identifier: Apache-2.0
//
// Where a watermark's text begins, so that the box around it, turned by the watermark's angle, is
// centred on the page. Page, angle and scale come from psOptionWatermark.
#pragma once

// What the position is for.
constexpr int kWatermarkOnPage = 0;
// Each of several pages on a sheet. Kept as interface; no job reaches this.
constexpr int kWatermarkOnSheet = 1;

// Stores the start of the text's base line, in points. The box is `width` by `height` points and is
// moved from the centre by the offsets.
//
// An angle outside 0 to 360 degrees leaves nothing but the offsets; an orientation outside 1 to 4
// centres on the origin. On a sheet neither angle nor offsets count, an orientation outside 1 to 4
// leaves `x` and `y` alone, and numbers of pages, rows and columns below 1 count as 1.
void GetWatermarkPostion(float *x, float *y, int layout, float width, float height,
                         float horizontalOffset, float verticalOffset);
