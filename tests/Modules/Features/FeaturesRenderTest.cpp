// SPDX-License-Identifier: Apache-2.0
//
// Separator pages and the image shift in a PostScript interpreter: one that lacks the printer's
// procedures prints the document as if they were not there, one that has them gets their operands.
#include <gtest/gtest.h>

#include <string>

#include "support/Ghostscript.h"
#include "support/Injections.h"
#include "support/PrintSystemDocument.h"
#include "support/PsToPs.h"
#include "support/TicketOption.h"

namespace {

std::string AllFeatures(const std::string &autoFit) {
    return TicketOption("SeparatorPageListTicket", "0") +
           TicketOption("SeparatorPageTicket", "1 3") +
           TicketOption("BookletMarginSwitchTicket", "1") +
           TicketOption("BookletMarginMMShiftTicket", "-5") +
           TicketOption("AutoFitSwitchTicket", autoFit);
}

// A printer's procedures that say what they were called with.
constexpr char kCustomProcedures[] =
    "/Custom <<\n"
    "/setsignatureimageshift{(shift ) print =}\n"
    "/setsignatureautoscale{(scale ) print =}\n"
    "/setcoverseparator{(separators ) print {exch == ==} forall}\n"
    ">> /ProcSet defineresource pop\n";

TEST(FeaturesRender, APrinterWithoutTheProceduresGoesOn) {
    const std::string printed = PrintedDocument(AllFeatures("1"), PrintSystemDocument(2));
    EXPECT_NE(printed.find("setcoverseparator"), printed.npos);
    EXPECT_NE(printed.find("setsignatureimageshift"), printed.npos);
    const Rendering with = Render(printed);
    EXPECT_EQ(with.status, 0);
    EXPECT_EQ(with.messages, "");
    const Rendering without = Render(PrintedDocument("", PrintSystemDocument(2)));
    ASSERT_EQ(with.pages.size(), 2U);
    ASSERT_EQ(without.pages.size(), 2U);
    for (std::size_t page = 0; page < 2; page++) {
        EXPECT_TRUE(with.pages[page].pixels == without.pages[page].pixels);
    }
}

TEST(FeaturesRender, APrinterWithTheProceduresGetsTheirOperands) {
    const std::string document = PrintSystemDocument(1);
    const Rendering fitted =
        Render(kCustomProcedures + PrintedDocument(AllFeatures("1"), document));
    EXPECT_EQ(fitted.status, 0);
    EXPECT_EQ(fitted.messages,
              "separators /SeparatorPages\n"
              "[1 3]\n"
              "shift -5.0\n"
              "scale true\n");
}

// A page list that takes the end of its line away takes no page with it.
TEST(FeaturesRender, ACutPageListHarmsNoPage) {
    for (const std::size_t pages : {7U, 8U, 12U, 30U, 49U}) {
        SCOPED_TRACE(pages);
        std::string list = "1";
        for (std::size_t page = 1; page < pages; page++) list += " 1";
        const Rendering rendering = Render(
            kCustomProcedures + PrintedDocument(TicketOption("SeparatorPageListTicket", "0") +
                                                    TicketOption("SeparatorPageTicket", list),
                                                PrintSystemDocument(2)));
        EXPECT_EQ(rendering.status, 0) << rendering.messages;
        EXPECT_EQ(rendering.pages.size(), 2U);
    }
}

// Two pages on a sheet: the blocks stand in the set-up that the scheduler's filter writes.
TEST(FeaturesRender, RunsOnSheetsOfTwoPages) {
    const std::string document = ThroughPsToPs(PrintSystemDocument(3), "number-up=2");
    ASSERT_NE(document.find(kSeveralPagesLine), document.npos);
    const std::string printed =
        PrintedDocument(AllFeatures("1") + "number-up=2 " + kLayoutRowCountTicketKey + "=1 " +
                            kLayoutColumnCountTicketKey + "=2",
                        document);
    EXPECT_NE(printed.find("} stopped cleartomark\n" + std::string(kSeveralPagesLine)),
              printed.npos);
    const Rendering without = Render(printed);
    EXPECT_EQ(without.status, 0);
    EXPECT_EQ(without.messages, "");
    EXPECT_EQ(without.pages.size(), 2U);
    const Rendering with = Render(kCustomProcedures + printed);
    EXPECT_EQ(with.status, 0);
    EXPECT_EQ(with.messages,
              "separators /SeparatorPages\n"
              "[1 3]\n"
              "shift -5.0\n"
              "scale true\n");
    EXPECT_EQ(with.pages.size(), 2U);
}

TEST(FeaturesRender, RunsBehindPsToPsWithOnePageOnASheet) {
    const std::string document = ThroughPsToPs(PrintSystemDocument(3), "");
    EXPECT_EQ(document.find(kSeveralPagesLine), document.npos);
    const Rendering rendering =
        Render(kCustomProcedures + PrintedDocument(AllFeatures("0"), document));
    EXPECT_EQ(rendering.status, 0);
    EXPECT_EQ(rendering.messages,
              "separators /SeparatorPages\n"
              "[1 3]\n"
              "shift -5.0\n"
              "scale false\n");
    EXPECT_EQ(rendering.pages.size(), 3U);
}

}  // namespace
