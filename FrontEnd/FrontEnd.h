// SPDX-License-Identifier: Apache-2.0
//
// The one switch of this folder. On Mac OS X the printer's own panes of the print dialog write
// every setting into the job's options, and the print system writes the document. Where plain CUPS
// stands in front of the filter nobody does: then this folder completes the ticket, knows the
// documents of CUPS's converters, and tells the administrator what went wrong. Everywhere else it
// is silent and changes nothing.
#pragma once

// Decides for the process, before any other call of this folder: on if the job's PPD says
// *KVFrontEnd: "CUPS", or if the job's options (argv[5]) do, KVFrontEnd=CUPS, for a PPD that does
// not know the keyword (lpadmin -o KVFrontEnd-default=CUPS).
void FindFrontEnd(const char *options);

// Whether plain CUPS stands in front of the filter. False until FindFrontEnd has run.
bool FrontEndIsCUPS();
