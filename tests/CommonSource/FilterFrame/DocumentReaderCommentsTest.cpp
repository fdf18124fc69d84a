// SPDX-License-Identifier: Apache-2.0
//
// The reader in the modes that know comments.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "FrontEnd/ForeignPJL.h"
#include "support/DocumentContents.h"
#include "support/RandomDocument.h"

using namespace std::string_literals;

namespace {

using Kind = DocumentPiece::Kind;

// `isWhole` is false for the rest of a line that is longer than the line buffer.
Kind KindOf(const std::string &line, bool isWhole) {
    // The search sees the sequence wherever it stands.
    if (line.find("\x1b%-12345X") != line.npos) return Kind::kExit;
    if (isWhole) {
        for (const DocumentComment &row : documentComments) {
            if (line.substr(0, row.text.size()) == row.text) return Kind::kComment;
        }
    }
    for (const SpecialLine &special : specialLines) {
        const bool isComment = special.text.starts_with("%%");
        if (special.text == line && (isWhole || !isComment)) return Kind::kSpecial;
    }
    return Kind::kRun;
}

// Byte by byte.
DocumentContents Expected(const std::string &document) {
    DocumentContents contents;
    std::string line;
    bool isWhole = true;
    for (const char byte : document) {
        line += byte;
        if (byte == '\n' || byte == '\r') {
            contents.Add(KindOf(line.substr(0, line.size() - 1), isWhole), line);
            line.clear();
            isWhole = true;
        } else if (line.size() == 8065) {
            const std::string part = line.substr(0, 8065 - PJLBegunAtEnd(line));
            contents.Add(KindOf(part, false) == Kind::kExit ? Kind::kExit : Kind::kRun, part);
            line.erase(0, part.size());
            isWhole = false;
        }
    }
    if (!line.empty()) contents.Add(KindOf(line, isWhole), line);
    return contents;
}

DocumentContents ReadInPieces(const std::string &document, const std::vector<std::size_t> &sizes,
                              const LineSearch &search) {
    return ReadInPieces(document, sizes, DocumentReader::kComments, search);
}

std::vector<std::string> CommentLines() {
    std::vector<std::string> lines;
    for (const DocumentComment &row : documentComments) {
        const std::string text(row.text);
        lines.insert(lines.end(), {text, text + " 1", " " + text, text.substr(1), "%" + text});
    }
    const std::string exit(kUniversalExit);
    lines.insert(lines.end(), {exit, "x\x04" + exit + "@PJL EOJ", exit.substr(0, 8), "%%", "%"});
    return lines;
}

class DocumentReaderCommentsTest : public testing::TestWithParam<const LineSearch *> {};

INSTANTIATE_WITH_SEARCHES(DocumentReaderCommentsTest);

TEST_P(DocumentReaderCommentsTest, FindsEveryCommentAtEveryPlaceInAVector) {
    for (const std::string &line : CommentLines()) {
        for (std::size_t before = 0; before < 70; before++) {
            const std::string document = line + "\n" + std::string(before, '%') + "\r" + line +
                                         "\n" + std::string(before, '-') + "\n" + line;
            EXPECT_TRUE(ReadInPieces(document, {1000}, *GetParam()) == Expected(document)) << line;
        }
    }
}

TEST_P(DocumentReaderCommentsTest, ReadsHostileDocumentsAsTheDescriptionDoes) {
    for (unsigned seed = 0; seed < 60; seed++) {
        SCOPED_TRACE(seed);
        const Arrival &arrival = RandomArrival(seed);
        RandomDocument random(seed, CommentLines());
        const std::string document = random.Make(arrival.lines);
        const DocumentContents contents = ReadInPieces(document, arrival.sizes, *GetParam());
        EXPECT_TRUE(contents == Expected(document));
        EXPECT_EQ(contents.text, document);
        EXPECT_GT(contents.lines.size(), 0U);
    }
}

TEST_P(DocumentReaderCommentsTest, CutsLinesAtTheFullLineBuffer) {
    for (const std::size_t length : {8063U, 8064U, 8065U, 8066U, 16130U, 300000U}) {
        for (const std::string &tail : CommentLines()) {
            const std::string document = std::string(length, '-') + tail + "\n" + tail;
            EXPECT_TRUE(ReadInPieces(document, {4096}, *GetParam()) == Expected(document))
                << length << tail;
        }
    }
}

TEST_P(DocumentReaderCommentsTest, FindsTheEndOfALanguageAnywhereInALongLine) {
    const std::string pjl = "\x04" + std::string(kUniversalExit) + "@PJL SET COPIES=2";
    for (const std::size_t after : {0U, 7000U, 9000U}) {
        for (std::size_t before = 8030; before < 8070; before++) {
            const std::string document = "first\n" + std::string(before, 'x') + pjl +
                                         std::string(after, 'y') + pjl + "\n%%Page: 1 1\nlast";
            for (const std::size_t size : {8065U, 8192U, 300000U}) {
                const DocumentContents contents = ReadInPieces(document, {size}, *GetParam());
                EXPECT_TRUE(contents == Expected(document)) << before << " " << after;
                EXPECT_EQ(contents.text, document);
            }
        }
    }
}

TEST(DocumentReaderComments, HandOutTheLastLineWithoutLineEnd) {
    for (const std::size_t length : {0U, 1U, 2U, 8064U, 8065U, 8066U, 300000U}) {
        const std::string document = "first\n" + std::string(length, 'x');
        EXPECT_EQ(ReadInPieces(document, {500}, BestLineSearch()).text, document);
    }
}

// Features stand at lines that are no comments; a feature line is none of a comment's.
TEST(DocumentReaderComments, StandBesideFeaturesAndSettings) {
    const std::string document =
        "%%BeginSetup\n%%BeginFeature: *A B\n/TCPR 1 /GCPR 2 /ICPR 3\n%%EndSetup\n%%Page: 1 1";
    const Feeder feeder(document, {1000});
    DocumentReader reader(feeder.ReadEnd(), DocumentReader::kFeaturesAndComments, Feeder::Feed);
    const DocumentContents contents = ReadContents(reader);
    EXPECT_EQ(contents.text, document);
    std::vector<Kind> kinds;
    for (const auto &line : contents.lines) kinds.push_back(std::get<1>(line));
    EXPECT_EQ(kinds, (std::vector<Kind>{Kind::kComment, Kind::kFeature, Kind::kSettings,
                                        Kind::kComment, Kind::kComment}));
}

TEST(DocumentReaderComments, FindTheEndOfALanguageInALongLineThatIsAskedFor) {
    const std::string exit(kUniversalExit);
    const Feeder feeder(exit + std::string(9000, 'x'), {10000});
    DocumentReader reader(feeder.ReadEnd(), DocumentReader::kComments, Feeder::Feed);
    DocumentPiece piece;
    reader.HandOutNextLine();
    ASSERT_TRUE(reader.Next(piece));
    EXPECT_EQ(piece.kind, Kind::kExit);
    EXPECT_EQ(piece.text, exit + std::string(8065 - exit.size(), 'x'));
}

TEST(DocumentReaderComments, HandOutALineThatIsAskedFor) {
    const Feeder feeder("first\nsecond\n%%Page: 1 1\nthird\nfourth\nlast", {3});
    DocumentReader reader(feeder.ReadEnd(), DocumentReader::kComments, Feeder::Feed);
    DocumentPiece piece;
    for (const std::string line : {"first\n", "second\n"}) {
        reader.HandOutNextLine();
        ASSERT_TRUE(reader.Next(piece));
        EXPECT_EQ(piece.kind, Kind::kLine);
        EXPECT_EQ(piece.text, line);
    }
    ASSERT_TRUE(reader.Next(piece));
    EXPECT_EQ(piece.kind, Kind::kComment);
    reader.HandOutNextLine();
    ASSERT_TRUE(reader.Next(piece));
    EXPECT_EQ(piece.text, "third\n");
    std::string rest;
    while (reader.Next(piece)) rest += piece.text;
    EXPECT_EQ(rest, "fourth\nlast");
}

// What is found in `text` after a line at which the reader is told to pass data by.
std::vector<std::string> FoundAfter(const std::string &lineEnd, const std::string &text,
                                    std::uint64_t bytes, std::uint64_t lines, std::size_t size) {
    const std::string document = "%%BeginBinary: 1" + lineEnd + text;
    const Feeder feeder(document, {size});
    DocumentReader reader(feeder.ReadEnd(), DocumentReader::kComments, Feeder::Feed);
    std::vector<std::string> found;
    std::string all;
    DocumentPiece piece;
    while (reader.Next(piece)) {
        all += piece.text;
        if (piece.comment == Comment::kBeginBinary) {
            reader.PassBy(bytes, lines);
        } else if (piece.kind != Kind::kRun && piece.kind != Kind::kLine) {
            found.emplace_back(piece.text);
        }
    }
    EXPECT_EQ(all, document);
    return found;
}

TEST(DocumentReaderComments, PassBinaryDataByToTheByte) {
    const std::string data = "\n%%Page: 1 1\nep\n\x1b%-12345X\n\xff\x00%%EOF\r"s;
    const std::string after = "%%Trailer\n";
    for (const std::string lineEnd : {"\n", "\r", "\r\n"}) {
        // After CR, a line feed is the second byte of the line end and no data.
        const std::string bytes = lineEnd == "\r" ? data.substr(1) : data;
        for (const std::size_t size : {1U, 7U, 100000U}) {
            EXPECT_EQ(FoundAfter(lineEnd, bytes + after, bytes.size(), 0, size),
                      std::vector<std::string>{after});
            EXPECT_EQ(FoundAfter(lineEnd, bytes + after, bytes.size() + 1, 0, size),
                      std::vector<std::string>{});
            EXPECT_EQ(FoundAfter(lineEnd, bytes, UINT64_MAX, 0, size), std::vector<std::string>{});
        }
    }
}

TEST(DocumentReaderComments, PassLinesOfDataBy) {
    for (const std::string lineEnd : {"\n", "\r", "\r\n"}) {
        for (const std::size_t size : {1U, 7U, 100000U}) {
            const std::string data = "%%Page: 1 1" + lineEnd + lineEnd + "ep" + lineEnd;
            EXPECT_EQ(FoundAfter(lineEnd, data + "%%Trailer\n", 0, 3, size),
                      std::vector<std::string>{"%%Trailer\n"});
            EXPECT_EQ(FoundAfter(lineEnd, data + "%%Trailer\n", 0, 2, size).size(), 2U);
            EXPECT_EQ(FoundAfter(lineEnd, data, 0, UINT64_MAX, size), std::vector<std::string>{});
        }
    }
}

TEST(DocumentReaderComments, PassDataOfManyBlocksBy) {
    const std::string data = std::string(1000000, '\n') + "%%Page: 1 1\n";
    EXPECT_EQ(FoundAfter("\n", data + "%%EOF", data.size(), 0, 65536),
              std::vector<std::string>{"%%EOF"});
    const std::string lines = std::string(1000000, 'x') + "\n%%Page: 1 1\n%%Page: 2 2\n%%EOF";
    EXPECT_EQ(FoundAfter("\n", lines, 0, 2, 65536),
              (std::vector<std::string>{"%%Page: 2 2\n", "%%EOF"}));
}

}  // namespace
