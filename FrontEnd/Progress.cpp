// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Progress.h"

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>

#include "FrontEnd/Messages.h"

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kInterval(250);

// When the progress was last told; at first, when the job began.
Clock::time_point lastTold = Clock::now();

}  // namespace

void ReportPage(int page, int copies, int pages) {
    std::fprintf(stderr, "PAGE: %d %d\n", page, copies);
    const Clock::time_point now = Clock::now();
    if (now - lastTold < kInterval) return;
    lastTold = now;

    char text[64];
    if (pages >= page) {
        const int percent = static_cast<int>(std::int64_t{100} * page / pages);
        std::snprintf(text, sizeof text, "job-media-progress=%d", percent);
        ReportAttribute(text);
        std::snprintf(text, sizeof text, "Printing page %d of %d.", page, pages);
    } else {
        std::snprintf(text, sizeof text, "Printing page %d.", page);
    }
    ReportInfo(text);
}
