// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkTicket.h"

int WatermarkGetTicketFromPDE(char *const[]) {
    return 1;
}
