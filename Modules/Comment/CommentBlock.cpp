// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/CommentBlock.h"

#include <cstring>
#include <iterator>

#include "CommonSource/FilterFrame/Source/PutPJL.h"
#include "Modules/Comment/ColorMode.h"
#include "Modules/Comment/CommentTicket.h"

namespace {

// A saddle-stitched job is reported as a booklet, not as a stapled one.
constexpr std::string_view kSaddleStaple = "SaddleStaple";

// The sides or the binding edge decide; the first row with either wins.
struct DuplexType {
    std::string_view sides;
    std::int32_t bindingEdge;
    const char *keyword;
};
// clang-format off
constexpr DuplexType duplexTypes[] = {
    {kSidesLongEdge,  OptionEdgeLong,    "DUPLEX"},
    {kSidesShortEdge, OptionEdgeShort,   "TUMBLE"},
    {kSidesOneSided,  OptionEdgeSimplex, "SIMPLEX"},
};
// clang-format on

const char *FindDuplexType(const CommentOptions &ticket) {
    if (*ticket.sides == '\0') return nullptr;
    for (const DuplexType &type : duplexTypes) {
        if (ticket.sides == type.sides || ticket.duplexBindingEdge == type.bindingEdge) {
            return type.keyword;
        }
    }
    return nullptr;
}

// Copies are made of the whole job or of each page; the other count is 1.
int PutCopies(const CommentOptions &ticket) {
    const bool collated = ticket.collation == kCollate;
    PutJobInfo("%s=%d\n", collated ? "JOBCOPIES" : "PAGECOPIES", ticket.copies);
    return PutJobInfo("%s=1\n", collated ? "PAGECOPIES" : "JOBCOPIES");
}

// Leaves the number of a volume such as "5Sheets"; a volume without the word stays whole.
void CutToThreshold(CommentText &volume) {
    char *unit = std::strstr(volume, "Sheet");
    if (unit) std::memset(unit, 0, static_cast<std::size_t>(std::end(volume) - unit));
}

int PutBookletType(CommentOptions &ticket) {
    if (ticket.signature == kOptionNone || *ticket.signatureVolume == '\0') {
        return PutJobInfo("BOOKLETTYPE=TYPE[NOBOOKLET]\n");
    }
    if (ticket.signatureVolume == kOptionNone) return PutJobInfo("BOOKLETTYPE=TYPE[NONEDIVIDE]\n");
    CutToThreshold(ticket.signatureVolume);
    return PutJobInfo("BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[%s]\n", ticket.signatureVolume);
}

const char *OnOrOff(bool on) {
    return on ? "ON" : "OFF";
}

}  // namespace

int OutputKPJLCommandforCommentVersionLow() {
    return PutJobInfo("VERSION=1.3.0\n");
}

int OutputKPJLCommandforCommentVersionHigh() {
    return PutJobInfo("VERSION=1.5.0\n");
}

int OutputKPJLCommandforCommentBegin() {
    PutJobInfo("BEGIN\n");
    PutJobInfo("PDLTYPE=PDL[POSTSCRIPT]:VERSION[3]\n");
    return PutJobInfo("JOBTYPE=PRINT\n");
}

int OutputKPJLCommandforCommentBasic() {
    CommentOptions &ticket = psoptioncomment;
    int result = 0;
    if (*ticket.collation) result = PutCopies(ticket);
    if (const char *type = FindDuplexType(ticket)) result = PutJobInfo("DUPLEXTYPE=%s\n", type);
    if (const char *mode = JobColorMode()) result = PutJobInfo("COLORMODE=%s\n", mode);
    if (*ticket.pagesPerSheet) result = PutJobInfo("NUP=%s\n", ticket.pagesPerSheet);
    if (*ticket.staple) {
        const bool stapled = ticket.staple != kOptionNone && ticket.staple != kSaddleStaple;
        result = PutJobInfo("STAPLE=%s\n", OnOrOff(stapled));
    }
    if (*ticket.punch) result = PutJobInfo("PUNCH=%s\n", OnOrOff(ticket.punch != kOptionNone));
    if (*ticket.signature) result = PutBookletType(ticket);
    return result;
}

int OutputKPJLCommandforCommentEnd() {
    return PutJobInfo("END\n");
}
