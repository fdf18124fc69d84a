// SPDX-License-Identifier: Apache-2.0
//
// How many covers, inserted sheets and page exceptions the print dialog asks for. Each is one
// ticket value of its own under a numbered key (SpecialPageDocument.h).
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

// Counts that the ticket lacks are -1; the document's writer takes what is negative for 0.
struct SpecialPageOptions {
    std::int32_t coverCount;
    std::int32_t insertionCount;
    std::int32_t exceptionCount;
};
extern SpecialPageOptions psOptionSpecialPage;

inline constexpr char kSPKPCoverCountKey[] = KV_TICKET "KPIFCoverCountTicket";
inline constexpr char kSPKPInsertionCountKey[] = KV_TICKET "KPIFInsertionCountTicket";
inline constexpr char kSPKPExceptionCountKey[] = KV_TICKET "KPIFExceptionCountTicket";

// What the keys of the values begin with; the number, from 0, follows.
inline constexpr char kSPKPCoverValueKey[] = KV_TICKET "KPIFCoverValueTicket_";
inline constexpr char kSPKPInsertionValueKey[] = KV_TICKET "KPIFInsertionValueTicket_";
inline constexpr char kSPKPExceptionValueKey[] = KV_TICKET "KPIFExceptionValueTicket_";

constexpr std::int32_t SpecialPageTicketDataNum = 3;
extern const ticketData SpecialPageTicketData[];

// Fills psOptionSpecialPage from argv[5]. Returns 1.
int SpecialPageGetTicketFromPDE(char *const argv[]);

// Sets the counts to 0.
void SpecialPageInializeDescriptionTable();
