// SPDX-License-Identifier: Apache-2.0
//
// A job's ticket, completed for plain CUPS.
#pragma once

#include <cstdlib>
#include <string>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/CompleteTicket.h"
#include "FrontEnd/FrontEnd.h"
#include "support/TempFolder.h"

// Completes the ticket of a job with `options` on a queue whose PPD is the text `ppd`. The PPD
// stays open as the job's.
inline CompletedTicket CompleteJob(std::string options, const std::string &ppd) {
    const TempFolder folder;
    setenv("PPD", folder.Write("queue.ppd", ppd).c_str(), 1);
    CloseJobPPD();
    options += " KVFrontEnd=CUPS";
    FindFrontEnd(options.c_str());
    std::string arguments[] = {"kvfilter", "17", "alice", "Report", "1", options};
    char *argv[7] = {};
    for (std::size_t i = 0; i < 6; i++) argv[i] = arguments[i].data();
    return CompleteTicket(argv);
}

// The value of a key of the dialog's, named without its prefix; "absent" if the ticket lacks it.
inline std::string TicketKey(const CompletedTicket &ticket, const std::string &key) {
    for (const TicketEntry &entry : ticket.entries) {
        if (entry.key == KV_TICKET + key) return entry.value;
    }
    return "absent";
}

// What the completion has to say, a line each.
inline std::string Notices(const CompletedTicket &ticket) {
    std::string lines;
    for (const TicketNotice &notice : ticket.notices) lines += notice.text + "\n";
    return lines;
}
