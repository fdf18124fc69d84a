// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/PageRanges.h"

#include <charconv>

namespace {

// The piece in front of the first separator, which both are taken off the text.
std::string_view TakePiece(char separator, std::string_view &text, bool &isLast) {
    const std::size_t end = text.find(separator);
    const std::string_view piece = text.substr(0, end);
    isLast = end == std::string_view::npos;
    text.remove_prefix(isLast ? text.size() : end + 1);
    return piece;
}

}  // namespace

bool ReadWholeNumber(std::string_view text, int least, int most, int &number) {
    const char *end = text.data() + text.size();
    int read = 0;
    const auto [rest, error] = std::from_chars(text.data(), end, read);
    if (error != std::errc{} || rest != end || read < least || read > most) return false;
    number = read;
    return true;
}

std::vector<std::string_view> SplitAt(char separator, std::string_view text) {
    std::vector<std::string_view> pieces;
    for (bool isLast = false; !isLast;) pieces.push_back(TakePiece(separator, text, isLast));
    return pieces;
}

bool ReadPageRanges(std::string_view text, int least, std::vector<PageRange> &ranges) {
    for (bool isLast = false; !isLast;) {
        const std::string_view piece = TakePiece(',', text, isLast);
        const std::size_t dash = piece.find('-');
        const std::string_view first = piece.substr(0, dash);
        const std::string_view last =
            dash == std::string_view::npos ? first : piece.substr(dash + 1);
        if (first.empty() && last.empty()) return false;
        PageRange range{least, kLastPage};
        if (!first.empty() && !ReadWholeNumber(first, least, kLastPage, range.first)) return false;
        if (!last.empty() && !ReadWholeNumber(last, range.first, kLastPage, range.last)) {
            return false;
        }
        ranges.push_back(range);
    }
    return true;
}
