// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PBindTicket.h"

#include <gtest/gtest.h>

#include <string>

namespace {

PBindOptions &p = psoptionpbind;

void ReadTicket(std::string options) {
    char empty[] = "";
    char *argv[] = {empty, empty, empty, empty, empty, options.data(), nullptr};
    EXPECT_EQ(PBindGetTicketFromPDE(argv), 1);
}

// The rows in their order.
const struct {
    const char *key;
    const void *destination;
} rows[] = {
    {"KVPBindPosition", p.bindPosition},
    {"KVPBindTrimming", p.trimming},
    {"KVPBindCutPageSize", p.cutPageSize},
    {"noKVPBindImagePosition", &p.imagePosition},
    {"KVPBindCutPositionTop", p.cutPositionTop},
    {"KVPBindCutPositionFore", p.cutPositionFore},
    {"KVPBindPageSize", p.pageSize},
    {"KVPBindCoverPageSize", p.coverPageSize},
    {"KVPBindCoverMediaType", p.coverMediaType},
    {"KVPBindCoverMediaColor", p.coverMediaColor},
    {"KVPBindCoverPaperTray", p.coverPaperTray},
    {"KVPBindRotationAdjustTop", p.rotationAdjustTop},
    {"KVPBindRotationAdjustBot", p.rotationAdjustBot},
    {"KVPBindRotationAdjustFore", p.rotationAdjustFore},
    {"KVPBindCutPageAdjustmentTB", p.cutPageAdjustmentTB},
    {"KVPBindCutPageAdjustmentFore", p.cutPageAdjustmentFore},
    {"KVPBindCutPositionAdjustmentTB", p.cutPositionAdjustmentTB},
    {"KVPBindCoverAdjustX", p.coverAdjustX},
    {"KVPBindCoverAdjustY", p.coverAdjustY},
};

}  // namespace

TEST(PBindTicket, TableHasTheKeysInTheirOrder) {
    ASSERT_EQ(std::size(rows), std::size_t(PBindTicketDataNum));
    for (std::size_t i = 0; i < std::size(rows); i++) {
        SCOPED_TRACE(rows[i].key);
        const bool isNumber = rows[i].destination == &p.imagePosition;
        EXPECT_STREQ(PBindticketData[i].key, rows[i].key);
        EXPECT_EQ(PBindticketData[i].destination, rows[i].destination);
        EXPECT_EQ(PBindticketData[i].size, isNumber ? 4 : 256);
        EXPECT_EQ(PBindticketData[i].getter,
                  isNumber ? GetTicketInteger : GetTicketStringConvertedToPrtLang);
    }
}

TEST(PBindTicket, EveryKeyReachesItsField) {
    std::string options = "noKVPBindImagePosition=3";
    for (const auto &row : rows) {
        if (row.destination != &p.imagePosition) {
            options += std::string(" ") + row.key + "=<" + row.key + ">";
        }
    }
    options += " KVPBindCutPageSize=A5 KVPBindTrimming=3EdgeSpecifySize";  // or it is cleared
    ReadTicket(options);
    EXPECT_STREQ(p.bindPosition, "<KVPBindPosition>");
    EXPECT_STREQ(p.cutPageSize, "A5");
    EXPECT_STREQ(p.pageSize, "<KVPBindPageSize>");
    EXPECT_STREQ(p.coverPageSize, "<KVPBindCoverPageSize>");
    EXPECT_STREQ(p.coverMediaType, "<KVPBindCoverMediaType>");
    EXPECT_STREQ(p.coverMediaColor, "<KVPBindCoverMediaColor>");
    EXPECT_STREQ(p.coverPaperTray, "<KVPBindCoverPaperTray>");
    EXPECT_STREQ(p.rotationAdjustTop, "<KVPBindRotationAdjustTop>");
    EXPECT_STREQ(p.rotationAdjustBot, "<KVPBindRotationAdjustBot>");
    EXPECT_STREQ(p.rotationAdjustFore, "<KVPBindRotationAdjustFore>");
    EXPECT_STREQ(p.cutPageAdjustmentTB, "<KVPBindCutPageAdjustmentTB>");
    EXPECT_STREQ(p.cutPageAdjustmentFore, "<KVPBindCutPageAdjustmentFore>");
    EXPECT_STREQ(p.cutPositionAdjustmentTB, "<KVPBindCutPositionAdjustmentTB>");
    EXPECT_STREQ(p.coverAdjustX, "<KVPBindCoverAdjustX>");
    EXPECT_STREQ(p.coverAdjustY, "<KVPBindCoverAdjustY>");
    EXPECT_EQ(p.imagePosition, 3);
}

TEST(PBindTicket, ReadsATicketAfresh) {
    ReadTicket("KVPBindPosition=BindLeft KVPBindTrimming=3EdgeCutMinimum KVPBindCoverAdjustX=1");
    ReadTicket("");
    EXPECT_STREQ(p.bindPosition, "");
    EXPECT_STREQ(p.rotation, "");
    EXPECT_STREQ(p.trimming, "");
    EXPECT_STREQ(p.cutPositionTop, "");
    EXPECT_STREQ(p.cutPositionFore, "");
    EXPECT_STREQ(p.coverAdjustX, "");
    EXPECT_EQ(p.minimumCut, 0);
}

TEST(PBindTicket, BindPositionInThePrintersTerms) {
    const struct {
        const char *options, *bindPosition, *rotation;
    } cases[] = {
        {"KVPBindPosition=None", "OFF", ""},
        {"KVPBindPosition=BindLeft", "LEFT", "ROTSEFLAND"},
        {"KVPBindPosition=BindRight", "RIGHT", "ROTLEFPORT"},
        {"KVPBindPosition=BindTop", "TOP", "ROTSEFLAND"},
        {"KVPBindPosition=BindBottom", "BindBottom", ""},
        {"KVPBindPosition=bindleft", "bindleft", ""},
        {"KVPBindPosition=BindLeft2", "BindLeft2", ""},
        {"KVPBindPosition=LEFT", "LEFT", ""},
        {"KVPBindPosition=/66/105/110/100/84/111/112", "TOP", "ROTSEFLAND"},
        {"", "", ""},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.options);
        ReadTicket(row.options);
        EXPECT_STREQ(p.bindPosition, row.bindPosition);
        EXPECT_STREQ(p.rotation, row.rotation);
    }
}

TEST(PBindTicket, TrimmingDecidesWhichCutFieldsSurvive) {
    const struct {
        const char *trimming, *keyword, *cutPageSize, *top, *fore;
        int minimumCut;
    } cases[] = {
        {"None", "OFF", "", "", "", 0},
        {"3EdgeSpecifySize", "FULLBLEED", "A5", "", "", 0},
        {"1EdgeSpecifySize", "FACE", "A5", "", "", 0},
        {"1EdgeCut", "FACE", "", "", "5mm", 0},
        {"3EdgeCutMinimum", "FULLBLEED", "", "7mm", "7mm", 1},
        {"1EdgeCutMinimum", "FACE", "", "", "7mm", 1},
        {"3EdgeCut", "FULLBLEED", "", "3mm", "5mm", 0},
        {"3Edge", "FULLBLEED", "", "3mm", "5mm", 0},
        {"1EdgeCutTwice", "FACE", "", "3mm", "5mm", 0},
        {"2EdgeCut", "2EdgeCut", "", "3mm", "5mm", 0},
        {"Nonesuch", "Nonesuch", "", "3mm", "5mm", 0},
        {"none", "none", "", "3mm", "5mm", 0},
        {"OFF", "OFF", "", "3mm", "5mm", 0},
        {nullptr, "", "", "3mm", "5mm", 0},
    };
    for (const char *position : {"None", "BindLeft", "BindRight", "BindTop", "Spiral"}) {
        for (const auto &row : cases) {
            std::string options = std::string("KVPBindPosition=") + position +
                                  " KVPBindCutPageSize=A5 KVPBindCutPositionTop=3mm"
                                  " KVPBindCutPositionFore=5mm";
            if (row.trimming) options += std::string(" KVPBindTrimming=") + row.trimming;
            SCOPED_TRACE(options);
            ReadTicket(options);
            EXPECT_STREQ(p.trimming, row.keyword);
            EXPECT_STREQ(p.cutPageSize, row.cutPageSize);
            EXPECT_STREQ(p.cutPositionTop, row.top);
            EXPECT_STREQ(p.cutPositionFore, row.fore);
            EXPECT_EQ(p.minimumCut, row.minimumCut);
        }
    }
}

TEST(PBindTicket, LongTextsAreCut) {
    ReadTicket("KVPBindPosition=" + std::string(300, 'x') +
               " KVPBindTrimming=" + std::string(300, 'y'));
    EXPECT_EQ(std::string(p.bindPosition), std::string(255, 'x'));
    EXPECT_EQ(std::string(p.trimming), std::string(255, 'y'));
}
