// SPDX-License-Identifier: Apache-2.0
//
// What the printer gets of a ticket's value.
#pragma once

#include <string>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

struct PrintedValue {
    std::string text;  // as bytes in the printer's encoding, or a number
    std::string note;  // what was cut or dropped on the way, empty if nothing
};

// What the getter of `row` makes of the value that `options` has for its key.
PrintedValue PrintedValueOf(const ticketData &row, const TicketOptions &options);
