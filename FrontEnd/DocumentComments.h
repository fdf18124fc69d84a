// SPDX-License-Identifier: Apache-2.0
//
// The structuring comments by which CUPS's converters, and pstops after them, mark what a document
// consists of. A comment is a line that begins with one of these texts.
#pragma once

#include <algorithm>
#include <string_view>

enum class Comment : char {
    kNone,
    kEndComments,
    kPages,
    kRequirements,
    kBeginProlog,
    kEndProlog,
    kBeginSetup,
    kEndSetup,
    kPage,
    kTrailer,
    kEndOfFile,
    kBeginDocument,
    kEndDocument,
    kBeginBinary,
    kBeginData,
};

struct DocumentComment {
    std::string_view text;
    Comment comment;
};

inline constexpr DocumentComment documentComments[] = {
    // the header
    {"%%EndComments", Comment::kEndComments},
    {"%%Pages:", Comment::kPages},
    {"%%Requirements:", Comment::kRequirements},
    // its parts
    {"%%BeginProlog", Comment::kBeginProlog},
    {"%%EndProlog", Comment::kEndProlog},
    {"%%BeginSetup", Comment::kBeginSetup},
    {"%%EndSetup", Comment::kEndSetup},
    {"%%Page:", Comment::kPage},
    {"%%Trailer", Comment::kTrailer},
    {"%%EOF", Comment::kEndOfFile},
    // what stands in a part without belonging to it
    {"%%BeginDocument", Comment::kBeginDocument},
    {"%%EndDocument", Comment::kEndDocument},
    {"%%BeginBinary:", Comment::kBeginBinary},
    {"%%BeginData:", Comment::kBeginData},
};

// The comment that `line` is, or kNone.
constexpr Comment FindComment(std::string_view line) {
    const auto *found = std::ranges::find_if(documentComments, [line](const DocumentComment &row) {
        return line.starts_with(row.text);
    });
    return found == std::end(documentComments) ? Comment::kNone : found->comment;
}
