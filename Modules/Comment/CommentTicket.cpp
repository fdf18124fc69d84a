// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/CommentTicket.h"

int CommentGetTicketFromPDE(char *const[]) {
    return 1;
}
