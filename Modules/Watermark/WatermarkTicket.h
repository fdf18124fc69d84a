// SPDX-License-Identifier: Apache-2.0
//
// The watermark that the print dialog sends: a line of text, how it looks and where it stands. The
// dialog measures the text; the printer only draws it. Integers that the ticket lacks are -1,
// floating numbers -1.0, texts empty.
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

#define KV_KEY KV_KEY_CONSTANT
#include "Modules/Watermark/WatermarkTicket.def"

struct WatermarkOptions {
#define KV_KEY KV_KEY_FIELD
#include "Modules/Watermark/WatermarkTicket.def"
};
extern WatermarkOptions psOptionWatermark;

// The type of a watermark that is drawn.
constexpr std::int32_t kWatermarkText = 0;

extern const ticketData WatermarkticketData[];
extern const std::int32_t WatermarkTicketDataNum;

// Fills psOptionWatermark from argv[5]. Returns 1.
int WatermarkGetTicketFromPDE(char *const argv[]);
