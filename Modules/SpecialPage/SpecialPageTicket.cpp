// SPDX-License-Identifier: Apache-2.0
#include "Modules/SpecialPage/SpecialPageTicket.h"

int SpecialPageGetTicketFromPDE(char *const[]) {
    return 1;
}

void SpecialPageInializeDescriptionTable() {}
