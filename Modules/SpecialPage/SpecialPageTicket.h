// SPDX-License-Identifier: Apache-2.0
//
// How many covers, inserted sheets and page exceptions the print dialog asks for. Each is one
// ticket value of its own under a numbered key (SpecialPageDocument.h).
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

#define KV_KEY KV_KEY_CONSTANT
#include "Modules/SpecialPage/SpecialPageTicket.def"

// Counts that the ticket lacks are -1; the document's writer takes what is negative for 0.
struct SpecialPageOptions {
#define KV_KEY KV_KEY_FIELD
#include "Modules/SpecialPage/SpecialPageTicket.def"
};
extern SpecialPageOptions psOptionSpecialPage;

// What the keys of the values begin with; the number, from 0, follows. The document's writer reads
// them one by one.
inline constexpr char kSPKPCoverValueKey[] = KV_TICKET "KPIFCoverValueTicket_";
inline constexpr char kSPKPInsertionValueKey[] = KV_TICKET "KPIFInsertionValueTicket_";
inline constexpr char kSPKPExceptionValueKey[] = KV_TICKET "KPIFExceptionValueTicket_";

extern const ticketData SpecialPageTicketData[];
extern const std::int32_t SpecialPageTicketDataNum;
extern const ticketData SpecialPageValueKeys[3];  // for reference; without destinations

// Fills psOptionSpecialPage from argv[5]. Returns 1.
int SpecialPageGetTicketFromPDE(char *const argv[]);

// Sets the counts to 0.
void SpecialPageInializeDescriptionTable();
