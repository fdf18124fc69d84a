// SPDX-License-Identifier: Apache-2.0
//
// The metrics against Ghostscript's own fonts, letter by letter.
#include "FrontEnd/FontMetrics.h"

#include <gtest/gtest.h>

#include <cctype>
#include <cmath>
#include <cstdint>
#include <iterator>
#include <sstream>
#include <string>

#include "support/Ghostscript.h"

namespace {

constexpr const char *kNames[] = {"Helvetica",  "Helvetica-Bold", "Times-Roman",
                                  "Times-Bold", "Courier",        "Courier-Bold"};

// Prints a line for each printable letter of ISO Latin-1: its code, width and ink at a thousand
// points. The code of the minus sign stands for the hyphen, as in ASCII.
std::string LettersOf(const std::string &font) {
    return "%!PS\n"
           "/" +
           font +
           " findfont dup length dict copy dup/FID undef\n"
           "dup/Encoding ISOLatin1Encoding 256 array copy dup 45/hyphen put put\n"
           "/F exch definefont 1000 scalefont setfont\n"
           "/s 1 string def /show5{5{=string cvs print( )print}repeat(\\n)print}def\n"
           "/letter{dup =string cvs print( )print s 0 3 -1 roll put\n"
           " newpath 0 0 moveto s false charpath flattenpath\n"
           " {pathbbox}stopped{0 0 0 0}if s stringwidth pop show5}def\n"
           "32 1 126{letter}for 160 1 255{letter}for\n";
}

TextBox Plus(const TextBox &box, int x) {
    return {box.left + x, box.bottom, box.right + x, box.top};
}

}  // namespace

TEST(FontMetrics, AreThoseOfTheFonts) {
    for (const char *name : kNames) {
        SCOPED_TRACE(name);
        const Font *font = FindFont(name);
        ASSERT_TRUE(font);
        EXPECT_EQ(font->name, name);
        const Rendering run = Render(LettersOf(name));
        ASSERT_EQ(run.status, 0) << run.messages;
        std::istringstream lines(run.messages);
        int code, letters = 0;
        double width, left, bottom, right, top;
        while (lines >> code >> width >> top >> right >> bottom >> left) {
            SCOPED_TRACE(code);
            letters++;
            // Where a second letter stands tells the width of the first.
            const std::string letter(1, static_cast<char>(code));
            EXPECT_EQ(MeasureText(*font, letter + "A").right,
                      MeasureText(*font, "A").right + std::lround(width));
            // The interpreter's fonts are drawn after the printer's: alike in letters and digits.
            const TextBox box = MeasureText(*font, letter);
            EXPECT_EQ(box.left == box.right, code == ' ' || code == 0xA0);
            if (code > 0x7F || !std::isalnum(code)) continue;
            EXPECT_NEAR(box.left, left, 60);
            EXPECT_NEAR(box.right, right, 60);
            EXPECT_NEAR(box.bottom, bottom, 60);
            EXPECT_NEAR(box.top, top, 60);
        }
        EXPECT_EQ(letters, 191);
    }
}

// Ghostscript's letters are only nearly those: a slip in a number would not show above.
TEST(FontMetrics, NoNumberChangesUnnoticed) {
    constexpr std::uint32_t kSums[] = {0x08612044, 0x015B39BC, 0x81C00A30,
                                       0xC2511DC3, 0xE1CDC63A, 0xEAE027E4};
    for (size_t i = 0; i < std::size(kNames); i++) {
        const GlyphMetrics *glyphs = FindFont(kNames[i])->glyphs;
        std::uint32_t sum = 0;
        for (int letter = 0; letter < 191; letter++) {
            const auto &[width, left, bottom, right, top] = glyphs[letter];
            for (const int number : {width, left, bottom, right, top}) {
                sum = sum * 31 + static_cast<std::uint32_t>(number);
            }
        }
        EXPECT_EQ(sum, kSums[i]) << kNames[i];
    }
}

TEST(FontMetrics, BoxIsThatOfAllInk) {
    const Font &font = *FindFont("Helvetica");
    // A: 667 wide, ink 14 0 654 718; g: 556 wide, ink 40 -220 499 538.
    const auto expect = [&](const char *text, TextBox box) {
        const TextBox measured = MeasureText(font, text);
        EXPECT_EQ(measured.left, box.left) << text;
        EXPECT_EQ(measured.bottom, box.bottom) << text;
        EXPECT_EQ(measured.right, box.right) << text;
        EXPECT_EQ(measured.top, box.top) << text;
    };
    expect("A", {14, 0, 654, 718});
    expect("Ag", {14, -220, 667 + 499, 718});
    expect(" A ", Plus({14, 0, 654, 718}, 278));
    expect(
        "\t\x7F\x85"
        "A",
        {14, 0, 654, 718});
    expect("", {0, 0, 0, 0});
    expect("   ", {0, 0, 0, 0});
}

TEST(FontMetrics, FontsAreFoundByNameInAnyCase) {
    EXPECT_EQ(FindFont("TIMES-bold"), FindFont("Times-Bold"));
    EXPECT_NE(FindFont("Times-Bold"), FindFont("Times-Roman"));
    for (const char *name : {"", "Times", "Times-Boldest", "Arial"}) EXPECT_FALSE(FindFont(name));
}
