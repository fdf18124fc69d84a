// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/Booklet.h"

#include <cstring>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/PutPJL.h"
#include "Modules/Comment/CommentTicket.h"

namespace {

// Two and six pages turn the sheet; any other number keeps the document's own direction.
bool IsLandscapeSheet(const CommentOptions &ticket) {
    const std::int32_t direction = ticket.orientation;
    if (*ticket.pagesPerSheet == '\0') return false;
    const std::int32_t pages = LeadingInteger(ticket.pagesPerSheet);
    if (pages == 2 || pages == 6) {
        return direction == OptionPortrait || direction == OptionRotatedPortrait;
    }
    return direction == OptionLandscape || direction == OptionRotatedLandscape;
}

// The side that the kind of booklet names, or null.
const char *BindingSide(const CommentText &signature) {
    if (std::strstr(signature, "Left")) return "LEFT";
    if (std::strstr(signature, "Right")) return "RIGHT";
    return nullptr;
}

const char *Division(const CommentOptions &ticket) {
    if (ticket.signature == kOptionNone) return "OFF";
    const bool divided = *ticket.signatureVolume && ticket.signatureVolume != kOptionNone;
    return divided ? "MANUALDIVIDE" : "NONEDIVIDE";
}

}  // namespace

int OutputKPJLCommandforBooklet() {
    if (!JobPPDAttributeIs(KPPDPrinterLanguageEncodingKey, "UTF-8")) return 0;
    const CommentOptions &ticket = psoptioncomment;
    const int result = PutJobAttribute("DIND", IsLandscapeSheet(ticket) ? "LANDSCAPE" : "PORTRAIT");
    if (*ticket.signature == '\0') return result;
    const char *side = ticket.signature == kOptionNone ? "OFF" : BindingSide(ticket.signature);
    if (side) PutJobAttribute("DIBB", side);
    return PutJobAttribute("DIBK", Division(ticket));
}
