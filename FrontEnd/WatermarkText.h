// SPDX-License-Identifier: Apache-2.0
//
// A watermark's text as operands for the printer: PostScript strings hold bytes, not letters, and
// the printer's fonts show ISO Latin-1 at most.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "FrontEnd/FontMetrics.h"

struct WatermarkText {
    std::string operand;  // for show, "(DRAFT)"
    std::string font;     // what stands between the slash and the size of selectfont
    TextBox box;          // around the ink, in thousandths of the font size
    bool lacksLetters;    // some that ISO Latin-1 does not have were left out
    bool isCut;           // the end was left out, because it is too long
};

// Turns UTF-8 text into what the ticket carries, an operand of at most `size` bytes. A text that is
// not valid UTF-8, or without any letter of ISO Latin-1, has an empty box.
WatermarkText MakeWatermarkText(const Font &font, const std::string &utf8, std::size_t size);
