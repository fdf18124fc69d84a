// SPDX-License-Identifier: Apache-2.0
#include "Modules/SpecialPage/SpecialPageTicket.h"

#include <gtest/gtest.h>

#include <string>

namespace {

void ReadTicket(std::string options) {
    char empty[] = "";
    char *argv[] = {empty, empty, empty, empty, empty, options.data(), nullptr};
    EXPECT_EQ(SpecialPageGetTicketFromPDE(argv), 1);
}

void ExpectCounts(int covers, int insertions, int exceptions) {
    EXPECT_EQ(psOptionSpecialPage.coverCount, covers);
    EXPECT_EQ(psOptionSpecialPage.insertionCount, insertions);
    EXPECT_EQ(psOptionSpecialPage.exceptionCount, exceptions);
}

}  // namespace

TEST(SpecialPageTicket, TableHasTheKeysInTheirOrder) {
    const char *const keys[] = {
        "com.korvell.tav.printsettings.KPIFCoverCountTicket",
        "com.korvell.tav.printsettings.KPIFInsertionCountTicket",
        "com.korvell.tav.printsettings.KPIFExceptionCountTicket",
    };
    const void *const fields[] = {&psOptionSpecialPage.coverCount,
                                  &psOptionSpecialPage.insertionCount,
                                  &psOptionSpecialPage.exceptionCount};
    ASSERT_EQ(std::size(keys), std::size_t(SpecialPageTicketDataNum));
    for (std::size_t i = 0; i < std::size(keys); i++) {
        EXPECT_STREQ(SpecialPageTicketData[i].key, keys[i]);
        EXPECT_EQ(SpecialPageTicketData[i].destination, fields[i]);
        EXPECT_EQ(SpecialPageTicketData[i].size, 4);
        EXPECT_EQ(SpecialPageTicketData[i].getter, GetTicketInteger);
    }
}

TEST(SpecialPageTicket, KeysOfTheValues) {
    EXPECT_STREQ(kSPKPCoverValueKey, "com.korvell.tav.printsettings.KPIFCoverValueTicket_");
    EXPECT_STREQ(kSPKPInsertionValueKey, "com.korvell.tav.printsettings.KPIFInsertionValueTicket_");
    EXPECT_STREQ(kSPKPExceptionValueKey, "com.korvell.tav.printsettings.KPIFExceptionValueTicket_");
}

TEST(SpecialPageTicket, ReadsTheCountsAndResetsThem) {
    ReadTicket(
        "com.korvell.tav.printsettings.KPIFCoverCountTicket=2 "
        "com.korvell.tav.printsettings.KPIFInsertionCountTicket=-7 "
        "com.korvell.tav.printsettings.KPIFExceptionCountTicket=2147483648");
    ExpectCounts(2, -7, 2147483647);
    ReadTicket("com.korvell.tav.printsettings.KPIFInsertionCountTicket=many");
    ExpectCounts(-1, 0, -1);
    SpecialPageInializeDescriptionTable();
    ExpectCounts(0, 0, 0);
}
