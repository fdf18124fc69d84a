// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Sheet.h"

#include <cups/ppd.h>
#include <strings.h>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

namespace {

// What CUPS's own filters reckon with when there is no PPD.
constexpr Sheet kDefaultSheet = {612, 792, 18, 36, 594, 756, 0};

// The longest side of a page, in points, that PostScript printers take: 200 inches. A PPD and a
// custom size can say anything.
constexpr float kLongestSide = 14400;

// Values of orientation-requested.
enum Orientation { kPortrait = 3, kLandscape, kReverseLandscape, kReversePortrait };

bool IsTrue(const char *value) {
    return strcasecmp(value, "no") != 0 && strcasecmp(value, "off") != 0 &&
           strcasecmp(value, "false") != 0;
}

// How CUPS turns a single page.
int PageTurn(const CompletionContext &context) {
    if (const char *landscape = JobValue(context, "landscape")) {
        if (!IsTrue(landscape)) return 0;
        return context.ppd && context.ppd->landscape > 0 ? 90 : 270;
    }
    const char *orientation = JobValue(context, "orientation-requested");
    switch (orientation ? LeadingInteger(orientation) : kPortrait) {
        case kLandscape:
            return 90;
        case kReverseLandscape:
            return 270;
        case kReversePortrait:
            return 180;
        default:
            return 0;
    }
}

// Two and six pages stand across the sheet: upright pages are turned left, others back.
int TurnOfLayout(int pagesPerSheet, int pageTurn) {
    if (pagesPerSheet != 2 && pagesPerSheet != 6) return 0;
    return pageTurn % 180 == 0 ? 90 : 270;
}

bool IsSide(float length) {
    return length >= 1 && length <= kLongestSide;
}

bool AreEdges(float low, float high, float length) {
    return low >= 0 && low < high && high <= length;
}

Sheet MarkedSheet(ppd_file_t *ppd) {
    const ppd_size_t *size = ppd ? ppdPageSize(ppd, nullptr) : nullptr;
    if (!size || !IsSide(size->width) || !IsSide(size->length)) return kDefaultSheet;
    if (!AreEdges(size->left, size->right, size->width) ||
        !AreEdges(size->bottom, size->top, size->length)) {
        return {size->width, size->length, 0, 0, size->width, size->length, 0};
    }
    return {size->width, size->length, size->left, size->bottom, size->right, size->top, 0};
}

}  // namespace

Sheet SheetOf(const CompletionContext &context) {
    Sheet sheet = MarkedSheet(context.ppd);
    const char *numberUp = JobValue(context, kNumberUpTicketKey);
    const int turn = PageTurn(context);
    sheet.turn = (turn + TurnOfLayout(numberUp ? LeadingInteger(numberUp) : 1, turn)) % 360;
    return sheet;
}
