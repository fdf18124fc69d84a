// SPDX-License-Identifier: Apache-2.0
//
// Documents that are hard on a reader of lines: special lines and near misses, every kind of line
// end, NUL bytes, and lines about as long as the line buffer, some with a special line after the
// place where they are cut. A seed makes the same document wherever the tests run.
#pragma once

#include <algorithm>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "Tables/SpecialLines.h"

class RandomDocument {
  public:
    // `more` are further lines to sprinkle in.
    explicit RandomDocument(unsigned seed, std::vector<std::string> more = {})
        : random_(seed), lines_(std::move(more)) {
        for (const SpecialLine &special : specialLines) {
            const std::string text(special.text);
            lines_.insert(lines_.end(), {text, text, text + " ", " " + text, text + '\0',
                                         text.substr(0, text.size() - 1), "x" + text});
        }
        lines_.insert(lines_.end(), {"", "/Helvetica 12 selectfont", "%%Page: 1 1", "EP"});
    }

    std::string Make(int lineCount) {
        std::string document;
        for (int i = 0; i < lineCount; i++) {
            document += Line();
            document += LineEnd();
        }
        if (Below(2) == 0) document += Pick(lines_);  // no final line end
        return document;
    }

    std::size_t Below(std::size_t limit) { return random_() % limit; }

  private:
    const std::string &Pick(const std::vector<std::string> &from) {
        return from[Below(from.size())];
    }

    std::string Line() {
        static constexpr std::size_t kLengths[] = {8064, 8065, 8066, 8192, 16130, 20000};
        switch (Below(8)) {
            case 0:
                return Filler(kLengths[Below(std::size(kLengths))]);
            case 1: {
                const std::string filler = Filler(8065 * (1 + Below(3)));
                return filler + Pick(lines_);
            }
            case 2:
                return Filler(Below(100));
            default:
                return Pick(lines_);
        }
    }

    // Any bytes but line ends; the last ones often such as special lines end in.
    std::string Filler(std::size_t length) {
        std::string text(length, 'x');
        if (Below(2) == 0) {
            for (char &byte : text) {
                do byte = static_cast<char>(random_());
                while (byte == '\n' || byte == '\r');
            }
        }
        if (length > 0) text.back() = "pegtx"[Below(5)];
        return text;
    }

    std::string LineEnd() {
        static constexpr std::string_view kLineEnds[] = {"\n", "\n", "\n", "\r", "\r\n", "\n\r"};
        return std::string(kLineEnds[Below(std::size(kLineEnds))]);
    }

    std::minstd_rand random_;
    std::vector<std::string> lines_;
};

// How a document may arrive: in pieces of so many bytes, taken over and over. Lines enough for a
// random document: a byte at a time takes long.
struct Arrival {
    std::vector<std::size_t> sizes;
    int lines = 40;
};

inline const Arrival &RandomArrival(unsigned seed) {
    static const Arrival kArrivals[] = {{{65536}}, {{1}, 20}, {{7, 1, 4099}}, {{8064}},
                                        {{8065}},  {{8066}},  {{131072, 3}},  {{131072, 1, 1}}};
    return kArrivals[seed % std::size(kArrivals)];
}
