// SPDX-License-Identifier: Apache-2.0
//
// The accounting settings of the print dialog, made by an administrator, made by the user or asked
// for when the job is sent. Commands of the job header are chosen from them (JBACommands.h). The
// same table reads the page layout and the paper rectangles into the job's shared texts
// (JobBuffers.h). Integers that the ticket lacks are -1, texts empty.
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

struct JBAOptions {
    char hostName[33];   // read and not sent: the filter finds the host itself
    char ipAddress[46];  // likewise, but without it no address is sent
    std::int32_t infoList;
    std::int32_t infoSetLbox;
    std::int32_t mngTypeListBox;
    std::int32_t jobInfoRadioBtn;
    std::int32_t userIDListCtrl;
    std::int32_t userIDAbsent;  // 1 without a user's ID; no command asks for it
    char userID[97];
    char userIDPassword[255];
    char domainName[65];
    char inputDomainName[65];
    char accountID[33];
    char storageID[73];
    char storagePassword[17];
    std::int32_t jobInputRadioBtn;
    std::int32_t inputAuthRadioBtn;
    std::int32_t inputStrgRadioBtn;
    char inputStorageID[73];
    char inputStoragePassword[17];
    char inputUserID[97];
    char inputUserIDPassword[255];
    char inputAccountID[33];
    std::int32_t jobInfoRadioBtnAdmin;
    std::int32_t userIDListCtrlAdmin;
    char userIDAdmin[97];
    char domainNameAdmin[65];
    char userIDPasswordAdmin[255];
    char accountIDAdmin[33];
    char storageIDAdmin[73];
    char storagePasswordAdmin[17];
    std::int32_t jobInputRadioBtnAdmin;
};
extern JBAOptions kpjlOptionJBA;

constexpr std::int32_t JBATicketDataNumCommon = 36;
extern const ticketData JBAticketDataCommon[];

constexpr std::int32_t JBATicketDataNumAdmin = 9;
extern const ticketData JBAticketDataAdmin[];

// Fills kpjlOptionJBA and the shared texts from argv[5]. Returns 1.
int JBAGetTicketFromPDE(char *const argv[]);
