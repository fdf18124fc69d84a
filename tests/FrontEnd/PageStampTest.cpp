// SPDX-License-Identifier: Apache-2.0
//
// The stamp on pages that do all that a page may do, run by Ghostscript: each page must come out as
// it does without the stamp, and with the stamp on top.
#include "FrontEnd/PageStamp.h"

#include <gtest/gtest.h>

#include <string>

#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "support/CaptureOutput.h"
#include "support/Ghostscript.h"

namespace {

// A grey "A" in the middle of a page.
void PutLetter(std::FILE *stream) {
    KVfputs(
        "0.5 setgray\n"
        "/Helvetica-Bold 200 selectfont\n"
        "200 300 moveto\n"
        "(A) show\n"
        "grestore\n",
        stream);
}

std::string Stamp(bool firstPageOnly = false) {
    return CaptureOutput([&] {
        PutPageStamp({PutLetter, "Helvetica-Bold", firstPageOnly}, stdout);
    });
}

// `stamp` is what page `number` carries; a page without ink of its own shows it alone.
void ExpectStamped(const RenderedPage &page, const RenderedPage &bare, const RenderedPage &stamp,
                   std::size_t number) {
    constexpr RenderedPage::Pixel kWhite = {255, 255, 255};
    ASSERT_EQ(page.pixels.size(), bare.pixels.size());
    ASSERT_EQ(page.pixels.size(), stamp.pixels.size());
    std::size_t wrong = 0;
    for (std::size_t i = 0; i < page.pixels.size(); i++) {
        wrong += page.pixels[i] != (stamp.pixels[i] == kWhite ? bare : stamp).pixels[i];
    }
    EXPECT_EQ(wrong, 0U) << "of page " << number;
}

RenderedPage StampAlone() {
    const Rendering alone = Render("%!PS\n" + Stamp() + "showpage\n");
    EXPECT_EQ(alone.messages, "");
    return alone.pages.at(0);
}

// Runs `pages`, PostScript that shows pages, with and without the stamp before it.
void ExpectStampOnEveryPage(const std::string &pages, std::size_t count,
                            bool firstPageOnly = false) {
    SCOPED_TRACE(pages);
    static const RenderedPage stamp = StampAlone();
    const Rendering bare = Render("%!PS\n" + pages);
    const Rendering stamped = Render("%!PS\n" + Stamp(firstPageOnly) + pages);
    EXPECT_EQ(stamped.status, bare.status);
    EXPECT_EQ(stamped.messages, bare.messages);
    ASSERT_EQ(bare.pages.size(), count);
    ASSERT_EQ(stamped.pages.size(), count);
    for (std::size_t i = 0; i < count; i++) {
        if (firstPageOnly && i > 0) {
            EXPECT_EQ(stamped.pages[i].pixels, bare.pages[i].pixels) << "page " << i + 1;
        } else {
            ExpectStamped(stamped.pages[i], bare.pages[i], stamp, i + 1);
        }
    }
}

constexpr char kMarks[] = "gsave 250 350 100 200 rectfill grestore ";

TEST(PageStamp, IsNothingWithoutAStamp) {
    EXPECT_EQ(CaptureOutput([] { PutPageStamp({}, stdout); }), "");
}

TEST(PageStamp, ShowsTheFontThatItNames) {
    const RenderedPage stamp = StampAlone();
    EXPECT_EQ(stamp.At(270, 345), (RenderedPage::Pixel{127, 127, 127}));
    EXPECT_EQ(stamp.At(100, 390), (RenderedPage::Pixel{255, 255, 255}));
}

// A font may be made by code, as one with the letters of ISO Latin-1 is.
TEST(PageStamp, TakesCodeForAFont) {
    static constexpr char kFont[] =
        "New FontDirectory 1 index known{pop}{/Helvetica-Bold findfont dup length dict copy "
        "dup/FID undef dup/Encoding ISOLatin1Encoding put definefont pop}ifelse/New";
    const auto put = [](std::FILE *stream) {
        KVfputs(("0 setgray /" + std::string(kFont) +
                 " 200 selectfont 200 300 moveto (\\304) show "
                 "grestore\n")
                    .c_str(),
                stream);
    };
    const std::string stamp = CaptureOutput([&] { PutPageStamp({put, kFont, false}, stdout); });
    const Rendering pages = Render("%!PS\n" + stamp + "save showpage restore showpage\n");
    EXPECT_EQ(pages.messages, "");
    ASSERT_EQ(pages.pages.size(), 2U);
    EXPECT_EQ(pages.pages[0].pixels, pages.pages[1].pixels);
    EXPECT_EQ(pages.pages[0].At(270, 345), (RenderedPage::Pixel{0, 0, 0}));
}

TEST(PageStamp, StandsOnTopWhateverThePageHasDone) {
    const char *const kPages[] = {
        "showpage",
        "0 0 10 10 rectclip showpage",
        "0.1 0.1 scale 45 rotate 300 300 translate showpage",
        "20 setlinewidth [3] 0 setdash 1 0 0 setrgbcolor 0 0 moveto 100 100 lineto showpage",
        "0 1 0 0 setcmykcolor [/Pattern] setcolorspace showpage",
        "/Courier 3 selectfont showpage",
        "1 2 (three) [4] {5} showpage clear",
        "10 dict begin /x 1 def showpage end",
        "save showpage restore",
        "save pop gsave gsave showpage",
        "systemdict/showpage get exec",
        "/np{showpage}def np",
        "/np{showpage}bind def np",
        "copypage erasepage initgraphics",
    };
    std::string document;
    for (const char *page : kPages) document += std::string(kMarks) + page + "\n";
    ExpectStampOnEveryPage(document, std::size(kPages));
}

TEST(PageStamp, NeedsNoNameThatThePageDefinesAnew) {
    ExpectStampOnEveryPage(
        "/gsave{}def /grestore{}def /initgraphics{}def /setgray{pop}def /selectfont{pop pop}def "
        "/moveto{pop pop}def /show{pop}def /exec{pop}def /dup{}def /if{pop pop}def /end{}def "
        "/begin{pop}def /findfont{}def /scalefont{pop}def /setfont{pop}def /exch{}def /pop{}def "
        "/kvxFont 1 def /kvxStamp 1 def showpage\n",
        1);
    ExpectStampOnEveryPage(
        "/Helvetica-Bold /Courier findfont dup length dict begin {1 index/FID ne{def}{pop pop} "
        "ifelse} forall currentdict end definefont pop /Helvetica-Bold 50 selectfont 100 100 "
        "moveto (A) show showpage\n",
        1);
}

TEST(PageStamp, StaysThroughChangesOfThePageDevice) {
    const std::string marks = kMarks;
    ExpectStampOnEveryPage("<</Duplex true>>setpagedevice " + marks + "showpage " +
                               "<</Tumble true/PageSize[595 842]>>setpagedevice " + marks +
                               "showpage\n",
                           2);
    ExpectStampOnEveryPage(
        "save <</Duplex true>>setpagedevice " + marks + "showpage restore " + marks + "showpage\n",
        2);
    ExpectStampOnEveryPage(
        "userdict/setpagedevice{pop}bind put <</EndPage{pop pop false}>>"
        "setpagedevice " +
            marks + "showpage\n",
        1);
}

// Two pages on a sheet, by the document's own procedure, which lets every other page through.
TEST(PageStamp, WaitsForThePageThatIsPrinted) {
    const std::string twoUp =
        "userdict/n 1 string put <</EndPage{exch pop 2 eq{false}{n 0 get 1 xor n 0 2 index put "
        "0 eq}ifelse}>>setpagedevice\n";
    const std::string pages = twoUp +
                              "100 100 50 50 rectfill showpage 400 500 50 50 rectfill "
                              "showpage\n";
    const Rendering bare = Render("%!PS\n" + pages);
    ASSERT_EQ(bare.pages.size(), 1U);
    const std::string stamp = Stamp();
    const Rendering stamped = Render("%!PS\n" + twoUp + stamp + pages.substr(twoUp.size()));
    ASSERT_EQ(stamped.pages.size(), 1U);
    ExpectStamped(stamped.pages[0], bare.pages[0], StampAlone(), 1);
}

TEST(PageStamp, StandsOnTheFirstPageAlone) {
    const std::string marks = kMarks;
    ExpectStampOnEveryPage(marks + "showpage " + marks + "showpage " + marks + "showpage\n", 3,
                           true);
    // The first page ends inside a save, which takes back what it has stored.
    ExpectStampOnEveryPage("save " + marks + "showpage restore save " + marks +
                               "showpage restore " + marks + "showpage\n",
                           3, true);
}

}  // namespace
