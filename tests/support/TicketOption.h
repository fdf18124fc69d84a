// SPDX-License-Identifier: Apache-2.0
//
// Settings of the printer's print-dialog plug-ins in an option string.
#pragma once

#include <string>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

// The option `name`, without the plug-ins' prefix, with a blank after it. `value` has no
// apostrophe.
inline std::string TicketOption(const std::string &name, const std::string &value) {
    return std::string(KV_TICKET).append(name).append("='").append(value).append("' ");
}
