// SPDX-License-Identifier: Apache-2.0
//
// The one place that knows all feature modules and the order in which they are called. A new
// module is added here.
#pragma once

#include <cstdio>

// Binds every module's tables to their lists.
void InializeDescriptionTableFromFilter();

// Reads every module's ticket values from argv[5]. Returns 1.
int GetTicketFromPDE(char *const argv[]);

// Writes the modules' PJL commands to standard output.
void OutputKPJLCommandFromFilter(char *const argv[]);

// Lets the modules write PostScript to `stream` at one injection point of the document
// (InjectionPoint, SpecialLines.h). `pageNumber` is the number of the page that ends, at a page
// end, and else the number of pages that have ended. Returns what the last module returns.
int OutputPSCommandFromFilter(int position, int pageNumber, std::FILE *stream);
