// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkTicket.h"

#include <gtest/gtest.h>

#include <cstring>
#include <iterator>
#include <string>

namespace {

struct Row {
    const char *key;
    void *destination;
    std::int32_t size;
    TicketGetter getter;
};

WatermarkOptions &w = psOptionWatermark;

// clang-format off
const Row kRows[] = {
    {"com.korvell.tav.printsettings.WMARKNameTicket",          w.name,                256, GetTicketString},
    {"com.korvell.tav.printsettings.WMARKOptionsTicket",       &w.options,            4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKOnlyFirstTicket",     &w.onlyFirst,          4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKTextTicket",          w.text,                256, GetTicketStringConvertedToPrtLang},
    {"com.korvell.tav.printsettings.WMARKOrientationTicket",   &w.orientation,        4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKPaperHeightTicket",   &w.paperHeight,        4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKPaperWidthTicket",    &w.paperWidth,         4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKFilePathTicket",      w.filePath,            256, GetTicketStringConvertedToPrtLang},
    {"com.korvell.tav.printsettings.WMARKTypeTicket",          &w.type,               4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKFontTicket",          w.font,                256, GetTicketString},
    {"com.korvell.tav.printsettings.WMARKFontSizeTicket",      &w.fontSize,           4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKFontTypeTicket",      &w.fontType,           4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKColorRTicket",        &w.red,                4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKColorGTicket",        &w.green,              4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKColorBTicket",        &w.blue,               4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKColorATicket",        &w.alpha,              4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKAngleTicket",         &w.angle,              4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKDensityTicket",       &w.density,            4,   GetTicketInteger},
    {"com.korvell.tav.printsettings.WMARKScaleTicket",         &w.scale,              4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKPosHorizontalTicket", &w.horizontalPosition, 4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKPosVerticalTicket",   &w.verticalPosition,   4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKWidthTicket",         &w.width,              4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKHeightTicket",        &w.height,             4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKhOffsetTicket",       &w.horizontalOffset,   4,   GetTicketFloat},
    {"com.korvell.tav.printsettings.WMARKvOffsetTicket",       &w.verticalOffset,     4,   GetTicketFloat},
};
// clang-format on

void ReadTicket(std::string options) {
    char *argv[] = {nullptr, nullptr, nullptr, nullptr, nullptr, options.data(), nullptr};
    EXPECT_EQ(WatermarkGetTicketFromPDE(argv), 1);
}

TEST(WatermarkTicket, HasTheRowsOfTheDialog) {
    ASSERT_EQ(std::size(kRows), std::size_t(WatermarkTicketDataNum));
    for (std::size_t i = 0; i < std::size(kRows); i++) {
        SCOPED_TRACE(kRows[i].key);
        EXPECT_STREQ(WatermarkticketData[i].key, kRows[i].key);
        EXPECT_EQ(WatermarkticketData[i].destination, kRows[i].destination);
        EXPECT_EQ(WatermarkticketData[i].size, kRows[i].size);
        EXPECT_EQ(WatermarkticketData[i].getter, kRows[i].getter);
    }
}

TEST(WatermarkTicket, FillsEveryFieldFromItsKey) {
    std::string options;
    for (std::size_t i = 0; i < std::size(kRows); i++) {
        options += std::string(kRows[i].key) + "=" + std::to_string(100 + i) + " ";
    }
    ReadTicket(options);
    for (std::size_t i = 0; i < std::size(kRows); i++) {
        SCOPED_TRACE(kRows[i].key);
        const int number = static_cast<int>(100 + i);
        if (kRows[i].size == 256) {
            EXPECT_EQ(static_cast<const char *>(kRows[i].destination), std::to_string(number));
        } else if (kRows[i].getter == GetTicketFloat) {
            EXPECT_EQ(*static_cast<const float *>(kRows[i].destination), number);
        } else {
            EXPECT_EQ(*static_cast<const std::int32_t *>(kRows[i].destination), number);
        }
    }
}

TEST(WatermarkTicket, AbsentKeysAreMinusOneOrEmpty) {
    std::memset(&psOptionWatermark, 'x', sizeof psOptionWatermark);
    ReadTicket("sides=one-sided");
    for (const Row &row : kRows) {
        SCOPED_TRACE(row.key);
        if (row.size == 256) {
            EXPECT_STREQ(static_cast<const char *>(row.destination), "");
        } else if (row.getter == GetTicketFloat) {
            EXPECT_EQ(*static_cast<const float *>(row.destination), -1.0F);
        } else {
            EXPECT_EQ(*static_cast<const std::int32_t *>(row.destination), -1);
        }
    }
}

// The dialog slash-codes what a person types; the watermark's and the font's names come plain.
TEST(WatermarkTicket, DecodesTheTextAndThePathOnly) {
    ReadTicket(KV_TICKET "WMARKNameTicket=/72/105 " KV_TICKET
                         "WMARKTextTicket=/40/72/105/41 " KV_TICKET
                         "WMARKFilePathTicket=/65/66 " KV_TICKET "WMARKFontTicket=/67/68");
    EXPECT_STREQ(w.name, "/72/105");
    EXPECT_STREQ(w.text, "(Hi)");
    EXPECT_STREQ(w.filePath, "AB");
    EXPECT_STREQ(w.font, "/67/68");
}

TEST(WatermarkTicket, TextsBecomeLatin1AndAreCutTo255Bytes) {
    ReadTicket(KV_TICKET "WMARKTextTicket=(Entw\xc3\xbcrfe) " KV_TICKET "WMARKFontTicket=" +
               std::string(300, 'f'));
    EXPECT_STREQ(w.text, "(Entw\xfcrfe)");
    EXPECT_EQ(w.font, std::string(255, 'f'));
}

TEST(WatermarkTicket, NumbersKeepTheirSignAndFraction) {
    ReadTicket(KV_TICKET "WMARKAngleTicket=-45 " KV_TICKET "WMARKhOffsetTicket=-12.5 " KV_TICKET
                         "WMARKColorRTicket=0.25");
    EXPECT_EQ(w.angle, -45);
    EXPECT_EQ(w.horizontalOffset, -12.5F);
    EXPECT_EQ(w.red, 0.25F);
}

}  // namespace
