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

#include <string>
#include <vector>

enum class TicketSource { Job, ShortOption, IPPAttribute, QueueDefault, Resolved };

// The source in words, as the messages have it: "job", "short option"...
const char *TicketSourceName(TicketSource source);

// What of a value messages may not show.
enum class Discretion { Open, Name, Password };  // nothing; who prints what; a password

// One key of the complete ticket, and why it is there.
struct TicketEntry {
    std::string key;
    std::string value;  // as the completed string has it
    TicketSource source;
    std::string option;  // the option that caused it: the key itself, "KVPrintMode", "finishings"
    std::string given;   // that option's value in UTF-8, as it was given
    Discretion discretion;
};

// Something that the user asked for and did not get as asked.
struct TicketNotice {
    enum Kind { Dropped, Changed, Resolved, Unknown, Refused } kind;
    std::string option;
    std::string
        text;  // one line, names option, value and what is allowed; no name or password in it
};

// A value that the printer's fields must have for the job to be confidential.
struct ConfidentialValue {
    std::string key;
    std::string bytes;  // in the printer's encoding, or the digits of a number
};

struct CompletedTicket {
    std::string options;               // the complete option string
    std::vector<TicketEntry> entries;  // of every key in it, in its order
    std::vector<TicketNotice> notices;
    std::vector<ConfidentialValue> confidential;
    bool refused = false;  // the job asks for confidentiality that cannot be had: print nothing
};

// Completes the ticket of the job with the filter's arguments `argv` (the first six are read) and
// the PPD of JobPPD(), whose choices it marks; IPAddressStr is known by then. Tells nobody: see
// ReportCompletion. Memory that runs out refuses the job, since its confidentiality is not known
// then.
CompletedTicket CompleteTicket(char *const argv[]);

// Tells the administrator: a warning for each notice (an error for what refuses the job), a debug
// line for each key that was added and where it came from, names and passwords masked.
void ReportCompletion(const CompletedTicket &ticket);
