// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/DocumentReader.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include "support/DocumentContents.h"
#include "support/RandomDocument.h"

namespace {

// Byte by byte.
DocumentContents Expected(const std::string &document) {
    DocumentContents contents;
    std::string line;
    for (char byte : document) {
        if (byte != '\n' && byte != '\r') {
            line += byte;
            if (line.size() == 8065) {
                contents.text += line;
                line.clear();
            }
            continue;
        }
        const bool isSpecial = FindSpecialLine(line) != nullptr;
        contents.Add(isSpecial ? DocumentPiece::kSpecial : DocumentPiece::kRun, line + byte);
        line.clear();
    }
    return contents;
}

DocumentContents ReadInPieces(const std::string &document, const std::vector<std::size_t> &sizes,
                              const LineSearch &search) {
    return ReadInPieces(document, sizes, DocumentReader::kPlain, search);
}

class DocumentReaderTest : public testing::TestWithParam<const LineSearch *> {};

INSTANTIATE_WITH_SEARCHES(DocumentReaderTest);

TEST_P(DocumentReaderTest, FindsEverySpecialLineAtEveryPlaceInAVector) {
    for (const SpecialLine &special : specialLines) {
        for (std::size_t before = 0; before < 70; before++) {
            const std::string document = std::string(before, '-') + "\n" +
                                         std::string(special.text) + "\n" +
                                         std::string(before, 'p') + "\n";
            EXPECT_TRUE(ReadInPieces(document, {1000}, *GetParam()) == Expected(document))
                << special.text;
            EXPECT_EQ(Expected(document).lines.size(), 1U);
        }
    }
}

TEST_P(DocumentReaderTest, ReadsHostileDocumentsAsTheDescriptionDoes) {
    for (unsigned seed = 0; seed < 60; seed++) {
        SCOPED_TRACE(seed);
        const Arrival &arrival = RandomArrival(seed);
        RandomDocument random(seed);
        const std::string document = random.Make(arrival.lines);
        const DocumentContents contents = ReadInPieces(document, arrival.sizes, *GetParam());
        EXPECT_TRUE(contents == Expected(document));
        EXPECT_GT(contents.lines.size(), 0U);
    }
}

TEST_P(DocumentReaderTest, CutsLinesAtTheFullLineBuffer) {
    for (const std::size_t length : {8064U, 8065U, 8066U, 8192U, 9000U, 20000U, 300000U}) {
        for (const std::string tail : {"", "ep", "showpage"}) {
            const std::string document =
                "bp\r\n" + std::string(length, 'p') + tail + "\nep\r" + std::string(length, 'e');
            SCOPED_TRACE(length);
            EXPECT_TRUE(ReadInPieces(document, {4096}, *GetParam()) == Expected(document));
        }
    }
    // After a cut, the rest of the line is a line of its own.
    const std::string document = std::string(2 * 8065, 'x') + "ep\n";
    const DocumentContents contents = ReadInPieces(document, {100000}, *GetParam());
    ASSERT_EQ(contents.lines.size(), 1U);
    EXPECT_EQ(std::get<0>(contents.lines[0]), 2 * 8065U);
}

TEST_P(DocumentReaderTest, DropsATailWithoutLineEnd) {
    for (const std::size_t length : {0U, 1U, 2U, 8064U, 8065U, 8066U}) {
        const std::string tail(length, 'p');
        EXPECT_EQ(ReadInPieces("first\n" + tail, {500}, *GetParam()).text,
                  "first\n" + (length < 8065 ? "" : tail.substr(0, 8065)));
    }
    EXPECT_EQ(ReadInPieces("", {1}, *GetParam()).text, "");
    EXPECT_EQ(ReadInPieces("ep", {1}, *GetParam()).text, "");
}

TEST(DocumentReader, RecognisesOnlyWholeLines) {
    for (const char *line : {"%%EndSetup ", " %%EndSetup", "%%endsetup", "%%EndSetup%", "EP", "epp",
                             "eep", "e p", "showpage;", "userdict/setpagedevice{pop}bind  put"}) {
        const std::string document = std::string(line) + "\n";
        EXPECT_TRUE(ReadInPieces(document, {64}, BestLineSearch()).lines.empty()) << line;
    }
    using namespace std::string_literals;
    EXPECT_TRUE(ReadInPieces("ep\0\n"s, {64}, BestLineSearch()).lines.empty());
    EXPECT_TRUE(ReadInPieces("\0ep\n"s, {64}, BestLineSearch()).lines.empty());
}

TEST(DocumentReader, HandsOutRunsWhole) {
    const std::string run = "one\ntwo\r\nthree\n";
    const Feeder feeder(run + "ep\n" + run, {1000});
    DocumentReader reader(feeder.ReadEnd(), DocumentReader::kPlain, Feeder::Feed);
    DocumentPiece piece;
    ASSERT_TRUE(reader.Next(piece));
    EXPECT_EQ(piece.kind, DocumentPiece::kRun);
    EXPECT_EQ(piece.text, run);
    ASSERT_TRUE(reader.Next(piece));
    EXPECT_EQ(piece.kind, DocumentPiece::kSpecial);
    EXPECT_EQ(piece.text, "ep\n");
    ASSERT_TRUE(reader.Next(piece));
    EXPECT_EQ(piece.text, run);
    EXPECT_FALSE(reader.Next(piece));
    EXPECT_FALSE(reader.Next(piece));
}

TEST(DocumentReader, HandsOutWhatHasArrivedBeforeTheEnd) {
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    DocumentReader reader(ends[0], DocumentReader::kPlain);
    DocumentPiece piece;
    for (const std::string text : {"a line\n", "ep\n", "another\n"}) {
        ASSERT_EQ(write(ends[1], text.data(), text.size()), static_cast<ssize_t>(text.size()));
        ASSERT_TRUE(reader.Next(piece));  // would wait for ever if it wanted a full block
        EXPECT_EQ(piece.text, text);
    }
    close(ends[1]);
    EXPECT_FALSE(reader.Next(piece));
    close(ends[0]);
}

TEST(DocumentReader, TakesAnUnreadableFileForAnEmptyDocument) {
    DocumentPiece piece;
    const int folder = open("/", O_RDONLY);
    EXPECT_FALSE(DocumentReader(folder, DocumentReader::kPlain).Next(piece));
    close(folder);
    EXPECT_FALSE(DocumentReader(-1, DocumentReader::kPlain).Next(piece));
}

}  // namespace
