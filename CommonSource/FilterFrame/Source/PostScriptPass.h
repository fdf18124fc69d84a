// SPDX-License-Identifier: Apache-2.0
//
// The pass of a document whose PPD leaves its features in PostScript.
#pragma once

#include "CommonSource/FilterFrame/Source/DocumentReader.h"

constexpr int kEndOfPostScriptJob = 4;  // Ctrl-D

// The one reader of the process; a job reads one document at a time.
extern DocumentReader documentReader;

// Opens the document: standard input, or the file argv[6]. Returns a descriptor, or -1.
int OpenDocument(bool fromStandardInput, char *const argv[]);

// Copies the document to standard output, line by line, with the modules' PostScript at its
// injection points, and ends it with Ctrl-D. Reads standard input when `argc` is 6, else argv[6];
// writes nothing if that cannot be opened. A cancelled job ends in front of a page end, without
// Ctrl-D.
void OutputPSStream(int argc, char *const argv[]);
