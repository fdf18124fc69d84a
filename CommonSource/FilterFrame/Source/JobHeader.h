// SPDX-License-Identifier: Apache-2.0
//
// What frames the document: everything in front of it in its fixed order, the line that switches
// the printer to PostScript, and the trailer.
#pragma once

#include "CommonSource/FilterFrame/Source/CommandTable.h"

extern const PrtFmtEntry prtFmtTableKPJLHead[];  // the universal exit language
extern const std::int32_t numFmtTableKPJLHead;
extern const PrtFmtEntry prtFmtTableKPJLJobMode[];  // "@PJL JOB MODE=PRINTER"
extern const std::int32_t numFmtTableKPJLJobMode;
extern const PrtFmtEntry prtFmtTableEnterPS[];  // "@PJL ENTER LANGUAGE=POSTSCRIPT"
extern const std::int32_t numFmtTableEnterPS;
extern const PrtFmtEntry prtFmtTableKPJLTrailer[];  // universal exit and end of job
extern const std::int32_t numFmtTableKPJLTrailer;

// Product-type codes, found in a PPD's PCFileName, of the models whose jobs carry the
// job-information block whatever their PPD says. Ends with an empty entry.
extern const char *const modelsWithComment[];

// Binds the tables above and every module's to their lists; once, before anything is written.
void InializeDescriptionTable();

// Whether the job's PPD asks for the job-information block.
bool WantsCommentBlock();

// Writes everything that precedes the document to standard output, from the special-pages document
// to the switch to PostScript; that last line is left to the pass that turns PPD features into PJL
// when the PPD selects it.
void OutputKPJLCommand(char *const argv[]);
