// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/ShortOptionFunctions.h"

#include <charconv>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/ShortOptions.h"

namespace {

constexpr char kOffsetStackingListTicketKey[] = KV_TICKET "OffsetStackingListTicket";
constexpr char kOffsetStackingPagesTicketKey[] = KV_TICKET "OffsetStackingPagesLArrowTicket";
constexpr char kOffsetStackingCopiesTicketKey[] = KV_TICKET "OffsetStackingUnitsLArrowTicket";
constexpr char kSeparatorPageListTicketKey[] = KV_TICKET "SeparatorPageListTicket";
constexpr char kSeparatorPageTicketKey[] = KV_TICKET "SeparatorPageTicket";

// A line of the PostScript that is written for separator pages leaves so many bytes for their list.
constexpr std::size_t kMostSeparatorPages = 13;

// Reads a whole number from 1 on, at most `most`, at the start of `text` and takes it away.
bool TakeNumber(std::string_view &text, int most, int &number) {
    const char *end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || number < 1 || number > most) return false;
    text.remove_prefix(static_cast<std::size_t>(stop - text.data()));
    return true;
}

bool TakeSign(std::string_view &text, char sign) {
    if (!text.starts_with(sign)) return false;
    text.remove_prefix(1);
    return true;
}

void Drop(CompletionContext &context, std::string_view why) {
    Note(context, TicketNotice::Dropped, why);
}

}  // namespace

void ExpandOffsetStacking(const char *value, CompletionContext &context) {
    std::string_view text = value;
    if (text == "Copies") text = "Copies:1";
    const bool pages = SameName(text.substr(0, 6), "Pages:");
    const bool copies = SameName(text.substr(0, 7), "Copies:");
    text.remove_prefix(pages ? 6 : copies ? 7 : 0);
    int number = 0;
    if (!(pages || copies) || !TakeNumber(text, 99999, number) || !text.empty()) {
        return Drop(context, "is not understood; allowed: None, Copies, Copies:N, Pages:N");
    }
    AddKey(context, kOffsetStackingListTicketKey, pages ? "4" : "5");
    AddKey(context, pages ? kOffsetStackingPagesTicketKey : kOffsetStackingCopiesTicketKey,
           std::to_string(number));
}

void ExpandSeparator(const char *value, CompletionContext &context) {
    std::string_view text = value;
    std::string list;
    do {
        int first = 0, last = 0;
        if (!TakeNumber(text, 99999, first)) return Drop(context, "is no list of pages as 3,7-9");
        last = first;
        if (TakeSign(text, '-') && (!TakeNumber(text, 99999, last) || last < first)) {
            return Drop(context, "is no list of pages as 3,7-9");
        }
        for (int page = first; page <= last && list.size() <= kMostSeparatorPages; page++) {
            list.append(list.empty() ? "" : " ").append(std::to_string(page));
        }
    } while (TakeSign(text, ','));
    if (!text.empty()) return Drop(context, "is no list of pages as 3,7-9");
    if (list.size() > kMostSeparatorPages) return Drop(context, "names more pages than fit");
    AddKey(context, kSeparatorPageListTicketKey, "2");
    AddKey(context, kSeparatorPageTicketKey, list);
}

void ExpandStoragePassword(const char *value, CompletionContext &context) {
    if (!ShortOptionValue(context, "KVStorageID") &&
        !TicketValue(context, KV_TICKET "JBAStorageIDTextEditTicket")) {
        return Drop(context, "belongs to KVStorageID, which is not given");
    }
    const auto size = static_cast<std::size_t>(FindShortOption("KVStoragePassword")->most);
    AddText(context, KV_TICKET "JBAStoragePasswordTextEditTicket", value, size);
}

void ExpandReportAddress(const char *, CompletionContext &context) {
    if (!*IPAddressStr) return Drop(context, "cannot be: this computer has no address");
    AddKey(context, KV_TICKET "JBAIPAddressStringTicket", "1");
}
