// SPDX-License-Identifier: Apache-2.0
//
// The pass of a document whose PPD wants its features as PJL (KVPSDecompMode is "1"). They belong
// in front of the document, so it is read once into a temporary file, with the modules' PostScript
// at its injection points, while the PJL goes out; then the file is sent.
#pragma once

#include "CommonSource/FilterFrame/Source/PrivateFile.h"

// The temporary file of this job.
extern char PPDPJLOutFilePath[kPrivatePathSize];

// Writes to standard output the PJL of the document's features, the switch to PostScript, and the
// document without its last line, of which only the line end remains; the documents of the print
// system end with a line of nothing but Ctrl-D. Reads argv[6] when `argc` is 7, else standard
// input.
//
// Without input or temporary file nothing is written. A job that is cancelled while its document is
// read ends at a page end, with neither the switch nor the document, and leaves the temporary file;
// one that is cancelled later ends after a page end. When the disk is full, what was stored until
// then is sent, as far as its last line end; the pages that follow are neither stored nor logged.
//
// With plain CUPS no temporary file is ever left, each failure is reported, and a document that
// could not be read or stored whole is not sent.
void OutputPSStreamtoFileandInsertPJLforFeaturePDE(int argc, char *const argv[]);
