// SPDX-License-Identifier: Apache-2.0
//
// How the printer shall treat the job, as the print dialog asks for it: print it at once, hold it
// for its owner or after a first copy, print it later, or store it in a mailbox. Commands of the
// job header are chosen from it (PrintTypeCommands.h). Integers that the ticket lacks are -1, texts
// empty.
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

#define KV_KEY KV_KEY_CONSTANT
#include "Modules/PrintType/PrintTypeTicket.def"

struct PrintTypeOptions {
#define KV_KEY KV_KEY_FIELD
#include "Modules/PrintType/PrintTypeTicket.def"
};
extern PrintTypeOptions kpjlOptionPrintType;

extern const ticketData PrintTypeticketData[];
extern const std::int32_t PrintTypeTicketDataNum;

// Fills kpjlOptionPrintType from argv[5]. Returns 1.
int PrintTypeGetTicketFromPDE(char *const argv[]);
