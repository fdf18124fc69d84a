// SPDX-License-Identifier: Apache-2.0
//
// The reader in the mode that hands out feature and settings lines and withholds the last byte.
#include <gtest/gtest.h>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "support/DocumentContents.h"
#include "support/FeatureLines.h"
#include "support/RandomDocument.h"

using namespace std::string_literals;

namespace {

bool HoldsAll(const std::string &line, std::initializer_list<const char *> names) {
    for (const char *name : names) {
        if (line.find(name) == line.npos) return false;
    }
    return true;
}

DocumentPiece::Kind KindOf(const std::string &line) {
    for (const SpecialLine &special : specialLines) {
        if (special.text == line) return DocumentPiece::kSpecial;
    }
    if (line.substr(0, 15) == "%%BeginFeature:") return DocumentPiece::kFeature;
    if (HoldsAll(line, {"TSCR", "GSCR", "ISCR", "TTRC", "GTRC", "ITRC"}) ||
        HoldsAll(line, {"TCPR", "GCPR", "ICPR"})) {
        return DocumentPiece::kSettings;
    }
    return DocumentPiece::kRun;
}

// Byte by byte, but for the last.
DocumentContents Expected(const std::string &document) {
    DocumentContents contents;
    if (!document.empty()) contents.lastByte = static_cast<unsigned char>(document.back());
    std::string line;
    for (std::size_t i = 0; i + 1 < document.size(); i++) {
        line += document[i];
        if (document[i] == '\n' || document[i] == '\r') {
            contents.Add(KindOf(line.substr(0, line.size() - 1)), line);
            line.clear();
        } else if (line.size() == 8065) {
            contents.Add(DocumentPiece::kRun, line);
            line.clear();
        }
    }
    return contents;
}

DocumentContents ReadInPieces(const std::string &document, const std::vector<std::size_t> &sizes,
                              const LineSearch &search) {
    return ReadInPieces(document, sizes, DocumentReader::kFeatures, search);
}

class DocumentReaderFeaturesTest : public testing::TestWithParam<const LineSearch *> {};

INSTANTIATE_WITH_SEARCHES(DocumentReaderFeaturesTest);

TEST_P(DocumentReaderFeaturesTest, FindsLinesAtEveryPlaceInAVector) {
    for (const std::string line :
         {"%%BeginFeature:", "%%BeginFeature: *KVTonerSaver Mode2",
          "/TTRC 5 /GTRC 12 /ITRC 7 /TSCR 64 /GSCR 64 /ISCR 64", "ISCR GSCR TSCR ITRC GTRC TTRC",
          "TSCRGSCRISCRTTRCGTRCITRC", "TCPRGCPRICPR", "/ICPR 1/TCPR 2/GCPR 3 def", "ep"}) {
        for (std::size_t before = 0; before < 70; before++) {
            const std::string document = std::string(before, '%') + "\n" + line + "\r" +
                                         std::string(before, 'S') + "\n" + line + "\nx";
            EXPECT_TRUE(ReadInPieces(document, {1000}, *GetParam()) == Expected(document)) << line;
            EXPECT_EQ(Expected(document).lines.size(), 2U) << line;
        }
    }
}

TEST_P(DocumentReaderFeaturesTest, ReadsHostileDocumentsAsTheDescriptionDoes) {
    for (unsigned seed = 0; seed < 80; seed++) {
        SCOPED_TRACE(seed);
        const Arrival &arrival = RandomArrival(seed);
        RandomDocument random(seed, FeatureLines());
        const std::string document = random.Make(arrival.lines);
        const DocumentContents contents = ReadInPieces(document, arrival.sizes, *GetParam());
        EXPECT_TRUE(contents == Expected(document));
        EXPECT_GT(contents.lines.size(), 0U);
    }
}

TEST_P(DocumentReaderFeaturesTest, CutsLinesAtTheFullLineBuffer) {
    for (const std::size_t length : {8064U, 8065U, 8066U, 8192U, 20000U, 300000U, 2 * 8065U}) {
        for (const std::string &tail : FeatureLines()) {
            const std::string document =
                std::string(length, 'p') + tail + "\n" + tail + "\r" + std::string(length, 'e');
            SCOPED_TRACE(length);
            EXPECT_TRUE(ReadInPieces(document, {4096}, *GetParam()) == Expected(document)) << tail;
        }
    }
}

TEST_P(DocumentReaderFeaturesTest, SeesNoSettingsAcrossACut) {
    const std::string settings = "/TCPR 1 /GCPR 2 /ICPR 3";
    for (std::size_t inFront = 0; inFront <= settings.size(); inFront++) {
        const std::string document = std::string(8065 - inFront, 'x') + settings + "\n\n";
        const DocumentContents contents = ReadInPieces(document, {100, 8065}, *GetParam());
        EXPECT_TRUE(contents == Expected(document));
        // All three names must lie after the cut, or in front of it with no line end to complete.
        EXPECT_EQ(contents.lines.size(), inFront <= 1 ? 1U : 0U) << inFront;
    }
}

TEST_P(DocumentReaderFeaturesTest, WithholdsTheLastByte) {
    for (const std::string &document :
         {""s, "a"s, "\n"s, "\r"s, "\x04"s, "\0"s, "\xff"s, "ep\n"s, "ep\n\x04"s, "a\r\n"s,
          "a\nep"s, "a\nep\r\n"s, std::string(8064, 'x'), std::string(8065, 'x'),
          std::string(8066, 'x'), std::string(8064, 'x') + "\n", std::string(8065, 'x') + "\n"}) {
        for (const std::size_t size : {1U, 2U, 100000U}) {
            const DocumentContents contents = ReadInPieces(document, {size}, *GetParam());
            EXPECT_TRUE(contents == Expected(document)) << document.substr(0, 10);
        }
    }
}

}  // namespace
