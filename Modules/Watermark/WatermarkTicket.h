// SPDX-License-Identifier: Apache-2.0
//
// The watermark that the print dialog sends: a line of text, how it looks and where it stands. The
// dialog measures the text; the printer only draws it. Integers that the ticket lacks are -1,
// floating numbers -1.0, texts empty.
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

struct WatermarkOptions {
    char name[256];            // empty: no watermark
    std::int32_t options;      // set to 1 once a text watermark is drawn
    std::int32_t onlyFirst;    // not 0: stamp once in a job
    char text[256];            // a PostScript string operand, "(DRAFT)"
    std::int32_t orientation;  // of the page, 1 to 4; 2 and 4 lie on their side
    std::int32_t paperHeight;  // points
    std::int32_t paperWidth;   // points
    char filePath[256];        // of an image; images are not drawn here
    std::int32_t type;         // 0: text
    char font[256];            // PostScript font name
    std::int32_t fontSize;     // points
    std::int32_t fontType;     // not looked at
    float red;                 // colours 0.0 to 1.0
    float green;
    float blue;
    float alpha;               // not looked at
    std::int32_t angle;        // degrees, counter-clockwise
    std::int32_t density;      // per cent
    float scale;               // per cent, for several pages on a sheet
    float horizontalPosition;  // not looked at
    float verticalPosition;    // not looked at
    float width;               // of the text's box, in points
    float height;
    float horizontalOffset;  // from the centred position, in points
    float verticalOffset;
};
extern WatermarkOptions psOptionWatermark;

// The type of a watermark that is drawn.
constexpr std::int32_t kWatermarkText = 0;

constexpr std::int32_t WatermarkTicketDataNum = 25;
extern const ticketData WatermarkticketData[];

// Fills psOptionWatermark from argv[5]. Returns 1.
int WatermarkGetTicketFromPDE(char *const argv[]);
