// SPDX-License-Identifier: Apache-2.0
//
// The accounting settings of the print dialog, made by an administrator, made by the user or asked
// for when the job is sent. Commands of the job header are chosen from them (JBACommands.h). The
// same table reads the page layout and the paper rectangles into the job's shared texts
// (JobBuffers.h). Integers that the ticket lacks are -1, texts empty.
#pragma once

#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

// What an administrator and a user can both set.
struct JBASettings {
    std::int32_t jobInfoRadioBtn;
    std::int32_t userIDListCtrl;
    char userID[97];
    char userIDPassword[255];
    char domainName[65];
    char accountID[33];
    char storageID[73];
    char storagePassword[17];
    std::int32_t jobInputRadioBtn;
};

// What is asked for when the job is sent.
struct JBAInput {
    std::int32_t authRadioBtn;
    std::int32_t strgRadioBtn;
    char userID[97];
    char userIDPassword[255];
    char domainName[65];
    char accountID[33];
    char storageID[73];
    char storagePassword[17];
};

struct JBAOptions {
    char hostName[33];   // read and not sent: the filter finds the host itself
    char ipAddress[46];  // likewise, but without it no address is sent
    std::int32_t infoList;
    std::int32_t infoSetLbox;
    std::int32_t mngTypeListBox;
    std::int32_t userIDAbsent;  // 1 without a user's ID; no command asks for it
    JBASettings user;
    JBASettings admin;
    JBAInput input;
};
extern JBAOptions kpjlOptionJBA;

constexpr std::int32_t JBATicketDataNumCommon = 36;
extern const ticketData JBAticketDataCommon[];

constexpr std::int32_t JBATicketDataNumAdmin = 9;
extern const ticketData JBAticketDataAdmin[];

// Fills kpjlOptionJBA and the shared texts from argv[5]. Returns 1.
int JBAGetTicketFromPDE(char *const argv[]);
