// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/CommentTicket.h"

#include <cstring>
#include <iterator>

#include "CommonSource/FilterFrame/Source/BoundedText.h"

CommentOptions psoptioncomment;

namespace {

constexpr CommentOptions &ticket = psoptioncomment;

}  // namespace

const ticketData CommentticketData[] = {
#define KV_KEY KV_KEY_ROW
#include "Modules/Comment/CommentTicket.def"
};
const std::int32_t CommentTicketDataNum = std::size(CommentticketData);

namespace {

// Collation is no one key's value: the word may stand anywhere in the option string. The longer one
// comes first, for it holds the shorter.
void SetCollation(const char *optionString) {
    for (const std::string_view word : {kNoCollate, kCollate}) {
        if (std::strstr(optionString, word.data())) {
            CopyBounded(ticket.collation, word.data());
            return;
        }
    }
}

void SetSides() {
    if (*ticket.sides == '\0' || ticket.duplexBindingEdge == OptionEdgeOff) {
        CopyBounded(ticket.sides, kSidesOneSided.data());
    }
    // A booklet is folded, whatever the dialog says of sides. A ticket without a kind of booklet
    // counts as one, too.
    if (ticket.signature != kOptionNone) CopyBounded(ticket.sides, kSidesShortEdge.data());
}

}  // namespace

int CommentGetTicketFromPDE(char *const argv[]) {
    GetTicketFromArray(argv, CommentticketData, CommentTicketDataNum);
    SetCollation(argv[5]);
    SetSides();
    if (ticket.orientation == -1) ticket.orientation = OptionPortrait;
    if (ticket.layoutDirection == -1) ticket.layoutDirection = OptionRightThenDown;
    return 1;
}
