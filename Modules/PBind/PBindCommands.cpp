// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PBindCommands.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <string_view>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "CommonSource/FilterFrame/Source/PutPJL.h"
#include "Modules/PBind/PBindTicket.h"
#include "Modules/PBind/PerfectBindParam.h"

namespace {

constexpr std::size_t kUnitLength = 2;  // "mm"
constexpr std::int64_t kTenths = 10;    // in a millimetre

PBindOptions &ticket = psoptionpbind;

// Width and height in tenths of a millimetre. Always whole millimetres, so that half of a
// difference is exact. 64 bits leave room to calculate with any 32-bit number of the ticket.
struct Size {
    std::int64_t width = 0;
    std::int64_t height = 0;
};

bool IsGiven(const PBindText &field) {
    return *field != '\0';
}

bool IsBoundAtRight() {
    return std::string_view(ticket.bindPosition) == kPBindRight;
}

// Beyond 32 bits the nearest number that has 32.
void PutNumber(std::int64_t number, const char *attribute) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t bounded = std::clamp<std::int64_t>(number, Limits::min(), Limits::max());
    PutJobAttribute(attribute, static_cast<std::int32_t>(bounded));
}

// A length of the PPD, in points, as whole millimetres; what exceeds 32 bits is no length. The
// printer takes 170 points for 60 millimetres, cut to tenths before they are cut to whole ones.
std::int64_t TenthsFromPoints(float points) {
    if (!(std::fabs(points) < 0x1p31F)) return 0;
    return static_cast<std::int64_t>(points) * 60 / 17 / 10 * kTenths;
}

// The size that the job's PPD has under `name`; 0 by 0 if it has none.
Size PageSize(const char *name) {
    const ppd_size_t *size = ppdPageSize(JobPPD(), name);
    if (!size) return {};
    return {TenthsFromPoints(size->width), TenthsFromPoints(size->length)};
}

// The millimetres of a cut position, "7mm"; 0 if there is nothing in front of the unit.
std::int64_t CutMillimetres(const PBindText &position) {
    const std::size_t length = std::strlen(position);
    if (length < kUnitLength) return 0;
    PBindText number;
    CopyBounded(number, length - kUnitLength + 1, position);
    return LeadingInteger(number);
}

void ReplaceByKeyword(PBindText &field) {
    convertPBindPPDValue(field, field, sizeof field);
}

void PutKeyword(PBindText &field, const char *attribute) {
    ReplaceByKeyword(field);
    OutputKPJLCommandforPBindNormal(field, attribute);
}

Size PutBodySize() {
    if (!IsGiven(ticket.pageSize)) return {};
    const Size body = PageSize(ticket.pageSize);
    PutKeyword(ticket.pageSize, "PBBP");
    return body;
}

// Puts what is cut off the body and how far the image moves with it. `cut` is the trimmed size
// and `shift` the image shift as far as the ticket gives a size to cut to; positions come first.
void PutCut(const Size &body, const Size &cut, std::int64_t shift) {
    const bool hasFore = IsGiven(ticket.cutPositionFore);
    if (hasFore) {
        const std::int64_t fore = CutMillimetres(ticket.cutPositionFore);
        shift = fore * kTenths / 2;
        PutNumber(body.width - fore * kTenths, "PBTW");
    }
    if (IsGiven(ticket.cutPositionTop)) {
        PutNumber(body.height - 2 * kTenths * CutMillimetres(ticket.cutPositionTop), "PBTH");
    } else if (hasFore) {
        PutNumber(body.height, "PBTH");
    } else {
        PutNumber(cut.width, "PBTW");
        PutNumber(cut.height, "PBTH");
    }
    if (ticket.minimumCut != 0) return;
    const std::int64_t front = IsBoundAtRight() ? shift : -shift;
    PutNumber(front, "ISXO");
    PutNumber(-front, "ISXT");
}

void PutTrimmedSize(const Size &body) {
    const bool isTrimmed = std::string_view(ticket.trimming) != kPBindOff;
    Size cut;
    std::int64_t shift = 0;
    if (IsGiven(ticket.cutPageSize)) {
        cut = PageSize(ticket.cutPageSize);
        shift = (body.width - cut.width) / 2;
        ReplaceByKeyword(ticket.cutPageSize);
    } else {
        CopyBounded(ticket.cutPageSize, isTrimmed ? "CUSTOM" : ticket.pageSize);
    }
    OutputKPJLCommandforPBindNormal(ticket.cutPageSize, "PBTP");
    if (isTrimmed) PutCut(body, cut, shift);
}

// The fine adjustments in the order of their lines. The top and bottom of a book that is bound at
// the right are exchanged.
struct Adjustment {
    const PBindText &value;
    const char *attribute;
    const char *attributeForRight;
    PBindSign sign;
};
// clang-format off
constexpr Adjustment adjustments[] = {
    {ticket.cutPageAdjustmentFore,   "PBAW", "PBAW", kPBindSignAsGiven},
    {ticket.cutPageAdjustmentTB,     "PBAH", "PBAH", kPBindSignAsGiven},
    {ticket.rotationAdjustTop,       "PBAT", "PBAB", kPBindSignAsGiven},
    {ticket.rotationAdjustBot,       "PBAB", "PBAT", kPBindSignAsGiven},
    {ticket.rotationAdjustFore,      "PBAF", "PBAF", kPBindSignTurnsForRight},
    {ticket.coverAdjustX,            "PBAX", "PBAX", kPBindSignTurnsForRight},
    {ticket.coverAdjustY,            "PBAY", "PBAY", kPBindSignTurnsForTopAndLeft},
    {ticket.cutPositionAdjustmentTB, "PBAV", "PBAV", kPBindSignTurnsForRight},
};
// clang-format on

void PutAdjustments() {
    for (const Adjustment &row : adjustments) {
        const char *attribute = IsBoundAtRight() ? row.attributeForRight : row.attribute;
        OutputKPJLCommandforPBindDigital(row.value, 1, attribute, ticket.bindPosition, row.sign);
    }
}

void PutCover() {
    if (IsGiven(ticket.coverPageSize)) {
        // The dialog offers "DL" for the cover that the printer knows as a tabloid sheet.
        if (std::string_view(ticket.coverPageSize) == "DL")
            CopyBounded(ticket.coverPageSize, "Tabloid");
        PutKeyword(ticket.coverPageSize, "PBCP");
    }
    if (IsGiven(ticket.coverMediaType)) PutKeyword(ticket.coverMediaType, "PBCQ");
    // The printer takes the tray only together with a colour.
    if (IsGiven(ticket.coverMediaColor)) {
        PutKeyword(ticket.coverMediaColor, "PBCC");
        PutKeyword(ticket.coverPaperTray, "PBCT");
    }
}

}  // namespace

void OutputKPJLCommandforPBindNormal(const char *value, const char *attribute) {
    PutJobAttribute(attribute, value);
}

void OutputKPJLCommandforPBindDigital(const char *value, std::int32_t factor, const char *attribute,
                                      const char *bindPosition, std::int32_t mode) {
    if (*value == '\0') return;
    const std::string_view position = bindPosition;
    const bool turns =
        (mode == kPBindSignTurnsForRight && position == kPBindRight) ||
        (mode == kPBindSignTurnsForTopAndLeft && (position == kPBindTop || position == kPBindLeft));
    const std::int64_t number = std::int64_t{LeadingInteger(value)} * factor;
    PutNumber(turns ? -number : number, attribute);
}

void OutputKPJLCommandforPerfectBind() {
    if (!IsGiven(ticket.bindPosition) || std::string_view(ticket.bindPosition) == kPBindOff) return;
    OutputKPJLCommandforPBindNormal(ticket.bindPosition, "PBRE");
    OutputKPJLCommandforPBindNormal(ticket.rotation, "MSDA");
    OutputKPJLCommandforPBindNormal(ticket.trimming, "PBTC");
    PutTrimmedSize(PutBodySize());
    PutAdjustments();
    PutCover();
    OutputKPJLCommandforPBindNormal(kPBindOff, "PBCI");
}
