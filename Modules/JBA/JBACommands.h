// SPDX-License-Identifier: Apache-2.0
//
// The accounting commands of the job header: who sends the job from where, and to whom, to which
// account and to which store it goes. An administrator's settings come first, then what every job
// tells and the user's own settings. The rows of the settings stand in JBARows.def.
#pragma once

#include "CommonSource/FilterFrame/Source/CommandTable.h"

extern const PrtFmtEntry JBAFmtTableAdmin[];  // JBARows.def
extern const std::int32_t JBAFmtTableAdminNum;

extern const PrtFmtEntry JBAFmtTableCommon[];  // JBAClientRows.def, then JBARows.def
extern const std::int32_t JBAFmtTableCommonNum;

// Binds the rows to their values and conditions; once, before the tables are written.
void JBAInializeDescriptionTableFromFilter();

// Writes the commands of kpjlOptionJBA to standard output. `argv` is not looked at.
void JBAOutputKPJLCommandFromFilter(char *const argv[]);
