// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkTicket.h"

#include <iterator>

WatermarkOptions psOptionWatermark;

namespace {

constexpr char kWMNameTicketKey[] = KV_TICKET "WMARKNameTicket";
constexpr char kWMARKOptionsTicketKey[] = KV_TICKET "WMARKOptionsTicket";
constexpr char kWMARKOnlyFirstTicketKey[] = KV_TICKET "WMARKOnlyFirstTicket";
constexpr char kWMARKTextTicketKey[] = KV_TICKET "WMARKTextTicket";
constexpr char KWMOrientationTicketKey[] = KV_TICKET "WMARKOrientationTicket";
constexpr char KWMPaperHeightTicketKey[] = KV_TICKET "WMARKPaperHeightTicket";
constexpr char KWMPaperWidthTicketKey[] = KV_TICKET "WMARKPaperWidthTicket";
constexpr char kWMARKFilePathTicketKey[] = KV_TICKET "WMARKFilePathTicket";
constexpr char kWMARKTypeTicketKey[] = KV_TICKET "WMARKTypeTicket";
constexpr char kWMARKFontTicketKey[] = KV_TICKET "WMARKFontTicket";
constexpr char kWMARKFontSizeTicketKey[] = KV_TICKET "WMARKFontSizeTicket";
constexpr char kWMARKFontTypeTicketKey[] = KV_TICKET "WMARKFontTypeTicket";
constexpr char kWMARKColorRTicketKey[] = KV_TICKET "WMARKColorRTicket";
constexpr char kWMARKColorGTicketKey[] = KV_TICKET "WMARKColorGTicket";
constexpr char kWMARKColorBTicketKey[] = KV_TICKET "WMARKColorBTicket";
constexpr char kWMARKColorATicketKey[] = KV_TICKET "WMARKColorATicket";
constexpr char kWMARKAngleTicketKey[] = KV_TICKET "WMARKAngleTicket";
constexpr char kWMARKDensityTicketKey[] = KV_TICKET "WMARKDensityTicket";
constexpr char kWMARKScaleTicketKey[] = KV_TICKET "WMARKScaleTicket";
constexpr char kWMARKPosHorizontalTicketKey[] = KV_TICKET "WMARKPosHorizontalTicket";
constexpr char kWMARKPosVerticalTicketKey[] = KV_TICKET "WMARKPosVerticalTicket";
constexpr char KWMARKWidthTicketKey[] = KV_TICKET "WMARKWidthTicket";
constexpr char KWMARKHeightTicketKey[] = KV_TICKET "WMARKHeightTicket";
constexpr char KWMARKhOffsetTicketKey[] = KV_TICKET "WMARKhOffsetTicket";
constexpr char KWMARKvOffsetTicketKey[] = KV_TICKET "WMARKvOffsetTicket";

WatermarkOptions &w = psOptionWatermark;

}  // namespace

// clang-format off
const ticketData WatermarkticketData[] = {
    {kWMNameTicketKey,             w.name,                sizeof w.name,                GetTicketString},
    {kWMARKOptionsTicketKey,       &w.options,            sizeof w.options,             GetTicketInteger},
    {kWMARKOnlyFirstTicketKey,     &w.onlyFirst,          sizeof w.onlyFirst,           GetTicketInteger},
    {kWMARKTextTicketKey,          w.text,                sizeof w.text,                GetTicketStringConvertedToPrtLang},
    {KWMOrientationTicketKey,      &w.orientation,        sizeof w.orientation,         GetTicketInteger},
    {KWMPaperHeightTicketKey,      &w.paperHeight,        sizeof w.paperHeight,         GetTicketInteger},
    {KWMPaperWidthTicketKey,       &w.paperWidth,         sizeof w.paperWidth,          GetTicketInteger},
    {kWMARKFilePathTicketKey,      w.filePath,            sizeof w.filePath,            GetTicketStringConvertedToPrtLang},
    {kWMARKTypeTicketKey,          &w.type,               sizeof w.type,                GetTicketInteger},
    {kWMARKFontTicketKey,          w.font,                sizeof w.font,                GetTicketString},
    {kWMARKFontSizeTicketKey,      &w.fontSize,           sizeof w.fontSize,            GetTicketInteger},
    {kWMARKFontTypeTicketKey,      &w.fontType,           sizeof w.fontType,            GetTicketInteger},
    {kWMARKColorRTicketKey,        &w.red,                sizeof w.red,                 GetTicketFloat},
    {kWMARKColorGTicketKey,        &w.green,              sizeof w.green,               GetTicketFloat},
    {kWMARKColorBTicketKey,        &w.blue,               sizeof w.blue,                GetTicketFloat},
    {kWMARKColorATicketKey,        &w.alpha,              sizeof w.alpha,               GetTicketFloat},
    {kWMARKAngleTicketKey,         &w.angle,              sizeof w.angle,               GetTicketInteger},
    {kWMARKDensityTicketKey,       &w.density,            sizeof w.density,             GetTicketInteger},
    {kWMARKScaleTicketKey,         &w.scale,              sizeof w.scale,               GetTicketFloat},
    {kWMARKPosHorizontalTicketKey, &w.horizontalPosition, sizeof w.horizontalPosition,  GetTicketFloat},
    {kWMARKPosVerticalTicketKey,   &w.verticalPosition,   sizeof w.verticalPosition,    GetTicketFloat},
    {KWMARKWidthTicketKey,         &w.width,              sizeof w.width,               GetTicketFloat},
    {KWMARKHeightTicketKey,        &w.height,             sizeof w.height,              GetTicketFloat},
    {KWMARKhOffsetTicketKey,       &w.horizontalOffset,   sizeof w.horizontalOffset,    GetTicketFloat},
    {KWMARKvOffsetTicketKey,       &w.verticalOffset,     sizeof w.verticalOffset,      GetTicketFloat},
};
// clang-format on
static_assert(std::size(WatermarkticketData) == WatermarkTicketDataNum);

int WatermarkGetTicketFromPDE(char *const argv[]) {
    return GetTicketFromArray(argv, WatermarkticketData, WatermarkTicketDataNum);
}
