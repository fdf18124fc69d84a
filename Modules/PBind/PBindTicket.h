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

struct PBindOptions {
    PBindText bindPosition;           // empty or "OFF": not a perfect-bound book
    PBindText rotation;               // follows from the bind position
    PBindText trimming;               // "OFF", "FACE", "FULLBLEED" or what the ticket says
    PBindText cutPageSize;            // a PPD page size
    PBindText cutPositionTop;         // at top and bottom alike: "7mm"
    PBindText cutPositionFore;        // at the fore edge: "7mm"
    PBindText cutPageAdjustmentFore;  // this and the other adjustments are numbers
    PBindText cutPageAdjustmentTB;    // (TB: top and bottom)
    PBindText rotationAdjustTop;
    PBindText rotationAdjustBot;
    PBindText rotationAdjustFore;
    PBindText coverAdjustX;
    PBindText coverAdjustY;
    PBindText coverPageSize;  // a PPD page size
    PBindText coverMediaType;
    PBindText coverMediaColor;
    PBindText coverPaperTray;
    PBindText pageSize;  // the PPD page size of the body
    PBindText cutPositionAdjustmentTB;
    std::int32_t imagePosition;  // of no effect: the print dialog never sends it
    std::int32_t minimumCut;     // 1 when the trimming takes off as little as the knife can, else 0
};
extern PBindOptions psoptionpbind;

// Keywords of the bind position and of the trimming that decide about commands.
inline constexpr char kPBindOff[] = "OFF";
inline constexpr char kPBindLeft[] = "LEFT";
inline constexpr char kPBindRight[] = "RIGHT";
inline constexpr char kPBindTop[] = "TOP";

constexpr std::int32_t PBindTicketDataNum = 19;
extern const ticketData PBindticketData[];

// Fills psoptionpbind from argv[5] and applies the rules. Returns 1.
int PBindGetTicketFromPDE(char *const argv[]);
