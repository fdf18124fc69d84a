// SPDX-License-Identifier: Apache-2.0
#include "Modules/JBA/JBACommands.h"

#include <iterator>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "Modules/JBA/JBATicket.h"

namespace {

constexpr JBAOptions &ticket = kpjlOptionJBA;

// clang-format off
// mngTypeListBox: whose settings count
constexpr std::int32_t JBAModeListAdmin = 1;
constexpr std::int32_t JBAModeListUser  = 2;

// jobInfoRadioBtn, jobInputRadioBtn, inputAuthRadioBtn, inputStrgRadioBtn
constexpr std::int32_t OptionUserInputTypeSelected      = 1;
constexpr std::int32_t OptionUserInputTypeSelectedAdmin = 1;

// userIDListCtrl: where the user's name comes from
constexpr std::int32_t OptionComInUserTypeUseLogin       = 1;
constexpr std::int32_t OptionComInUserTypeUseLoginAdmin  = 1;
constexpr std::int32_t OptionComInUserTypeEnterName      = 2;
constexpr std::int32_t OptionComInUserTypeEnterNameAdmin = 2;

// infoList: what the printer's accounting information list is for
constexpr std::int32_t JBAInfoListNotExist        = 0;
constexpr std::int32_t JBAInfoListUserAccntSelect = 1;
constexpr std::int32_t JBAInfoListBillingSelect   = 2;
constexpr std::int32_t JBAInfoListAllSelect       = 3;

// infoSetLbox: the list's entry that withholds the user
constexpr std::int32_t Case_8 = 8;
// clang-format on

namespace user {

#define KV_SIDE(name) name
#define KV_SIDE_MODE JBAModeListUser

#define KV_COMMAND KV_COMMAND_ARRAYS
#include "Modules/JBA/JBAClientRows.def"
#define KV_COMMAND KV_COMMAND_ARRAYS
#include "Modules/JBA/JBARows.def"

void JBAInitializeCmdParaTableForUser() {
#define KV_COMMAND KV_COMMAND_BIND_VALUES
#include "Modules/JBA/JBAClientRows.def"
#define KV_COMMAND KV_COMMAND_BIND_VALUES
#include "Modules/JBA/JBARows.def"
}

void JBAInitializeCaparationTableForUser() {
#define KV_COMMAND KV_COMMAND_BIND_CONDITIONS
#include "Modules/JBA/JBAClientRows.def"
#define KV_COMMAND KV_COMMAND_BIND_CONDITIONS
#include "Modules/JBA/JBARows.def"
}

#undef KV_SIDE_MODE
#undef KV_SIDE

}  // namespace user

namespace admin {

#define KV_SIDE(name) name##Admin
#define KV_SIDE_MODE JBAModeListAdmin

#define KV_COMMAND KV_COMMAND_ARRAYS
#include "Modules/JBA/JBARows.def"

void JBAInitializeCmdParaTableForAdmin() {
#define KV_COMMAND KV_COMMAND_BIND_VALUES
#include "Modules/JBA/JBARows.def"
}

void JBAInitializeCaparationTableForAdmin() {
#define KV_COMMAND KV_COMMAND_BIND_CONDITIONS
#include "Modules/JBA/JBARows.def"
}

#undef KV_SIDE_MODE
#undef KV_SIDE

}  // namespace admin

}  // namespace

constexpr PrtFmtEntry JBAFmtTableAdmin[] = {
#define KV_COMMAND(command, meaning, ...) KV_COMMAND_ROW_IN(admin::, command, meaning)
#include "Modules/JBA/JBARows.def"
};
const std::int32_t JBAFmtTableAdminNum = std::size(JBAFmtTableAdmin);

constexpr PrtFmtEntry JBAFmtTableCommon[] = {
#define KV_COMMAND(command, meaning, ...) KV_COMMAND_ROW_IN(user::, command, meaning)
#include "Modules/JBA/JBAClientRows.def"
#define KV_COMMAND(command, meaning, ...) KV_COMMAND_ROW_IN(user::, command, meaning)
#include "Modules/JBA/JBARows.def"
};
const std::int32_t JBAFmtTableCommonNum = std::size(JBAFmtTableCommon);

void JBAInializeDescriptionTableFromFilter() {
    user::JBAInitializeCmdParaTableForUser();
    admin::JBAInitializeCmdParaTableForAdmin();
    user::JBAInitializeCaparationTableForUser();
    admin::JBAInitializeCaparationTableForAdmin();
}

void JBAOutputKPJLCommandFromFilter(char *const argv[]) {
    OutputKPJLCommandFromArray(argv, JBAFmtTableAdmin, JBAFmtTableAdminNum);
    OutputKPJLCommandFromArray(argv, JBAFmtTableCommon, JBAFmtTableCommonNum);
}
