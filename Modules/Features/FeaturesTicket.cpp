// SPDX-License-Identifier: Apache-2.0
#include "Modules/Features/FeaturesTicket.h"

#include <iterator>

FeaturesOptions kpjlOptionFeatures;

namespace {

constexpr FeaturesOptions &ticket = kpjlOptionFeatures;

}  // namespace

const ticketData FeaturesticketData[] = {
#define KV_KEY KV_KEY_ROW
#include "Modules/Features/FeaturesTicket.def"
};
const std::int32_t FeaturesTicketDataNum = std::size(FeaturesticketData);

int FeaturesGetTicketFromPDE(char *const argv[]) {
    return GetTicketFromArray(argv, FeaturesticketData, FeaturesTicketDataNum);
}
