// SPDX-License-Identifier: Apache-2.0
#include "Modules/Features/FeaturesTicket.h"

#include <iterator>

FeaturesOptions kpjlOptionFeatures;

namespace {

constexpr char kTabMarginCheckBoxTicketKey[] = KV_TICKET "TabMarginSwitchTicket";
constexpr char kTrimmerCheckBoxTicketKey[] = KV_TICKET "TrimmerSwitchTicket";
constexpr char kBookletMarginCheckBoxTicketKey[] = KV_TICKET "BookletMarginSwitchTicket";
constexpr char kTabMarginEditTextTicketKey[] = KV_TICKET "TabMarginMMShiftTicket";
constexpr char kTrimmerEditTextTicketKey[] = KV_TICKET "TrimmerMMCuttingSizeTicket";
constexpr char kNumInSequenceCheckBoxTicketKey[] = KV_TICKET "NumInSequenceSwitchTicket";
constexpr char kNumInSequenceLArrowTicketKey[] = KV_TICKET "NumInSequenceLArrowTicket";
constexpr char kOffsetStackingListTicketKey[] = KV_TICKET "OffsetStackingListTicket";
constexpr char kOffsetStackingPagesTicketKey[] = KV_TICKET "OffsetStackingPagesLArrowTicket";
constexpr char kOffsetStackingUnitsTicketKey[] = KV_TICKET "OffsetStackingUnitsLArrowTicket";
constexpr char kSeparatorPagesListTicketKey[] = KV_TICKET "SeparatorPageListTicket";
constexpr char kSeparatorPagesTicketKey[] = KV_TICKET "SeparatorPageTicket";
constexpr char kAutoFitCheckBoxTicketKey[] = KV_TICKET "AutoFitSwitchTicket";
constexpr char kBookletMarginEditTextTicketKey[] = KV_TICKET "BookletMarginMMShiftTicket";
constexpr char kEjectOptionsListTicketKey[] = KV_TICKET "EjectOptionsListTicket";
constexpr char kNumPunchHolesTicketKey[] = "KVNumPunchHoles";
constexpr char kMediaTypeTabTicketKey[] = KV_TICKET "featuresMediaTypeTabTicket";
constexpr char kCoilPunchFaceTicketKey[] = KV_TICKET "CoilPunchFaceTicket";
constexpr char kWhetherMediaTypeTabTicketKey[] = KV_TICKET "whetherMediaTypeTabTicket";

FeaturesOptions &f = kpjlOptionFeatures;

}  // namespace

// clang-format off
const ticketData FeaturesticketData[] = {
    {kTabMarginCheckBoxTicketKey,     &f.tabMarginSwitch,     sizeof f.tabMarginSwitch,      GetTicketInteger},
    {kTrimmerCheckBoxTicketKey,       &f.trimmerSwitch,       sizeof f.trimmerSwitch,        GetTicketInteger},
    {kBookletMarginCheckBoxTicketKey, &f.bookletMarginSwitch, sizeof f.bookletMarginSwitch,  GetTicketInteger},
    {kTabMarginEditTextTicketKey,     f.tabMarginShift,       sizeof f.tabMarginShift,       GetTicketStringConvertedToPrtLang},
    {kTrimmerEditTextTicketKey,       f.trimmerCuttingSize,   sizeof f.trimmerCuttingSize,   GetTicketStringConvertedToPrtLang},
    {kNumInSequenceCheckBoxTicketKey, &f.numInSequenceSwitch, sizeof f.numInSequenceSwitch,  GetTicketInteger},
    {kNumInSequenceLArrowTicketKey,   f.numInSequence,        sizeof f.numInSequence,        GetTicketStringConvertedToPrtLang},
    {kOffsetStackingListTicketKey,    &f.offsetStackingList,  sizeof f.offsetStackingList,   GetTicketInteger},
    {kOffsetStackingPagesTicketKey,   f.offsetStackingPages,  sizeof f.offsetStackingPages,  GetTicketStringConvertedToPrtLang},
    {kOffsetStackingUnitsTicketKey,   f.offsetStackingUnits,  sizeof f.offsetStackingUnits,  GetTicketStringConvertedToPrtLang},
    {kSeparatorPagesListTicketKey,    &f.separatorPagesList,  sizeof f.separatorPagesList,   GetTicketInteger},
    {kSeparatorPagesTicketKey,        f.separatorPages,       sizeof f.separatorPages,       GetTicketStringConvertedToPrtLang},
    {kAutoFitCheckBoxTicketKey,       &f.autoFitSwitch,       sizeof f.autoFitSwitch,        GetTicketInteger},
    {kBookletMarginEditTextTicketKey, f.bookletMarginShift,   sizeof f.bookletMarginShift,   GetTicketStringConvertedToPrtLang},
    {kEjectOptionsListTicketKey,      &f.ejectOptionsList,    sizeof f.ejectOptionsList,     GetTicketInteger},
    {kNumPunchHolesTicketKey,         f.numPunchHoles,        sizeof f.numPunchHoles,        GetTicketStringConvertedToPrtLang},
    {kMediaTypeTabTicketKey,          f.mediaTypeTab,         sizeof f.mediaTypeTab,         GetTicketStringConvertedToPrtLang},
    {kCoilPunchFaceTicketKey,         f.coilPunchFace,        sizeof f.coilPunchFace,        GetTicketStringConvertedToPrtLang},
    {kWhetherMediaTypeTabTicketKey,   &f.whetherMediaTypeTab, sizeof f.whetherMediaTypeTab,  GetTicketInteger},
};
// clang-format on
static_assert(std::size(FeaturesticketData) == FeaturesTicketDataNum);

int FeaturesGetTicketFromPDE(char *const argv[]) {
    return GetTicketFromArray(argv, FeaturesticketData, FeaturesTicketDataNum);
}
