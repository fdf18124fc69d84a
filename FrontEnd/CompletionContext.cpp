// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/CompletionContext.h"

#include <algorithm>

#include "FrontEnd/ShortOptions.h"
#include "FrontEnd/TicketText.h"

namespace {

// As many as anyone reads; an option string may be hostile.
constexpr std::size_t kMostNotices = 100;

}  // namespace

const char *JobValue(const CompletionContext &context, std::string_view name) {
    const auto option =
        std::find_if(context.job.begin(), context.job.end(),
                     [&](const JobOption &candidate) { return SameName(candidate.name, name); });
    return option == context.job.end() ? nullptr : option->value.c_str();
}

const ShortValue *FindShortValue(const CompletionContext &context, std::string_view name) {
    const auto row = static_cast<std::size_t>(FindShortOption(name) - kShortOptions);
    const ShortValue &value = context.shortValues[row];
    return value.isGiven ? &value : nullptr;
}

const char *ShortOptionValue(const CompletionContext &context, std::string_view name) {
    const ShortValue *value = FindShortValue(context, name);
    if (!value) return nullptr;
    const std::string_view choices = FindShortOption(name)->choices;
    return value->value == choices.substr(0, choices.find(' ')) ? nullptr : value->value.c_str();
}

void BeginOption(CompletionContext &context, TicketSource source, std::string_view option,
                 std::string_view given, Discretion discretion) {
    context.source = source;
    context.option = option;
    context.given = given;
    context.discretion = discretion;
}

void BeginShortOption(CompletionContext &context, std::string_view name) {
    const ShortValue *value = FindShortValue(context, name);
    const Discretion discretion = DiscretionOf(*FindShortOption(name));
    if (value) {
        BeginOption(context, value->source, value->option, value->given, discretion);
    } else {
        BeginOption(context, TicketSource::ShortOption, name, "", discretion);
    }
}

const char *TicketValue(const CompletionContext &context, std::string_view key) {
    const std::vector<TicketEntry> &entries = context.ticket.entries;
    const auto entry =
        std::find_if(entries.begin(), entries.end(),
                     [&](const TicketEntry &candidate) { return SameName(candidate.key, key); });
    return entry == entries.end() ? nullptr : entry->value.c_str();
}

void AddKey(CompletionContext &context, std::string_view key, std::string_view value) {
    if (TicketValue(context, key)) return;
    // The value is none of the user's words; what it comes from may be a name or a password.
    const bool open = context.discretion == Discretion::Open;
    context.ticket.entries.push_back({std::string(key), std::string(value), context.source,
                                      context.option, open ? context.given : "", Discretion::Open});
}

void ReplaceKey(CompletionContext &context, std::string_view key, const char *value) {
    std::erase_if(context.ticket.entries,
                  [&](const TicketEntry &entry) { return SameName(entry.key, key); });
    if (value) AddKey(context, key, value);
}

bool AddText(CompletionContext &context, std::string_view key, std::string_view text,
             std::size_t size) {
    if (TicketValue(context, key)) return true;
    const PrinterText made = MakePrinterText(text, size);
    if (made.changed && context.discretion == Discretion::Password) {
        Note(
            context, TicketNotice::Refused,
            "has more than " + std::to_string(size) +
                " bytes or letters that the printer does not know: it would not be the same there");
        return false;
    }
    if (made.shown.empty()) {
        Note(context, TicketNotice::Dropped, "has no letters that the printer knows");
        return false;
    }
    if (made.changed) {
        Note(context, TicketNotice::Changed,
             "loses letters or quotation marks that the printer does not know, or is too long");
    }
    context.ticket.entries.push_back({std::string(key), TicketValueOf(made), context.source,
                                      context.option, context.given, context.discretion});
    return true;
}

void Note(CompletionContext &context, TicketNotice::Kind kind, std::string_view why) {
    CompletedTicket &ticket = context.ticket;
    if (kind == TicketNotice::Refused) ticket.refused = true;
    if (ticket.notices.size() >= kMostNotices && kind != TicketNotice::Refused) return;
    std::string text = context.option;
    const bool open = context.discretion == Discretion::Open;
    if (open && !context.given.empty()) text += "=" + context.given;
    ticket.notices.push_back({kind, context.option, text.append(" ").append(why)});
}
