// SPDX-License-Identifier: Apache-2.0
//
// How the printer shall treat the job, as the print dialog asks for it: print it at once, hold it
// for its owner or after a first copy, print it later, or store it in a mailbox. Commands of the
// job header are chosen from it (PrintTypeCommands.h). Integers that the ticket lacks are -1, texts
// empty.
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

struct PrintTypeOptions {
    std::int32_t printType;
    char userName[73];
    char password[17];
    std::int32_t documentNameType;
    char documentName[193];
    char delayPrintTime[17];
    char mailboxNumber[5];
    char mailboxPassword[30];
};
extern PrintTypeOptions kpjlOptionPrintType;

constexpr std::int32_t PrintTypeTicketDataNum = 8;
extern const ticketData PrintTypeticketData[];

// Fills kpjlOptionPrintType from argv[5]. Returns 1.
int PrintTypeGetTicketFromPDE(char *const argv[]);
