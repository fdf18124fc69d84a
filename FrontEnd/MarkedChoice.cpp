// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/MarkedChoice.h"

#include "FrontEnd/OptionString.h"

std::string MarkedChoice(ppd_file_t *ppd, const char *option) {
    const ppd_choice_t *choice = ppd ? ppdFindMarkedChoice(ppd, option) : nullptr;
    if (!choice) return "";
    if (!SameName(choice->choice, "Custom")) return choice->choice;
    // The PPD's own line has the text whole, where libcups cuts it.
    const std::string keyword = std::string("Default") + option;
    const ppd_attr_t *line = ppdFindAttr(ppd, keyword.c_str(), nullptr);
    return line && line->value && IsCustomChoice(line->value) ? line->value : "";
}
