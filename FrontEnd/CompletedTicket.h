// SPDX-License-Identifier: Apache-2.0
//
// What the completion of a ticket (CompleteTicket.h) comes to: the option string, and for people
// and tools why each of its keys is there and what was not to be had.
#pragma once

#include <string>
#include <vector>

enum class TicketSource { Job, ShortOption, IPPAttribute, QueueDefault, Resolved };

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
