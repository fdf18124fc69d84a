// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/SpecialPageOptions.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/MarkedChoice.h"
#include "FrontEnd/PageRanges.h"
#include "FrontEnd/SpecialPageMedia.h"

namespace {

// Sheets that a job can have inserted, and page ranges with exceptions: beyond what people mean, so
// that a slip like 1-99999 is told and not sent.
constexpr std::size_t kMostValues = 1000;
constexpr char kTooMany[] = "names more than 1000 places in the document";
constexpr int kMostSheets = 999;  // in one place

// The first and the last document of an exception: a job of CUPS's has one.
constexpr char kOnlyDocument[] = "1,1,";

struct Keyword {
    std::string_view typed, sent;
};
// clang-format off
constexpr Keyword kCoverTypes[] = {
    {"none",  "print-none"},
    {"front", "print-front"},
    {"back",  "print-back"},
    {"both",  "print-both"},
};
constexpr Keyword kSides[] = {
    // typed, or the PPD's choice  sent
    {"one-sided",                  "one-sided"},
    {"two-sided-long-edge",        "two-sided-long-edge"},
    {"two-sided-short-edge",       "two-sided-short-edge"},
    {"DuplexNoTumble",             "two-sided-long-edge"},
    {"DuplexTumble",               "two-sided-short-edge"},
};
// clang-format on

template <std::size_t count>
bool FindKeyword(const Keyword (&keywords)[count], std::string_view typed, std::string &sent) {
    const auto *keyword = std::find_if(keywords, keywords + count,
                                       [&](const Keyword &k) { return SameName(k.typed, typed); });
    if (keyword == keywords + count) return false;
    sent = keyword->sent;
    return true;
}

// The sides that the job is printed on.
std::string JobSides(const CompletionContext &context) {
    const char *asked = JobValue(context, "sides");
    std::string sides = "one-sided";
    FindKeyword(kSides, asked ? asked : MarkedChoice(context.ppd, "Duplex"), sides);
    return sides;
}

// Values of one kind, for numbered keys, and what is wrong where it is not the form of the option.
struct Values {
    std::vector<std::string> list;
    std::string problem;
};

bool ReadMedia(std::string_view text, const CompletionContext &context, SpecialPageMedia &media,
               Values &values) {
    std::string part;
    if (ReadSpecialPageMedia(text, context, media, part)) return true;
    values.problem = "names what the printer's ticket cannot hold: " + part;
    return false;
}

// A value of the ticket: its media mode, `before`, the media's fields and no more. An insertion has
// the type after the size, all others before the colour.
std::string TicketValueOf(const std::string &before, const SpecialPageMedia &media,
                          bool typeIsLast = false) {
    if (media.isNamed) return "0," + before + "," + media.type;
    const std::string look = media.colour + "," + media.width + "," + media.height;
    return "1," + before + "," + (typeIsLast ? look + "," + media.type : media.type + "," + look);
}

using Parts = std::vector<std::string_view>;

// Each adds the values of one "a:b:c", split at the colons; false, perhaps with a problem, if it is
// not understood.

bool ReadCover(const Parts &parts, const CompletionContext &context, Values &values) {
    SpecialPageMedia media;
    std::string type;
    const bool isFirst = values.list.empty();  // a cover is one sheet
    if (!isFirst || parts.size() > 2 || parts[0].empty() ||
        !FindKeyword(kCoverTypes, parts.size() > 1 ? parts[1] : "none", type) ||
        !ReadMedia(parts[0], context, media, values)) {
        return false;
    }
    values.list.push_back(TicketValueOf(type, media));
    return true;
}

bool ReadInsertion(const Parts &parts, const CompletionContext &context, Values &values) {
    std::vector<PageRange> ranges;
    SpecialPageMedia media;
    int count = 1;
    if (parts.size() < 2 || parts.size() > 3 || parts[1].empty() ||
        !ReadPageRanges(parts[0], 0, ranges) ||
        (parts.size() > 2 && !ReadWholeNumber(parts[2], 1, kMostSheets, count)) ||
        !ReadMedia(parts[1], context, media, values)) {
        return false;
    }
    for (const PageRange &range : ranges) {
        const auto room = static_cast<int>(kMostValues - values.list.size());
        if (range.last - range.first >= room) {
            values.problem = kTooMany;
            return false;
        }
        for (int page = range.first; page <= range.last; page++) {
            const std::string before = std::to_string(page) + "," + std::to_string(count);
            values.list.push_back(TicketValueOf(before, media, true));
        }
    }
    return true;
}

bool ReadException(const Parts &parts, const CompletionContext &context, Values &values) {
    std::vector<PageRange> ranges;
    SpecialPageMedia media;
    std::string sides = JobSides(context);
    if (parts.size() < 2 || parts.size() > 3 || !ReadPageRanges(parts[0], 1, ranges) ||
        (parts.size() > 2 && !FindKeyword(kSides, parts[2], sides)) ||
        !ReadMedia(parts[1], context, media, values)) {
        return false;
    }
    if (values.list.size() + ranges.size() > kMostValues) {
        values.problem = kTooMany;
        return false;
    }
    for (const PageRange &range : ranges) {
        const std::string before = kOnlyDocument + std::to_string(range.first) + "," +
                                   std::to_string(range.last) + "," + sides;
        values.list.push_back(TicketValueOf(before, media));
    }
    return true;
}

// What an option becomes.
struct SpecialPages {
    const char *kind;  // in its keys
    bool (*read)(const Parts &parts, const CompletionContext &context, Values &values);
    const char *allowed;  // in words
};
constexpr SpecialPages kCover = {"Cover", ReadCover, "MEDIA[:none, front, back or both]"};
constexpr SpecialPages kInsertion = {"Insertion", ReadInsertion, "PAGES:MEDIA[:COUNT]"};
constexpr SpecialPages kException = {
    "Exception", ReadException,
    "PAGES:[MEDIA][:one-sided, two-sided-long-edge or two-sided-short-edge]"};

std::string KeyOf(const SpecialPages &pages, const std::string &name) {
    return std::string(KV_TICKET "KPIF") + pages.kind + name;
}

// The values of `text`. None if it is not understood, which is noted, or if the job has the
// dialog's own.
std::vector<std::string> ReadValues(const SpecialPages &pages, std::string_view text,
                                    CompletionContext &context) {
    if (JobValue(context, KeyOf(pages, "CountTicket"))) return {};
    Values values;
    for (const std::string_view group : SplitAt('+', text)) {
        if (pages.read(SplitAt(':', group), context, values)) continue;
        Note(context, TicketNotice::Dropped,
             values.problem.empty() ? std::string("is not understood; allowed: ") + pages.allowed
                                    : values.problem);
        return {};
    }
    return std::move(values.list);
}

void AddCount(const SpecialPages &pages, std::size_t count, CompletionContext &context) {
    AddKey(context, KeyOf(pages, "CountTicket"), std::to_string(count));
}

void AddValue(const SpecialPages &pages, std::size_t number, const std::string &value,
              CompletionContext &context) {
    AddKey(context, KeyOf(pages, "ValueTicket_" + std::to_string(number)), value);
}

void ExpandList(const SpecialPages &pages, const char *text, CompletionContext &context) {
    const std::vector<std::string> values = ReadValues(pages, text, context);
    if (values.empty()) return;
    AddCount(pages, values.size(), context);
    for (std::size_t i = 0; i < values.size(); i++) AddValue(pages, i, values[i], context);
}

// A job has two covers, number 0 and 1; of one that it lacks there is no value.
enum CoverPosition { kFront, kBack, kCovers };

void ExpandCover(CoverPosition position, const char *text, CompletionContext &context) {
    const std::vector<std::string> values = ReadValues(kCover, text, context);
    if (values.size() != 1) return;
    AddCount(kCover, kCovers, context);
    AddValue(kCover, position, std::to_string(position) + "," + values[0], context);
}

}  // namespace

void ExpandFrontCover(const char *value, CompletionContext &context) {
    ExpandCover(kFront, value, context);
}

void ExpandBackCover(const char *value, CompletionContext &context) {
    ExpandCover(kBack, value, context);
}

void ExpandInsert(const char *value, CompletionContext &context) {
    ExpandList(kInsertion, value, context);
}

void ExpandException(const char *value, CompletionContext &context) {
    ExpandList(kException, value, context);
}
