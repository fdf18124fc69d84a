// SPDX-License-Identifier: Apache-2.0
//
// The output handling settings of the print dialog. Commands of the job header are chosen from
// them (FeaturesCommands.h), and PostScript for signatures and separator pages
// (FeaturesPostScript.h). Integers that the ticket lacks are -1, texts empty.
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

struct FeaturesOptions {
    std::int32_t tabMarginSwitch;
    std::int32_t trimmerSwitch;
    std::int32_t bookletMarginSwitch;
    char tabMarginShift[5];      // millimetres
    char trimmerCuttingSize[5];  // millimetres
    std::int32_t numInSequenceSwitch;
    char numInSequence[5];
    std::int32_t offsetStackingList;
    char offsetStackingPages[6];
    char offsetStackingUnits[6];
    std::int32_t separatorPagesList;
    char separatorPages[100];  // contents of a PostScript array
    std::int32_t autoFitSwitch;
    char bookletMarginShift[5];  // millimetres
    std::int32_t ejectOptionsList;
    char numPunchHoles[100];
    char mediaTypeTab[100];            // "true" or "false"
    char coilPunchFace[100];           // "true" or "false"
    std::int32_t whetherMediaTypeTab;  // of the special pages
};
extern FeaturesOptions kpjlOptionFeatures;

constexpr std::int32_t FeaturesTicketDataNum = 19;
extern const ticketData FeaturesticketData[];

// Fills kpjlOptionFeatures from argv[5]. Returns 1.
int FeaturesGetTicketFromPDE(char *const argv[]);
