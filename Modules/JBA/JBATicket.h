// SPDX-License-Identifier: Apache-2.0
//
// The accounting settings of the print dialog, made by an administrator, made by the user or asked
// for when the job is sent. Commands of the job header are chosen from them (JBACommands.h). The
// same table reads the page layout and the paper rectangles into the job's shared texts
// (JobBuffers.h). Integers that the ticket lacks are -1, texts empty.
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

#define KV_KEY KV_KEY_CONSTANT
#include "Modules/JBA/JBATicketCommon.def"
#define KV_KEY KV_KEY_CONSTANT
#include "Modules/JBA/JBATicketAdmin.def"

struct JBAOptions {
#define KV_KEY KV_KEY_FIELD
#include "Modules/JBA/JBATicketCommon.def"
#define KV_KEY KV_KEY_FIELD
#include "Modules/JBA/JBATicketAdmin.def"
};
extern JBAOptions kpjlOptionJBA;

extern const ticketData JBAticketDataCommon[];
extern const std::int32_t JBATicketDataNumCommon;

extern const ticketData JBAticketDataAdmin[];
extern const std::int32_t JBATicketDataNumAdmin;

// Fills kpjlOptionJBA and the shared texts from argv[5]. Returns 1.
int JBAGetTicketFromPDE(char *const argv[]);
