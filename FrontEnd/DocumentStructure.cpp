// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/DocumentStructure.h"

#include <charconv>

namespace {

constexpr std::string_view kBlanks = " \t";

std::string_view WithoutBlanks(std::string_view text) {
    return text.substr(std::min(text.find_first_not_of(kBlanks), text.size()));
}

// Takes the unsigned number that `text` begins with, blanks aside, off it. False if there is none.
template <class Number>
bool TakeNumber(std::string_view &text, Number &number) {
    text = WithoutBlanks(text);
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || text.starts_with('-')) return false;
    text.remove_prefix(static_cast<std::size_t>(end - text.data()));
    return true;
}

// What stands after the first `key` of `text`; empty if there is none.
std::string_view After(std::string_view text, std::string_view key) {
    const std::size_t at = text.find(key);
    return at == text.npos ? std::string_view() : text.substr(at + key.size());
}

void SetCopies(int &copies, int asked) {
    if (asked > 0) copies = asked;
}

// Finds "/NumCopies 3 def", "<</#copies 3>>" or pstops's comment "*NumCopies 3": the name, the
// number, and nothing after it that reckons on ("3 -1 roll").
void FindCopies(std::string_view text, std::string_view name, int &copies) {
    while (!(text = After(text, name)).empty()) {
        std::string_view rest = text;
        int asked = 0;
        if (!TakeNumber(rest, asked)) continue;
        rest = WithoutBlanks(rest);
        if (rest.empty() || rest.find_first_of("\r\n/>") == 0 || rest.starts_with("def") ||
            rest.starts_with("put")) {
            SetCopies(copies, asked);
        }
    }
}

}  // namespace

bool DocumentStructure::TakeFirstLine(std::string_view line) {
    const bool isStructured = line.starts_with("%!PS-Adobe-");
    const bool isEmpty = line.find_first_not_of("\x04\r\n") == line.npos;
    inPage_ = !isStructured && !isEmpty;
    return isStructured;
}

bool DocumentStructure::TakeComment(Comment comment, std::string_view line) {
    if (comment == Comment::kBeginDocument) embedded_++;
    if (comment == Comment::kEndDocument && embedded_ > 0) embedded_--;
    if (IsEmbedded()) return false;
    std::string_view value = After(line, ":");
    int number = 0;
    switch (comment) {
        case Comment::kPages:
            if (TakeNumber(value, number)) pagesAnnounced_ = number;
            return false;
        case Comment::kRequirements:
            value = After(value, "numcopies(");
            if (TakeNumber(value, number)) SetCopies(copies_, number);
            return false;
        case Comment::kBeginProlog:
        case Comment::kEndProlog:
            inProlog_ = comment == Comment::kBeginProlog;
            return false;
        case Comment::kPage: {
            const bool ended = hasPages_ && EndPage();
            hasPages_ = inPage_ = true;
            return ended;
        }
        case Comment::kTrailer:
        case Comment::kEndOfFile:
            return EndPage();
        default:
            return false;
    }
}

void DocumentStructure::TakeText(std::string_view text) {
    if (hasPages_ || inProlog_ || IsEmbedded()) return;
    FindCopies(text, "NumCopies", copies_);
    FindCopies(text, "#copies", copies_);
}

bool DocumentStructure::TakePageEndLine() {
    if (hasPages_ || IsEmbedded()) return false;
    inPage_ = true;
    return EndPage();
}

bool DocumentStructure::EndPage() {
    if (!inPage_) return false;
    inPage_ = false;
    pagesEnded_++;
    return true;
}

AnnouncedData FindAnnouncedData(Comment comment, std::string_view line) {
    std::string_view value = After(line, ":");
    std::uint64_t count = 0;
    if (!TakeNumber(value, count)) return {0, 0};
    // "%%BeginData: 4096 Hex Lines"; without a unit, bytes.
    const bool lines = comment == Comment::kBeginData && value.find("Lines") != value.npos;
    return lines ? AnnouncedData{0, count} : AnnouncedData{count, 0};
}
