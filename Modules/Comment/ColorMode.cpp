// SPDX-License-Identifier: Apache-2.0
#include "Modules/Comment/ColorMode.h"

#include <string_view>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "Modules/Comment/CommentTicket.h"

namespace {

constexpr std::string_view kColorModeColor = "Color";
constexpr std::string_view kColorModeBlack = "Black";

}  // namespace

const char *JobColorMode() {
    const std::string_view mode = psoptioncomment.colorMode;
    if (mode == kColorModeColor) return "COLOR";
    if (mode.empty() || mode == kColorModeBlack) return "GRAYSCALE";
    return ppdFindOption(JobPPD(), KPPDColorModeKey) ? nullptr : "GRAYSCALE";
}
