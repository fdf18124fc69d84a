// SPDX-License-Identifier: Apache-2.0
#include "Tables/FeaturePJLTable.h"

#include <iterator>

#define KV_SET(variable, value) "@PJL SET " variable "=" value "\n"
#define KV_JOBATTR(name, value) KV_SET("JOBATTR", "\"@" name "=" value "\"")

// clang-format off

// The density of an ink in one band of tones: -3 to +3 in the PPD is 0 to 6 at the printer, whose
// attribute ends in the letters of ink and band.
#define KV_DENSITY(inkAndBand, letters)                                     \
    {"KVColorDensity" inkAndBand, "-3", KV_JOBATTR("AJ" letters, "0")},     \
    {"KVColorDensity" inkAndBand, "-2", KV_JOBATTR("AJ" letters, "1")},     \
    {"KVColorDensity" inkAndBand, "-1", KV_JOBATTR("AJ" letters, "2")},     \
    {"KVColorDensity" inkAndBand, "0",  KV_JOBATTR("AJ" letters, "3")},     \
    {"KVColorDensity" inkAndBand, "+1", KV_JOBATTR("AJ" letters, "4")},     \
    {"KVColorDensity" inkAndBand, "+2", KV_JOBATTR("AJ" letters, "5")},     \
    {"KVColorDensity" inkAndBand, "+3", KV_JOBATTR("AJ" letters, "6")}

// Five steps of brightness to either side of Normal, the strongest first.
#define KV_BRIGHTNESS(side, sign)                               \
    {"KVBrightnes", side "5", KV_JOBATTR("PSBR", sign "5")},    \
    {"KVBrightnes", side "4", KV_JOBATTR("PSBR", sign "4")},    \
    {"KVBrightnes", side "3", KV_JOBATTR("PSBR", sign "3")},    \
    {"KVBrightnes", side "2", KV_JOBATTR("PSBR", sign "2")},    \
    {"KVBrightnes", side "1", KV_JOBATTR("PSBR", sign "1")}

constexpr FeaturePJLRow FeaturePPDKeyNameandMarkedValuetoPJLCommand[] = {
    // PPD keyword             value        PJL command
    {"KVSetTrapMode",          "False",     KV_JOBATTR("TRAP", "OFF")},
    {"KVSetTrapMode",          "True",      KV_JOBATTR("TRAP", "ON")},
    {"KVLetterHeadDuplexMode", "DupAuto",   KV_JOBATTR("DDPM", "AUTO")},
    {"KVLetterHeadDuplexMode", "DupOff",    KV_JOBATTR("DDPM", "OFF")},
    {"KVLetterHeadDuplexMode", "DupOn",     KV_JOBATTR("DDPM", "ON")},
    {"KVGrayBalance",          "True",      KV_JOBATTR("GRGU", "TEXTGRAPHICS")},
    {"KVGrayBalance",          "False",     KV_JOBATTR("GRGU", "OFF")},
    {"KVOutputMode",           "HighSpeed", KV_SET("BITSPERPIXEL", "1")},
    {"KVOutputMode",           "Standard",  KV_SET("BITSPERPIXEL", "8")},
    KV_BRIGHTNESS("Bright", ""),
    {"KVBrightnes",            "Normal",    KV_JOBATTR("PSBR", "0")},
    KV_BRIGHTNESS("Dark",   "-"),
    {"KVRGBInputProfile",      "SRGB",      KV_JOBATTR("RGBP", "SRGB")},
    {"KVRGBInputProfile",      "AdobeRGB",  KV_JOBATTR("RGBP", "ADOBERGB")},
    {"KVRGBBCorrection",       "Off",       KV_JOBATTR("RGBG", "OFF")},
    {"KVRGBBCorrection",       "Lightest",  KV_JOBATTR("RGBG", "LIGHTEST")},
    {"KVRGBBCorrection",       "Light",     KV_JOBATTR("RGBG", "LIGHT")},
    {"KVRGBBCorrection",       "Standard",  KV_JOBATTR("RGBG", "STANDARD")},
    {"KVRGBBCorrection",       "Dark",      KV_JOBATTR("RGBG", "DARK")},
    {"KVRGBBCorrection",       "Darkest",   KV_JOBATTR("RGBG", "DARKEST")},
    {"Smoothing",              "True",      KV_SET("RET", "ON")},
    {"Smoothing",              "False",     KV_SET("RET", "OFF")},
    {"KVTonerSaver",           "False",     KV_SET("ECONOMODE", "OFF")},
    {"KVTonerSaver",           "True",      KV_SET("ECONOMODE", "ON")},
    {"KVTonerSaver",           "Mode1",     KV_SET("ECONOMODE", "MODE1")},
    {"KVTonerSaver",           "Mode2",     KV_SET("ECONOMODE", "MODE2")},
    {"KVTonerSaver",           "Mode3",     KV_SET("ECONOMODE", "MODE3")},
    {"KVSaveBlankSheet",       "False",     KV_JOBATTR("SBKP", "OFF")},
    {"KVSaveBlankSheet",       "True",      KV_JOBATTR("SBKP", "ON")},
    {"KVMonochromePriority",   "False",     KV_JOBATTR("BSPM", "OFF")},
    {"KVMonochromePriority",   "True",      KV_JOBATTR("BSPM", "ON")},
    KV_DENSITY("CyanLow",     "CL"),
    KV_DENSITY("CyanMid",     "CM"),
    KV_DENSITY("CyanHigh",    "CH"),
    KV_DENSITY("MagentaLow",  "ML"),
    KV_DENSITY("MagentaMid",  "MM"),
    KV_DENSITY("MagentaHigh", "MH"),
    KV_DENSITY("YellowLow",   "YL"),
    KV_DENSITY("YellowMid",   "YM"),
    KV_DENSITY("YellowHigh",  "YH"),
    KV_DENSITY("BlackLow",    "KL"),
    KV_DENSITY("BlackMid",    "KM"),
    KV_DENSITY("BlackHigh",   "KH"),
};
// clang-format on
const std::int32_t kFeaturePJLRowCount = std::size(FeaturePPDKeyNameandMarkedValuetoPJLCommand);

const char *GetThePJLCommandfromKeywordsandMarkedValue(std::string_view keyword,
                                                       std::string_view value) {
    if (!keyword.starts_with('*')) return nullptr;
    keyword.remove_prefix(1);
    for (const FeaturePJLRow &row : FeaturePPDKeyNameandMarkedValuetoPJLCommand) {
        if (row.keyword == keyword && row.value == value) return row.command;
    }
    return nullptr;
}
