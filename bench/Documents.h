// SPDX-License-Identifier: Apache-2.0
//
// The kinds of documents that presses get, as a block that can be repeated to any length.
#pragma once

#include <random>
#include <string>

// What stands in front of the pages.
inline constexpr char kDocumentStart[] =
    "%!PS-Adobe-3.0\n%%Pages: (atend)\n%%BoundingBox: 0 0 595 842\n%%EndComments\n"
    "%%BeginProlog\n/bp{/pgsave save def}bind def/ep{pgsave restore showpage}bind def\n"
    "%%EndProlog\n%%BeginSetup\n%%EndSetup\n";

// About a megabyte of whole lines of a kind: "short" (25 bytes a line), "long" (8 kB of any bytes),
// "ascii85" (image data, 72 bytes a line) or "features" (short lines with a page of 30 feature
// lines every 33 kB). Every block is one page and holds the lines where modules write PostScript.
inline std::string DocumentBlock(const std::string &kind) {
    std::minstd_rand random(1);
    const auto below = [&random](std::size_t limit) { return random() % limit; };
    const auto shortLine = [&] {
        static const char *const kWords[] = {"moveto", "lineto",  "stroke",   "gsave", "grestore",
                                             "0.5",    "setgray", "curveto",  "fill",  "100",
                                             "-7.25",  "newpath", "findfont", "show",  "(text)"};
        std::string line;
        const std::size_t length = 16 + below(17);
        while (line.size() < length) line += std::string(kWords[below(15)]) + " ";
        return line.substr(0, length) + "\n";
    };
    const auto longLine = [&] {
        std::string line(8000 + below(64), ' ');
        for (char &byte : line) {
            do byte = static_cast<char>(random() >> 7);
            while (byte == '\n' || byte == '\r');
        }
        return line + "\n";
    };
    const auto ascii85Line = [&] {
        std::string line(72, ' ');
        for (char &byte : line) byte = static_cast<char>('!' + below(85));
        return line + "\n";
    };
    std::string block = "%%Page: 1 1\n%%BeginPageSetup\nbp\n%%EndPageSetup\n";
    for (std::size_t next = 0; block.size() < 1000000;) {
        if (kind == "features" && block.size() >= next) {
            for (int i = 0; i < 30; i++) {
                block +=
                    "%%BeginFeature: *KVTonerSaver Mode2\n<</Toner "
                    "2>>setpagedevice\n%%EndFeature\n";
            }
            next = block.size() + 33000;
        }
        block += kind == "long" ? longLine() : kind == "ascii85" ? ascii85Line() : shortLine();
    }
    return block + "ep\n%%PageTrailer\n";
}
