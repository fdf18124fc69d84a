// SPDX-License-Identifier: Apache-2.0
//
// Jobs whose ticket is completed for plain CUPS, and what became of it.
#pragma once

#include <cstdlib>
#include <string>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/CompleteTicket.h"
#include "FrontEnd/FrontEnd.h"
#include "support/Ppd.h"
#include "support/TempFolder.h"

struct TicketJob {
    std::string options;
    std::string lines{};  // of the PPD
    std::string user = "alice";
    std::string title = "Report";
    std::string copies = "1";
};

// The PPD lines of an option "Choice Choice", the first of which is the default.
inline std::string PpdOption(const std::string &name, const std::string &choices,
                             const std::string &section = "AnySetup") {
    std::string lines = "*OpenUI *" + name + "/" + name + ": PickOne\n*OrderDependency: 30 " +
                        section + " *" + name + "\n*Default" + name + ": " +
                        choices.substr(0, choices.find(' ')) + "\n";
    std::size_t at = 0;
    while (at < choices.size()) {
        const std::size_t end = std::min(choices.find(' ', at), choices.size());
        const std::string choice = choices.substr(at, end - at);
        lines += "*" + name + " " + choice + "/" + choice + ": \"\"\n";
        at = end + 1;
    }
    return lines + "*CloseUI: *" + name + "\n";
}

// Completes the ticket on a queue whose PPD is the text `ppd`. The PPD stays open as the job's.
inline CompletedTicket CompleteOn(const std::string &ppd, const TicketJob &job) {
    const TempFolder folder;
    setenv("PPD", folder.Write("queue.ppd", ppd).c_str(), 1);
    CloseJobPPD();
    FindFrontEnd(job.options.c_str());
    std::string arguments[] = {"kvfilter", "17", job.user, job.title, job.copies, job.options};
    char *argv[7] = {};
    for (std::size_t i = 0; i < 6; i++) argv[i] = arguments[i].data();
    return CompleteTicket(argv);
}

inline CompletedTicket Complete(const TicketJob &job) {
    return CompleteOn(PpdWith("*KVFrontEnd: \"CUPS\"\n" + job.lines), job);
}

// The value that the completed option string has for `key`, "absent" if none; "*" at the start of a
// key stands for the prefix of the dialog's.
inline std::string Value(const CompletedTicket &ticket, std::string key) {
    if (key[0] == '*') key = KV_TICKET + key.substr(1);
    const TicketOptions options(ticket.options.c_str());
    const char *value = cupsGetOption(key.c_str(), options.count, options.list);
    return value ? value : "absent";
}

// "Key=value" for each key that `option` has caused, blanks between, without the dialog's prefix.
inline std::string Caused(const CompletedTicket &ticket, const std::string &option) {
    std::string keys;
    for (const TicketEntry &entry : ticket.entries) {
        if (entry.option != option || entry.source == TicketSource::Job) continue;
        const std::string prefix = KV_TICKET;
        const bool dialog = entry.key.starts_with(prefix);
        keys += (keys.empty() ? "" : " ") + entry.key.substr(dialog ? prefix.size() : 0) + "=" +
                Value(ticket, entry.key);
    }
    return keys;
}

// What the completion has to say, a line each.
inline std::string Said(const CompletedTicket &ticket) {
    std::string lines;
    for (const TicketNotice &notice : ticket.notices) {
        lines += (notice.kind == TicketNotice::Refused ? "refused: " : "") + notice.text + "\n";
    }
    return lines;
}
