// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/PrintMode.h"

#include <algorithm>
#include <cstring>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "FrontEnd/PrintModeKeys.h"
#include "FrontEnd/ShortOptions.h"

namespace {

struct Mode {
    const char *name;
    PrintType type;
};
constexpr Mode kModes[] = {{"Normal", kNormal},
                           {"Secure", kSecure},
                           {"Sample", kSample},
                           {"Delay", kDelay},
                           {"Mailbox", kInMailbox}};

// Whether somebody gave the option for this very job, other than to say that it is not used.
bool GivenForJob(const CompletionContext &context, const char *name) {
    const ShortValue *value = FindShortValue(context, name);
    return value && value->source != TicketSource::QueueDefault && ShortOptionValue(context, name);
}

// The mode that was chosen, or that what was given for this job stands for.
PrintType FindMode(const CompletionContext &context, const char *&option) {
    option = kPrintMode;
    const ShortValue *mode = FindShortValue(context, kPrintMode);
    const bool chosen = mode && (mode->source != TicketSource::QueueDefault ||
                                 ShortOptionValue(context, kPrintMode));
    if (chosen) {
        return std::find_if(std::begin(kModes), std::end(kModes),
                            [&](const Mode &row) { return row.name == mode->value; })
            ->type;
    }
    for (const auto &[name, type] :
         {Mode{kMailbox, kInMailbox}, Mode{kPassword, kSecure}, Mode{kDelayUntil, kDelay}}) {
        if (!GivenForJob(context, name)) continue;
        option = name;
        return type;
    }
    return kNormal;
}

bool IsTimeOfDay(std::string_view text) {
    const auto digit = [&](std::size_t at) { return text[at] >= '0' && text[at] <= '9'; };
    return text.size() == 5 && text[2] == ':' && digit(0) && digit(1) && digit(3) && digit(4) &&
           text.substr(0, 2) < "24" && text.substr(3) < "60";
}

bool IsNumber(std::string_view text, std::size_t digits) {
    return text.size() <= digits && text.find_first_not_of("0123456789") == std::string_view::npos;
}

void AddOwner(CompletionContext &context) {
    const char *owner = ShortOptionValue(context, kOwner);
    BeginShortOption(context, kOwner);
    if (!owner) context.option = "user", context.given = context.argv[2];
    AddText(context, kPrintTypeUserNameTicketKey, owner ? owner : context.argv[2], kOwnerSize);
}

void AddJobName(CompletionContext &context) {
    const char *name = ShortOptionValue(context, kJobName);
    BeginShortOption(context, kJobName);
    if (!name) context.option = "title", context.given = context.argv[3];
    if (TicketValue(context, kDocumentNameTypeTicketKey)) return;
    if (AddText(context, kDocumentNameTicketKey, name ? name : context.argv[3], kJobNameSize)) {
        AddKey(context, kDocumentNameTypeTicketKey, "2");
    }
}

void AddPassword(CompletionContext &context, const char *key, std::size_t size) {
    const char *password = ShortOptionValue(context, kPassword);
    if (!password) return;
    BeginShortOption(context, kPassword);
    AddText(context, key, password, size);
}

void AddMailbox(CompletionContext &context) {
    const char *number = ShortOptionValue(context, kMailbox);
    if (number && IsNumber(number, 4)) {
        BeginShortOption(context, kMailbox);
        AddKey(context, kPrintTypeMBNTicketKey, number);
    }
    AddPassword(context, kPrintTypeMBNPasswordTicketKey, kMailboxPasswordSize);
}

// Whether the time of a delayed print is known.
bool AddTime(CompletionContext &context) {
    const char *time = ShortOptionValue(context, kDelayUntil);
    if (TicketValue(context, kDelayPrintTicketKey)) return true;
    BeginShortOption(context, kDelayUntil);
    if (!time || !IsTimeOfDay(time)) {
        Note(context, TicketNotice::Dropped, "is no time as 23:30: the job is printed at once");
        return false;
    }
    AddKey(context, kDelayPrintTicketKey, time);
    return true;
}

// Says which options have no use in this mode.
void NoteUnused(CompletionContext &context, PrintType type) {
    const struct {
        const char *name;
        bool used;
        const char *modes;
    } kUses[] = {
        {kOwner, type == kSecure || type == kSample, "KVPrintMode Secure or Sample"},
        {kMailbox, type == kInMailbox, "KVPrintMode Mailbox"},
        {kDelayUntil, type == kDelay, "KVPrintMode Delay"},
        {kJobName, type != kNormal, "KVPrintMode Secure, Sample, Delay or Mailbox"},
    };
    for (const auto &[name, used, modes] : kUses) {
        if (used || !GivenForJob(context, name)) continue;
        BeginShortOption(context, name);
        Note(context, TicketNotice::Dropped, std::string("is not used: it belongs to ") + modes);
    }
    if (type != kSecure && type != kInMailbox && GivenForJob(context, kPassword)) {
        BeginShortOption(context, kPassword);
        Note(context, TicketNotice::Refused,
             "would not keep the job: KVPrintMode is neither Secure nor Mailbox");
    }
}

void AddKeysOf(CompletionContext &context, PrintType type) {
    switch (type) {
        case kSecure:
            AddPassword(context, kPrintTypePasswordTicketKey, kSecurePasswordSize);
            [[fallthrough]];
        case kSample:
            AddOwner(context);
            break;
        case kInMailbox:
            AddMailbox(context);
            break;
        default:
            break;
    }
    if (type != kNormal) AddJobName(context);
}

}  // namespace

void AddPrintMode(CompletionContext &context) {
    const char *option = nullptr;
    PrintType type = FindMode(context, option);
    // What the dialog has written stands; all that it can lack is the owner.
    if (const char *written = TicketValue(context, kPrintTypeTicketKey)) {
        const std::int32_t number = LeadingInteger(written);
        type = number >= kNormal && number <= kInMailbox ? static_cast<PrintType>(number) : kNormal;
    }
    NoteUnused(context, type);
    if (type == kDelay && !AddTime(context)) type = kNormal;
    // A queue that keeps no jobs needs no line to say so.
    const ShortValue *mode = FindShortValue(context, kPrintMode);
    if (type != kNormal || (mode && mode->source != TicketSource::QueueDefault)) {
        BeginShortOption(context, option);
        AddKey(context, kPrintTypeTicketKey, std::to_string(type));
    }
    AddKeysOf(context, type);
}
