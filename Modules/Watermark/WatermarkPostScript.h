// SPDX-License-Identifier: Apache-2.0
//
// Draws the watermark: procedures after "%%BeginProlog", a mark at each page's start, and at each
// page's end the text, on top of what the page shows. The document's prolog defines the saves that
// a page end goes back to (pgsave for "ep", pm for "endp").
#pragma once

#include <cstdio>

// Whether the job has a watermark that is drawn: a text.
bool WatermarkIsDrawn();

// Writes the text, its colour and its place to `stream`, and the grestore after them.
void WatermarkOutputStamp(std::FILE *stream);

// Writes what the watermark needs at the injection point `point` to `stream`: nothing without a
// text watermark, and each piece only once if the watermark is for the first page alone. The page
// number is not looked at.
void WatermarkOutputPSCommandFromFilter(int point, int pageNumber, std::FILE *stream);
