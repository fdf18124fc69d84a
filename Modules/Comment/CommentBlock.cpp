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

const char *FindDuplexType(const CommentOptions &job) {
    if (*job.sides == '\0') return nullptr;
    for (const DuplexType &type : duplexTypes) {
        if (job.sides == type.sides || job.duplexBindingEdge == type.bindingEdge) {
            return type.keyword;
        }
    }
    return nullptr;
}

// Copies are made of the whole job or of each page; the other count is 1.
int PutCopies(const CommentOptions &job) {
    const bool collated = job.collation == kCollate;
    PutJobInfo("%s=%d\n", collated ? "JOBCOPIES" : "PAGECOPIES", job.copies);
    return PutJobInfo("%s=1\n", collated ? "PAGECOPIES" : "JOBCOPIES");
}

// Leaves the number of a volume such as "5Sheets"; a volume without the word stays whole.
void CutToThreshold(CommentText &volume) {
    char *unit = std::strstr(volume, "Sheet");
    if (unit) std::memset(unit, 0, static_cast<std::size_t>(std::end(volume) - unit));
}

int PutBookletType(CommentOptions &job) {
    if (job.signature == kOptionNone || *job.signatureVolume == '\0') {
        return PutJobInfo("BOOKLETTYPE=TYPE[NOBOOKLET]\n");
    }
    if (job.signatureVolume == kOptionNone) return PutJobInfo("BOOKLETTYPE=TYPE[NONEDIVIDE]\n");
    CutToThreshold(job.signatureVolume);
    return PutJobInfo("BOOKLETTYPE=TYPE[MANUALDIVIDE]:THRESHOLD[%s]\n", job.signatureVolume);
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
    CommentOptions &job = psoptioncomment;
    int result = 0;
    if (*job.collation) result = PutCopies(job);
    if (const char *type = FindDuplexType(job)) result = PutJobInfo("DUPLEXTYPE=%s\n", type);
    if (const char *mode = JobColorMode()) result = PutJobInfo("COLORMODE=%s\n", mode);
    if (*job.pagesPerSheet) result = PutJobInfo("NUP=%s\n", job.pagesPerSheet);
    if (*job.staple) {
        const bool stapled = job.staple != kOptionNone && job.staple != kSaddleStaple;
        result = PutJobInfo("STAPLE=%s\n", OnOrOff(stapled));
    }
    if (*job.punch) result = PutJobInfo("PUNCH=%s\n", OnOrOff(job.punch != kOptionNone));
    if (*job.signature) result = PutBookletType(job);
    return result;
}

int OutputKPJLCommandforCommentEnd() {
    return PutJobInfo("END\n");
}
