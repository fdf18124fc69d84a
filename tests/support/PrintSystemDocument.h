// SPDX-License-Identifier: Apache-2.0
//
// A document in the manner of the print system's PostScript: page procedures in the prolog, pages
// that begin with "bp" and end with "ep" or "endp".
#pragma once

#include <string>

// A document of `pages` pages of `width` by `height` points. Each page shows its number at the top
// left and leaves a turned and scaled user space behind.
inline std::string PrintSystemDocument(int pages, const std::string &pageEnd = "ep",
                                       int width = 612, int height = 792) {
    const std::string size = std::to_string(width) + " " + std::to_string(height);
    std::string document =
        "%!PS-Adobe-3.0\n"
        "%%BoundingBox: 0 0 " +
        size +
        "\n"
        "%%Pages: " +
        std::to_string(pages) +
        "\n"
        "%%LanguageLevel: 2\n"
        "%%EndComments\n"
        "%%BeginProlog\n"
        "/pgsave 0 def\n"
        "/pm 0 def\n"
        "/bp{/pgsave save store/pm save store}bind def\n"
        "/ep{pgsave restore showpage}bind def\n"
        "/endp{pm restore pgsave restore showpage}bind def\n"
        "%%EndProlog\n"
        "%%BeginSetup\n"
        "<</PageSize[" +
        size +
        "]>>setpagedevice\n"
        "%%EndSetup\n";
    for (int page = 1; page <= pages; page++) {
        const std::string number = std::to_string(page);
        document += "%%Page: " + number + " " + number +
                    "\n"
                    "%%BeginPageSetup\n"
                    "bp\n"
                    "%%EndPageSetup\n"
                    "/Helvetica 24 selectfont 36 " +
                    std::to_string(height - 60) +
                    " moveto\n"
                    "(Page " +
                    number +
                    ") show\n"
                    "30 rotate 0.5 0.5 scale 1 0 0 setrgbcolor\n" +
                    pageEnd +
                    "\n"
                    "%%PageTrailer\n";
    }
    return document + "%%Trailer\n%%EOF\n";
}
