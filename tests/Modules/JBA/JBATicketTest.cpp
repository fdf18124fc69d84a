// SPDX-License-Identifier: Apache-2.0
#include "Modules/JBA/JBATicket.h"

#include <gtest/gtest.h>

#include <cstddef>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "support/TableChecks.h"
#include "support/TicketFields.h"

namespace {

#define DIALOG "com.korvell.tav.printsettings."
#define LAYOUT "com.apple.print.PrintSettings.PMLayout"
#define FORMAT "com.apple.print.subTicket.page_format_ticket..d."
#define RECT                                          \
    "com.apple.print.subTicket.paper_info_ticket..d." \
    "com.apple.print.PaperInfo.PMUnadjustedPaperRect..a."

JBAOptions &ticket = kpjlOptionJBA;
JBASettings &user = ticket.user;
JBASettings &admin = ticket.admin;
JBAInput &input = ticket.input;

// clang-format off
TEST(JBATicket, EachKeyFillsItsField) {
    ExpectFields(JBAGetTicketFromPDE, {
        {DIALOG "JBAMacHostNameStringTicket",            ticket.hostName, 33},
        {DIALOG "JBAIPAddressStringTicket",              ticket.ipAddress, 46},
        {DIALOG "JBAInfoListTicketKey",                  ticket.infoList},
        {DIALOG "JBAInfoSetListTicketKey",               ticket.infoSetLbox},
        {DIALOG "JBAManageTypeListTicketKey",            ticket.mngTypeListBox},
        {DIALOG "JBAUserSettingRadioBtnTicket",          user.jobInfoRadioBtn},
        {DIALOG "JBAUserIDListCtrlTicket",               user.userIDListCtrl},
        {DIALOG "JBAUserIDTextEditTicket",               user.userID, 97},
        {DIALOG "JBAUserPasswordTextEditTicket",         user.userIDPassword, 255},
        {DIALOG "JBADomainNameTextEditTicket",           user.domainName, 65},
        {DIALOG "JBAAccountIDTextEditTicket",            user.accountID, 33},
        {DIALOG "JBAStorageIDTextEditTicket",            user.storageID, 73},
        {DIALOG "JBAStoragePasswordTextEditTicket",      user.storagePassword, 17},
        {DIALOG "JBAUserInputRadioBtnTicket",            user.jobInputRadioBtn},
        {DIALOG "JBAAdminUserSettingRadioBtnTicket",     admin.jobInfoRadioBtn},
        {DIALOG "JBAAdminUserIDListCtrlTicket",          admin.userIDListCtrl},
        {DIALOG "JBAAdminUserIDTextEditTicket",          admin.userID, 97},
        {DIALOG "JBAAdminUserPasswordTextEditTicket",    admin.userIDPassword, 255},
        {DIALOG "JBAAdminDomainNameTextEditTicket",      admin.domainName, 65},
        {DIALOG "JBAAdminAccountIDTextEditTicket",       admin.accountID, 33},
        {DIALOG "JBAAdminStorageIDTextEditTicket",       admin.storageID, 73},
        {DIALOG "JBAAdminStoragePasswordTextEditTicket", admin.storagePassword, 17},
        {DIALOG "JBAAdminUserInputRadioBtnTicket",       admin.jobInputRadioBtn},
        {DIALOG "JBAInputAuthRadioBtnTicketKey",         input.authRadioBtn},
        {DIALOG "JBAInputStrgRadioBtnTicketKey",         input.strgRadioBtn},
        {DIALOG "JBAInputUserIDTextEditTicket",          input.userID, 97},
        {DIALOG "JBAInputUserPasswordTextEditTicket",    input.userIDPassword, 255},
        {DIALOG "JBAInputDomainNameTextEditTicket",      input.domainName, 65},
        {DIALOG "JBAInputAccountIDTextEditTicket",       input.accountID, 33},
        {DIALOG "JBAInputStorageIDTextEditTicket",       input.storageID, 73},
        {DIALOG "JBAInputStoragePasswordTextEditTicket", input.storagePassword, 17},
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

TEST(JBATicket, RowsStayInTheirFields) {
    EXPECT_EQ(offsetof(JBAOptions, hostName), 0u);
    ExpectTicketRows({JBAticketDataCommon, 36}, &ticket, sizeof ticket);
    ExpectTicketRows({JBAticketDataAdmin, 9}, &ticket, sizeof ticket);
    EXPECT_EQ(JBATicketDataNumCommon, 36);
    EXPECT_EQ(JBATicketDataNumAdmin, 9);
}

}  // namespace
