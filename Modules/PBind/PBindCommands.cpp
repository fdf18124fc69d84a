// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PBindCommands.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>
#include <string_view>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "Modules/PBind/PBindTicket.h"
#include "Modules/PBind/PerfectBindParam.h"

namespace {

constexpr std::size_t kLineSize = 100;  // bytes of a line, its NUL included
constexpr std::size_t kUnitLength = 2;  // "mm"
constexpr std::int64_t kTenths = 10;    // in a millimetre

PBindOptions &p = psoptionpbind;

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
    return std::string_view(p.bindPosition) == kPBindRight;
}

void WriteNumber(std::int64_t number, const char *attribute) {
    using Limits = std::numeric_limits<std::int32_t>;
    const std::int64_t bounded = std::clamp<std::int64_t>(number, Limits::min(), Limits::max());
    char line[kLineSize];
    std::snprintf(line, sizeof line, "@PJL SET JOBATTR=\"@%s=%d\"\n", attribute,
                  static_cast<std::int32_t>(bounded));
    KVfputs(line, stdout);
}

// A length of the PPD, in points, as whole millimetres; what exceeds 32 bits is no length.
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

void WriteKeyword(PBindText &field, const char *attribute) {
    ReplaceByKeyword(field);
    OutputKPJLCommandforPBindNormal(field, attribute);
}

Size WriteBodySize() {
    if (!IsGiven(p.pageSize)) return {};
    const Size body = PageSize(p.pageSize);
    WriteKeyword(p.pageSize, "PBBP");
    return body;
}

// Writes what is cut off the body and how far the image moves with it. `cut` is the trimmed size
// and `shift` the image shift as far as the ticket gives a size to cut to; positions come first.
void WriteCut(const Size &body, const Size &cut, std::int64_t shift) {
    const bool hasFore = IsGiven(p.cutPositionFore);
    if (hasFore) {
        const std::int64_t fore = CutMillimetres(p.cutPositionFore);
        shift = fore * kTenths / 2;
        WriteNumber(body.width - fore * kTenths, "PBTW");
    }
    if (IsGiven(p.cutPositionTop)) {
        WriteNumber(body.height - 2 * kTenths * CutMillimetres(p.cutPositionTop), "PBTH");
    } else if (hasFore) {
        WriteNumber(body.height, "PBTH");
    } else {
        WriteNumber(cut.width, "PBTW");
        WriteNumber(cut.height, "PBTH");
    }
    if (p.minimumCut != 0) return;
    const std::int64_t front = IsBoundAtRight() ? shift : -shift;
    WriteNumber(front, "ISXO");
    WriteNumber(-front, "ISXT");
}

void WriteTrimmedSize(const Size &body) {
    const bool isTrimmed = std::string_view(p.trimming) != kPBindOff;
    Size cut;
    std::int64_t shift = 0;
    if (IsGiven(p.cutPageSize)) {
        cut = PageSize(p.cutPageSize);
        shift = (body.width - cut.width) / 2;
        ReplaceByKeyword(p.cutPageSize);
    } else {
        CopyBounded(p.cutPageSize, isTrimmed ? "CUSTOM" : p.pageSize);
    }
    OutputKPJLCommandforPBindNormal(p.cutPageSize, "PBTP");
    if (isTrimmed) WriteCut(body, cut, shift);
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
    {p.cutPageAdjustmentFore,   "PBAW", "PBAW", kPBindSignAsGiven},
    {p.cutPageAdjustmentTB,     "PBAH", "PBAH", kPBindSignAsGiven},
    {p.rotationAdjustTop,       "PBAT", "PBAB", kPBindSignAsGiven},
    {p.rotationAdjustBot,       "PBAB", "PBAT", kPBindSignAsGiven},
    {p.rotationAdjustFore,      "PBAF", "PBAF", kPBindSignTurnsForRight},
    {p.coverAdjustX,            "PBAX", "PBAX", kPBindSignTurnsForRight},
    {p.coverAdjustY,            "PBAY", "PBAY", kPBindSignTurnsForTopAndLeft},
    {p.cutPositionAdjustmentTB, "PBAV", "PBAV", kPBindSignTurnsForRight},
};
// clang-format on

void WriteAdjustments() {
    for (const Adjustment &row : adjustments) {
        const char *attribute = IsBoundAtRight() ? row.attributeForRight : row.attribute;
        OutputKPJLCommandforPBindDigital(row.value, 1, attribute, p.bindPosition, row.sign);
    }
}

void WriteCover() {
    if (IsGiven(p.coverPageSize)) {
        // The dialog offers "DL" for the cover that the printer knows as a tabloid sheet.
        if (std::string_view(p.coverPageSize) == "DL") CopyBounded(p.coverPageSize, "Tabloid");
        WriteKeyword(p.coverPageSize, "PBCP");
    }
    if (IsGiven(p.coverMediaType)) WriteKeyword(p.coverMediaType, "PBCQ");
    // The printer takes the tray only together with a colour.
    if (IsGiven(p.coverMediaColor)) {
        WriteKeyword(p.coverMediaColor, "PBCC");
        WriteKeyword(p.coverPaperTray, "PBCT");
    }
}

}  // namespace

void OutputKPJLCommandforPBindNormal(const char *value, const char *attribute) {
    char line[kLineSize];
    const int length =
        std::snprintf(line, sizeof line, "@PJL SET JOBATTR=\"@%s=%s\"\n", attribute, value);
    if (length > 0) KVfputs(line, stdout);
}

void OutputKPJLCommandforPBindDigital(const char *value, std::int32_t factor, const char *attribute,
                                      const char *bindPosition, std::int32_t mode) {
    if (*value == '\0') return;
    const std::string_view position = bindPosition;
    const bool turns =
        (mode == kPBindSignTurnsForRight && position == kPBindRight) ||
        (mode == kPBindSignTurnsForTopAndLeft && (position == kPBindTop || position == kPBindLeft));
    const std::int64_t number = std::int64_t{LeadingInteger(value)} * factor;
    WriteNumber(turns ? -number : number, attribute);
}

void OutputKPJLCommandforPerfectBind() {
    if (!IsGiven(p.bindPosition) || std::string_view(p.bindPosition) == kPBindOff) return;
    OutputKPJLCommandforPBindNormal(p.bindPosition, "PBRE");
    OutputKPJLCommandforPBindNormal(p.rotation, "MSDA");
    OutputKPJLCommandforPBindNormal(p.trimming, "PBTC");
    WriteTrimmedSize(WriteBodySize());
    WriteAdjustments();
    WriteCover();
    OutputKPJLCommandforPBindNormal(kPBindOff, "PBCI");
}
