// SPDX-License-Identifier: Apache-2.0
#include "Modules/PrintType/PrintTypeTicket.h"

#include <iterator>

PrintTypeOptions kpjlOptionPrintType;

namespace {

constexpr PrintTypeOptions &ticket = kpjlOptionPrintType;

}  // namespace

const ticketData PrintTypeticketData[] = {
#define KV_KEY KV_KEY_ROW
#include "Modules/PrintType/PrintTypeTicket.def"
};
const std::int32_t PrintTypeTicketDataNum = std::size(PrintTypeticketData);

int PrintTypeGetTicketFromPDE(char *const argv[]) {
    return GetTicketFromArray(argv, PrintTypeticketData, PrintTypeTicketDataNum);
}
