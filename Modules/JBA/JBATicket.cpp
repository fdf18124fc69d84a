// SPDX-License-Identifier: Apache-2.0
#include "Modules/JBA/JBATicket.h"

#include <iterator>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"

JBAOptions kpjlOptionJBA;

namespace {

constexpr JBAOptions &ticket = kpjlOptionJBA;

}  // namespace

const ticketData JBAticketDataCommon[] = {
#define KV_SHARED_KEY KV_SHARED_KEY_ROW
#define KV_KEY KV_KEY_ROW
#include "Modules/JBA/JBATicketCommon.def"
};
const std::int32_t JBATicketDataNumCommon = std::size(JBAticketDataCommon);

const ticketData JBAticketDataAdmin[] = {
#define KV_KEY KV_KEY_ROW
#include "Modules/JBA/JBATicketAdmin.def"
};
const std::int32_t JBATicketDataNumAdmin = std::size(JBAticketDataAdmin);

int JBAGetTicketFromPDE(char *const argv[]) {
    GetTicketFromArray(argv, JBAticketDataCommon, JBATicketDataNumCommon);
    return GetTicketFromArray(argv, JBAticketDataAdmin, JBATicketDataNumAdmin);
}
