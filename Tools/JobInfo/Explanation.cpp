// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Explanation.h"

#include <algorithm>
#include <sstream>

#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "FrontEnd/CompleteTicket.h"
#include "FrontEnd/FrontEnd.h"
#include "FrontEnd/OptionString.h"
#include "FrontEnd/ShortOptions.h"
#include "Tools/JobInfo/KnownOptions.h"
#include "Tools/JobInfo/PrintedValue.h"

namespace {

constexpr char kMask[] = "********";
constexpr char kSwitch[] = "KVFrontEnd";

// What the completion takes from the filter's other arguments, which are no options.
constexpr std::string_view kArguments[] = {"user", "title", "copies"};
constexpr std::size_t kMostOptions = 200;  // that are explained; an option string may be hostile

// The job's options without one of them.
std::string Without(const std::vector<JobOption> &options, const std::string &name) {
    std::string rest;
    for (const JobOption &option : options) {
        if (!SameName(option.name, name)) AppendOption(rest, option.name, option.value);
    }
    return rest;
}

CompletedTicket Complete(const PlannedJob &job) {
    std::string words[] = {"kvfilter", "0", job.user, job.title, job.copies, job.options};
    char *argv[7] = {};
    for (std::size_t i = 0; i < 6; i++) argv[i] = words[i].data();
    if (FrontEndIsCUPS()) return CompleteTicket(argv);
    CompletedTicket ticket;
    ticket.options = job.options;
    for (const JobOption &option : ParseOptionString(argv[5])) {
        ticket.entries.push_back({option.name, option.value, TicketSource::Job, option.name,
                                  option.value, Discretion::Open});
    }
    return ticket;
}

// Every setting once: what the job names, then what the queue adds.
std::vector<ExplainedOption> ListOptions(const std::vector<JobOption> &job,
                                         const CompletedTicket &ticket) {
    std::vector<ExplainedOption> options;
    const auto add = [&](const std::string &name, const std::string &value, const char *source) {
        const bool isListed = std::any_of(options.begin(), options.end(), [&](const auto &option) {
            return SameName(option.name, name);
        });
        if (isListed || options.size() == kMostOptions) return;
        options.push_back({});
        options.back().name = name;
        options.back().given = value;
        options.back().source = source;
    };
    for (const JobOption &option : job)
        add(option.name, option.value, TicketSourceName(TicketSource::Job));
    for (const TicketEntry &entry : ticket.entries) {
        const bool isArgument = std::find(std::begin(kArguments), std::end(kArguments),
                                          entry.option) != std::end(kArguments);
        if (!isArgument) add(entry.option, entry.given, TicketSourceName(entry.source));
    }
    return options;
}

bool IsInJob(const std::vector<JobOption> &job, const std::string &name) {
    return std::any_of(job.begin(), job.end(),
                       [&](const JobOption &option) { return SameName(option.name, name); });
}

// The rows that read a key.
std::vector<const ticketData *> RowsThatRead(const std::string &key) {
    std::vector<const ticketData *> rows;
    for (const TicketTable &table : TicketTables()) {
        for (const ticketData &row : table.rows) {
            if (row.destination && SameName(row.key, key)) rows.push_back(&row);
        }
    }
    return rows;
}

// The keys that the option sets, by the rows that read them.
void AddKeys(ExplainedOption &option, const CompletedTicket &ticket,
             const std::vector<KnownOption> &known) {
    const TicketOptions values(ticket.options.c_str());
    for (const TicketEntry &entry : ticket.entries) {
        if (!SameName(entry.option, option.name)) continue;
        const bool isQueues = entry.source == TicketSource::QueueDefault;
        const bool isReplaced = isQueues && option.source == TicketSourceName(TicketSource::Job);
        if (!isReplaced) option.source = TicketSourceName(entry.source);
        const bool isSecret =
            entry.discretion == Discretion::Password || IsSecretOption(known, entry.key);
        for (const ticketData *row : RowsThatRead(entry.key)) {
            PrintedValue value = PrintedValueOf(*row, values);
            if (isSecret && !value.text.empty()) value.text = kMask;
            if (isReplaced) value.note = "the queue's default instead";
            option.keys.push_back({entry.key, value.text, WordsOfChoice(row->values, value.text),
                                   value.note, row->meaning});
        }
    }
}

void AddMeaning(ExplainedOption &option, const std::vector<KnownOption> &known) {
    const KnownOption *row = FindKnownOption(known, option.name);
    const ShortOption *shortOption = FindShortOption(option.name);
    option.isKnown = row || SameName(option.name, kSwitch);
    if (row) option.meaning = row->meaning;
    if (!row && shortOption) {
        option.meaning =
            "works only where the PPD says *KVFrontEnd: \"CUPS\", or the job KVFrontEnd=CUPS";
    } else if (!option.isKnown) {
        option.nearest = NearestOption(known, option.name);
    }
    const bool isSecret = IsSecretOption(known, option.name) ||
                          (shortOption && DiscretionOf(*shortOption) == Discretion::Password) ||
                          (!option.nearest.empty() && IsSecretOption(known, option.nearest));
    if (isSecret && !option.given.empty()) option.given = kMask;
}

// The filter's errors and warnings.
std::vector<std::string> Complaints(const std::string &messages) {
    std::vector<std::string> complaints;
    std::istringstream lines(messages);
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("ERROR: ") || line.starts_with("WARNING: "))
            complaints.push_back(line);
    }
    return complaints;
}

}  // namespace

Explanation Explain(const PlannedJob &job) {
    const std::vector<JobOption> given = ParseOptionString(job.options.c_str());
    FindFrontEnd(job.options.c_str());
    Explanation explanation;
    explanation.isPlainCUPS = FrontEndIsCUPS();
    const std::vector<KnownOption> known = KnownOptions();

    const CompletedTicket early = Complete(job);
    explanation.options = ListOptions(given, early);
    std::vector<Variation> variations;
    for (const ExplainedOption &option : explanation.options) {
        const bool isJobs = IsInJob(given, option.name);
        variations.push_back({job, isJobs ? "" : option.name});
        if (isJobs) variations.back().job.options = Without(given, option.name);
    }
    const std::vector<FilterRun> runs = RunEach(variations);
    for (const FilterRun &run : runs) {
        if (!run.error.empty()) explanation.error = run.error;  // GCOVR_EXCL_BR_LINE: fault
    }
    if (!explanation.error.empty()) return explanation;  // GCOVR_EXCL_BR_LINE: fault

    const FilterRun run = RunHere(job);
    explanation.error = run.error;
    if (!explanation.error.empty()) return explanation;  // GCOVR_EXCL_BR_LINE: fault
    const CompletedTicket ticket = Complete(job);
    explanation.status = run.status;
    explanation.isRefused = ticket.refused;
    explanation.header = EffectsOf(run.output);
    explanation.always = explanation.header;
    explanation.messages = Complaints(run.messages);
    for (std::size_t i = 0; i < runs.size(); i++) {
        ExplainedOption &option = explanation.options[i];
        const std::vector<Effect> others = EffectsOf(runs[i].output);
        if (!ticket.refused) {
            option.writes = Missing(explanation.header, others);
            option.insteadOf = Missing(others, explanation.header);
            option.changesDocument = runs[i].document != run.document;
        }
        explanation.always = Missing(explanation.always, option.writes);
        AddKeys(option, ticket, known);
        AddMeaning(option, known);
        for (const TicketNotice &notice : ticket.notices) {
            if (SameName(notice.option, option.name)) option.notices.push_back(notice.text);
        }
    }
    if (!ticket.refused) {
        const TicketOptions values(ticket.options.c_str());
        explanation.nearMisses = NearMisses(values, explanation.header);
    }
    return explanation;
}
