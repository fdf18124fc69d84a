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
    {kJBAJobInfoRadioBtnTicketKey,              &j.user.jobInfoRadioBtn,         sizeof j.user.jobInfoRadioBtn,  GetTicketInteger},
    {kJBAUserIDListCtrlTicketKey,               &j.user.userIDListCtrl,          sizeof j.user.userIDListCtrl,   GetTicketInteger},
    {kJBAUserIDTextEditTicketKey,               &j.userIDAbsent,                 sizeof j.userIDAbsent,          CheckTicketKey},
    {kJBAUserIDTextEditTicketKey,               j.user.userID,                   sizeof j.user.userID,           GetTicketStringConvertedToPrtLang},
    {kJBAUserIDPasswordTextEditTicketKey,       j.user.userIDPassword,           sizeof j.user.userIDPassword,   GetTicketStringConvertedToPrtLang},
    {kJBADomainNameTicketKey,                   j.user.domainName,               sizeof j.user.domainName,       GetTicketStringConvertedToPrtLang},
    {kJBAInputDomainNameTicketKey,              j.input.domainName,              sizeof j.input.domainName,      GetTicketStringConvertedToPrtLang},
    {kJBAAccountIDTextEditTicketKey,            j.user.accountID,                sizeof j.user.accountID,        GetTicketStringConvertedToPrtLang},
    {kJBAStorageIDTextEditTicketKey,            j.user.storageID,                sizeof j.user.storageID,        GetTicketStringConvertedToPrtLang},
    {kJBAStoragePasswordTextEditTicketKey,      j.user.storagePassword,          sizeof j.user.storagePassword,  GetTicketStringConvertedToPrtLang},
    {kJBAJobInputRadioBtnTicketKey,             &j.user.jobInputRadioBtn,        sizeof j.user.jobInputRadioBtn, GetTicketInteger},
    {kJBAInputAuthRadioBtnTicketKey,            &j.input.authRadioBtn,           sizeof j.input.authRadioBtn,    GetTicketInteger},
    {kJBAInputStrgRadioBtnTicketKey,            &j.input.strgRadioBtn,           sizeof j.input.strgRadioBtn,    GetTicketInteger},
    {kJBAInputStorageIDTextEditTicketKey,       j.input.storageID,               sizeof j.input.storageID,       GetTicketStringConvertedToPrtLang},
    {kJBAInputStoragePasswordTextEditTicketKey, j.input.storagePassword,         sizeof j.input.storagePassword, GetTicketStringConvertedToPrtLang},
    {kJBAInputUserIDTextEditTicketKey,          j.input.userID,                  sizeof j.input.userID,          GetTicketStringConvertedToPrtLang},
    {kJBAInputUserIDPasswordTextEditTicketKey,  j.input.userIDPassword,          sizeof j.input.userIDPassword,  GetTicketStringConvertedToPrtLang},
    {kJBAInputAccountIDTextEditTicketKey,       j.input.accountID,               sizeof j.input.accountID,       GetTicketStringConvertedToPrtLang},
};
static_assert(std::size(JBAticketDataCommon) == JBATicketDataNumCommon);

const ticketData JBAticketDataAdmin[] = {
    {kJBAJobInfoRadioBtnTicketKeyAdmin,         &j.admin.jobInfoRadioBtn,  sizeof j.admin.jobInfoRadioBtn,  GetTicketInteger},
    {kJBAUserIDListCtrlTicketKeyAdmin,          &j.admin.userIDListCtrl,   sizeof j.admin.userIDListCtrl,   GetTicketInteger},
    {kJBAUserIDTextEditTicketKeyAdmin,          j.admin.userID,            sizeof j.admin.userID,           GetTicketStringConvertedToPrtLang},
    {kJBADomainNameTicketKeyAdmin,              j.admin.domainName,        sizeof j.admin.domainName,       GetTicketStringConvertedToPrtLang},
    {kJBAUserIDPasswordTextEditTicketKeyAdmin,  j.admin.userIDPassword,    sizeof j.admin.userIDPassword,   GetTicketStringConvertedToPrtLang},
    {kJBAAccountIDTextEditTicketKeyAdmin,       j.admin.accountID,         sizeof j.admin.accountID,        GetTicketStringConvertedToPrtLang},
    {kJBAStorageIDTextEditTicketKeyAdmin,       j.admin.storageID,         sizeof j.admin.storageID,        GetTicketStringConvertedToPrtLang},
    {kJBAStoragePasswordTextEditTicketKeyAdmin, j.admin.storagePassword,   sizeof j.admin.storagePassword,  GetTicketStringConvertedToPrtLang},
    {kJBAJobInputRadioBtnTicketKeyAdmin,        &j.admin.jobInputRadioBtn, sizeof j.admin.jobInputRadioBtn, GetTicketInteger},
};
static_assert(std::size(JBAticketDataAdmin) == JBATicketDataNumAdmin);
// clang-format on

int JBAGetTicketFromPDE(char *const argv[]) {
    GetTicketFromArray(argv, JBAticketDataCommon, JBATicketDataNumCommon);
    return GetTicketFromArray(argv, JBAticketDataAdmin, JBATicketDataNumAdmin);
}
