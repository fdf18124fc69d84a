// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/IPPAttributes.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/MarkedChoice.h"

namespace {

constexpr char kCopiesTicketKey[] = "com.apple.print.PrintSettings.PMCopies..n.";
constexpr char kOrientationTicketKey[] = "orientation-requested";

// A job attribute that is a short option by another name.
struct ShortAttribute {
    const char *shortOption;
    const char *attribute;
};
constexpr ShortAttribute kShortAttributes[] = {
    {"KVPassword", "job-password"},
    {"KVAccountID", "job-account-id"},
    {"KVAccountUser", "job-accounting-user-id"},
};

// A value of an attribute, and the printer's or the dialog's for it.
struct ValuePair {
    std::string_view value;
    const char *becomes;
};

// CUPS itself brings the pages into reverse order.
constexpr ValuePair kDeliveries[] = {
    {"same-order-face-up", "FaceUp"},
    {"same-order-face-down", "FaceDown"},
    {"reverse-order-face-up", "FaceUp"},
    {"reverse-order-face-down", "FaceDown"},
};

// Order of the pages on a sheet: l, r, t, b for left, right, top, bottom.
constexpr ValuePair kLayouts[] = {
    {"lrtb", "1"}, {"lrbt", "2"}, {"rltb", "3"}, {"rlbt", "4"},
    {"tblr", "5"}, {"tbrl", "6"}, {"btlr", "7"}, {"btrl", "8"},
};

// The dialog counts from portrait as 1, IPP as 3, and both have the turned ones in common.
constexpr ValuePair kOrientations[] = {
    {"3", "1"}, {"4", "4"}, {"5", "5"}, {"6", "6"}, {"1", "1"},
};

const char *Find(const ValuePair *begin, const ValuePair *end, const char *value) {
    const ValuePair *pair =
        std::find_if(begin, end, [&](const ValuePair &row) { return row.value == value; });
    return pair == end ? nullptr : pair->becomes;
}

template <std::size_t size>
const char *Find(const ValuePair (&pairs)[size], const char *value) {
    return Find(pairs, pairs + size, value);
}

bool JobSays(const CompletionContext &context, const char *name) {
    const char *value = JobValue(context, name);
    return value && SameName(value, "true");
}

void AddOrientation(CompletionContext &context) {
    if (const char *given = JobValue(context, kOrientationTicketKey)) {
        BeginOption(context, TicketSource::IPPAttribute, kOrientationTicketKey, given);
        ReplaceKey(context, kOrientationTicketKey, Find(kOrientations, given));
    } else if (JobSays(context, "landscape")) {
        BeginOption(context, TicketSource::Job, "landscape", "true");
        AddKey(context, kOrientationTicketKey, "4");
    }
}

// Rows and columns tell whether CUPS's pstops puts several pages on a sheet and thereby takes
// setpagedevice away. What is no PostScript has its pages laid out before it becomes PostScript.
void AddGrid(CompletionContext &context) {
    const char *type = std::getenv("CONTENT_TYPE");
    const char *given = JobValue(context, kNumberUpTicketKey);
    const std::int32_t pages = given ? LeadingInteger(given) : 1;
    if (pages < 2 || (type && std::string_view(type) != "application/postscript")) return;
    BeginOption(context, TicketSource::IPPAttribute, kNumberUpTicketKey, given);
    std::int32_t rows = 1;
    for (std::int32_t n = 2; n * n <= pages && n <= 16; n++) {
        if (pages % n == 0) rows = n;
    }
    AddKey(context, kLayoutRowCountTicketKey, std::to_string(rows));
    AddKey(context, kLayoutColumnCountTicketKey, std::to_string(pages / rows));
}

void AddLayout(CompletionContext &context) {
    if (const char *given = JobValue(context, "number-up-layout")) {
        BeginOption(context, TicketSource::IPPAttribute, "number-up-layout", given);
        if (const char *direction = Find(kLayouts, given)) {
            AddKey(context, kLayoutDirectionTicketKey, direction);
        } else {
            Note(context, TicketNotice::Dropped,
                 "is not understood; allowed: lrtb, lrbt, rltb, rlbt, tblr, tbrl, btlr, btrl");
        }
    }
    AddGrid(context);
}

// Whether the copies are to be collated. The keys that are added next come from what says so.
bool BeginCollation(CompletionContext &context) {
    if (const char *value = JobValue(context, "collate")) {
        BeginOption(context, TicketSource::IPPAttribute, "collate", value);
        return SameName(value, "true");
    }
    if (const char *value = JobValue(context, "multiple-document-handling")) {
        BeginOption(context, TicketSource::IPPAttribute, "multiple-document-handling", value);
        return std::string_view(value) != "separate-documents-uncollated-copies";
    }
    const std::string marked = MarkedChoice(context.ppd, "Collate");
    BeginOption(context, TicketSource::QueueDefault, "Collate", marked);
    return SameName(marked, "true");
}

// The job information takes the word itself for the option, wherever it stands in the string, so
// that nothing else may hold it (CompleteTicket.cpp).
void AddCopies(CompletionContext &context) {
    ReplaceKey(context, "collate", BeginCollation(context) ? "true" : "false");
    BeginOption(context, TicketSource::IPPAttribute, "copies", context.argv[4]);
    AddKey(context, kCopiesTicketKey, std::to_string(std::max(1, LeadingInteger(context.argv[4]))));
}

// A hashed password is not what the user will type at the printer. One of control characters
// arrives mutilated, as hexadecimal digits.
void RefuseForeignPassword(CompletionContext &context) {
    const char *password = JobValue(context, "job-password");
    if (!password || !*password) return;
    BeginOption(context, TicketSource::IPPAttribute, "job-password", password,
                Discretion::Password);
    const char *encryption = JobValue(context, "job-password-encryption");
    if (encryption && !SameName(encryption, "none")) {
        Note(context, TicketNotice::Refused, "is encrypted, which the printer does not take");
    } else if (*password == '<') {
        Note(context, TicketNotice::Refused, "is binary, which CUPS does not pass on as it was");
    }
}

}  // namespace

IPPOption ShortOptionOfIPPAttribute(const CompletionContext &context, const char *shortOption) {
    const std::string_view name = shortOption;
    for (const auto &[option, attribute] : kShortAttributes) {
        const char *value = name == option ? JobValue(context, attribute) : nullptr;
        if (value && *value) return {attribute, value};
    }
    const char *delivery = name == "KVDelivery" ? JobValue(context, "page-delivery") : nullptr;
    return {"page-delivery", delivery ? Find(kDeliveries, delivery) : nullptr};
}

bool ColorModeWasChosen(const CompletionContext &context) {
    const char *mode = JobValue(context, "print-color-mode");
    if (!mode) return false;
    if (!JobValue(context, "finishings") || !JobValue(context, kNumberUpTicketKey)) return true;
    // The scheduler's own default, by which lp's habit shows.
    bool color = context.ppd->color_device;
    const ppd_choice_t *model = ppdFindMarkedChoice(context.ppd, "ColorModel");
    if (model) color = SameName(model->choice, "RGB") || SameName(model->choice, "CMYK");
    return std::string_view(mode) != (color ? "color" : "monochrome");
}

void AddIPPAttributes(CompletionContext &context) {
    RefuseForeignPassword(context);
    AddOrientation(context);
    AddLayout(context);
    AddCopies(context);
}
