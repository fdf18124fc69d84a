// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/ForeignPJL.h"

namespace {

constexpr char kEndOfPostScript = 4;  // Ctrl-D, which belongs to the PJL that follows it

}  // namespace

bool ForeignPJL::IsDropped(std::string_view line) const {
    if (!hasDocument_) return !line.starts_with("%!");
    return line.starts_with("@PJL") || line.find_first_not_of("\r\n") == line.npos;
}

std::string_view ForeignPJL::TakeDocument(std::string_view &text) {
    while (!text.empty()) {
        const std::size_t at = text.find(kUniversalExit);
        if (at == 0) {
            isOpen_ = wasFound_ = true;
            text.remove_prefix(kUniversalExit.size());
            continue;
        }
        std::string_view taken = text.substr(0, at);
        text.remove_prefix(taken.size());
        if (isOpen_ && IsDropped(taken)) continue;
        isOpen_ = false;
        if (at != text.npos && taken.ends_with(kEndOfPostScript)) taken.remove_suffix(1);
        if (taken.empty()) continue;
        hasDocument_ = true;
        return taken;
    }
    return {};
}
