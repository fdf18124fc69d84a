// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/DeviceSettings.h"

#include <cstring>
#include <string>

#include "CommonSource/FilterFrame/Source/PutPJL.h"
#include "Modules/Comment/ColorMode.h"
#include "Modules/Comment/CommentTicket.h"

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
        PutJobAttribute("LWAD", "0");
        return;
    }
    const char *digit = std::strpbrk(value, "0123456789");
    if (!digit) return;
    for (const LineWeight &weight : lineWeights) {
        if (!std::strstr(value, weight.direction)) continue;
        const std::string level = weight.sign + std::string(1, *digit);
        PutJobAttribute("LWAD", level.c_str());
        return;
    }
}

}  // namespace

int OutputKPJLCommandOthers() {
    PutLineWeight(psoptioncomment.lineWeightAdjustment);
    const char *mode = JobColorMode();
    return mode ? PutSetting("RENDERMODE=%s\n", mode) : 1;
}
