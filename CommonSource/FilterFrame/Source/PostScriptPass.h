// SPDX-License-Identifier: Apache-2.0
//
// The pass of a document whose PPD leaves its features in PostScript.
#pragma once

// Copies the document to standard output, line by line, with the modules' PostScript at its
// injection points, and ends it with Ctrl-D. Reads standard input when `argc` is 6, else argv[6];
// writes nothing if that cannot be opened. A cancelled job ends in front of a page end, without
// Ctrl-D.
void OutputPSStream(int argc, char *const argv[]);
