// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <string>

// A queue of the local CUPS.
struct Queue {
    std::string ppd;  // path of a copy of its PPD, which the caller removes; empty if it has none
    std::string defaults;  // the options that lp adds for this user, as an option string
    std::string error;     // why there is no such queue, else empty
};

Queue FindQueue(const char *name);
