// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/FontMetrics.h"

#include <strings.h>

#include <algorithm>
#include <iterator>

namespace {

// The printable letters of ISO Latin-1 stand in two runs.
constexpr int kFirstRun = 0x20, kFirstRunEnd = 0x7F;
constexpr int kSecondRun = 0xA0, kSecondRunEnd = 0x100;
constexpr int kGlyphCount = kFirstRunEnd - kFirstRun + kSecondRunEnd - kSecondRun;

// Where a letter stands in a font's table; -1 for what is none.
constexpr int GlyphIndex(unsigned char code) {
    if (code >= kFirstRun && code < kFirstRunEnd) return code - kFirstRun;
    return code >= kSecondRun ? code - kSecondRun + kFirstRunEnd - kFirstRun : -1;
}

#define GLYPH(code, name, width, left, bottom, right, top) {width, left, bottom, right, top},
constexpr GlyphMetrics kHelvetica[] = {
#include "FrontEnd/FontMetrics/Helvetica.def"
};
constexpr GlyphMetrics kHelveticaBold[] = {
#include "FrontEnd/FontMetrics/Helvetica-Bold.def"
};
constexpr GlyphMetrics kTimesRoman[] = {
#include "FrontEnd/FontMetrics/Times-Roman.def"
};
constexpr GlyphMetrics kTimesBold[] = {
#include "FrontEnd/FontMetrics/Times-Bold.def"
};
constexpr GlyphMetrics kCourier[] = {
#include "FrontEnd/FontMetrics/Courier.def"
};
constexpr GlyphMetrics kCourierBold[] = {
#include "FrontEnd/FontMetrics/Courier-Bold.def"
};
#undef GLYPH
static_assert(std::size(kHelvetica) == kGlyphCount && std::size(kHelveticaBold) == kGlyphCount);
static_assert(std::size(kTimesRoman) == kGlyphCount && std::size(kTimesBold) == kGlyphCount);
static_assert(std::size(kCourier) == kGlyphCount && std::size(kCourierBold) == kGlyphCount);

constexpr Font kFonts[] = {
    {"Helvetica", kHelvetica},    {"Helvetica-Bold", kHelveticaBold},
    {"Times-Roman", kTimesRoman}, {"Times-Bold", kTimesBold},
    {"Courier", kCourier},        {"Courier-Bold", kCourierBold},
};

}  // namespace

const Font *FindFont(std::string_view name) {
    const auto *font = std::find_if(std::begin(kFonts), std::end(kFonts), [&](const Font &f) {
        return f.name.size() == name.size() &&
               strncasecmp(f.name.data(), name.data(), name.size()) == 0;
    });
    return font != std::end(kFonts) ? font : nullptr;
}

TextBox MeasureText(const Font &font, std::string_view latin1) {
    TextBox box{};
    bool hasInk = false;
    int start = 0;  // of the letter
    for (const char byte : latin1) {
        const int index = GlyphIndex(static_cast<unsigned char>(byte));
        if (index < 0) continue;
        const GlyphMetrics &glyph = font.glyphs[index];
        const TextBox ink = {start + glyph.left, glyph.bottom, start + glyph.right, glyph.top};
        start += glyph.width;
        if (glyph.left == glyph.right) continue;
        box = !hasInk ? ink
                      : TextBox{std::min(box.left, ink.left), std::min(box.bottom, ink.bottom),
                                std::max(box.right, ink.right), std::max(box.top, ink.top)};
        hasInk = true;
    }
    return box;
}
