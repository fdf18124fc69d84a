// SPDX-License-Identifier: Apache-2.0
#include "Modules/SpecialPage/SpecialPageTicket.h"

#include <iterator>

SpecialPageOptions psOptionSpecialPage;

namespace {

constexpr SpecialPageOptions &ticket = psOptionSpecialPage;

}  // namespace

const ticketData SpecialPageTicketData[] = {
#define KV_KEY KV_KEY_ROW
#include "Modules/SpecialPage/SpecialPageTicket.def"
};
const std::int32_t SpecialPageTicketDataNum = std::size(SpecialPageTicketData);

#define KV_NUMBERED_KEY(key, meaning) \
    { key, nullptr, 0, GetTicketStringConvertedToPrtLang, "", "list with commas", meaning }
const ticketData SpecialPageValueKeys[3] = {
    KV_NUMBERED_KEY(kSPKPCoverValueKey, "a cover; the key ends in its number, from 0"),
    KV_NUMBERED_KEY(kSPKPInsertionValueKey,
                    "an inserted sheet; the key ends in its number, from 0"),
    KV_NUMBERED_KEY(kSPKPExceptionValueKey, "a page exception; the key ends in its number, from 0"),
};

int SpecialPageGetTicketFromPDE(char *const argv[]) {
    return GetTicketFromArray(argv, SpecialPageTicketData, SpecialPageTicketDataNum);
}

void SpecialPageInializeDescriptionTable() {
    psOptionSpecialPage = {};
}
