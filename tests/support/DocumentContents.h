// SPDX-License-Identifier: Apache-2.0
//
// What the document reader hands out of a document, to hold against what a test makes of it.
#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <tuple>
#include <vector>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "support/Feeder.h"

// All that is handed out, the recognised lines with the place of each, and the byte that is
// withheld.
struct DocumentContents {
    std::string text;
    std::vector<std::tuple<std::size_t, DocumentPiece::Kind, std::string>> lines;
    int lastByte = -1;  // in the mode that withholds one
    bool operator==(const DocumentContents &) const = default;

    void Add(DocumentPiece::Kind kind, const std::string &piece) {
        const bool isRecognised = kind != DocumentPiece::kRun && kind != DocumentPiece::kLine;
        if (isRecognised) lines.emplace_back(text.size(), kind, piece);
        text += piece;
    }
};

inline DocumentContents ReadContents(DocumentReader &reader) {
    DocumentContents contents;
    DocumentPiece piece;
    while (reader.Next(piece)) {
        EXPECT_FALSE(piece.text.empty());
        EXPECT_EQ(piece.special != nullptr, piece.kind == DocumentPiece::kSpecial);
        EXPECT_EQ(piece.comment != Comment::kNone, piece.kind == DocumentPiece::kComment);
        if (piece.special) {
            const std::string_view line = piece.text;
            EXPECT_EQ(piece.special->text, line.substr(0, line.find_last_not_of("\r\n") + 1));
        }
        contents.Add(piece.kind, std::string(piece.text));
    }
    EXPECT_FALSE(reader.Next(piece));
    contents.lastByte = reader.LastByte();
    return contents;
}

// Reads a document that arrives in pieces of `sizes` bytes, taken over and over.
inline DocumentContents ReadInPieces(const std::string &document,
                                     const std::vector<std::size_t> &sizes,
                                     DocumentReader::Mode mode, const LineSearch &search) {
    const Feeder feeder(document, sizes);
    DocumentReader reader(feeder.ReadEnd(), mode, Feeder::Feed, search);
    return ReadContents(reader);
}

// The searches that this machine can run.
inline std::vector<const LineSearch *> Searches() {
    std::vector<const LineSearch *> searches;
    for (const LineSearch *const *s = AllLineSearches(); *s; s++) searches.push_back(*s);
    return searches;
}

// Runs the cases of `suite`, whose parameter is a search, with each.
#define INSTANTIATE_WITH_SEARCHES(suite)                                     \
    INSTANTIATE_TEST_SUITE_P(Variants, suite, testing::ValuesIn(Searches()), \
                             [](const auto &variant) { return std::string(variant.param->name); })
