// SPDX-License-Identifier: Apache-2.0
#include "Modules/PrintType/PrintTypeTicket.h"

int PrintTypeGetTicketFromPDE(char *const[]) {
    return 1;
}
