// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/WatermarkText.h"

#include <gtest/gtest.h>

#include <string>

#include "support/Ghostscript.h"

namespace {

const Font &kFont = *FindFont("Times-Roman");

WatermarkText Text(const std::string &utf8) {
    return MakeWatermarkText(kFont, utf8, 255);
}

// What Ghostscript prints for each glyph that the text shows in its font: its name.
std::string GlyphsShown(const WatermarkText &text) {
    const Rendering run =
        Render("%!PS\n/" + text.font + " 20 selectfont\n" + text.operand +
               "{currentfont/Encoding get exch get =string cvs print( )print}forall\n"
               // The same again on a page that forgets what it defined.
               "save /" +
               text.font + " 20 selectfont restore\n");
    EXPECT_EQ(run.status, 0);
    return run.messages;
}

}  // namespace

TEST(WatermarkText, PlainTextStaysAsItIs) {
    const WatermarkText text = Text("DRAFT 3, please");
    EXPECT_EQ(text.operand, "(DRAFT 3, please)");
    EXPECT_EQ(text.font, "Times-Roman");
    EXPECT_FALSE(text.lacksLetters);
    EXPECT_FALSE(text.isCut);
    EXPECT_EQ(text.box.right, MeasureText(kFont, "DRAFT 3, please").right);
}

TEST(WatermarkText, WhatEndsAStringIsEscaped) {
    const WatermarkText text = Text("a(b)c\\d%e%n");
    EXPECT_EQ(text.operand, "(a\\050b\\051c\\134d\\045e\\045n)");
    EXPECT_EQ(GlyphsShown(text), "a parenleft b parenright c backslash d percent e percent n ");
    EXPECT_EQ(text.box.right, MeasureText(kFont, "a(b)c\\d%e%n").right);
}

TEST(WatermarkText, LettersOfLatin1AreShown) {
    const WatermarkText text = Text("Für Zoë-É");
    EXPECT_EQ(text.operand, "(F\\374r Zo\\353\\255\\311)");
    EXPECT_FALSE(text.lacksLetters);
    EXPECT_EQ(GlyphsShown(text), "F udieresis r space Z o edieresis hyphen Eacute ");
    EXPECT_EQ(text.box.right, MeasureText(kFont, "F\xFCr Zo\xEB-\xC9").right);
    EXPECT_LT(text.font.size(), 255U);
    EXPECT_EQ(Text("a\u00A0b\u00FF").operand, "(a\\240b\\377)");
}

TEST(WatermarkText, OthersAreLeftOut) {
    EXPECT_EQ(Text("a€b日").operand, "(ab)");
    EXPECT_TRUE(Text("a€b日").lacksLetters);
    EXPECT_TRUE(Text("a\tb").lacksLetters);
    EXPECT_EQ(Text("a\tb").operand, "(ab)");
    EXPECT_TRUE(Text("a\xC2\x85").lacksLetters) << "a control character of ISO Latin-1";
    EXPECT_TRUE(Text("a😀").lacksLetters);
    for (const char *text : {"日本", "", "  ", "a\xFF", "\xC3"}) {
        const TextBox box = Text(text).box;
        EXPECT_EQ(box.left, box.right) << text;
    }
}

TEST(WatermarkText, FitsTheField) {
    EXPECT_EQ(Text(std::string(253, 'x')).operand.size(), 255U);
    EXPECT_FALSE(Text(std::string(253, 'x')).isCut);
    EXPECT_TRUE(Text(std::string(254, 'x')).isCut);
    const WatermarkText text = Text("xx" + std::string(100, '('));
    EXPECT_TRUE(text.isCut);
    EXPECT_EQ(text.operand.size(), 2 + 2 + 62 * 4U);
    EXPECT_EQ(text.operand.substr(text.operand.size() - 5), "\\050)") << "a whole letter";
    EXPECT_EQ(text.box.right, MeasureText(kFont, "xx" + std::string(62, '(')).right);
}
