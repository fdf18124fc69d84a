// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/ForeignPJL.h"

namespace {

constexpr char kEndOfPostScript = 4;  // Ctrl-D, which belongs to the PJL that follows it
constexpr std::string_view kCommand = "@PJL";
constexpr std::string_view kBeginning = "\x04\x1b%-12345X@PJL";

bool EndsLine(std::string_view text) {
    return text.ends_with('\n') || text.ends_with('\r');
}

}  // namespace

std::size_t PJLBegunAtEnd(std::string_view text) {
    for (std::size_t size = kBeginning.size() - 1; size > 0; size--) {
        if (text.ends_with(kBeginning.substr(0, size))) return size;
        if (text.ends_with(kBeginning.substr(1, size)) && size + 1 < kBeginning.size()) return size;
    }
    return 0;
}

bool ForeignPJL::IsDropped(std::string_view line) const {
    if (!hasDocument_) return !line.starts_with("%!");
    return line.starts_with(kCommand) || line.find_first_not_of("\r\n") == line.npos;
}

std::string_view ForeignPJL::TakeDocument(std::string_view &text) {
    while (!text.empty()) {
        const std::size_t at = text.find(kUniversalExit);
        if (at == 0) {
            isOpen_ = wasFound_ = true;
            lineGoesOn_ = false;
            text.remove_prefix(kUniversalExit.size());
            continue;
        }
        std::string_view taken = text.substr(0, at);
        text.remove_prefix(taken.size());
        if (isOpen_ && (lineGoesOn_ || IsDropped(taken))) {
            lineGoesOn_ = !EndsLine(taken);
            if (lineGoesOn_ || !documentGoesOn_) continue;
            documentGoesOn_ = false;
            return taken.substr(taken.size() - 1);
        }
        isOpen_ = false;
        if (at != text.npos && taken.ends_with(kEndOfPostScript)) taken.remove_suffix(1);
        if (taken.empty()) continue;
        hasDocument_ = true;
        documentGoesOn_ = !EndsLine(taken);
        return taken;
    }
    return {};
}
