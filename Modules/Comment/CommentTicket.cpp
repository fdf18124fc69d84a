// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/CommentTicket.h"

#include <cstring>
#include <iterator>

#include "CommonSource/FilterFrame/Source/BoundedText.h"

CommentOptions psoptioncomment;

namespace {

constexpr char kSidesTicketKey[] = "sides";
constexpr char kColorModeTicketKey[] = "KVColorMode";
constexpr char kStapleTicketKey[] = "KVStaple";
constexpr char kPunchTicketKey[] = "KVPunch";
constexpr char kNumPunchHolesTicketKey[] = "KVNumPunchHoles";
constexpr char kSignatureTicketKey[] = "KVSignature";
constexpr char kSignatureVolumeTicketKey[] = "KVSigVol";
constexpr char kLineWeightAdjustmentTicketKey[] = "KVLineWeightAdjustment";
constexpr char kDuplexBindingEdgeTicketKey[] = "DuplexBindingEdge..n.";
constexpr char kCopiesTicketKey[] = "com.apple.print.PrintSettings.PMCopies..n.";
constexpr char kOrientationTicketKey[] = "orientation-requested";

CommentOptions &c = psoptioncomment;

}  // namespace

// clang-format off
const ticketData CommentticketData[] = {
    {kSidesTicketKey,                c.sides,                sizeof c.sides,                GetTicketStringConvertedToPrtLang},
    {kColorModeTicketKey,            c.colorMode,            sizeof c.colorMode,            GetTicketStringConvertedToPrtLang},
    {kNumberUpTicketKey,             c.pagesPerSheet,        sizeof c.pagesPerSheet,        GetNumberUpTicketStringForComment},
    {kStapleTicketKey,               c.staple,               sizeof c.staple,               GetTicketStringConvertedToPrtLang},
    {kPunchTicketKey,                c.punch,                sizeof c.punch,                GetTicketStringConvertedToPrtLang},
    {kNumPunchHolesTicketKey,        c.punchHoles,           sizeof c.punchHoles,           GetTicketStringConvertedToPrtLang},
    {kSignatureTicketKey,            c.signature,            sizeof c.signature,            GetTicketStringConvertedToPrtLang},
    {kSignatureVolumeTicketKey,      c.signatureVolume,      sizeof c.signatureVolume,      GetTicketStringConvertedToPrtLang},
    {kLineWeightAdjustmentTicketKey, c.lineWeightAdjustment, sizeof c.lineWeightAdjustment, GetTicketStringConvertedToPrtLang},
    {kDuplexBindingEdgeTicketKey,    &c.duplexBindingEdge,   sizeof c.duplexBindingEdge,    GetTicketInteger},
    {kCopiesTicketKey,               &c.copies,              sizeof c.copies,               GetTicketInteger},
    {kOrientationTicketKey,          &c.orientation,         sizeof c.orientation,          GetTicketInteger},
    {kLayoutDirectionTicketKey,      &c.layoutDirection,     sizeof c.layoutDirection,      GetTicketInteger},
};
// clang-format on
static_assert(std::size(CommentticketData) == CommentTicketDataNum);

namespace {

// Collation is no one key's value: the word may stand anywhere in the option string. The longer one
// comes first, for it holds the shorter.
void SetCollation(const char *optionString) {
    for (const std::string_view word : {kNoCollate, kCollate}) {
        if (std::strstr(optionString, word.data())) {
            CopyBounded(c.collation, word.data());
            return;
        }
    }
}

void SetSides() {
    if (*c.sides == '\0' || c.duplexBindingEdge == OptionEdgeOff) {
        CopyBounded(c.sides, kSidesOneSided.data());
    }
    // A booklet is folded, whatever the dialog says of sides. A ticket without a kind of booklet
    // counts as one, too.
    if (c.signature != kOptionNone) CopyBounded(c.sides, kSidesShortEdge.data());
}

}  // namespace

int CommentGetTicketFromPDE(char *const argv[]) {
    GetTicketFromArray(argv, CommentticketData, CommentTicketDataNum);
    SetCollation(argv[5]);
    SetSides();
    if (c.orientation == -1) c.orientation = OptionPortrait;
    if (c.layoutDirection == -1) c.layoutDirection = OptionRightThenDown;
    return 1;
}
