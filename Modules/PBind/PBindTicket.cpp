// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PBindTicket.h"

int PBindGetTicketFromPDE(char *const[]) {
    return 1;
}
