// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/WatermarkOptions.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <string>

#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "FrontEnd/FontMetrics.h"
#include "Modules/Watermark/WatermarkPosition.h"
#include "Modules/Watermark/WatermarkTicket.h"
#include "support/LeaksOfCups.h"
#include "support/TicketFields.h"
#include "support/TicketJob.h"

namespace {

// A4 and Letter as in PpdWith, and sheets with margins, most of them uneven.
constexpr char kSheets[] =
    "*LandscapeOrientation: Plus90\n"
    "*PageSize Uneven/Uneven: \"\"\n"
    "*ImageableArea Uneven/Uneven: \"10 50 580 822\"\n"
    "*PaperDimension Uneven/Uneven: \"600 842\"\n"
    "*PageSize Tiny/Tiny: \"\"\n"
    "*ImageableArea Tiny/Tiny: \"10 10 11 11\"\n"
    "*PaperDimension Tiny/Tiny: \"20 20\"\n"
    "*PageSize Huge/Huge: \"\"\n"
    "*ImageableArea Huge/Huge: \"0 0 3e38 3e38\"\n"
    "*PaperDimension Huge/Huge: \"3e38 3e38\"\n"
    "*PageSize Wrong/Wrong: \"\"\n"
    "*ImageableArea Wrong/Wrong: \"-5 900 nan 3e38\"\n"
    "*PaperDimension Wrong/Wrong: \"595 842\"\n"
    "*PageSize Swapped/Swapped: \"\"\n"
    "*ImageableArea Swapped/Swapped: \"500 10 100 800\"\n"
    "*PaperDimension Swapped/Swapped: \"595 842\"\n"
    "*PageSize Low/Low: \"\"\n"
    "*ImageableArea Low/Low: \"10 -5 500 800\"\n"
    "*PaperDimension Low/Low: \"595 842\"\n"
    "*PageSize High/High: \"\"\n"
    "*ImageableArea High/High: \"10 10 500 843\"\n"
    "*PaperDimension High/High: \"595 842\"\n"
    "*PageSize Full/Full: \"\"\n"
    "*ImageableArea Full/Full: \"0 0 595 842\"\n"
    "*PaperDimension Full/Full: \"595 842\"\n"
    "*PageSize Nothing/Nothing: \"\"\n"
    "*ImageableArea Nothing/Nothing: \"0 0 0.5 0.5\"\n"
    "*PaperDimension Nothing/Nothing: \"0.5 0.5\"\n"
    "*PageSize Endless/Endless: \"\"\n"
    "*ImageableArea Endless/Endless: \"0 0 595 20000\"\n"
    "*PaperDimension Endless/Endless: \"595 20000\"\n"
    "*VariablePaperSize: True\n"
    "*MaxMediaWidth: \"9999\"\n"
    "*MaxMediaHeight: \"9999\"\n"
    "*HWMargins: 20 20 20 20\n"
    "*CustomPageSize True: \"pop pop pop pop pop\"\n"
    "*ParamCustomPageSize Width: 1 points 1 9999\n"
    "*ParamCustomPageSize Height: 2 points 1 9999\n";

CompletedTicket Complete(const std::string &options) {
    return CompleteOn(PpdWith("*KVFrontEnd: \"CUPS\"\n") + kSheets, TicketJob{options});
}

std::string Key(const CompletedTicket &ticket, const std::string &name) {
    return Value(ticket, "*WMARK" + name + "Ticket");
}

struct Point {
    double x, y;
};

// Where the text of a completed ticket is, as the watermark module reads it.
struct Stamp {
    Point corners[4];  // of the ink, in points from the sheet's lower left corner
    int angle, size;

    explicit Stamp(const CompletedTicket &ticket) {
        ReadTicket(WatermarkGetTicketFromPDE, ticket.options);
        const WatermarkOptions &w = psOptionWatermark;
        angle = w.angle;
        size = w.fontSize;
        float x = 0, y = 0;
        GetWatermarkPostion(&x, &y, kWatermarkOnPage, w.width, w.height, w.horizontalOffset,
                            w.verticalOffset);
        const double turn = angle * std::numbers::pi / 180;
        const std::string name(w.font);
        const Font *font = FindFont(name.substr(0, name.find("-Latin1")));
        EXPECT_TRUE(font);
        TextBox box = MeasureText(*font, Shown(w.text));
        if (w.text[0] != '(') {  // outlined
            box = {box.left - 8, box.bottom - 8, box.right + 8, box.top + 8};
        }
        const double across[] = {box.left * size / 1000.0, box.right * size / 1000.0};
        const double up[] = {box.bottom * size / 1000.0, box.top * size / 1000.0};
        for (int i = 0; i < 4; i++) {
            corners[i] = {x + across[i % 2] * std::cos(turn) - up[i / 2] * std::sin(turn),
                          y + across[i % 2] * std::sin(turn) + up[i / 2] * std::cos(turn)};
        }
    }

    Point Middle() const {
        return {(corners[0].x + corners[3].x) / 2, (corners[0].y + corners[3].y) / 2};
    }

    bool LiesIn(double left, double bottom, double right, double top) const {
        return std::all_of(corners, corners + 4, [&](const Point &p) {
            return p.x >= left - 0.02 && p.x <= right + 0.02 && p.y >= bottom - 0.02 &&
                   p.y <= top + 0.02;
        });
    }

  private:
    // The letters of the PostScript string in an operand.
    static std::string Shown(const std::string &operand) {
        std::string text;
        for (std::size_t i = operand.find('(') + 1; operand.at(i) != ')'; i++) {
            const bool isCode = operand[i] == '\\';
            text += isCode ? static_cast<char>(std::stoi(operand.substr(i + 1, 3), nullptr, 8))
                           : operand[i];
            if (isCode) i += 3;
        }
        return text;
    }
};

void ExpectMiddle(const Stamp &stamp, double x, double y) {
    EXPECT_NEAR(stamp.Middle().x, x, 0.3);
    EXPECT_NEAR(stamp.Middle().y, y, 0.3);
}

}  // namespace

TEST(WatermarkOptions, DraftHasAllThatTheModuleReads) {
    const CompletedTicket ticket = Complete("KVWatermark=Draft");
    EXPECT_EQ(Said(ticket), "");
    const struct {
        const char *name, *value;
    } keys[] = {
        {"Name", "Draft"},
        {"Type", "0"},
        {"OnlyFirst", "0"},
        {"Text", "gsave(DRAFT)true charpath 1 setlinejoin 3.79 setlinewidth stroke grestore()"},
        {"Font", "Helvetica-Bold"},
        {"FontSize", "237"},
        {"ColorR", "0"},
        {"ColorG", "0"},
        {"ColorB", "0"},
        {"Density", "40"},
        {"Angle", "55"},
        {"Orientation", "1"},
        {"PaperWidth", "595"},
        {"PaperHeight", "842"},
    };
    for (const auto &key : keys) EXPECT_EQ(Key(ticket, key.name), key.value) << key.name;
}

TEST(WatermarkOptions, NoneAsksForNothing) {
    for (const char *options : {"", "KVWatermark=None", "KVWatermark=none KVWatermarkSize=20",
                                "KVWatermarkAngle=45 KVWatermarkColor=Red"}) {
        EXPECT_EQ(Complete(options).options.find("WMARK"), std::string::npos) << options;
    }
}

TEST(WatermarkOptions, EveryChoiceIsUsed) {
    const auto key = [](const std::string &option, const char *name) {
        const CompletedTicket ticket =
            Complete("KVWatermark=Copy KVWatermarkStyle=Filled " + option);
        EXPECT_EQ(Said(ticket), "") << option;
        return Key(ticket, name);
    };
    EXPECT_EQ(key("", "Text"), "(COPY)");
    EXPECT_EQ(key("KVWatermark=confidential", "Text"), "(CONFIDENTIAL)");
    EXPECT_EQ(key("KVWatermark='Custom.Not for sale'", "Text"), "(Not for sale)");
    EXPECT_EQ(key("KVWatermark='For Eve'", "Text"), "(For Eve)");
    for (const char *font :
         {"Helvetica", "Helvetica-Bold", "Times-Roman", "Times-Bold", "Courier", "Courier-Bold"}) {
        EXPECT_EQ(key(std::string("KVWatermarkFont=") + font, "Font"), font);
    }
    EXPECT_EQ(key("KVWatermarkSize=72", "FontSize"), "72");
    EXPECT_EQ(key("KVWatermarkSize=100 KVWatermarkStyle=Outline", "Text"),
              "gsave(COPY)true charpath 1 setlinejoin 1.60 setlinewidth stroke grestore()");
    EXPECT_EQ(key("KVWatermarkSize=8 KVWatermarkStyle=Outline", "Text"),
              "gsave(COPY)true charpath 1 setlinejoin 0.60 setlinewidth stroke grestore()");
    EXPECT_EQ(key("KVWatermarkSize=Custom.13", "FontSize"), "13");
    EXPECT_EQ(key("KVWatermarkSize=fit", "FontSize"), key("", "FontSize"));
    EXPECT_EQ(key("KVWatermarkAngle=30", "Angle"), "30");
    EXPECT_EQ(key("KVWatermarkAngle=-30", "Angle"), "330");
    EXPECT_EQ(key("KVWatermarkAngle=360", "Angle"), "0");
    EXPECT_EQ(key("KVWatermarkAngle=-360", "Angle"), "0");
    EXPECT_EQ(key("KVWatermarkAngle=0", "Angle"), "0");
    EXPECT_EQ(key("KVWatermarkAngle=Diagonal", "Angle"), "55");
    EXPECT_EQ(key("KVWatermarkDensity=1", "Density"), "1");
    EXPECT_EQ(key("KVWatermarkDensity=100", "Density"), "100");
    EXPECT_EQ(key("KVWatermarkPages=First", "OnlyFirst"), "1");
    EXPECT_EQ(key("KVWatermarkPages=All", "OnlyFirst"), "0");
    const struct {
        const char *name, *parts;
    } colours[] = {{"Black", "0 0 0"},  {"Red", "1 0 0"},     {"Orange", "1 0.5 0"},
                   {"Yellow", "1 1 0"}, {"Green", "0 0.6 0"}, {"Cyan", "0 1 1"},
                   {"Blue", "0 0 1"},   {"Magenta", "1 0 1"}};
    for (const auto &colour : colours) {
        const std::string option = std::string("KVWatermarkColor=") + colour.name;
        EXPECT_EQ(key(option, "ColorR") + " " + key(option, "ColorG") + " " + key(option, "ColorB"),
                  colour.parts);
    }
}

TEST(WatermarkOptions, WhatIsNotUnderstoodIsNamedAndTakesItsDefault) {
    for (const char *option :
         {"KVWatermarkFont=Comic", "KVWatermarkSize=0", "KVWatermarkSize=2001",
          "KVWatermarkSize=3e38", "KVWatermarkSize=inf", "KVWatermarkSize=12.5",
          "KVWatermarkAngle=361", "KVWatermarkAngle=North", "KVWatermarkColor=Pink",
          "KVWatermarkDensity=0", "KVWatermarkDensity=101", "KVWatermarkPages=Last"}) {
        const CompletedTicket ticket = Complete(std::string("KVWatermark=Draft ") + option);
        EXPECT_NE(Said(ticket).find(option), std::string::npos) << Said(ticket);
        EXPECT_EQ(Key(ticket, "FontSize"), "237") << option;
        EXPECT_EQ(Key(ticket, "Angle"), "55") << option;
        EXPECT_EQ(Key(ticket, "Density"), "40") << option;
    }
}

// All ways to turn pages, at all angles: the ink is centred and inside the printable area, at the
// largest size that allows it.
TEST(WatermarkOptions, LiesInThePrintableAreaHoweverItStands) {
    for (const char *turn :
         {"", "landscape", "orientation-requested=5", "orientation-requested=6", "number-up=2"}) {
        for (const char *text :
             {"Draft", "Copyright", "Ägypten", "-", "'a very long text, indeed'"}) {
            for (const int angle : {-77, 0, 30, 45, 90, 91, 135, 180, 225, 270, 300, 359}) {
                const std::string options = std::string("PageSize=Uneven KVWatermark=") + text +
                                            " " + turn +
                                            " KVWatermarkAngle=" + std::to_string(angle);
                SCOPED_TRACE(options);
                const Stamp stamp(Complete(options));
                ExpectMiddle(stamp, 300, 421);
                // The printable area reaches 280 points to the left and right, 371 up and down.
                EXPECT_TRUE(stamp.LiesIn(20, 50, 580, 792));
                if (stamp.size == 2000) continue;
                const double larger = 1 + 1.2 / stamp.size;  // a point, and what was rounded
                EXPECT_FALSE(stamp.LiesIn(300 - 280 / larger, 421 - 371 / larger,
                                          300 + 280 / larger, 421 + 371 / larger))
                    << "could be larger than " << stamp.size;
            }
        }
    }
}

TEST(WatermarkOptions, RunsAsThePagesStandOnTheSheet) {
    const auto angle = [](const std::string &options) {
        return Key(Complete("KVWatermark=Draft KVWatermarkAngle=0 " + options), "Angle");
    };
    EXPECT_EQ(angle(""), "0");
    EXPECT_EQ(angle("orientation-requested=3"), "0");
    EXPECT_EQ(angle("orientation-requested=4"), "90");
    EXPECT_EQ(angle("orientation-requested=5"), "270");
    EXPECT_EQ(angle("orientation-requested=6"), "180");
    EXPECT_EQ(angle("landscape"), "90");
    for (const char *no : {"no", "off", "false", "FALSE"}) {
        EXPECT_EQ(angle(std::string("orientation-requested=4 landscape=") + no), "0") << no;
    }
    EXPECT_EQ(angle("number-up=2"), "90");
    EXPECT_EQ(angle("number-up=6"), "90");
    EXPECT_EQ(angle("number-up=2 landscape"), "0");
    EXPECT_EQ(angle("number-up=2 orientation-requested=5"), "180");
    EXPECT_EQ(angle("number-up=2 orientation-requested=6"), "270");
    for (const char *pages : {"1", "4", "9", "16"}) {
        EXPECT_EQ(angle(std::string("number-up=") + pages), "0") << pages;
        EXPECT_EQ(angle(std::string("landscape number-up=") + pages), "90") << pages;
    }
}

TEST(WatermarkOptions, RunsAlongTheDiagonalOfThePage) {
    const auto angle = [](const std::string &options) {
        return Key(Complete("KVWatermark=Draft " + options), "Angle");
    };
    EXPECT_EQ(angle("PageSize=A4"), "55");
    EXPECT_EQ(angle("PageSize=Letter"), "52");
    EXPECT_EQ(angle("media=Letter"), "52");
    EXPECT_EQ(angle("PageSize=A4 landscape"), std::to_string(90 + 35));
    EXPECT_EQ(angle("PageSize=A4 orientation-requested=5"), std::to_string(270 + 35));
    EXPECT_EQ(angle("PageSize=A4 orientation-requested=6"), std::to_string(180 + 55));
    EXPECT_EQ(angle("PageSize=A4 number-up=2"), std::to_string(90 + 35));
}

TEST(WatermarkOptions, ATextTooLargeIsMadeToFit) {
    const CompletedTicket ticket = Complete("KVWatermark=Confidential KVWatermarkSize=200");
    EXPECT_EQ(Said(ticket),
              "KVWatermark=Confidential is 122 points large; 200 do not fit the sheet\n");
    EXPECT_EQ(Key(ticket, "FontSize"), "122");
    EXPECT_TRUE(Stamp(ticket).LiesIn(0, 0, 595, 842));
}

TEST(WatermarkOptions, SizesOfOnesOwnCount) {
    const CompletedTicket ticket = Complete("KVWatermark=Draft PageSize=Custom.400x300");
    EXPECT_EQ(Key(ticket, "PaperWidth"), "400");
    EXPECT_EQ(Key(ticket, "PaperHeight"), "300");
    EXPECT_EQ(Key(ticket, "Angle"), "37");
    const Stamp stamp(ticket);
    ExpectMiddle(stamp, 200, 150);
    EXPECT_TRUE(stamp.LiesIn(20, 20, 380, 280));
}

// No number of a hostile PPD or job reaches the printer as inf, nan or something that large.
TEST(WatermarkOptions, NumbersAreSane) {
    for (const char *options :
         {"PageSize=Huge", "PageSize=Wrong", "PageSize=Custom.3e38x3e38", "PageSize=Custom.infxnan",
          "PageSize=Custom.1x9999", "orientation-requested=2147483647", "number-up=-2147483648",
          "KVWatermarkSize=Custom.3e38", "KVWatermarkAngle=Custom.3e38"}) {
        SCOPED_TRACE(options);
        const CompletedTicket ticket = Complete(std::string("KVWatermark=Draft ") + options);
        ReadTicket(WatermarkGetTicketFromPDE, ticket.options);
        const WatermarkOptions &w = psOptionWatermark;
        for (const float number : {w.width, w.height, w.horizontalOffset, w.verticalOffset}) {
            EXPECT_LT(std::abs(number), 14400.0F);
        }
        EXPECT_LE(w.paperWidth, 14400);
        EXPECT_LE(w.paperHeight, 14400);
        EXPECT_LE(w.fontSize, 2000);
    }
}

TEST(WatermarkOptions, APrintableAreaThatIsNoneIsTheWholeSheet) {
    const auto size = [](const std::string &sheet) {
        return Key(Complete("KVWatermark=Confidential PageSize=" + sheet), "FontSize");
    };
    EXPECT_NE(size("Uneven"), size("Full"));
    for (const char *sheet : {"Swapped", "Low", "High", "Wrong"}) {
        EXPECT_EQ(size(sheet), size("Full")) << sheet;
    }
    for (const char *sheet : {"Nothing", "Endless"}) {
        EXPECT_EQ(Key(Complete(std::string("KVWatermark=Draft PageSize=") + sheet), "PaperWidth"),
                  "612")
            << "that of a queue without a PPD";
    }
}

TEST(WatermarkOptions, LandscapePagesTurnAsThePPDSays) {
    for (const auto &[turn, angle] : {std::pair("Plus90", "90"), std::pair("Minus90", "270")}) {
        const CompletedTicket ticket = CompleteOn(
            PpdWith("*KVFrontEnd: \"CUPS\"\n*LandscapeOrientation: " + std::string(turn) + "\n"),
            TicketJob{"KVWatermark=Draft KVWatermarkAngle=0 landscape"});
        EXPECT_EQ(Key(ticket, "Angle"), angle);
    }
}

TEST(WatermarkOptions, WhatCannotBeStampedIsSaid) {
    EXPECT_EQ(Said(Complete("KVWatermark=日本")),
              "KVWatermark=日本 has no letters that the printer knows\n");
    EXPECT_EQ(Key(Complete("KVWatermark=日本"), "Name"), "absent");
    EXPECT_EQ(Said(Complete("KVWatermark=3€")),
              "KVWatermark=3€ loses the letters that the printer does not know\n");
    EXPECT_EQ(Key(Complete("KVWatermark=3€ KVWatermarkStyle=Filled"), "Text"), "(3)");
    EXPECT_EQ(Said(Complete("KVWatermark=Draft PageSize=Tiny")),
              "KVWatermark=Draft does not fit the sheet\n");
    EXPECT_EQ(Key(Complete("KVWatermark=Draft PageSize=Tiny"), "Name"), "absent");
}

TEST(WatermarkOptions, HasANameAsInTheDialog) {
    EXPECT_EQ(Key(Complete("KVWatermark=Draft"), "Name"), "Draft");
    EXPECT_EQ(Key(Complete("KVWatermark=Mine"), "Name"), "Custom");
}

TEST(WatermarkOptions, LettersOfLatin1ArriveWhole) {
    const CompletedTicket ticket =
        Complete("KVWatermark='Entwurf für Müller (100 %)' KVWatermarkStyle=Filled");
    EXPECT_EQ(Said(ticket), "");
    ReadTicket(WatermarkGetTicketFromPDE, ticket.options);
    EXPECT_STREQ(psOptionWatermark.text, "(Entwurf f\\374r M\\374ller \\050100 \\045\\051)");
    EXPECT_EQ(std::string(psOptionWatermark.font).substr(0, 22), "Helvetica-Bold-Latin1 ");
    EXPECT_EQ(psOptionWatermark.font, Key(ticket, "Font"));
}

TEST(WatermarkOptions, TheDialogsOwnKeysStayAsTheyAre) {
    const CompletedTicket ticket = Complete(
        "KVWatermark=Draft " KV_TICKET "WMARKNameTicket=mine " KV_TICKET "WMARKTextTicket=(MINE)");
    EXPECT_EQ(Key(ticket, "Text"), "(MINE)");
    EXPECT_EQ(Key(ticket, "Angle"), "absent");
}

// The code that outlines a text takes 80 bytes of the ticket's 255.
TEST(WatermarkOptions, HowLongATextMayBe) {
    const auto said = [](std::size_t letters, const std::string &style) {
        return Said(Complete("KVWatermark=" + std::string(letters, 'x') +
                             " KVWatermarkSize=1 KVWatermarkStyle=" + style));
    };
    EXPECT_EQ(said(173, "Outline"), "");
    EXPECT_NE(said(174, "Outline"), "");
    EXPECT_EQ(said(200, "Filled"), "");
}

// The ticket's field holds what is left of a text that is too long, and the code around it.
TEST(WatermarkOptions, ALongTextLosesItsEnd) {
    for (const char *style : {"Outline", "Filled"}) {
        const CompletedTicket ticket = Complete("KVWatermark='" + std::string(100, '%') +
                                                "' KVWatermarkSize=1 KVWatermarkStyle=" + style);
        EXPECT_NE(Said(ticket).find(" is too long and loses its end\n"), std::string::npos);
        ReadTicket(WatermarkGetTicketFromPDE, ticket.options);
        EXPECT_EQ(psOptionWatermark.text, Key(ticket, "Text"));
        EXPECT_EQ(std::string(psOptionWatermark.text).back(), ')');
    }
}
