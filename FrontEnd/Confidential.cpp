// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Confidential.h"

#include "FrontEnd/PrintModeKeys.h"
#include "FrontEnd/TicketText.h"

namespace {

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
    const char *type = TicketValue(context, kPrintTypeTicketKey);
    switch (type ? LeadingInteger(type) : kNormal) {
        case kSecure:
            return RefuseOpenSecurePrint(context);
        case kInMailbox:
            return RefuseOpenMailbox(context);
        default:
            return;
    }
}
