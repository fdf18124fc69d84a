// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/FrontEnd.h"

#include <cups/cups.h>

#include <cstring>

#include "CommonSource/FilterFrame/Source/JobPPD.h"

namespace {

constexpr char kPlainCUPS[] = "CUPS";

bool isCUPS = false;

bool OptionsSayCUPS(const char *options) {
    cups_option_t *list = nullptr;
    const int count = cupsParseOptions(options, 0, &list);
    const char *value = cupsGetOption(KPPDFrontEndKey, count, list);
    const bool is = value && std::strcmp(value, kPlainCUPS) == 0;
    cupsFreeOptions(count, list);
    return is;
}

}  // namespace

void FindFrontEnd(const char *options) {
    isCUPS = JobPPDAttributeIs(KPPDFrontEndKey, kPlainCUPS) || OptionsSayCUPS(options);
}

bool FrontEndIsCUPS() {
    return isCUPS;
}
