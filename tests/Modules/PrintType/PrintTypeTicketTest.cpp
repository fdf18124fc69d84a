// SPDX-License-Identifier: Apache-2.0
#include "Modules/PrintType/PrintTypeTicket.h"

#include <gtest/gtest.h>

#include "support/TicketFields.h"

namespace {

PrintTypeOptions &ticket = kpjlOptionPrintType;

TEST(PrintTypeTicket, EachKeyFillsItsField) {
    // clang-format off
    ExpectFields(PrintTypeGetTicketFromPDE, {
        {"com.korvell.tav.printsettings.PrintTypeTicketKey",            ticket.printType},
        {"com.korvell.tav.printsettings.PrintTypeUserNameTicketKey",    ticket.userName, 73},
        {"com.korvell.tav.printsettings.PrintTypePasswordTicketKey",    ticket.password, 17},
        {"com.korvell.tav.printsettings.DocumentNameTypeTicketKey",     ticket.documentNameType},
        {"com.korvell.tav.printsettings.DocumentNameTicketKey",         ticket.documentName, 193},
        {"com.korvell.tav.printsettings.DelayPrintTicketKey",           ticket.delayPrintTime, 17},
        {"com.korvell.tav.printsettings.PrintTypeMBNTicketKey",         ticket.mailboxNumber, 5},
        {"com.korvell.tav.printsettings.PrintTypeMBNPasswordTicketKey", ticket.mailboxPassword, 30},
    });
    // clang-format on
}

}  // namespace
