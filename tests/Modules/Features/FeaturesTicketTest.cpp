// SPDX-License-Identifier: Apache-2.0
#include "Modules/Features/FeaturesTicket.h"

#include <gtest/gtest.h>

#include "support/TicketFields.h"

namespace {

FeaturesOptions &ticket = kpjlOptionFeatures;

TEST(FeaturesTicket, EachKeyFillsItsField) {
    // clang-format off
    ExpectFields(FeaturesGetTicketFromPDE, {
        {"com.korvell.tav.printsettings.TabMarginSwitchTicket",           ticket.tabMarginSwitch},
        {"com.korvell.tav.printsettings.TrimmerSwitchTicket",             ticket.trimmerSwitch},
        {"com.korvell.tav.printsettings.BookletMarginSwitchTicket",       ticket.bookletMarginSwitch},
        {"com.korvell.tav.printsettings.TabMarginMMShiftTicket",          ticket.tabMarginShift, 5},
        {"com.korvell.tav.printsettings.TrimmerMMCuttingSizeTicket",      ticket.trimmerCuttingSize, 5},
        {"com.korvell.tav.printsettings.NumInSequenceSwitchTicket",       ticket.numInSequenceSwitch},
        {"com.korvell.tav.printsettings.NumInSequenceLArrowTicket",       ticket.numInSequence, 5},
        {"com.korvell.tav.printsettings.OffsetStackingListTicket",        ticket.offsetStackingList},
        {"com.korvell.tav.printsettings.OffsetStackingPagesLArrowTicket", ticket.offsetStackingPages, 6},
        {"com.korvell.tav.printsettings.OffsetStackingUnitsLArrowTicket", ticket.offsetStackingUnits, 6},
        {"com.korvell.tav.printsettings.SeparatorPageListTicket",         ticket.separatorPagesList},
        {"com.korvell.tav.printsettings.SeparatorPageTicket",             ticket.separatorPages, 100},
        {"com.korvell.tav.printsettings.AutoFitSwitchTicket",             ticket.autoFitSwitch},
        {"com.korvell.tav.printsettings.BookletMarginMMShiftTicket",      ticket.bookletMarginShift, 5},
        {"com.korvell.tav.printsettings.EjectOptionsListTicket",          ticket.ejectOptionsList},
        {"KVNumPunchHoles",                                               ticket.numPunchHoles, 100},
        {"com.korvell.tav.printsettings.featuresMediaTypeTabTicket",      ticket.mediaTypeTab, 100},
        {"com.korvell.tav.printsettings.CoilPunchFaceTicket",             ticket.coilPunchFace, 100},
        {"com.korvell.tav.printsettings.whetherMediaTypeTabTicket",       ticket.whetherMediaTypeTab},
    });
    // clang-format on
}

}  // namespace
