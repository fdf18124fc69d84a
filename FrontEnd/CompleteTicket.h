// SPDX-License-Identifier: Apache-2.0
//
// Completes the job's options where plain CUPS stands in front of the filter. A print dialog of the
// printer's own writes every setting into the option string; plain CUPS writes what the job names,
// and nothing of the queue's defaults. The sources, of which the first that speaks for a key wins:
//
//   1. the job's options as they stand, the dialog's keys included
//   2. the short options (ShortOptions.def)
//   3. the IPP attributes that CUPS passes on
//   4. the queue: what its PPD marks
//
// What comes out is an option string like argv[5], complete: nothing after it needs to know how its
// options were found.
#pragma once

#include "FrontEnd/CompletedTicket.h"

// The source in words, as the messages have it: "job", "short option"...
const char *TicketSourceName(TicketSource source);

// Completes the ticket of the job with the filter's arguments `argv` (the first six are read) and
// the PPD of JobPPD(), whose choices it marks; IPAddressStr is known by then. Tells nobody: see
// ReportCompletion. Memory that runs out refuses the job, since its confidentiality is not known
// then.
CompletedTicket CompleteTicket(char *const argv[]);

// Tells the administrator: a warning for each notice (an error for what refuses the job), a debug
// line for each key that was added and where it came from, names and passwords masked.
void ReportCompletion(const CompletedTicket &ticket);
