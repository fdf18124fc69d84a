// SPDX-License-Identifier: Apache-2.0
//
// The accounting commands that an administrator's and a user's settings bring in the same way: the
// user who is charged and his password (JOAU, JOEP), the account (DAID), and the identifier, name
// and password of a stored job (ACID, ACNA, ACEP). The rows stand here once and are instantiated
// for each side. JBACommands.cpp alone includes this.
#pragma once

#include <array>
#include <cstdint>

#include "CommonSource/FilterFrame/Source/CommandTable.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "Modules/JBA/JBATicket.h"

namespace {

constexpr JBAOptions &ticket = kpjlOptionJBA;

// clang-format off
// mngTypeListBox: whose settings count
constexpr std::int32_t JBAModeListAdmin = 1;
constexpr std::int32_t JBAModeListUser  = 2;

// jobInfoRadioBtn, jobInputRadioBtn, input.authRadioBtn, input.strgRadioBtn
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

// What the rows refer to by different names on the two sides.
struct JBASide {
    CommandValue mode;
    CommandValue selected;
    CommandValue useLogin;
    CommandValue enterName;
    CommandValue jobInfoRadioBtn;
    CommandValue userIDListCtrl;
    CommandValue userID;
    CommandValue userIDPassword;
    CommandValue accountID;
    CommandValue storageID;
    CommandValue storagePassword;
    CommandValue jobInputRadioBtn;
};

constexpr JBASide kUserSide = {
    .mode             = KV_VALUE(JBAModeListUser),
    .selected         = KV_VALUE(OptionUserInputTypeSelected),
    .useLogin         = KV_VALUE(OptionComInUserTypeUseLogin),
    .enterName        = KV_VALUE(OptionComInUserTypeEnterName),
    .jobInfoRadioBtn  = KV_VALUE(ticket.user.jobInfoRadioBtn),
    .userIDListCtrl   = KV_VALUE(ticket.user.userIDListCtrl),
    .userID           = KV_VALUE(ticket.user.userID),
    .userIDPassword   = KV_VALUE(ticket.user.userIDPassword),
    .accountID        = KV_VALUE(ticket.user.accountID),
    .storageID        = KV_VALUE(ticket.user.storageID),
    .storagePassword  = KV_VALUE(ticket.user.storagePassword),
    .jobInputRadioBtn = KV_VALUE(ticket.user.jobInputRadioBtn),
};

constexpr JBASide kAdminSide = {
    .mode             = KV_VALUE(JBAModeListAdmin),
    .selected         = KV_VALUE(OptionUserInputTypeSelectedAdmin),
    .useLogin         = KV_VALUE(OptionComInUserTypeUseLoginAdmin),
    .enterName        = KV_VALUE(OptionComInUserTypeEnterNameAdmin),
    .jobInfoRadioBtn  = KV_VALUE(ticket.admin.jobInfoRadioBtn),
    .userIDListCtrl   = KV_VALUE(ticket.admin.userIDListCtrl),
    .userID           = KV_VALUE(ticket.admin.userID),
    .userIDPassword   = KV_VALUE(ticket.admin.userIDPassword),
    .accountID        = KV_VALUE(ticket.admin.accountID),
    .storageID        = KV_VALUE(ticket.admin.storageID),
    .storagePassword  = KV_VALUE(ticket.admin.storagePassword),
    .jobInputRadioBtn = KV_VALUE(ticket.admin.jobInputRadioBtn),
};

// The rows of one side. Where the conditions of two hold, both are written.
template <const JBASide &side>
struct JBARows {
    // ---- Set in the dialog (jobInfoRadioBtn): the user.

    // JOAU: the login user. There is no accounting information list.
    static constexpr char prtfmtStrLoginUser[] = "@PJL SET JOBATTR=%c@JOAU=%s%c%c%c";
    static constexpr CommandValue cmdParaLoginUser[] = {
        kQuote, KV_VALUE(StdJBAUserName), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemLoginUser[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.useLogin),
        KV_GIVEN(StdUserName),
        KV_IS(ticket.infoList, JBAInfoListNotExist),
    };
    static inline SymParaTable symParaLoginUser;
    static inline ComparationTable comparationLoginUser;

    // JOAU: nobody. The list is for billing.
    static constexpr char prtfmtStrLoginUserBilling[] = "@PJL SET JOBATTR=%c@JOAU=UnknownUser%c\n";
    static constexpr CommandValue cmdParaLoginUserBilling[] = {
        kQuote, kQuote,
    };
    static constexpr ComparationItem comparationItemLoginUserBilling[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.useLogin),
        KV_IS_NOT(ticket.infoList, JBAInfoListNotExist),
        KV_IS(ticket.infoList, JBAInfoListBillingSelect),
        KV_IS_NOT(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaLoginUserBilling;
    static inline ComparationTable comparationLoginUserBilling;

    // JOAU: the login user. The list is for user accounts.
    static constexpr char prtfmtStrLoginUserAccount[] = "@PJL SET JOBATTR=%c@JOAU=%s%c%c%c";
    static constexpr CommandValue cmdParaLoginUserAccount[] = {
        kQuote, KV_VALUE(StdJBAUserName), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemLoginUserAccount[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.useLogin),
        KV_GIVEN(StdUserName),
        KV_IS_NOT(ticket.infoList, JBAInfoListNotExist),
        KV_IS(ticket.infoList, JBAInfoListUserAccntSelect),
        KV_IS_NOT(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaLoginUserAccount;
    static inline ComparationTable comparationLoginUserAccount;

    // JOAU: the login user. The list is for user accounts and billing.
    static constexpr char prtfmtStrLoginUserAll[] = "@PJL SET JOBATTR=%c@JOAU=%s%c%c%c";
    static constexpr CommandValue cmdParaLoginUserAll[] = {
        kQuote, KV_VALUE(StdJBAUserName), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemLoginUserAll[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.useLogin),
        KV_GIVEN(StdUserName),
        KV_IS_NOT(ticket.infoList, JBAInfoListNotExist),
        KV_IS(ticket.infoList, JBAInfoListAllSelect),
        KV_IS_NOT(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaLoginUserAll;
    static inline ComparationTable comparationLoginUserAll;

    // JOAU: nobody. The list's entry withholds the user.
    static constexpr char prtfmtStrLoginUserUnknown[] = "@PJL SET JOBATTR=%c@JOAU=UnknownUser%c\n";
    static constexpr CommandValue cmdParaLoginUserUnknown[] = {
        kQuote, kQuote,
    };
    static constexpr ComparationItem comparationItemLoginUserUnknown[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.useLogin),
        KV_IS_NOT(ticket.infoList, JBAInfoListNotExist),
        KV_IS(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaLoginUserUnknown;
    static inline ComparationTable comparationLoginUserUnknown;

    // JOAU: the user entered in the dialog.
    static constexpr char prtfmtStrEnteredUser[] = "@PJL SET JOBATTR=%c@JOAU=%s%c%c%c";
    static constexpr CommandValue cmdParaEnteredUser[] = {
        kQuote, KV_VALUE(side.userID), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemEnteredUser[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.enterName),
        KV_GIVEN(side.userID),
    };
    static inline SymParaTable symParaEnteredUser;
    static inline ComparationTable comparationEnteredUser;

    // JOEP: the login user's password.
    static constexpr char prtfmtStrLoginPassword[] = "@PJL SET JOBATTR=%c@JOEP=%s%c%c%c";
    static constexpr CommandValue cmdParaLoginPassword[] = {
        kQuote, KV_VALUE(side.userIDPassword), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemLoginPassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.useLogin),
        KV_GIVEN(StdUserName),
        KV_GIVEN(side.userIDPassword),
    };
    static inline SymParaTable symParaLoginPassword;
    static inline ComparationTable comparationLoginPassword;

    // JOEP: empty. The login user has no password.
    static constexpr char prtfmtStrLoginNoPassword[] = "@PJL SET JOBATTR=%c@JOEP=%c%c%c";
    static constexpr CommandValue cmdParaLoginNoPassword[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemLoginNoPassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.useLogin),
        KV_GIVEN(StdUserName),
        KV_EMPTY(side.userIDPassword),
    };
    static inline SymParaTable symParaLoginNoPassword;
    static inline ComparationTable comparationLoginNoPassword;

    // JOEP: the entered user's password.
    static constexpr char prtfmtStrEnteredPassword[] = "@PJL SET JOBATTR=%c@JOEP=%s%c%c%c";
    static constexpr CommandValue cmdParaEnteredPassword[] = {
        kQuote, KV_VALUE(side.userIDPassword), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemEnteredPassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.enterName),
        KV_GIVEN(side.userID),
        KV_GIVEN(side.userIDPassword),
    };
    static inline SymParaTable symParaEnteredPassword;
    static inline ComparationTable comparationEnteredPassword;

    // JOEP: empty. The entered user has no password.
    static constexpr char prtfmtStrEnteredNoPassword[] = "@PJL SET JOBATTR=%c@JOEP=%c%c%c";
    static constexpr CommandValue cmdParaEnteredNoPassword[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemEnteredNoPassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_IS(side.userIDListCtrl, side.enterName),
        KV_GIVEN(side.userID),
        KV_EMPTY(side.userIDPassword),
    };
    static inline SymParaTable symParaEnteredNoPassword;
    static inline ComparationTable comparationEnteredNoPassword;

    // ---- Set in the dialog: the account and the store.

    // DAID: the account to be billed.
    static constexpr char prtfmtStrAccount[] = "@PJL SET JOBATTR=%c@DAID=%s%c%c%c";
    static constexpr CommandValue cmdParaAccount[] = {
        kQuote, KV_VALUE(side.accountID), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemAccount[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_GIVEN(side.accountID),
    };
    static inline SymParaTable symParaAccount;
    static inline ComparationTable comparationAccount;

    // DAID: empty. There is no account.
    static constexpr char prtfmtStrNoAccount[] = "@PJL SET JOBATTR=%c@DAID=%c%c%c";
    static constexpr CommandValue cmdParaNoAccount[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemNoAccount[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_EMPTY(side.accountID),
    };
    static inline SymParaTable symParaNoAccount;
    static inline ComparationTable comparationNoAccount;

    // ACID: where the job is stored.
    static constexpr char prtfmtStrStorage[] = "@PJL SET JOBATTR=%c@ACID=%s%c%c%c";
    static constexpr CommandValue cmdParaStorage[] = {
        kQuote, KV_VALUE(side.storageID), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemStorage[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_GIVEN(side.storageID),
    };
    static inline SymParaTable symParaStorage;
    static inline ComparationTable comparationStorage;

    // ACNA: the stored job's name.
    static constexpr char prtfmtStrStorageDocumentName[] = "@PJL SET JOBATTR=%c@ACNA=%s%c%c%c";
    static constexpr CommandValue cmdParaStorageDocumentName[] = {
        kQuote, KV_VALUE(StdDocumentName), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemStorageDocumentName[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_GIVEN(StdDocumentName),
    };
    static inline SymParaTable symParaStorageDocumentName;
    static inline ComparationTable comparationStorageDocumentName;

    // ACEP: the stored job's password.
    static constexpr char prtfmtStrStoragePassword[] = "@PJL SET JOBATTR=%c@ACEP=%s%c%c%c";
    static constexpr CommandValue cmdParaStoragePassword[] = {
        kQuote, KV_VALUE(side.storagePassword), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemStoragePassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_GIVEN(side.storageID),
        KV_GIVEN(side.storagePassword),
    };
    static inline SymParaTable symParaStoragePassword;
    static inline ComparationTable comparationStoragePassword;

    // ACEP: empty. The stored job has no password.
    static constexpr char prtfmtStrStorageNoPassword[] = "@PJL SET JOBATTR=%c@ACEP=%c%c%c";
    static constexpr CommandValue cmdParaStorageNoPassword[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemStorageNoPassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInfoRadioBtn, side.selected),
        KV_GIVEN(side.storageID),
        KV_EMPTY(side.storagePassword),
    };
    static inline SymParaTable symParaStorageNoPassword;
    static inline ComparationTable comparationStorageNoPassword;

    // ---- Asked for when the job is sent (jobInputRadioBtn): a user (authRadioBtn).

    // JOAU: the user who gave a name.
    static constexpr char prtfmtStrInputUser[] = "@PJL SET JOBATTR=%c@JOAU=%s%c%c%c";
    static constexpr CommandValue cmdParaInputUser[] = {
        kQuote, KV_VALUE(ticket.input.userID), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputUser[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.selected),
        KV_GIVEN(ticket.input.userID),
        KV_IS_NOT(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaInputUser;
    static inline ComparationTable comparationInputUser;

    // JOAU: nobody. The list's entry withholds the user.
    static constexpr char prtfmtStrInputUserUnknown[] = "@PJL SET JOBATTR=%c@JOAU=UnknownUser%c%c%c";
    static constexpr CommandValue cmdParaInputUserUnknown[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputUserUnknown[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.selected),
        KV_IS(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaInputUserUnknown;
    static inline ComparationTable comparationInputUserUnknown;

    // JOAU: nobody. No name was given.
    static constexpr char prtfmtStrInputNoUser[] = "@PJL SET JOBATTR=%c@JOAU=UnknownUser%c%c%c";
    static constexpr CommandValue cmdParaInputNoUser[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputNoUser[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.selected),
        KV_EMPTY(ticket.input.userID),
        KV_IS_NOT(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaInputNoUser;
    static inline ComparationTable comparationInputNoUser;

    // JOEP: the user's password.
    static constexpr char prtfmtStrInputPassword[] = "@PJL SET JOBATTR=%c@JOEP=%s%c%c%c";
    static constexpr CommandValue cmdParaInputPassword[] = {
        kQuote, KV_VALUE(ticket.input.userIDPassword), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputPassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.useLogin),
        KV_GIVEN(ticket.input.userID),
        KV_GIVEN(ticket.input.userIDPassword),
        KV_IS_NOT(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaInputPassword;
    static inline ComparationTable comparationInputPassword;

    // JOEP: empty. The list's entry withholds the user.
    static constexpr char prtfmtStrInputPasswordUnknown[] = "@PJL SET JOBATTR=%c@JOEP=%c%c%c";
    static constexpr CommandValue cmdParaInputPasswordUnknown[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputPasswordUnknown[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.useLogin),
        KV_IS(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaInputPasswordUnknown;
    static inline ComparationTable comparationInputPasswordUnknown;

    // JOEP: empty. No password was given.
    static constexpr char prtfmtStrInputNoPassword[] = "@PJL SET JOBATTR=%c@JOEP=%c%c%c";
    static constexpr CommandValue cmdParaInputNoPassword[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputNoPassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.useLogin),
        KV_EMPTY(ticket.input.userIDPassword),
        KV_GIVEN(ticket.input.userID),
        KV_IS_NOT(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaInputNoPassword;
    static inline ComparationTable comparationInputNoPassword;

    // JOEP: empty. No name was given.
    static constexpr char prtfmtStrInputPasswordNoUser[] = "@PJL SET JOBATTR=%c@JOEP=%c%c%c";
    static constexpr CommandValue cmdParaInputPasswordNoUser[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputPasswordNoUser[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.useLogin),
        KV_EMPTY(ticket.input.userID),
        KV_IS_NOT(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaInputPasswordNoUser;
    static inline ComparationTable comparationInputPasswordNoUser;

    // DAID: the account to be billed.
    static constexpr char prtfmtStrInputAccount[] = "@PJL SET JOBATTR=%c@DAID=%s%c%c%c";
    static constexpr CommandValue cmdParaInputAccount[] = {
        kQuote, KV_VALUE(ticket.input.accountID), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputAccount[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.selected),
        KV_GIVEN(ticket.input.accountID),
        KV_IS_NOT(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaInputAccount;
    static inline ComparationTable comparationInputAccount;

    // DAID: empty. The list's entry withholds the user.
    static constexpr char prtfmtStrInputAccountUnknown[] = "@PJL SET JOBATTR=%c@DAID=%c%c%c";
    static constexpr CommandValue cmdParaInputAccountUnknown[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputAccountUnknown[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.selected),
        KV_GIVEN(ticket.input.accountID),
        KV_IS(ticket.infoSetLbox, Case_8),
    };
    static inline SymParaTable symParaInputAccountUnknown;
    static inline ComparationTable comparationInputAccountUnknown;

    // DAID: empty. No account was given.
    static constexpr char prtfmtStrInputNoAccount[] = "@PJL SET JOBATTR=%c@DAID=%c%c%c";
    static constexpr CommandValue cmdParaInputNoAccount[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputNoAccount[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.authRadioBtn, side.selected),
        KV_EMPTY(ticket.input.accountID),
    };
    static inline SymParaTable symParaInputNoAccount;
    static inline ComparationTable comparationInputNoAccount;

    // ---- Asked for when the job is sent: a store (strgRadioBtn).

    // DAID: empty, for a stored job where there is an information list.
    static constexpr char prtfmtStrInputStorageAccountList[] = "@PJL SET JOBATTR=%c@DAID=%c%c%c";
    static constexpr CommandValue cmdParaInputStorageAccountList[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputStorageAccountList[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.strgRadioBtn, side.selected),
        KV_IS_NOT(ticket.infoList, JBAInfoListNotExist),
    };
    static inline SymParaTable symParaInputStorageAccountList;
    static inline ComparationTable comparationInputStorageAccountList;

    // DAID: empty, for every stored job. With a list the line is there twice.
    static constexpr char prtfmtStrInputStorageAccount[] = "@PJL SET JOBATTR=%c@DAID=%c%c%c";
    static constexpr CommandValue cmdParaInputStorageAccount[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputStorageAccount[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.strgRadioBtn, side.selected),
    };
    static inline SymParaTable symParaInputStorageAccount;
    static inline ComparationTable comparationInputStorageAccount;

    // ACID: where the job is stored.
    static constexpr char prtfmtStrInputStorage[] = "@PJL SET JOBATTR=%c@ACID=%s%c%c%c";
    static constexpr CommandValue cmdParaInputStorage[] = {
        kQuote, KV_VALUE(ticket.input.storageID), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputStorage[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.strgRadioBtn, side.selected),
        KV_GIVEN(ticket.input.storageID),
    };
    static inline SymParaTable symParaInputStorage;
    static inline ComparationTable comparationInputStorage;

    // ACNA: the job's name, stored or not.
    static constexpr char prtfmtStrInputDocumentName[] = "@PJL SET JOBATTR=%c@ACNA=%s%c%c%c";
    static constexpr CommandValue cmdParaInputDocumentName[] = {
        kQuote, KV_VALUE(StdDocumentName), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputDocumentName[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_GIVEN(StdDocumentName),
    };
    static inline SymParaTable symParaInputDocumentName;
    static inline ComparationTable comparationInputDocumentName;

    // JOAU: nobody, for a stored job.
    static constexpr char prtfmtStrInputStorageUser[] = "@PJL SET JOBATTR=%c@JOAU=UnknownUser%c\n";
    static constexpr CommandValue cmdParaInputStorageUser[] = {
        kQuote, kQuote,
    };
    static constexpr ComparationItem comparationItemInputStorageUser[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.strgRadioBtn, side.selected),
    };
    static inline SymParaTable symParaInputStorageUser;
    static inline ComparationTable comparationInputStorageUser;

    // JOEP: empty, for a stored job.
    static constexpr char prtfmtStrInputStorageUserPassword[] = "@PJL SET JOBATTR=%c@JOEP=%c\n";
    static constexpr CommandValue cmdParaInputStorageUserPassword[] = {
        kQuote, kQuote,
    };
    static constexpr ComparationItem comparationItemInputStorageUserPassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.strgRadioBtn, side.selected),
    };
    static inline SymParaTable symParaInputStorageUserPassword;
    static inline ComparationTable comparationInputStorageUserPassword;

    // ACEP: the stored job's password.
    static constexpr char prtfmtStrInputStoragePassword[] = "@PJL SET JOBATTR=%c@ACEP=%s%c%c%c";
    static constexpr CommandValue cmdParaInputStoragePassword[] = {
        kQuote, KV_VALUE(ticket.input.storagePassword), kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputStoragePassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.strgRadioBtn, side.selected),
        KV_GIVEN(ticket.input.storageID),
        KV_GIVEN(ticket.input.storagePassword),
    };
    static inline SymParaTable symParaInputStoragePassword;
    static inline ComparationTable comparationInputStoragePassword;

    // ACEP: empty. The stored job has no password.
    static constexpr char prtfmtStrInputStorageNoPassword[] = "@PJL SET JOBATTR=%c@ACEP=%c%c%c";
    static constexpr CommandValue cmdParaInputStorageNoPassword[] = {
        kQuote, kQuote, kCR, kLF,
    };
    static constexpr ComparationItem comparationItemInputStorageNoPassword[] = {
        KV_IS(ticket.mngTypeListBox, side.mode),
        KV_IS(side.jobInputRadioBtn, side.selected),
        KV_IS(ticket.input.strgRadioBtn, side.selected),
        KV_GIVEN(ticket.input.storageID),
        KV_EMPTY(ticket.input.storagePassword),
    };
    static inline SymParaTable symParaInputStorageNoPassword;
    static inline ComparationTable comparationInputStorageNoPassword;
    // clang-format on

    static constexpr std::array table = {
        KV_ROW(LoginUser),
        KV_ROW(LoginUserBilling),
        KV_ROW(LoginUserAccount),
        KV_ROW(LoginUserAll),
        KV_ROW(LoginUserUnknown),
        KV_ROW(EnteredUser),
        KV_ROW(LoginPassword),
        KV_ROW(LoginNoPassword),
        KV_ROW(EnteredPassword),
        KV_ROW(EnteredNoPassword),
        KV_ROW(Account),
        KV_ROW(NoAccount),
        KV_ROW(Storage),
        KV_ROW(StorageDocumentName),
        KV_ROW(StoragePassword),
        KV_ROW(StorageNoPassword),
        KV_ROW(InputUser),
        KV_ROW(InputUserUnknown),
        KV_ROW(InputNoUser),
        KV_ROW(InputPassword),
        KV_ROW(InputPasswordUnknown),
        KV_ROW(InputNoPassword),
        KV_ROW(InputPasswordNoUser),
        KV_ROW(InputAccount),
        KV_ROW(InputAccountUnknown),
        KV_ROW(InputNoAccount),
        KV_ROW(InputStorageAccountList),
        KV_ROW(InputStorageAccount),
        KV_ROW(InputStorage),
        KV_ROW(InputDocumentName),
        KV_ROW(InputStorageUser),
        KV_ROW(InputStorageUserPassword),
        KV_ROW(InputStoragePassword),
        KV_ROW(InputStorageNoPassword),
    };

    static void BindValues() {
        KV_BIND_VALUES(LoginUser);
        KV_BIND_VALUES(LoginUserBilling);
        KV_BIND_VALUES(LoginUserAccount);
        KV_BIND_VALUES(LoginUserAll);
        KV_BIND_VALUES(LoginUserUnknown);
        KV_BIND_VALUES(EnteredUser);
        KV_BIND_VALUES(LoginPassword);
        KV_BIND_VALUES(LoginNoPassword);
        KV_BIND_VALUES(EnteredPassword);
        KV_BIND_VALUES(EnteredNoPassword);
        KV_BIND_VALUES(Account);
        KV_BIND_VALUES(NoAccount);
        KV_BIND_VALUES(Storage);
        KV_BIND_VALUES(StorageDocumentName);
        KV_BIND_VALUES(StoragePassword);
        KV_BIND_VALUES(StorageNoPassword);
        KV_BIND_VALUES(InputUser);
        KV_BIND_VALUES(InputUserUnknown);
        KV_BIND_VALUES(InputNoUser);
        KV_BIND_VALUES(InputPassword);
        KV_BIND_VALUES(InputPasswordUnknown);
        KV_BIND_VALUES(InputNoPassword);
        KV_BIND_VALUES(InputPasswordNoUser);
        KV_BIND_VALUES(InputAccount);
        KV_BIND_VALUES(InputAccountUnknown);
        KV_BIND_VALUES(InputNoAccount);
        KV_BIND_VALUES(InputStorageAccountList);
        KV_BIND_VALUES(InputStorageAccount);
        KV_BIND_VALUES(InputStorage);
        KV_BIND_VALUES(InputDocumentName);
        KV_BIND_VALUES(InputStorageUser);
        KV_BIND_VALUES(InputStorageUserPassword);
        KV_BIND_VALUES(InputStoragePassword);
        KV_BIND_VALUES(InputStorageNoPassword);
    }

    static void BindConditions() {
        KV_BIND_CONDITIONS(LoginUser);
        KV_BIND_CONDITIONS(LoginUserBilling);
        KV_BIND_CONDITIONS(LoginUserAccount);
        KV_BIND_CONDITIONS(LoginUserAll);
        KV_BIND_CONDITIONS(LoginUserUnknown);
        KV_BIND_CONDITIONS(EnteredUser);
        KV_BIND_CONDITIONS(LoginPassword);
        KV_BIND_CONDITIONS(LoginNoPassword);
        KV_BIND_CONDITIONS(EnteredPassword);
        KV_BIND_CONDITIONS(EnteredNoPassword);
        KV_BIND_CONDITIONS(Account);
        KV_BIND_CONDITIONS(NoAccount);
        KV_BIND_CONDITIONS(Storage);
        KV_BIND_CONDITIONS(StorageDocumentName);
        KV_BIND_CONDITIONS(StoragePassword);
        KV_BIND_CONDITIONS(StorageNoPassword);
        KV_BIND_CONDITIONS(InputUser);
        KV_BIND_CONDITIONS(InputUserUnknown);
        KV_BIND_CONDITIONS(InputNoUser);
        KV_BIND_CONDITIONS(InputPassword);
        KV_BIND_CONDITIONS(InputPasswordUnknown);
        KV_BIND_CONDITIONS(InputNoPassword);
        KV_BIND_CONDITIONS(InputPasswordNoUser);
        KV_BIND_CONDITIONS(InputAccount);
        KV_BIND_CONDITIONS(InputAccountUnknown);
        KV_BIND_CONDITIONS(InputNoAccount);
        KV_BIND_CONDITIONS(InputStorageAccountList);
        KV_BIND_CONDITIONS(InputStorageAccount);
        KV_BIND_CONDITIONS(InputStorage);
        KV_BIND_CONDITIONS(InputDocumentName);
        KV_BIND_CONDITIONS(InputStorageUser);
        KV_BIND_CONDITIONS(InputStorageUserPassword);
        KV_BIND_CONDITIONS(InputStoragePassword);
        KV_BIND_CONDITIONS(InputStorageNoPassword);
    }
};

}  // namespace
