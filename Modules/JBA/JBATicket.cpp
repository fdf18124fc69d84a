// SPDX-License-Identifier: Apache-2.0
#include "Modules/JBA/JBATicket.h"

int JBAGetTicketFromPDE(char *const[]) {
    return 1;
}
