// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PBindTicket.h"

#include <iterator>
#include <string_view>

#include "CommonSource/FilterFrame/Source/BoundedText.h"

PBindOptions psoptionpbind;

namespace {

constexpr char kPBindPositionTicketKey[] = "KVPBindPosition";
constexpr char kPBindTrimmingTicketKey[] = "KVPBindTrimming";
constexpr char kPBindCutPageSizeTicketKey[] = "KVPBindCutPageSize";
constexpr char kPBindImagePositionTicketKey[] = "noKVPBindImagePosition";
constexpr char kPBindCutPositionTopTicketKey[] = "KVPBindCutPositionTop";
constexpr char kPBindCutPositionForeTicketKey[] = "KVPBindCutPositionFore";
constexpr char kPBindPageSizeTicketKey[] = "KVPBindPageSize";
constexpr char kPBindCoverPageSizeTicketKey[] = "KVPBindCoverPageSize";
constexpr char kPBindCoverMediaTypeTicketKey[] = "KVPBindCoverMediaType";
constexpr char kPBindCoverMediaColorTicketKey[] = "KVPBindCoverMediaColor";
constexpr char kPBindCoverPaperTrayTicketKey[] = "KVPBindCoverPaperTray";
constexpr char kPBindRotationAdjustTopTicketKey[] = "KVPBindRotationAdjustTop";
constexpr char kPBindRotationAdjustBotTicketKey[] = "KVPBindRotationAdjustBot";
constexpr char kPBindRotationAdjustForeTicketKey[] = "KVPBindRotationAdjustFore";
constexpr char kPBindCutPageAdjustmentTBTicketKey[] = "KVPBindCutPageAdjustmentTB";
constexpr char kPBindCutPageAdjustmentForeTicketKey[] = "KVPBindCutPageAdjustmentFore";
constexpr char kPBindCutPositionAdjustmentTBTicketKey[] = "KVPBindCutPositionAdjustmentTB";
constexpr char kPBindCoverAdjustXTicketKey[] = "KVPBindCoverAdjustX";
constexpr char kPBindCoverAdjustYTicketKey[] = "KVPBindCoverAdjustY";

PBindOptions &p = psoptionpbind;

}  // namespace

// clang-format off
const ticketData PBindticketData[] = {
    {kPBindPositionTicketKey,                p.bindPosition,            sizeof p.bindPosition,            GetTicketStringConvertedToPrtLang},
    {kPBindTrimmingTicketKey,                p.trimming,                sizeof p.trimming,                GetTicketStringConvertedToPrtLang},
    {kPBindCutPageSizeTicketKey,             p.cutPageSize,             sizeof p.cutPageSize,             GetTicketStringConvertedToPrtLang},
    {kPBindImagePositionTicketKey,           &p.imagePosition,          sizeof p.imagePosition,           GetTicketInteger},
    {kPBindCutPositionTopTicketKey,          p.cutPositionTop,          sizeof p.cutPositionTop,          GetTicketStringConvertedToPrtLang},
    {kPBindCutPositionForeTicketKey,         p.cutPositionFore,         sizeof p.cutPositionFore,         GetTicketStringConvertedToPrtLang},
    {kPBindPageSizeTicketKey,                p.pageSize,                sizeof p.pageSize,                GetTicketStringConvertedToPrtLang},
    {kPBindCoverPageSizeTicketKey,           p.coverPageSize,           sizeof p.coverPageSize,           GetTicketStringConvertedToPrtLang},
    {kPBindCoverMediaTypeTicketKey,          p.coverMediaType,          sizeof p.coverMediaType,          GetTicketStringConvertedToPrtLang},
    {kPBindCoverMediaColorTicketKey,         p.coverMediaColor,         sizeof p.coverMediaColor,         GetTicketStringConvertedToPrtLang},
    {kPBindCoverPaperTrayTicketKey,          p.coverPaperTray,          sizeof p.coverPaperTray,          GetTicketStringConvertedToPrtLang},
    {kPBindRotationAdjustTopTicketKey,       p.rotationAdjustTop,       sizeof p.rotationAdjustTop,       GetTicketStringConvertedToPrtLang},
    {kPBindRotationAdjustBotTicketKey,       p.rotationAdjustBot,       sizeof p.rotationAdjustBot,       GetTicketStringConvertedToPrtLang},
    {kPBindRotationAdjustForeTicketKey,      p.rotationAdjustFore,      sizeof p.rotationAdjustFore,      GetTicketStringConvertedToPrtLang},
    {kPBindCutPageAdjustmentTBTicketKey,     p.cutPageAdjustmentTB,     sizeof p.cutPageAdjustmentTB,     GetTicketStringConvertedToPrtLang},
    {kPBindCutPageAdjustmentForeTicketKey,   p.cutPageAdjustmentFore,   sizeof p.cutPageAdjustmentFore,   GetTicketStringConvertedToPrtLang},
    {kPBindCutPositionAdjustmentTBTicketKey, p.cutPositionAdjustmentTB, sizeof p.cutPositionAdjustmentTB, GetTicketStringConvertedToPrtLang},
    {kPBindCoverAdjustXTicketKey,            p.coverAdjustX,            sizeof p.coverAdjustX,            GetTicketStringConvertedToPrtLang},
    {kPBindCoverAdjustYTicketKey,            p.coverAdjustY,            sizeof p.coverAdjustY,            GetTicketStringConvertedToPrtLang},
};
// clang-format on
static_assert(std::size(PBindticketData) == PBindTicketDataNum);

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
        if (p.bindPosition != rule.dialogValue) continue;
        CopyBounded(p.bindPosition, rule.bindPosition);
        CopyBounded(p.rotation, rule.rotation);
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
    while (rule != anyOther && p.trimming != rule->dialogValue) rule++;
    SetCutField(p.cutPageSize, rule->cutPageSize);
    SetCutField(p.cutPositionTop, rule->cutPositionTop);
    SetCutField(p.cutPositionFore, rule->cutPositionFore);
    p.minimumCut = rule->minimumCut;
}

// How much is cut; a trimming that the dialog does not know stays as it is.
void ReplaceTrimmingByKeyword() {
    const std::string_view trimming = p.trimming;
    if (trimming == "None") {
        CopyBounded(p.trimming, kPBindOff);
    } else if (trimming.starts_with("1Edge")) {
        CopyBounded(p.trimming, "FACE");
    } else if (trimming.starts_with("3Edge")) {
        CopyBounded(p.trimming, "FULLBLEED");
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
