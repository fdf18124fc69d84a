// SPDX-License-Identifier: Apache-2.0
#include "Modules/JBA/JBACommands.h"

#include <algorithm>
#include <iterator>

#include "Modules/JBA/JBARows.h"

namespace {

// clang-format off
// CNAM: the sending computer's name.
constexpr char prtfmtStrHostName[] = "@PJL SET JOBATTR=%c@CNAM=%s%c%c";
constexpr CommandValue cmdParaHostName[] = {
    kQuote, KV_VALUE(HostNameStr), kQuote, kLF,
};
constexpr ComparationItem comparationItemHostName[] = {
    KV_GIVEN(HostNameStr),
};
SymParaTable symParaHostName;
ComparationTable comparationHostName;

// CNAM: the sending computer has no name.
constexpr char prtfmtStrUnknownHostName[] = "@PJL SET JOBATTR=%c@CNAM=UnknownHost%c\n";
constexpr CommandValue cmdParaUnknownHostName[] = {
    kQuote, kQuote,
};
constexpr ComparationItem comparationItemUnknownHostName[] = {
    KV_EMPTY(HostNameStr),
};
SymParaTable symParaUnknownHostName;
ComparationTable comparationUnknownHostName;

// LUNA: the user's name.
constexpr char prtfmtStrUserName[] = "@PJL SET JOBATTR=%c@LUNA=%s%c%c";
constexpr CommandValue cmdParaUserName[] = {
    kQuote, KV_VALUE(StdUserName), kQuote, kLF,
};
constexpr ComparationItem comparationItemUserName[] = {
    KV_GIVEN(StdUserName),
};
SymParaTable symParaUserName;
ComparationTable comparationUserName;

// LUNA: the user has no name.
constexpr char prtfmtStrUnknownUserName[] = "@PJL SET JOBATTR=%c@LUNA=UnknownUser%c\n";
constexpr CommandValue cmdParaUnknownUserName[] = {
    kQuote, kQuote,
};
constexpr ComparationItem comparationItemUnknownUserName[] = {
    KV_EMPTY(StdUserName),
};
SymParaTable symParaUnknownUserName;
ComparationTable comparationUnknownUserName;

// HOAD: the sending computer's address, if the dialog gave one. Which one it gave does not matter.
constexpr char prtfmtStrIPAddress[] = "@PJL SET JOBATTR=%c@HOAD=%s%c%c";
constexpr CommandValue cmdParaIPAddress[] = {
    kQuote, KV_VALUE(IPAddressStr), kQuote, kLF,
};
constexpr ComparationItem comparationItemIPAddress[] = {
    KV_GIVEN(ticket.ipAddress),
};
SymParaTable symParaIPAddress;
ComparationTable comparationIPAddress;

// NLPP: the pages on a sheet. This command has no conditions, so that every job carries it.
constexpr char prtfmtStrNumberUp[] = "@PJL SET JOBATTR=%c@NLPP=%s%c%c";
constexpr CommandValue cmdParaNumberUp[] = {
    kQuote, KV_VALUE(StdNUpInfo), kQuote, kLF,
};
SymParaTable symParaNumberUp;
ComparationTable comparationNumberUp;  // stays empty

constexpr PrtFmtEntry kClientTable[] = {
    KV_ROW(HostName),
    KV_ROW(UnknownHostName),
    KV_ROW(UserName),
    KV_ROW(UnknownUserName),
    KV_ROW(IPAddress),
    KV_ROW(NumberUp),
};
// clang-format on

// What names the client, and then what its user has set.
constexpr std::array<PrtFmtEntry, JBAFmtTableCommonNum> CommonTable() {
    constexpr auto &userTable = JBARows<kUserSide>::table;
    static_assert(std::size(kClientTable) + std::size(userTable) == JBAFmtTableCommonNum);
    std::array<PrtFmtEntry, JBAFmtTableCommonNum> table{};
    std::copy(userTable.begin(), userTable.end(),
              std::copy(std::begin(kClientTable), std::end(kClientTable), table.begin()));
    return table;
}

}  // namespace

constexpr std::array<PrtFmtEntry, JBAFmtTableAdminNum> JBAFmtTableAdmin =
    JBARows<kAdminSide>::table;
constexpr std::array<PrtFmtEntry, JBAFmtTableCommonNum> JBAFmtTableCommon = CommonTable();

namespace {

void JBAInitializeCmdParaTableForUser() {
    KV_BIND_VALUES(HostName);
    KV_BIND_VALUES(UnknownHostName);
    KV_BIND_VALUES(UserName);
    KV_BIND_VALUES(UnknownUserName);
    KV_BIND_VALUES(IPAddress);
    KV_BIND_VALUES(NumberUp);
    JBARows<kUserSide>::BindValues();
}

void JBAInitializeCmdParaTableForAdmin() {
    JBARows<kAdminSide>::BindValues();
}

void JBAInitializeCaparationTableForUser() {
    KV_BIND_CONDITIONS(HostName);
    KV_BIND_CONDITIONS(UnknownHostName);
    KV_BIND_CONDITIONS(UserName);
    KV_BIND_CONDITIONS(UnknownUserName);
    KV_BIND_CONDITIONS(IPAddress);
    JBARows<kUserSide>::BindConditions();
}

void JBAInitializeCaparationTableForAdmin() {
    JBARows<kAdminSide>::BindConditions();
}

}  // namespace

void JBAInializeDescriptionTableFromFilter() {
    JBAInitializeCmdParaTableForUser();
    JBAInitializeCmdParaTableForAdmin();
    JBAInitializeCaparationTableForUser();
    JBAInitializeCaparationTableForAdmin();
}

void JBAOutputKPJLCommandFromFilter(char *const argv[]) {
    OutputKPJLCommandFromArray(argv, JBAFmtTableAdmin.data(), JBAFmtTableAdminNum);
    OutputKPJLCommandFromArray(argv, JBAFmtTableCommon.data(), JBAFmtTableCommonNum);
}
