// SPDX-License-Identifier: Apache-2.0
//
// The document reader with every variant of the search and pieces of every size, held against
// reading byte by byte.
#include <memory>

#include "fuzz/Fuzz.h"
#include "fuzz/FuzzDocument.h"
#include "support/Feeder.h"

namespace {

struct Reading {
    std::string text;                       // all that was handed out
    std::vector<std::string_view> special;  // which special lines, in order
    bool operator==(const Reading &) const = default;
};

// A line is special if it is one whole, or what a full line buffer leaves of it.
Reading ByteByByte(const std::string &document) {
    Reading reading;
    std::string line;
    for (const char byte : document) {
        if (byte == '\n' || byte == '\r') {
            if (const SpecialLine *special = FindSpecialLine(line)) {
                reading.special.push_back(special->text);
            }
            reading.text += line + byte;
            line.clear();
        } else if ((line += byte).size() == kLineBufferFull) {
            reading.text += line;
            line.clear();
        }
    }
    return reading;
}

Reading ThroughReader(const std::string &document, std::size_t pieceSize,
                      const LineSearch &search) {
    const Feeder feeder(document, {pieceSize});
    const auto reader = std::make_unique<DocumentReader>(feeder.ReadEnd(), DocumentReader::kPlain,
                                                         Feeder::Feed, search);
    Reading reading;
    DocumentPiece piece;
    while (reader->Next(piece)) {
        reading.text += piece.text;
        if (piece.kind == DocumentPiece::kSpecial) reading.special.push_back(piece.special->text);
    }
    return reading;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    FuzzInput input(data, size);
    const std::size_t pieceSize = 1 + input.Below(20000);
    const std::string document = FuzzDocument(input);
    const Reading expected = ByteByByte(document);
    for (const LineSearch *const *search = AllLineSearches(); *search; search++) {
        FUZZ_CHECK(ThroughReader(document, pieceSize, **search) == expected);
    }
    return 0;
}
