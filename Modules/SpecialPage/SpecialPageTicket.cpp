// SPDX-License-Identifier: Apache-2.0
#include "Modules/SpecialPage/SpecialPageTicket.h"

#include <iterator>

SpecialPageOptions psOptionSpecialPage;

namespace {

SpecialPageOptions &s = psOptionSpecialPage;

}  // namespace

// clang-format off
const ticketData SpecialPageTicketData[] = {
    {kSPKPCoverCountKey,     &s.coverCount,     sizeof s.coverCount,     GetTicketInteger},
    {kSPKPInsertionCountKey, &s.insertionCount, sizeof s.insertionCount, GetTicketInteger},
    {kSPKPExceptionCountKey, &s.exceptionCount, sizeof s.exceptionCount, GetTicketInteger},
};
// clang-format on
static_assert(std::size(SpecialPageTicketData) == SpecialPageTicketDataNum);

int SpecialPageGetTicketFromPDE(char *const argv[]) {
    return GetTicketFromArray(argv, SpecialPageTicketData, SpecialPageTicketDataNum);
}

void SpecialPageInializeDescriptionTable() {
    psOptionSpecialPage = {};
}
