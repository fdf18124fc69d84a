// SPDX-License-Identifier: Apache-2.0
//
// The commands of the job header for what happens to the sheets: the shift of tab pages, trimming,
// numbering of documents, offset stacking, and the side on which sheets are delivered. The rows say
// which settings of the print dialog bring each command.
#pragma once

#include "CommonSource/FilterFrame/Source/CommandTable.h"

extern const PrtFmtEntry FeaturesFmtTable[];  // FeaturesRows.def
extern const std::int32_t FeaturesFmtTableNum;

// Binds the rows to their values and conditions; once, before the table is written.
void FeaturesInializeDescriptionTableFromFilter();

// Writes the commands of kpjlOptionFeatures to standard output. `argv` is not looked at.
void FeaturesOutputKPJLCommandFromFilter(char *const argv[]);
