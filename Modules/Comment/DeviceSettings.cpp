// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/DeviceSettings.h"

#include <cstring>

#include "Modules/Comment/ColorMode.h"
#include "Modules/Comment/CommentTicket.h"
#include "Modules/Comment/JobInfoLine.h"

namespace {

constexpr std::string_view kLineWeightNormal = "Normal";

// What the line weight value contains, and the sign of the level that its first digit gives.
// The first row found decides.
struct LineWeight {
    const char *direction;
    const char *sign;
};
// clang-format off
constexpr LineWeight lineWeights[] = {
    {"Strongly", "-"},
    {"Weakly",   ""},
};
// clang-format on

void PutLineWeight(const CommentText &value) {
    if (value == kLineWeightNormal) {
        PutSetting("JOBATTR=\"@LWAD=0\"\n");
        return;
    }
    const char *digit = std::strpbrk(value, "0123456789");
    if (!digit) return;
    for (const LineWeight &weight : lineWeights) {
        if (!std::strstr(value, weight.direction)) continue;
        PutSetting("JOBATTR=\"@LWAD=%s%c\"\n", weight.sign, *digit);
        return;
    }
}

}  // namespace

int OutputKPJLCommandOthers() {
    PutLineWeight(psoptioncomment.lineWeightAdjustment);
    const char *mode = JobColorMode();
    return mode ? PutSetting("RENDERMODE=%s\n", mode) : 1;
}
