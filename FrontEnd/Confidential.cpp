// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Confidential.h"

#include "FrontEnd/PrintModeKeys.h"
#include "FrontEnd/TicketText.h"

namespace {

struct TextKey {
    const char *key;
    std::size_t size;
};
constexpr TextKey kConfidentialTexts[] = {
    {kPrintTypeUserNameTicketKey, kOwnerSize},
    {kPrintTypePasswordTicketKey, kSecurePasswordSize},
    {kPrintTypeMBNTicketKey, kMailboxNumberSize},
    {kPrintTypeMBNPasswordTicketKey, kMailboxPasswordSize},
};

void Refuse(CompletionContext &context, const char *option, std::string_view why) {
    BeginShortOption(context, option);
    Note(context, TicketNotice::Refused, why);
}

// Whether the ticket has a text for `key` that a field of `size` bytes takes unchanged.
bool Reaches(const CompletionContext &context, const char *key, std::size_t size) {
    const char *value = TicketValue(context, key);
    bool faithful = false;
    if (value) PrinterBytes(value, size + 1, faithful);
    return faithful;
}

void RefuseOpenSecurePrint(CompletionContext &context) {
    bool faithful = false;
    const char *owner = TicketValue(context, kPrintTypeUserNameTicketKey);
    if (!owner || PrinterBytes(owner, kOwnerSize + 1, faithful).empty()) {
        Refuse(context, kOwner,
               "has no letters that the printer knows, and a secure print needs an owner");
    }
    if (!Reaches(context, kPrintTypePasswordTicketKey, kSecurePasswordSize)) {
        Refuse(context, kPassword,
               "is needed for a secure print, at most 16 bytes of letters that the printer knows");
    }
}

void RefuseOpenMailbox(CompletionContext &context) {
    if (!Reaches(context, kPrintTypeMBNTicketKey, kMailboxNumberSize)) {
        Refuse(context, kMailbox, "has to be the number of a mailbox, 1 to 4 digits");
    }
    if (TicketValue(context, kPrintTypeMBNPasswordTicketKey) &&
        !Reaches(context, kPrintTypeMBNPasswordTicketKey, kMailboxPasswordSize)) {
        Refuse(context, kPassword,
               "has more than 29 bytes or letters that the printer does not know");
    }
}

}  // namespace

bool IsConfidentialOption(std::string_view name) {
    return name == kPrintMode || name == kPassword || name == kMailbox;
}

void RefuseOpenConfidentialJob(CompletionContext &context) {
    if (context.ticket.refused) return;
    const char *written = TicketValue(context, kPrintTypeTicketKey);
    const std::int32_t type = written ? LeadingInteger(written) : kNormal;
    if (type != kSecure && type != kInMailbox) return;
    if (type == kSecure) RefuseOpenSecurePrint(context);
    if (type == kInMailbox) RefuseOpenMailbox(context);
    context.ticket.confidential.push_back({kPrintTypeTicketKey, std::to_string(type)});
    for (const auto &[key, size] : kConfidentialTexts) {
        bool faithful = false;
        if (const char *value = TicketValue(context, key)) {
            context.ticket.confidential.push_back({key, PrinterBytes(value, size + 1, faithful)});
        }
    }
}
