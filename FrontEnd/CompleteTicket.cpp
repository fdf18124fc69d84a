// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/CompleteTicket.h"

#include <new>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/CompletionContext.h"
#include "FrontEnd/Confidential.h"
#include "FrontEnd/IPPAttributes.h"
#include "FrontEnd/Messages.h"
#include "FrontEnd/PrintMode.h"
#include "FrontEnd/QueueDefaults.h"
#include "FrontEnd/QueueMarking.h"
#include "FrontEnd/ShortOptionKeys.h"
#include "FrontEnd/ShortOptions.h"
#include "FrontEnd/Slips.h"
#include "FrontEnd/TicketText.h"

namespace {

constexpr std::string_view kTicketPrefix = KV_TICKET;
constexpr std::string_view kCollate = "collate";

Discretion DiscretionOf(std::string_view name) {
    const ShortOption *row = FindShortOption(name);
    if (row) return DiscretionOf(*row);
    return name.find("assword") == std::string_view::npos ? Discretion::Open : Discretion::Password;
}

void AddJobOptions(CompletionContext &context) {
    for (const JobOption &option : context.job) {
        const TicketSource source = option.derived ? TicketSource::IPPAttribute : TicketSource::Job;
        context.ticket.entries.push_back({option.name, option.value, source, option.name,
                                          option.value, DiscretionOf(option.name)});
    }
    for (const std::string &name : context.resolved) {
        for (TicketEntry &entry : context.ticket.entries) {
            if (SameName(entry.key, name)) entry.source = TicketSource::Resolved;
        }
    }
}

// The job information looks for the word "collate" anywhere in the string: it stands for the option
// alone, so that other texts are coded or, where nothing reads them, left out.
void WriteOptions(CompletedTicket &ticket) {
    for (const TicketEntry &entry : ticket.entries) {
        const bool holdsWord = entry.key.find(kCollate) != std::string::npos ||
                               entry.value.find(kCollate) != std::string::npos;
        if (SameName(entry.key, kCollate)) {
            ticket.options += SameName(entry.value, "true") ? " collate" : " nocollate";
        } else if (!holdsWord) {
            AppendOption(ticket.options, entry.key, entry.value);
        } else if (entry.key.starts_with(kTicketPrefix) && entry.value.size() <= kMostSlashCoded) {
            AppendOption(ticket.options, entry.key, SlashCoded(entry.value));
        }
    }
}

void Complete(CompletionContext &context) {
    NoteSlips(context);
    MarkQueue(context);
    AddJobOptions(context);
    FindShortOptionValues(context);
    AddPrintMode(context);
    AddShortOptions(context);
    AddIPPAttributes(context);
    AddQueueDefaults(context);
    RefuseOpenConfidentialJob(context);
    WriteOptions(context.ticket);
}

// "Key=value (source option=given)": the key without what all of the dialog's begin with.
std::string Provenance(const TicketEntry &entry) {
    const bool open = entry.discretion == Discretion::Open;
    std::string_view key = entry.key;
    if (key.starts_with(kTicketPrefix)) key.remove_prefix(kTicketPrefix.size());
    std::string line(key);
    line.append("=").append(open ? entry.value : "****");
    line.append(" (").append(TicketSourceName(entry.source));
    if (entry.option != entry.key) {
        line.append(" ").append(entry.option);
        if (!entry.given.empty()) line.append("=").append(open ? entry.given : "****");
    }
    return line + ")";
}

}  // namespace

const char *TicketSourceName(TicketSource source) {
    switch (source) {  // GCOVR_EXCL_BR_LINE: all sources are below
        case TicketSource::Job:
            return "job";
        case TicketSource::ShortOption:
            return "short option";
        case TicketSource::IPPAttribute:
            return "IPP attribute";
        case TicketSource::QueueDefault:
            return "queue default";
        case TicketSource::Resolved:
            return "constraint";
    }
    return "";  // GCOVR_EXCL_LINE: all values are above
}

CompletedTicket CompleteTicket(char *const argv[]) try {
    CompletionContext context{argv, JobPPD(), ParseOptionString(argv[5])};
    Complete(context);
    return std::move(context.ticket);
} catch (const std::bad_alloc &) {
    CompletedTicket refused;
    refused.refused = true;
    return refused;
}

// Not worth a job: where memory is short, nothing is said.
static void ReportProvenance(const TicketEntry &entry) try {
    ReportDebug(Provenance(entry));
} catch (const std::bad_alloc &) {  // GCOVR_EXCL_LINE: fault
}

void ReportCompletion(const CompletedTicket &ticket) {
    for (const TicketEntry &entry : ticket.entries) {
        if (entry.source != TicketSource::Job) ReportProvenance(entry);
    }
    bool said = false;
    for (const TicketNotice &notice : ticket.notices) {
        if (notice.kind == TicketNotice::Refused) {
            ReportError(notice.text);
            said = true;
        } else {
            ReportWarning(notice.text);
        }
    }
    if (ticket.refused && !said) {  // GCOVR_EXCL_START: fault
        ReportError("no memory to complete the job's options");
    }  // GCOVR_EXCL_STOP
}
