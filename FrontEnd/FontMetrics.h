// SPDX-License-Identifier: Apache-2.0
//
// How large a text comes out in the fonts that every PostScript printer has, from the fonts' own
// metrics (FontMetrics/*.def): the filter has neither the printer's fonts nor others at hand.
#pragma once

#include <cstdint>
#include <string_view>

// A letter in thousandths of the font size: how far the next one is, and the box around its ink,
// measured from where it starts on the base line. A blank's box is empty.
struct GlyphMetrics {
    std::int16_t width, left, bottom, right, top;
};

struct Font {
    std::string_view name;  // in PostScript, "Helvetica-Bold"
    const GlyphMetrics *glyphs;
};

// The font of that name, or null. Names are compared without case, as CUPS compares choices.
const Font *FindFont(std::string_view name);

// The box around a text's ink, in thousandths of the font size, measured from where the text starts
// on its base line. All zero for a text without ink.
struct TextBox {
    int left, bottom, right, top;
};

// Measures an ISO Latin-1 text; bytes that are no printable letters of that encoding have no width.
TextBox MeasureText(const Font &font, std::string_view latin1);
