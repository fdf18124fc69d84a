// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Cancel.h"

#include <optional>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "FrontEnd/FrontEnd.h"

namespace {

using Clock = std::chrono::steady_clock;

std::optional<Clock::time_point> cancelSeen;

}  // namespace

std::chrono::milliseconds cancelGrace = std::chrono::seconds(5);

bool CancelIsOverdue() {
    if (CancelJob != 1 || !FrontEndIsCUPS()) {
        cancelSeen.reset();
        return false;
    }
    if (!cancelSeen) cancelSeen = Clock::now();
    return Clock::now() - *cancelSeen >= cancelGrace;
}
