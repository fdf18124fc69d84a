// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/FeatureToPJL.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PutPJL.h"
#include "Tables/FeaturePJLTable.h"

namespace {

// A choice in the PPD and what the printer calls it.
struct Choice {
    std::string_view value;
    const char *setting;
};
constexpr Choice kResolutions[] = {{"600x600", "600"}, {"1200x1200", "1200"}};
constexpr Choice kScreens[] = {{"Fineness", "64"}, {"Gradation", "66"}};

// The attributes that a screen sets: rendering and screen of text, graphics and images.
constexpr const char *kScreenAttributes[] = {"TTRC", "GTRC", "ITRC", "TSCR", "GSCR", "ISCR"};

// A setting's name stands this far in front of its value, and takes four bytes.
constexpr std::int32_t kNameDistance = 5;
constexpr std::int32_t kNameLength = 4;

template <std::size_t count>
const char *FindSetting(const Choice (&choices)[count], std::string_view value) {
    for (const Choice &choice : choices) {
        if (choice.value == value) return choice.setting;
    }
    return nullptr;
}

void PutResolution(const char *resolution) {
    PutSetting("RESOLUTION=%s\n", resolution);
    PutSetting("BITSPERPIXEL=1\n");
    PutJobAttribute("DRDM", "RASTER");
}

// Takes the next token off `text`; empty when there is none.
std::string_view TakeToken(std::string_view &text) {
    text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
    const std::string_view token = text.substr(0, text.find(' '));
    text.remove_prefix(token.size());
    return token;
}

// The setting whose value stands from `first` to `last`.
void PutSettingAt(const char *line, std::int32_t first, std::int32_t last) {
    const std::int32_t nameStart = first - kNameDistance;
    if (nameStart < 0) return;
    char *name = GetSubString(line, nameStart, nameStart + kNameLength - 1);
    char *value = GetSubString(line, first, last);
    if (name && value) PutJobAttribute(name, value);  // GCOVR_EXCL_BR_LINE: fault
    std::free(name);
    std::free(value);
}

}  // namespace

FeatureState StartFeatures() {
    return {.monochrome = JobPPDAttributeIs(KPPDColorDeviceKey, "False")};
}

void PutFeaturePJL(std::string_view line, FeatureState &state) {
    std::string_view text = line.substr(0, kFeatureTextLength);
    TakeToken(text);
    const std::string_view keyword = TakeToken(text);
    const std::string_view value = TakeToken(text);
    if (value.empty()) return;

    if (state.monochrome && keyword == kHalftoneKeyword) {
        if (const char *screen = FindSetting(kScreens, value)) {
            for (const char *attribute : kScreenAttributes) PutJobAttribute(attribute, screen);
        }
    }
    if (state.resolutionPending && keyword == kOutputModeKeyword) {
        if (const char *resolution = FindSetting(kResolutions, value)) {
            PutResolution(resolution);
            state.resolutionPending = false;
        }
    }
    const char *command = GetThePJLCommandfromKeywordsandMarkedValue(keyword, value);
    if (command) KVfputs(command, stdout);
}

void PutSettingsPJL(std::string_view line) {
    std::int32_t digits[kMostDigits];
    std::size_t count = 0;
    for (std::size_t i = 0; i < line.size() && count < kMostDigits; i++) {
        if (line[i] >= '0' && line[i] <= '9') digits[count++] = static_cast<std::int32_t>(i);
    }
    for (std::size_t i = 0; i < count; i++) {
        const std::int32_t first = digits[i];
        const bool twoDigits = i + 1 < count && digits[i + 1] == first + 1;
        PutSettingAt(line.data(), first, first + twoDigits);
        i += twoDigits;
    }
}

char *GetSubString(const char *text, std::int32_t start, std::int32_t end) {
    const std::size_t length = static_cast<std::size_t>(end - start) + 1;
    char *copy = static_cast<char *>(std::malloc(length + 1));
    if (!copy) return nullptr;  // GCOVR_EXCL_BR_LINE: fault
    std::memcpy(copy, text + start, length);
    copy[length] = '\0';
    return copy;
}
