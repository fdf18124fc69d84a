// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/HeaderLines.h"

#include <algorithm>
#include <iterator>

#include "CommonSource/FilterFrame/Source/CommandTable.h"
#include "Tools/JobInfo/PJLLine.h"

namespace {

// The lengths at which lines are cut: that of commands from tables, and that of all others.
constexpr std::size_t kLimits[] = {kCommandSize - 1, 99};

bool IsLimit(std::size_t length) {
    return std::find(std::begin(kLimits), std::end(kLimits), length) != std::end(kLimits);
}

// Whether `place` lies in a value between quotation marks: the second one ends the line. After a
// value that is missing or cut comes none, or the two of another command.
bool IsQuoted(std::string_view text, std::size_t place) {
    const std::string_view before = text.substr(0, place);
    const bool isOpen = std::count(before.begin(), before.end(), '"') % 2 != 0;
    return isOpen && text.find('"', place) == text.size() - 1;
}

// The length of the command that `text` begins with and that another follows in the same line; 0
// if the line is one command. A value may speak of "@PJL" too: only where one is missing, or at the
// limit, does it begin a command.
std::size_t PartialLength(std::string_view text) {
    for (std::size_t place = 1; (place = text.find("@PJL ", place)) != text.npos; place++) {
        const std::string_view before = text.substr(0, place);
        const bool lacksValue = before.ends_with("JOBATTR=\"") || before.ends_with('=');
        if ((IsLimit(place) || lacksValue) && !IsQuoted(text, place)) return place;
    }
    return 0;
}

}  // namespace

std::vector<JobLine> CutHeaderLines(std::string_view piece, std::uint64_t offset) {
    JobLine::End end = JobLine::kNone;
    if (piece.ends_with('\n')) {
        piece.remove_suffix(1);
        end = JobLine::kLineFeed;
        if (piece.ends_with('\r')) {
            piece.remove_suffix(1);
            end = JobLine::kReturnAndFeed;
        }
    }
    std::vector<JobLine> lines;
    const std::size_t exit = piece.starts_with(kExitLanguage) ? kExitLanguage.size() : 0;
    std::size_t length = PartialLength(piece.substr(exit));
    if (length > 0) length += exit;
    while (length > 0) {
        lines.push_back({offset, std::string(piece.substr(0, length)), JobLine::kNone, true});
        piece.remove_prefix(length);
        offset += length;
        length = PartialLength(piece);
    }
    lines.push_back({offset, std::string(piece), end, end == JobLine::kNone});
    return lines;
}

bool IsCutAtLimit(const JobLine &line) {
    return IsLimit(line.text.size());
}
