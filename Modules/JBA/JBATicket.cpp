// SPDX-License-Identifier: Apache-2.0
#include "Modules/JBA/JBATicket.h"

#include <iterator>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"

JBAOptions kpjlOptionJBA;

namespace {

// The system's paper rectangle, of the job and of the page format; its elements are the origin's Y
// and X, the height and the width.
#define KV_PAGE_FORMAT "com.apple.print.subTicket.page_format_ticket..d."
#define KV_PAPER_RECT                                 \
    "com.apple.print.subTicket.paper_info_ticket..d." \
    "com.apple.print.PaperInfo.PMUnadjustedPaperRect..a."

// clang-format off
constexpr char kJBAHostName[] = KV_TICKET "JBAMacHostNameStringTicket";
constexpr char kJBAIPAddressStringTicketKey[] = KV_TICKET "JBAIPAddressStringTicket";
constexpr char kJBAInfoListTicketKey[] = KV_TICKET "JBAInfoListTicketKey";
constexpr char kJBAInfoSetLboxTicketKey[] = KV_TICKET "JBAInfoSetListTicketKey";
constexpr char KPaperInfoRectOriginXTicketKey[] = KV_PAGE_FORMAT KV_PAPER_RECT "1..n.";
constexpr char KPaperInfoRectOriginYTicketKey[] = KV_PAGE_FORMAT KV_PAPER_RECT "0..n.";
constexpr char KPaperInfoRectHeightTicketKey[] = KV_PAGE_FORMAT KV_PAPER_RECT "2..n.";
constexpr char KPaperInfoRectWidthTicketKey[] = KV_PAGE_FORMAT KV_PAPER_RECT "3..n.";
constexpr char KAdobePaperInfoRectOriginXTicketKey[] = KV_PAPER_RECT "1..n.";
constexpr char KAdobePaperInfoRectOriginYTicketKey[] = KV_PAPER_RECT "0..n.";
constexpr char KAdobePaperInfoRectHeightTicketKey[] = KV_PAPER_RECT "2..n.";
constexpr char KAdobePaperInfoRectWidthTicketKey[] = KV_PAPER_RECT "3..n.";
constexpr char kJBAMngTypeListBoxTicketKey[] = KV_TICKET "JBAManageTypeListTicketKey";
constexpr char kJBAJobInfoRadioBtnTicketKey[] = KV_TICKET "JBAUserSettingRadioBtnTicket";
constexpr char kJBAUserIDListCtrlTicketKey[] = KV_TICKET "JBAUserIDListCtrlTicket";
constexpr char kJBAUserIDTextEditTicketKey[] = KV_TICKET "JBAUserIDTextEditTicket";
constexpr char kJBAUserIDPasswordTextEditTicketKey[] = KV_TICKET "JBAUserPasswordTextEditTicket";
constexpr char kJBADomainNameTicketKey[] = KV_TICKET "JBADomainNameTextEditTicket";
constexpr char kJBAInputDomainNameTicketKey[] = KV_TICKET "JBAInputDomainNameTextEditTicket";
constexpr char kJBAAccountIDTextEditTicketKey[] = KV_TICKET "JBAAccountIDTextEditTicket";
constexpr char kJBAStorageIDTextEditTicketKey[] = KV_TICKET "JBAStorageIDTextEditTicket";
constexpr char kJBAStoragePasswordTextEditTicketKey[] = KV_TICKET "JBAStoragePasswordTextEditTicket";
constexpr char kJBAJobInputRadioBtnTicketKey[] = KV_TICKET "JBAUserInputRadioBtnTicket";
constexpr char kJBAInputAuthRadioBtnTicketKey[] = KV_TICKET "JBAInputAuthRadioBtnTicketKey";
constexpr char kJBAInputStrgRadioBtnTicketKey[] = KV_TICKET "JBAInputStrgRadioBtnTicketKey";
constexpr char kJBAInputStorageIDTextEditTicketKey[] = KV_TICKET "JBAInputStorageIDTextEditTicket";
constexpr char kJBAInputStoragePasswordTextEditTicketKey[] = KV_TICKET "JBAInputStoragePasswordTextEditTicket";
constexpr char kJBAInputUserIDTextEditTicketKey[] = KV_TICKET "JBAInputUserIDTextEditTicket";
constexpr char kJBAInputUserIDPasswordTextEditTicketKey[] = KV_TICKET "JBAInputUserPasswordTextEditTicket";
constexpr char kJBAInputAccountIDTextEditTicketKey[] = KV_TICKET "JBAInputAccountIDTextEditTicket";
constexpr char kJBAJobInfoRadioBtnTicketKeyAdmin[] = KV_TICKET "JBAAdminUserSettingRadioBtnTicket";
constexpr char kJBAUserIDListCtrlTicketKeyAdmin[] = KV_TICKET "JBAAdminUserIDListCtrlTicket";
constexpr char kJBAUserIDTextEditTicketKeyAdmin[] = KV_TICKET "JBAAdminUserIDTextEditTicket";
constexpr char kJBADomainNameTicketKeyAdmin[] = KV_TICKET "JBAAdminDomainNameTextEditTicket";
constexpr char kJBAUserIDPasswordTextEditTicketKeyAdmin[] = KV_TICKET "JBAAdminUserPasswordTextEditTicket";
constexpr char kJBAAccountIDTextEditTicketKeyAdmin[] = KV_TICKET "JBAAdminAccountIDTextEditTicket";
constexpr char kJBAStorageIDTextEditTicketKeyAdmin[] = KV_TICKET "JBAAdminStorageIDTextEditTicket";
constexpr char kJBAStoragePasswordTextEditTicketKeyAdmin[] = KV_TICKET "JBAAdminStoragePasswordTextEditTicket";
constexpr char kJBAJobInputRadioBtnTicketKeyAdmin[] = KV_TICKET "JBAAdminUserInputRadioBtnTicket";

// Bytes that are read into the larger shared texts: a number of the layout, a length of the paper.
constexpr std::int32_t kLayoutTextSize = 10;
constexpr std::int32_t kPaperTextSize  = 20;
static_assert(kLayoutTextSize <= sizeof(StdText) && kPaperTextSize <= sizeof(StdText));

JBAOptions &j = kpjlOptionJBA;

}  // namespace

const ticketData JBAticketDataCommon[] = {
    {kJBAHostName,                              j.hostName,                      sizeof j.hostName,              GetTicketStringConvertedToPrtLang},
    {kJBAIPAddressStringTicketKey,              j.ipAddress,                     sizeof j.ipAddress,             GetTicketStringConvertedToPrtLang},
    {kJBAInfoListTicketKey,                     &j.infoList,                     sizeof j.infoList,              GetTicketInteger},
    {kJBAInfoSetLboxTicketKey,                  &j.infoSetLbox,                  sizeof j.infoSetLbox,           GetTicketInteger},
    {kNumberUpTicketKey,                        StdNUpInfo,                      kLayoutTextSize,                GetNumberUpTicketString},
    {kNumberUpTicketKey,                        StdLayoutInfo,                   kLayoutTextSize,                GetTicketStringConvertedToPrtLang},
    {kLayoutDirectionTicketKey,                 StdLayoutDirectionInfo,          kLayoutTextSize,                GetTicketStringConvertedToPrtLang},
    {kLayoutRowCountTicketKey,                  StdLayoutRowInfo,                kLayoutTextSize,                GetTicketStringConvertedToPrtLang},
    {kLayoutColumnCountTicketKey,               StdLayoutColumnInfo,             kLayoutTextSize,                GetTicketStringConvertedToPrtLang},
    {KPaperInfoRectOriginXTicketKey,            StdPaperInfoRectOriginXKey,      kPaperTextSize,                 GetTicketStringConvertedToPrtLang},
    {KPaperInfoRectOriginYTicketKey,            StdPaperInfoRectOriginYKey,      kPaperTextSize,                 GetTicketStringConvertedToPrtLang},
    {KPaperInfoRectHeightTicketKey,             StdPaperInfoRectHeightKey,       kPaperTextSize,                 GetTicketStringConvertedToPrtLang},
    {KPaperInfoRectWidthTicketKey,              StdPaperInfoRectWidthKey,        kPaperTextSize,                 GetTicketStringConvertedToPrtLang},
    {KAdobePaperInfoRectOriginXTicketKey,       StdAdobePaperInfoRectOriginXKey, kPaperTextSize,                 GetTicketStringConvertedToPrtLang},
    {KAdobePaperInfoRectOriginYTicketKey,       StdAdobePaperInfoRectOriginYKey, kPaperTextSize,                 GetTicketStringConvertedToPrtLang},
    {KAdobePaperInfoRectHeightTicketKey,        StdAdobePaperInfoRectHeightKey,  kPaperTextSize,                 GetTicketStringConvertedToPrtLang},
    {KAdobePaperInfoRectWidthTicketKey,         StdAdobePaperInfoRectWidthKey,   kPaperTextSize,                 GetTicketStringConvertedToPrtLang},
    {kJBAMngTypeListBoxTicketKey,               &j.mngTypeListBox,               sizeof j.mngTypeListBox,        GetTicketInteger},
    {kJBAJobInfoRadioBtnTicketKey,              &j.jobInfoRadioBtn,         sizeof j.jobInfoRadioBtn,  GetTicketInteger},
    {kJBAUserIDListCtrlTicketKey,               &j.userIDListCtrl,          sizeof j.userIDListCtrl,   GetTicketInteger},
    {kJBAUserIDTextEditTicketKey,               &j.userIDAbsent,                 sizeof j.userIDAbsent,          CheckTicketKey},
    {kJBAUserIDTextEditTicketKey,               j.userID,                   sizeof j.userID,           GetTicketStringConvertedToPrtLang},
    {kJBAUserIDPasswordTextEditTicketKey,       j.userIDPassword,           sizeof j.userIDPassword,   GetTicketStringConvertedToPrtLang},
    {kJBADomainNameTicketKey,                   j.domainName,               sizeof j.domainName,       GetTicketStringConvertedToPrtLang},
    {kJBAInputDomainNameTicketKey,              j.inputDomainName,              sizeof j.inputDomainName,      GetTicketStringConvertedToPrtLang},
    {kJBAAccountIDTextEditTicketKey,            j.accountID,                sizeof j.accountID,        GetTicketStringConvertedToPrtLang},
    {kJBAStorageIDTextEditTicketKey,            j.storageID,                sizeof j.storageID,        GetTicketStringConvertedToPrtLang},
    {kJBAStoragePasswordTextEditTicketKey,      j.storagePassword,          sizeof j.storagePassword,  GetTicketStringConvertedToPrtLang},
    {kJBAJobInputRadioBtnTicketKey,             &j.jobInputRadioBtn,        sizeof j.jobInputRadioBtn, GetTicketInteger},
    {kJBAInputAuthRadioBtnTicketKey,            &j.inputAuthRadioBtn,           sizeof j.inputAuthRadioBtn,    GetTicketInteger},
    {kJBAInputStrgRadioBtnTicketKey,            &j.inputStrgRadioBtn,           sizeof j.inputStrgRadioBtn,    GetTicketInteger},
    {kJBAInputStorageIDTextEditTicketKey,       j.inputStorageID,               sizeof j.inputStorageID,       GetTicketStringConvertedToPrtLang},
    {kJBAInputStoragePasswordTextEditTicketKey, j.inputStoragePassword,         sizeof j.inputStoragePassword, GetTicketStringConvertedToPrtLang},
    {kJBAInputUserIDTextEditTicketKey,          j.inputUserID,                  sizeof j.inputUserID,          GetTicketStringConvertedToPrtLang},
    {kJBAInputUserIDPasswordTextEditTicketKey,  j.inputUserIDPassword,          sizeof j.inputUserIDPassword,  GetTicketStringConvertedToPrtLang},
    {kJBAInputAccountIDTextEditTicketKey,       j.inputAccountID,               sizeof j.inputAccountID,       GetTicketStringConvertedToPrtLang},
};
static_assert(std::size(JBAticketDataCommon) == JBATicketDataNumCommon);

const ticketData JBAticketDataAdmin[] = {
    {kJBAJobInfoRadioBtnTicketKeyAdmin,         &j.jobInfoRadioBtnAdmin,  sizeof j.jobInfoRadioBtnAdmin,  GetTicketInteger},
    {kJBAUserIDListCtrlTicketKeyAdmin,          &j.userIDListCtrlAdmin,   sizeof j.userIDListCtrlAdmin,   GetTicketInteger},
    {kJBAUserIDTextEditTicketKeyAdmin,          j.userIDAdmin,            sizeof j.userIDAdmin,           GetTicketStringConvertedToPrtLang},
    {kJBADomainNameTicketKeyAdmin,              j.domainNameAdmin,        sizeof j.domainNameAdmin,       GetTicketStringConvertedToPrtLang},
    {kJBAUserIDPasswordTextEditTicketKeyAdmin,  j.userIDPasswordAdmin,    sizeof j.userIDPasswordAdmin,   GetTicketStringConvertedToPrtLang},
    {kJBAAccountIDTextEditTicketKeyAdmin,       j.accountIDAdmin,         sizeof j.accountIDAdmin,        GetTicketStringConvertedToPrtLang},
    {kJBAStorageIDTextEditTicketKeyAdmin,       j.storageIDAdmin,         sizeof j.storageIDAdmin,        GetTicketStringConvertedToPrtLang},
    {kJBAStoragePasswordTextEditTicketKeyAdmin, j.storagePasswordAdmin,   sizeof j.storagePasswordAdmin,  GetTicketStringConvertedToPrtLang},
    {kJBAJobInputRadioBtnTicketKeyAdmin,        &j.jobInputRadioBtnAdmin, sizeof j.jobInputRadioBtnAdmin, GetTicketInteger},
};
static_assert(std::size(JBAticketDataAdmin) == JBATicketDataNumAdmin);
// clang-format on

int JBAGetTicketFromPDE(char *const argv[]) {
    GetTicketFromArray(argv, JBAticketDataCommon, JBATicketDataNumCommon);
    return GetTicketFromArray(argv, JBAticketDataAdmin, JBATicketDataNumAdmin);
}
