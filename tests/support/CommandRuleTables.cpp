// SPDX-License-Identifier: Apache-2.0
//
// The rules themselves. The rows have the names and the order of the modules' tables.
#include "support/CommandRules.h"

namespace {

constexpr char kLF[] = "\n";
constexpr char kCRLF[] = "\r\n";

// clang-format off
const std::vector<CommandRule> printTypeRules = {
    {"SecurePrint", "@PJL SET HOLD=STORE", kLF,
     "PrintTypeTicketKey=2; PrintTypeUserNameTicketKey given"},
    {"SecurePrintHold", "@PJL SET HOLDTYPE=PRIVATE", kLF,
     "PrintTypeTicketKey=2; PrintTypeUserNameTicketKey given; PrintTypePasswordTicketKey given; "
     "PrintTypePasswordTicketKey given"},
    {"SamplePrintHold", "@PJL SET HOLD=PROOF", kLF,
     "PrintTypeTicketKey=3; PrintTypeUserNameTicketKey given"},
    {"SMBPrintHold", "@PJL SET HOLD=BOXSTORE", kLF,
     "PrintTypeTicketKey=5"},
    {"MBNumberPrintHold", "@PJL SET HOLDTYPE=PRIVATE", kLF,
     "PrintTypeTicketKey=5; PrintTypeMBNPasswordTicketKey given"},
    {"SMBEnterNumber", "@PJL SET BOXNUMBER={PrintTypeMBNTicketKey}", kCRLF,
     "PrintTypeTicketKey=5"},
    {"SMBPassword", R"(@PJL SET BOXENCRYPTKEY="{PrintTypeMBNPasswordTicketKey}")", kCRLF,
     "PrintTypeTicketKey=5; PrintTypeMBNPasswordTicketKey given"},
    {"SecurePrintUserName", R"(@PJL SET USERNAME="{PrintTypeUserNameTicketKey}")", kCRLF,
     "PrintTypeTicketKey!=1; PrintTypeTicketKey!=4; PrintTypeTicketKey!=5; "
     "PrintTypeUserNameTicketKey given"},
    {"SecurePrintPassword", R"(@PJL SET HOLDENCRYPTKEY="{PrintTypePasswordTicketKey}")", kCRLF,
     "PrintTypeTicketKey=2; PrintTypeUserNameTicketKey given; PrintTypePasswordTicketKey given"},
    {"DocumentNameAutoRetrieve", R"(@PJL SET JOBNAME="{NAME}")", kCRLF,
     "PrintTypeTicketKey!=1; DocumentNameTypeTicketKey=1; NAME given"},
    {"DocumentNameEnterName", R"(@PJL SET JOBNAME="{DocumentNameTicketKey}")", kCRLF,
     "PrintTypeTicketKey!=1; DocumentNameTypeTicketKey=2; DocumentNameTicketKey given"},
    {"DelayPrint", R"(@PJL SET JOBATTR="@PRTM={DelayPrintTicketKey}")", kCRLF,
     "PrintTypeTicketKey=4; DelayPrintTicketKey given"},
};

const std::vector<CommandRule> clientRules = {
    {"HostName", R"(@PJL SET JOBATTR="@CNAM={HOST}")", kLF,
     "HOST given"},
    {"UnknownHostName", R"(@PJL SET JOBATTR="@CNAM=UnknownHost")", kLF,
     "HOST empty"},
    {"UserName", R"(@PJL SET JOBATTR="@LUNA={USER}")", kLF,
     "USER given"},
    {"UnknownUserName", R"(@PJL SET JOBATTR="@LUNA=UnknownUser")", kLF,
     "USER empty"},
    {"IPAddress", R"(@PJL SET JOBATTR="@HOAD={ADDRESS}")", kLF,
     "JBAIPAddressStringTicket given"},
    {"NumberUp", R"(@PJL SET JOBATTR="@NLPP={NUMBERUP}")", kLF,
     "" /* every job */},
};

// "*" stands for the side: in a key for "Admin" or nothing, and as the management type for 1 (an
// administrator's settings) or 2 (the user's).
const std::vector<CommandRule> sideRules = {
    {"LoginUser", R"(@PJL SET JOBATTR="@JOAU={LOGIN}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=1; USER given; JBAInfoListTicketKey=0"},
    {"LoginUserBilling", R"(@PJL SET JOBATTR="@JOAU=UnknownUser")", kLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=1; JBAInfoListTicketKey!=0; JBAInfoListTicketKey=2; "
     "JBAInfoSetListTicketKey!=8"},
    {"LoginUserAccount", R"(@PJL SET JOBATTR="@JOAU={LOGIN}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=1; USER given; JBAInfoListTicketKey!=0; "
     "JBAInfoListTicketKey=1; JBAInfoSetListTicketKey!=8"},
    {"LoginUserAll", R"(@PJL SET JOBATTR="@JOAU={LOGIN}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=1; USER given; JBAInfoListTicketKey!=0; "
     "JBAInfoListTicketKey=3; JBAInfoSetListTicketKey!=8"},
    {"LoginUserUnknown", R"(@PJL SET JOBATTR="@JOAU=UnknownUser")", kLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=1; JBAInfoListTicketKey!=0; JBAInfoSetListTicketKey=8"},
    {"EnteredUser", R"(@PJL SET JOBATTR="@JOAU={JBA*UserIDTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=2; JBA*UserIDTextEditTicket given"},
    {"LoginPassword", R"(@PJL SET JOBATTR="@JOEP={JBA*UserPasswordTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=1; USER given; JBA*UserPasswordTextEditTicket given"},
    {"LoginNoPassword", R"(@PJL SET JOBATTR="@JOEP=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=1; USER given; JBA*UserPasswordTextEditTicket empty"},
    {"EnteredPassword", R"(@PJL SET JOBATTR="@JOEP={JBA*UserPasswordTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=2; JBA*UserIDTextEditTicket given; "
     "JBA*UserPasswordTextEditTicket given"},
    {"EnteredNoPassword", R"(@PJL SET JOBATTR="@JOEP=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*UserIDListCtrlTicket=2; JBA*UserIDTextEditTicket given; "
     "JBA*UserPasswordTextEditTicket empty"},
    {"Account", R"(@PJL SET JOBATTR="@DAID={JBA*AccountIDTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*AccountIDTextEditTicket given"},
    {"NoAccount", R"(@PJL SET JOBATTR="@DAID=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*AccountIDTextEditTicket empty"},
    {"Storage", R"(@PJL SET JOBATTR="@ACID={JBA*StorageIDTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*StorageIDTextEditTicket given"},
    {"StorageDocumentName", R"(@PJL SET JOBATTR="@ACNA={TITLE}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; TITLE given"},
    {"StoragePassword", R"(@PJL SET JOBATTR="@ACEP={JBA*StoragePasswordTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*StorageIDTextEditTicket given; JBA*StoragePasswordTextEditTicket given"},
    {"StorageNoPassword", R"(@PJL SET JOBATTR="@ACEP=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserSettingRadioBtnTicket=1; "
     "JBA*StorageIDTextEditTicket given; JBA*StoragePasswordTextEditTicket empty"},
    {"InputUser", R"(@PJL SET JOBATTR="@JOAU={JBAInputUserIDTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInputUserIDTextEditTicket given; "
     "JBAInfoSetListTicketKey!=8"},
    {"InputUserUnknown", R"(@PJL SET JOBATTR="@JOAU=UnknownUser")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInfoSetListTicketKey=8"},
    {"InputNoUser", R"(@PJL SET JOBATTR="@JOAU=UnknownUser")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInputUserIDTextEditTicket empty; "
     "JBAInfoSetListTicketKey!=8"},
    {"InputPassword", R"(@PJL SET JOBATTR="@JOEP={JBAInputUserPasswordTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInputUserIDTextEditTicket given; "
     "JBAInputUserPasswordTextEditTicket given; JBAInfoSetListTicketKey!=8"},
    {"InputPasswordUnknown", R"(@PJL SET JOBATTR="@JOEP=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInfoSetListTicketKey=8"},
    {"InputNoPassword", R"(@PJL SET JOBATTR="@JOEP=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInputUserPasswordTextEditTicket empty; "
     "JBAInputUserIDTextEditTicket given; JBAInfoSetListTicketKey!=8"},
    {"InputPasswordNoUser", R"(@PJL SET JOBATTR="@JOEP=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInputUserIDTextEditTicket empty; "
     "JBAInfoSetListTicketKey!=8"},
    {"InputAccount", R"(@PJL SET JOBATTR="@DAID={JBAInputAccountIDTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInputAccountIDTextEditTicket given; "
     "JBAInfoSetListTicketKey!=8"},
    {"InputAccountUnknown", R"(@PJL SET JOBATTR="@DAID=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInputAccountIDTextEditTicket given; "
     "JBAInfoSetListTicketKey=8"},
    {"InputNoAccount", R"(@PJL SET JOBATTR="@DAID=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputAuthRadioBtnTicketKey=1; JBAInputAccountIDTextEditTicket empty"},
    {"InputStorageAccountList", R"(@PJL SET JOBATTR="@DAID=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputStrgRadioBtnTicketKey=1; JBAInfoListTicketKey!=0"},
    {"InputStorageAccount", R"(@PJL SET JOBATTR="@DAID=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputStrgRadioBtnTicketKey=1"},
    {"InputStorage", R"(@PJL SET JOBATTR="@ACID={JBAInputStorageIDTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputStrgRadioBtnTicketKey=1; JBAInputStorageIDTextEditTicket given"},
    {"InputDocumentName", R"(@PJL SET JOBATTR="@ACNA={TITLE}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; TITLE given"},
    {"InputStorageUser", R"(@PJL SET JOBATTR="@JOAU=UnknownUser")", kLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputStrgRadioBtnTicketKey=1"},
    {"InputStorageUserPassword", R"(@PJL SET JOBATTR="@JOEP=")", kLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputStrgRadioBtnTicketKey=1"},
    {"InputStoragePassword",
     R"(@PJL SET JOBATTR="@ACEP={JBAInputStoragePasswordTextEditTicket}")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputStrgRadioBtnTicketKey=1; JBAInputStorageIDTextEditTicket given; "
     "JBAInputStoragePasswordTextEditTicket given"},
    {"InputStorageNoPassword", R"(@PJL SET JOBATTR="@ACEP=")", kCRLF,
     "JBAManageTypeListTicketKey=*; JBA*UserInputRadioBtnTicket=1; "
     "JBAInputStrgRadioBtnTicketKey=1; JBAInputStorageIDTextEditTicket given; "
     "JBAInputStoragePasswordTextEditTicket empty"},
};

const std::vector<CommandRule> featuresRules = {
    {"TabMarginNone", R"(@PJL SET JOBATTR="@TABS=OFF")", kLF,
     "TabMarginSwitchTicket=0"},
    {"TabMargin", R"(@PJL SET JOBATTR="@TABS={TabMarginMMShiftTicket}")", kLF,
     "TabMarginSwitchTicket=1"},
    {"TrimmerNone", R"(@PJL SET JOBATTR="@TRMR=0")", kLF,
     "TrimmerSwitchTicket=0"},
    {"Trimmer", R"(@PJL SET JOBATTR="@TRMR={TrimmerMMCuttingSizeTicket}")", kLF,
     "TrimmerSwitchTicket=1"},
    {"NumInSequenceNone", R"(@PJL SET JOBATTR="@MDOC=0")", kLF,
     "NumInSequenceSwitchTicket=0"},
    {"NumInSequence", R"(@PJL SET JOBATTR="@MDOC={NumInSequenceLArrowTicket}")", kLF,
     "NumInSequenceSwitchTicket=1"},
    {"OffsetStackingPages", "@PJL SET JOBOFFSET=PAGES", kLF,
     "OffsetStackingListTicket=4"},
    {"OffsetStackingCopies", "@PJL SET JOBOFFSET=COPIES", kLF,
     "OffsetStackingListTicket=5"},
    {"OffsetStackingPageNumber",
     R"(@PJL SET JOBATTR="@OCSN={OffsetStackingPagesLArrowTicket}")", kLF,
     "OffsetStackingListTicket=4"},
    {"OffsetStackingCopyNumber",
     R"(@PJL SET JOBATTR="@OCSN={OffsetStackingUnitsLArrowTicket}")", kLF,
     "OffsetStackingListTicket=5"},
    {"EjectOptionsOffCoilNoTab", R"(@PJL SET JOBATTR="@FACE=OFF")", kLF,
     "EjectOptionsListTicket=1; KVNumPunchHoles has Coil; "
     "featuresMediaTypeTabTicket is false; whetherMediaTypeTabTicket=0; "
     "CoilPunchFaceTicket is true"},
    {"EjectOptionsOffNoCoil", R"(@PJL SET JOBATTR="@FACE=OFF")", kLF,
     "EjectOptionsListTicket=1; KVNumPunchHoles lacks Coil; CoilPunchFaceTicket is true"},
    {"EjectOptionsOffCoilPunchFaceOff", R"(@PJL SET JOBATTR="@FACE=OFF")", kLF,
     "EjectOptionsListTicket=1; CoilPunchFaceTicket is false"},
    {"EjectOptionsDown", R"(@PJL SET JOBATTR="@FACE=DOWN")", kLF,
     "EjectOptionsListTicket=2"},
    {"EjectOptionsUp", R"(@PJL SET JOBATTR="@FACE=UP")", kLF,
     "EjectOptionsListTicket=3"},
    {"EjectOptionsDownReverse", R"(@PJL SET JOBATTR="@FACE=DOWN_REVERSE")", kLF,
     "EjectOptionsListTicket=4"},
    {"EjectOptionsUpReverse", R"(@PJL SET JOBATTR="@FACE=UP_REVERSE")", kLF,
     "EjectOptionsListTicket=5"},
    {"EjectOptionsOffCoilTab", R"(@PJL SET JOBATTR="@FACE=UP")", kLF,
     "EjectOptionsListTicket=1; KVNumPunchHoles has Coil; featuresMediaTypeTabTicket is true; "
     "whetherMediaTypeTabTicket=0; CoilPunchFaceTicket is true"},
    {"EjectOptionsOffCoilSpecialPagesTab", R"(@PJL SET JOBATTR="@FACE=UP")", kLF,
     "EjectOptionsListTicket=1; KVNumPunchHoles has Coil; "
     "featuresMediaTypeTabTicket is false; whetherMediaTypeTabTicket=1; "
     "CoilPunchFaceTicket is true"},
    {"EjectOptionsOffCoilBothTab", R"(@PJL SET JOBATTR="@FACE=UP")", kLF,
     "EjectOptionsListTicket=1; KVNumPunchHoles has Coil; featuresMediaTypeTabTicket is true; "
     "whetherMediaTypeTabTicket=1; CoilPunchFaceTicket is true"},
};

const std::map<std::string, std::size_t> fieldLengths = {
    {"PrintTypeUserNameTicketKey",            72},
    {"PrintTypePasswordTicketKey",            16},
    {"DocumentNameTicketKey",                 192},
    {"DelayPrintTicketKey",                   16},
    {"PrintTypeMBNTicketKey",                 4},
    {"PrintTypeMBNPasswordTicketKey",         29},
    {"JBAUserIDTextEditTicket",               96},
    {"JBAUserPasswordTextEditTicket",         254},
    {"JBAAccountIDTextEditTicket",            32},
    {"JBAStorageIDTextEditTicket",            72},
    {"JBAStoragePasswordTextEditTicket",      16},
    {"JBAAdminUserIDTextEditTicket",          96},
    {"JBAAdminUserPasswordTextEditTicket",    254},
    {"JBAAdminAccountIDTextEditTicket",       32},
    {"JBAAdminStorageIDTextEditTicket",       72},
    {"JBAAdminStoragePasswordTextEditTicket", 16},
    {"JBAInputUserIDTextEditTicket",          96},
    {"JBAInputUserPasswordTextEditTicket",    254},
    {"JBAInputAccountIDTextEditTicket",       32},
    {"JBAInputStorageIDTextEditTicket",       72},
    {"JBAInputStoragePasswordTextEditTicket", 16},
    {"TabMarginMMShiftTicket",                4},
    {"TrimmerMMCuttingSizeTicket",            4},
    {"NumInSequenceLArrowTicket",             4},
    {"OffsetStackingPagesLArrowTicket",       5},
    {"OffsetStackingUnitsLArrowTicket",       5},
    {"KVNumPunchHoles",                       99},
    {"featuresMediaTypeTabTicket",            99},
    {"CoilPunchFaceTicket",                   99},
};
// clang-format on

std::string ReplaceAll(std::string text, const std::string &from, const std::string &to) {
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size()) {
        text.replace(at, from.size(), to);
    }
    return text;
}

std::vector<CommandRule> RulesOfSide(const std::string &managementType, const std::string &side) {
    std::vector<CommandRule> rules = sideRules;
    for (CommandRule &rule : rules) {
        rule.line = ReplaceAll(rule.line, "*", side);
        rule.conditions = ReplaceAll(rule.conditions, "=*", "=" + managementType);
        rule.conditions = ReplaceAll(rule.conditions, "*", side);
    }
    return rules;
}

}  // namespace

const std::vector<CommandRule> &PrintTypeRules() {
    return printTypeRules;
}

const std::vector<CommandRule> &JBAAdminRules() {
    static const std::vector<CommandRule> rules = RulesOfSide("1", "Admin");
    return rules;
}

const std::vector<CommandRule> &JBACommonRules() {
    static const std::vector<CommandRule> rules = [] {
        std::vector<CommandRule> all = clientRules;
        const std::vector<CommandRule> userRules = RulesOfSide("2", "");
        all.insert(all.end(), userRules.begin(), userRules.end());
        return all;
    }();
    return rules;
}

const std::vector<CommandRule> &FeaturesRules() {
    return featuresRules;
}

const std::map<std::string, std::size_t> &FieldLengths() {
    return fieldLengths;
}
