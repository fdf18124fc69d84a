// SPDX-License-Identifier: Apache-2.0
//
// The perfect binding settings of the print dialog: a book whose body is glued into a wrap-around
// cover and then trimmed. The record holds what the ticket says, brought to the printer's terms by
// the binding and trimming rules; its commands are in PBindCommands.h. Texts that the ticket lacks
// are empty.
#pragma once

#include <cstddef>
#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

using PBindText = char[256];

#define KV_KEY KV_KEY_CONSTANT
#include "Modules/PBind/PBindTicket.def"

struct PBindOptions {
#define KV_KEY KV_KEY_FIELD
#include "Modules/PBind/PBindTicket.def"
    PBindText rotation;       // follows from the bind position
    std::int32_t minimumCut;  // 1 when the trimming takes off as little as the knife can, else 0
};
extern PBindOptions psoptionpbind;

// Keywords of the bind position and of the trimming that decide about commands.
inline constexpr char kPBindOff[] = "OFF";
inline constexpr char kPBindLeft[] = "LEFT";
inline constexpr char kPBindRight[] = "RIGHT";
inline constexpr char kPBindTop[] = "TOP";

extern const ticketData PBindticketData[];
extern const std::int32_t PBindTicketDataNum;

// Fills psoptionpbind from argv[5] and applies the rules. Returns 1.
int PBindGetTicketFromPDE(char *const argv[]);
