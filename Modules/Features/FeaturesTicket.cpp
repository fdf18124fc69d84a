// SPDX-License-Identifier: Apache-2.0
#include "Modules/Features/FeaturesTicket.h"

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
const ticketData FeaturesticketData[FeaturesTicketDataNum] = {
    {kTabMarginCheckBoxTicketKey,     &f.tabMarginSwitch,     4,   GetTicketInteger},
    {kTrimmerCheckBoxTicketKey,       &f.trimmerSwitch,       4,   GetTicketInteger},
    {kBookletMarginCheckBoxTicketKey, &f.bookletMarginSwitch, 4,   GetTicketInteger},
    {kTabMarginEditTextTicketKey,     f.tabMarginShift,       5,   GetTicketStringConvertedToPrtLang},
    {kTrimmerEditTextTicketKey,       f.trimmerCuttingSize,   5,   GetTicketStringConvertedToPrtLang},
    {kNumInSequenceCheckBoxTicketKey, &f.numInSequenceSwitch, 4,   GetTicketInteger},
    {kNumInSequenceLArrowTicketKey,   f.numInSequence,        5,   GetTicketStringConvertedToPrtLang},
    {kOffsetStackingListTicketKey,    &f.offsetStackingList,  4,   GetTicketInteger},
    {kOffsetStackingPagesTicketKey,   f.offsetStackingPages,  6,   GetTicketStringConvertedToPrtLang},
    {kOffsetStackingUnitsTicketKey,   f.offsetStackingUnits,  6,   GetTicketStringConvertedToPrtLang},
    {kSeparatorPagesListTicketKey,    &f.separatorPagesList,  4,   GetTicketInteger},
    {kSeparatorPagesTicketKey,        f.separatorPages,       100, GetTicketStringConvertedToPrtLang},
    {kAutoFitCheckBoxTicketKey,       &f.autoFitSwitch,       4,   GetTicketInteger},
    {kBookletMarginEditTextTicketKey, f.bookletMarginShift,   5,   GetTicketStringConvertedToPrtLang},
    {kEjectOptionsListTicketKey,      &f.ejectOptionsList,    4,   GetTicketInteger},
    {kNumPunchHolesTicketKey,         f.numPunchHoles,        100, GetTicketStringConvertedToPrtLang},
    {kMediaTypeTabTicketKey,          f.mediaTypeTab,         100, GetTicketStringConvertedToPrtLang},
    {kCoilPunchFaceTicketKey,         f.coilPunchFace,        100, GetTicketStringConvertedToPrtLang},
    {kWhetherMediaTypeTabTicketKey,   &f.whetherMediaTypeTab, 4,   GetTicketInteger},
};
// clang-format on

int FeaturesGetTicketFromPDE(char *const argv[]) {
    return GetTicketFromArray(argv, FeaturesticketData, FeaturesTicketDataNum);
}
