// SPDX-License-Identifier: Apache-2.0
#include "Modules/PrintType/PrintTypeTicket.h"

#include <iterator>

PrintTypeOptions kpjlOptionPrintType;

namespace {

constexpr char kPrintTypeTicketKey[] = KV_TICKET "PrintTypeTicketKey";
constexpr char kPrintTypeUserNameTicketKey[] = KV_TICKET "PrintTypeUserNameTicketKey";
constexpr char kPrintTypePasswordTicketKey[] = KV_TICKET "PrintTypePasswordTicketKey";
constexpr char kDocumentNameTypeTicketKey[] = KV_TICKET "DocumentNameTypeTicketKey";
constexpr char kDocumentNameTicketKey[] = KV_TICKET "DocumentNameTicketKey";
constexpr char kDelayPrintTicketKey[] = KV_TICKET "DelayPrintTicketKey";
constexpr char kPrintTypeMBNTicketKey[] = KV_TICKET "PrintTypeMBNTicketKey";
constexpr char kPrintTypeMBNPasswordTicketKey[] = KV_TICKET "PrintTypeMBNPasswordTicketKey";

PrintTypeOptions &p = kpjlOptionPrintType;

}  // namespace

// clang-format off
const ticketData PrintTypeticketData[] = {
    {kPrintTypeTicketKey,            &p.printType,        sizeof p.printType,        GetTicketInteger},
    {kPrintTypeUserNameTicketKey,    p.userName,          sizeof p.userName,         GetTicketStringConvertedToPrtLang},
    {kPrintTypePasswordTicketKey,    p.password,          sizeof p.password,         GetTicketStringConvertedToPrtLang},
    {kDocumentNameTypeTicketKey,     &p.documentNameType, sizeof p.documentNameType, GetTicketInteger},
    {kDocumentNameTicketKey,         p.documentName,      sizeof p.documentName,     GetTicketStringConvertedToPrtLang},
    {kDelayPrintTicketKey,           p.delayPrintTime,    sizeof p.delayPrintTime,   GetTicketStringConvertedToPrtLang},
    {kPrintTypeMBNTicketKey,         p.mailboxNumber,     sizeof p.mailboxNumber,    GetTicketStringConvertedToPrtLang},
    {kPrintTypeMBNPasswordTicketKey, p.mailboxPassword,   sizeof p.mailboxPassword,  GetTicketStringConvertedToPrtLang},
};
// clang-format on
static_assert(std::size(PrintTypeticketData) == PrintTypeTicketDataNum);

int PrintTypeGetTicketFromPDE(char *const argv[]) {
    return GetTicketFromArray(argv, PrintTypeticketData, PrintTypeTicketDataNum);
}
