// SPDX-License-Identifier: Apache-2.0
//
// The output handling settings of the print dialog. Commands of the job header are chosen from
// them (FeaturesCommands.h), and PostScript for signatures and separator pages
// (FeaturesPostScript.h). Integers that the ticket lacks are -1, texts empty.
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

#define KV_KEY KV_KEY_CONSTANT
#include "Modules/Features/FeaturesTicket.def"

struct FeaturesOptions {
#define KV_KEY KV_KEY_FIELD
#include "Modules/Features/FeaturesTicket.def"
};
extern FeaturesOptions kpjlOptionFeatures;

extern const ticketData FeaturesticketData[];
extern const std::int32_t FeaturesTicketDataNum;

// Fills kpjlOptionFeatures from argv[5]. Returns 1.
int FeaturesGetTicketFromPDE(char *const argv[]);
