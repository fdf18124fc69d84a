// SPDX-License-Identifier: Apache-2.0
//
// The first of the modules' commands in the job header: whether the printer holds the job, for
// whom, in which mailbox or until when, and what the job is called. The rows say which settings of
// the print dialog bring each command.
#pragma once

#include "CommonSource/FilterFrame/Source/CommandTable.h"

extern const PrtFmtEntry PrintTypeFmtTable[];  // PrintTypeRows.def
extern const std::int32_t PrintTypeFmtTableNum;

// Binds the rows to their values and conditions; once, before the table is written.
void PrintTypeInializeDescriptionTableFromFilter();

// Writes the commands of kpjlOptionPrintType to standard output.
void PrintTypeOutputKPJLCommandFromFilter();
