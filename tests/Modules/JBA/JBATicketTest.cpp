// SPDX-License-Identifier: Apache-2.0
#include "Modules/JBA/JBATicket.h"

#include <gtest/gtest.h>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "support/TicketFields.h"

namespace {

#define DIALOG "com.korvell.tav.printsettings."
#define LAYOUT "com.apple.print.PrintSettings.PMLayout"
#define FORMAT "com.apple.print.subTicket.page_format_ticket..d."
#define RECT                                          \
    "com.apple.print.subTicket.paper_info_ticket..d." \
    "com.apple.print.PaperInfo.PMUnadjustedPaperRect..a."

JBAOptions &ticket = kpjlOptionJBA;

// clang-format off
TEST(JBATicket, EachKeyFillsItsField) {
    ExpectFields(JBAGetTicketFromPDE, {
        {DIALOG "JBAMacHostNameStringTicket",            ticket.hostName, 33},
        {DIALOG "JBAIPAddressStringTicket",              ticket.ipAddress, 46},
        {DIALOG "JBAInfoListTicketKey",                  ticket.infoList},
        {DIALOG "JBAInfoSetListTicketKey",               ticket.infoSetLbox},
        {DIALOG "JBAManageTypeListTicketKey",            ticket.mngTypeListBox},
        {DIALOG "JBAUserSettingRadioBtnTicket",          ticket.jobInfoRadioBtn},
        {DIALOG "JBAUserIDListCtrlTicket",               ticket.userIDListCtrl},
        {DIALOG "JBAUserIDTextEditTicket",               ticket.userID, 97},
        {DIALOG "JBAUserPasswordTextEditTicket",         ticket.userIDPassword, 255},
        {DIALOG "JBADomainNameTextEditTicket",           ticket.domainName, 65},
        {DIALOG "JBAAccountIDTextEditTicket",            ticket.accountID, 33},
        {DIALOG "JBAStorageIDTextEditTicket",            ticket.storageID, 73},
        {DIALOG "JBAStoragePasswordTextEditTicket",      ticket.storagePassword, 17},
        {DIALOG "JBAUserInputRadioBtnTicket",            ticket.jobInputRadioBtn},
        {DIALOG "JBAAdminUserSettingRadioBtnTicket",     ticket.jobInfoRadioBtnAdmin},
        {DIALOG "JBAAdminUserIDListCtrlTicket",          ticket.userIDListCtrlAdmin},
        {DIALOG "JBAAdminUserIDTextEditTicket",          ticket.userIDAdmin, 97},
        {DIALOG "JBAAdminUserPasswordTextEditTicket",    ticket.userIDPasswordAdmin, 255},
        {DIALOG "JBAAdminDomainNameTextEditTicket",      ticket.domainNameAdmin, 65},
        {DIALOG "JBAAdminAccountIDTextEditTicket",       ticket.accountIDAdmin, 33},
        {DIALOG "JBAAdminStorageIDTextEditTicket",       ticket.storageIDAdmin, 73},
        {DIALOG "JBAAdminStoragePasswordTextEditTicket", ticket.storagePasswordAdmin, 17},
        {DIALOG "JBAAdminUserInputRadioBtnTicket",       ticket.jobInputRadioBtnAdmin},
        {DIALOG "JBAInputAuthRadioBtnTicketKey",         ticket.inputAuthRadioBtn},
        {DIALOG "JBAInputStrgRadioBtnTicketKey",         ticket.inputStrgRadioBtn},
        {DIALOG "JBAInputUserIDTextEditTicket",          ticket.inputUserID, 97},
        {DIALOG "JBAInputUserPasswordTextEditTicket",    ticket.inputUserIDPassword, 255},
        {DIALOG "JBAInputDomainNameTextEditTicket",      ticket.inputDomainName, 65},
        {DIALOG "JBAInputAccountIDTextEditTicket",       ticket.inputAccountID, 33},
        {DIALOG "JBAInputStorageIDTextEditTicket",       ticket.inputStorageID, 73},
        {DIALOG "JBAInputStoragePasswordTextEditTicket", ticket.inputStoragePassword, 17},
        {"number-up",                                    StdLayoutInfo, 10},
        {LAYOUT "Direction..n.",                         StdLayoutDirectionInfo, 10},
        {LAYOUT "Rows..n.",                              StdLayoutRowInfo, 10},
        {LAYOUT "Columns..n.",                           StdLayoutColumnInfo, 10},
        {FORMAT RECT "0..n.",                            StdPaperInfoRectOriginYKey, 20},
        {FORMAT RECT "1..n.",                            StdPaperInfoRectOriginXKey, 20},
        {FORMAT RECT "2..n.",                            StdPaperInfoRectHeightKey, 20},
        {FORMAT RECT "3..n.",                            StdPaperInfoRectWidthKey, 20},
        {RECT "0..n.",                                   StdAdobePaperInfoRectOriginYKey, 20},
        {RECT "1..n.",                                   StdAdobePaperInfoRectOriginXKey, 20},
        {RECT "2..n.",                                   StdAdobePaperInfoRectHeightKey, 20},
        {RECT "3..n.",                                   StdAdobePaperInfoRectWidthKey, 20},
    });
}
// clang-format on

TEST(JBATicket, ReadsTheNumberOfPagesOnASheetTwice) {
    ReadTicket(JBAGetTicketFromPDE, "number-up=12345678901");
    EXPECT_STREQ(StdNUpInfo, "N12345678");
    EXPECT_STREQ(StdLayoutInfo, "123456789");
    ReadTicket(JBAGetTicketFromPDE, "");
    EXPECT_STREQ(StdNUpInfo, "1");
    EXPECT_STREQ(StdLayoutInfo, "");
}

TEST(JBATicket, RemembersThatAUserIDIsAbsent) {
    ReadTicket(JBAGetTicketFromPDE, DIALOG "JBAUserIDTextEditTicket=bob");
    EXPECT_EQ(ticket.userIDAbsent, 0);
    ReadTicket(JBAGetTicketFromPDE, "");
    EXPECT_EQ(ticket.userIDAbsent, 1);
}

}  // namespace
