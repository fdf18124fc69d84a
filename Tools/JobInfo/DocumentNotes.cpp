// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/DocumentNotes.h"

#include <algorithm>
#include <string>

#include "CommonSource/FilterFrame/Source/PostScriptLines.h"
#include "Tools/JobInfo/OwnPostScript.h"

namespace {

constexpr std::size_t kLongestText = 200;  // bytes of a comment that are kept
constexpr char kControlD = 4;

// The value of the comment `name`, without blanks and parentheses around it; the line is known to
// begin with the name.
std::string CommentValue(std::string_view line, std::string_view name) {
    line.remove_prefix(name.size());
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    while (line.ends_with(' ')) line.remove_suffix(1);
    if (line.size() >= 2 && line.starts_with('(') && line.ends_with(')')) {
        line = line.substr(1, line.size() - 2);
    }
    return std::string(line.substr(0, kLongestText));
}

}  // namespace

void DocumentNotes::TakeComment(std::string_view line) {
    constexpr std::string_view kTitle = "%%Title:", kCreator = "%%Creator:", kPages = "%%Pages:";
    if (line.starts_with("%%BeginDocument")) embedded_++;
    if (line.starts_with("%%EndDocument") && embedded_ > 0) embedded_--;
    if (embedded_ > 0) return;
    if (line.starts_with("%%Page:")) document_.pages++;
    // Of several the first counts, but for what is announced to stand at the end.
    if (document_.title.empty() && line.starts_with(kTitle)) {
        document_.title = CommentValue(line, kTitle);
    }
    if (document_.maker.empty() && line.starts_with(kCreator)) {
        document_.maker = CommentValue(line, kCreator);
    }
    if (line.starts_with(kPages)) {
        const std::string count = CommentValue(line, kPages);
        if (count != "atend") document_.statedPages = count;
    }
}

void DocumentNotes::TakeOwnCode(const char *meaning, std::uint64_t offset) {
    for (OwnCode &code : document_.ownCode) {
        if (code.meaning != meaning) continue;
        code.count++;
        return;
    }
    document_.ownCode.push_back({meaning, 1, offset});
}

void DocumentNotes::Add(std::string_view line, std::uint64_t offset) {
    document_.endsWithControlD = line.ends_with(kControlD);
    const bool isFirst = document_.size == 0;
    document_.size += line.size();
    while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
    if (isFirst) document_.firstLine = line.substr(0, kLongestText);
    if (line.starts_with("%%")) TakeComment(line);
    if (line.size() <= kLongestSpecialLine) {
        const SpecialLine *special = FindSpecialLine(line);
        if (special && special->stopsCancelledJob) document_.pageEnds++;
    }
    if (const char *meaning = MeaningOfOwnPostScript(line, inFeature_))
        TakeOwnCode(meaning, offset);
    inFeature_ = line == "%%BeginNonPPDFeatures";
}
