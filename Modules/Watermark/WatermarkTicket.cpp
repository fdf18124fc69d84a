// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkTicket.h"

#include <iterator>

WatermarkOptions psOptionWatermark;

namespace {

constexpr WatermarkOptions &ticket = psOptionWatermark;

}  // namespace

const ticketData WatermarkticketData[] = {
#define KV_KEY KV_KEY_ROW
#include "Modules/Watermark/WatermarkTicket.def"
};
const std::int32_t WatermarkTicketDataNum = std::size(WatermarkticketData);

int WatermarkGetTicketFromPDE(char *const argv[]) {
    return GetTicketFromArray(argv, WatermarkticketData, WatermarkTicketDataNum);
}
