// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PerfectBindParam.h"

#include <cstring>
#include <iterator>

#include "CommonSource/FilterFrame/Source/BoundedText.h"

// One table for all kinds: no choice name has two meanings. "Stationary" is what the PPDs call it;
// the two high-capacity feeders stand where the oversized trays would, and no tray is INTRAY8.
// clang-format off
const PBindParam PerfectBindParam[] = {
    // page sizes
    {"A3",                      "A3"},
    {"A4",                      "A4"},
    {"A5",                      "A5"},
    {"B4",                      "JISB4"},
    {"B5",                      "JISB5"},
    {"SRA3",                    "SA3"},
    {"8x10",                    "8X10"},
    {"KV11x15",                 "11X15"},
    {"KV889x122",               "SPECIALA4"},
    {"KV122x170",               "DT_SPECIALA3"},
    {"KV126x192",               "126X192"},
    {"KV13x18",                 "13X18"},
    {"KV13x19",                 "13X19"},
    {"KV16-KAI",                "ROC16K"},
    {"KV16-KAI-GCO",            "16KAIGCO"},
    {"KV8-KAI",                 "ROC8K"},
    {"KV8-KAI-GCO",             "8KAIGCO"},
    {"KVA4Cover",               "A4COVER"},
    {"9x11",                    "LETTERCOVER"},
    {"Letter",                  "LETTER"},
    {"Executive",               "EXECUTIVE"},
    {"Tabloid",                 "LEDGER"},
    {"TabloidExtra",            "12X18"},
    // media types
    {"Default",                 "OFF"},
    {"Stationary",              "NORMAL"},
    {"StationaryS1",            "NORMALS1"},
    {"RecyclePaper",            "RECYCLE"},
    {"RecyclePaperS1",          "RECYCLES1"},
    {"ThickPaper",              "THICK"},
    {"ThickPaperS1",            "THICKS1"},
    {"ThickPaper2",             "SUPERTHICK"},
    {"ThickPaper2S1",           "SUPERTHICKS1"},
    {"CoatingPaper1",           "COATEDPAPER"},
    {"CoatingPaper1A",          "COATEDPAPERA"},
    {"CoatingPaper1B",          "COATEDPAPERB"},
    {"CoatingPaper2",           "COATEDPAPER2"},
    {"PrePrintedPaper",         "PREPRINTED"},
    {"PrePrintedThickPaper1",   "PREPRINTEDTHICK1"},
    {"PrePrintedThickPaper1S1", "PREPRINTEDTHICK1S1"},
    {"PrePrintedThickPaper2",   "PREPRINTEDTHICK2"},
    {"PrePrintedThickPaper2S1", "PREPRINTEDTHICK2S1"},
    {"PrePrintedPlainPaperS1",  "PREPRINTEDS1"},
    {"CustomSizedPaper1",       "USER1"},
    {"CustomSizedPaper2",       "USER2"},
    {"CustomSizedPaper3",       "USER3"},
    {"CustomSizedPaper4",       "USER4"},
    {"CustomSizedPaper5",       "USER5"},
    // media colours
    {"White",                   "WHITE"},
    {"Blue",                    "BLUE"},
    {"Yellow",                  "YELLOW"},
    {"Green",                   "GREEN"},
    {"Pink",                    "PINK"},
    {"Clear",                   "CLEAR"},
    {"Ivory",                   "IVORY"},
    {"Gray",                    "GRAY"},
    {"Buff",                    "BUFF"},
    {"Goldenrod",               "GOLDENROD"},
    {"Red",                     "RED"},
    {"Orange",                  "ORANGE"},
    {"Custom1",                 "CUSTOM1"},
    {"Custom2",                 "CUSTOM2"},
    {"Custom3",                 "CUSTOM3"},
    {"Custom4",                 "CUSTOM4"},
    {"Custom5",                 "CUSTOM5"},
    {"Other",                   "OTHER"},
    {"Any",                     "UNSPECIFIED"},
    // paper trays
    {"AutoTray",                "AUTO"},
    {"1stTray",                 "INTRAY1"},
    {"2ndTray",                 "INTRAY2"},
    {"3rdTray",                 "INTRAY3"},
    {"4thTray",                 "INTRAY4"},
    {"MSI",                     "INTRAY5"},
    {"6thTrayOverSized",        "INTRAY6"},
    {"7thTrayOverSized",        "INTRAY7"},
    {"HCF1",                    "INTRAY6"},
    {"HCF2",                    "INTRAY7"},
    {"PBindInserter",           "INTRAY9"},
    {nullptr,                   nullptr},
};
// clang-format on
const std::size_t kPerfectBindParamNum = std::size(PerfectBindParam) - 1;

void convertPBindPPDValue(const char *value, char *destination, std::size_t size) {
    const PBindParam *row = PerfectBindParam;
    while (row->ppdValue && std::strcmp(row->ppdValue, value) != 0) row++;
    CopyBounded(destination, size, row->ppdValue ? row->keyword : "");
}
