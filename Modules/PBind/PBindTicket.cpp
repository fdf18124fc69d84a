// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PBindTicket.h"

#include <iterator>
#include <string_view>

#include "CommonSource/FilterFrame/Source/BoundedText.h"

PBindOptions psoptionpbind;

namespace {

constexpr PBindOptions &ticket = psoptionpbind;

}  // namespace

const ticketData PBindticketData[] = {
#define KV_KEY KV_KEY_ROW
#include "Modules/PBind/PBindTicket.def"
};
const std::int32_t PBindTicketDataNum = std::size(PBindticketData);

namespace {

// The dialog's bind position in the printer's terms. Any other position stays as it is, without a
// rotation.
struct BindingRule {
    std::string_view dialogValue;
    const char *bindPosition;
    const char *rotation;
};
// clang-format off
constexpr BindingRule bindingRules[] = {
    {"None",      kPBindOff,   ""},
    {"BindLeft",  kPBindLeft,  "ROTSEFLAND"},
    {"BindRight", kPBindRight, "ROTLEFPORT"},
    {"BindTop",   kPBindTop,   "ROTSEFLAND"},
};
// clang-format on

// Which cut fields mean something with the dialog's trimming. The last row is for any trimming that
// has no row of its own, such as "3EdgeCut" or none at all.
enum CutField { kClear, kKeep, kMinimum };
constexpr char kMinimumCutPosition[] = "7mm";

struct TrimmingRule {
    std::string_view dialogValue;
    CutField cutPageSize;
    CutField cutPositionTop;
    CutField cutPositionFore;
    std::int32_t minimumCut;
};
// clang-format off
constexpr TrimmingRule trimmingRules[] = {
    // trimming           page size  top and bottom  fore edge  minimum cut
    {"None",              kClear,    kClear,         kClear,    0},
    {"3EdgeSpecifySize",  kKeep,     kClear,         kClear,    0},
    {"1EdgeSpecifySize",  kKeep,     kClear,         kClear,    0},
    {"1EdgeCut",          kClear,    kClear,         kKeep,     0},
    {"3EdgeCutMinimum",   kClear,    kMinimum,       kMinimum,  1},
    {"1EdgeCutMinimum",   kClear,    kClear,         kMinimum,  1},
    {"",                  kClear,    kKeep,          kKeep,     0},
};
// clang-format on

void ApplyBindingRules() {
    for (const BindingRule &rule : bindingRules) {
        if (ticket.bindPosition != rule.dialogValue) continue;
        CopyBounded(ticket.bindPosition, rule.bindPosition);
        CopyBounded(ticket.rotation, rule.rotation);
        return;
    }
}

void SetCutField(PBindText &field, CutField cut) {
    if (cut == kClear) CopyBounded(field, "");
    if (cut == kMinimum) CopyBounded(field, kMinimumCutPosition);
}

void ApplyTrimmingRules() {
    const TrimmingRule *rule = trimmingRules;
    const TrimmingRule *const anyOther = std::end(trimmingRules) - 1;
    while (rule != anyOther && ticket.trimming != rule->dialogValue) rule++;
    SetCutField(ticket.cutPageSize, rule->cutPageSize);
    SetCutField(ticket.cutPositionTop, rule->cutPositionTop);
    SetCutField(ticket.cutPositionFore, rule->cutPositionFore);
    ticket.minimumCut = rule->minimumCut;
}

// How much is cut; a trimming that the dialog does not know stays as it is.
void ReplaceTrimmingByKeyword() {
    const std::string_view trimming = ticket.trimming;
    if (trimming == "None") {
        CopyBounded(ticket.trimming, kPBindOff);
    } else if (trimming.starts_with("1Edge")) {
        CopyBounded(ticket.trimming, "FACE");
    } else if (trimming.starts_with("3Edge")) {
        CopyBounded(ticket.trimming, "FULLBLEED");
    }
}

}  // namespace

int PBindGetTicketFromPDE(char *const argv[]) {
    psoptionpbind = {};
    GetTicketFromArray(argv, PBindticketData, PBindTicketDataNum);
    ApplyBindingRules();
    ApplyTrimmingRules();
    ReplaceTrimmingByKeyword();
    return 1;
}
