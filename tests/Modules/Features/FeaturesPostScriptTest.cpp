// SPDX-License-Identifier: Apache-2.0
#include "Modules/Features/FeaturesPostScript.h"

#include <gtest/gtest.h>

#include <string>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "Modules/Features/FeaturesTicket.h"
#include "support/CaptureOutput.h"
#include "support/Injections.h"
#include "support/TicketOption.h"

namespace {

FeaturesOptions &f = kpjlOptionFeatures;

// A ticket without any of the features, on a sheet of unknown layout.
class FeaturesPostScript : public testing::Test {
  protected:
    FeaturesPostScript() {
        f = {};
        f.bookletMarginSwitch = f.autoFitSwitch = f.separatorPagesList = -1;
        ClearLayoutBuffers();
    }

    static void SetLayout(const char *rows, const char *columns) {
        CopyBounded(StdLayoutRowInfo, rows);
        CopyBounded(StdLayoutColumnInfo, columns);
    }

    static void SetAll() {
        f.bookletMarginSwitch = 1;
        CopyBounded(f.bookletMarginShift, "5");
        f.autoFitSwitch = OptionAutoFit;
        f.separatorPagesList = 0;
        CopyBounded(f.separatorPages, "1 3");
    }
};

std::string At(int point) {
    return CaptureOutput(
        [point] { EXPECT_EQ(FeaturesOutputPSCommandFromFilter(point, stdout), 1); });
}

std::string AutoFit() {
    return CaptureOutput([] { FeaturesOutputAutoFit(stdout); });
}

std::string SeparatorPages() {
    return CaptureOutput([] { FeaturesOutputSeparatorPages(stdout); });
}

std::string Shift(const std::string &millimetres) {
    return "[{\n"
           "%%BeginNonPPDFeatures\n" +
           millimetres +
           "/Custom/ProcSet findresource/setsignatureimageshift get exec\n"
           "%%EndNonPPDFeatures\n"
           "} stopped cleartomark\n";
}

std::string Scale(const std::string &state) {
    return "[{\n"
           "%%BeginNonPPDFeatures\n"
           "/Custom/ProcSet findresource/setsignatureautoscale 2 copy known {get " +
           state +
           " exch exec} {pop pop} ifelse\n"
           "%%EndNonPPDFeatures\n"
           "} stopped cleartomark\n";
}

std::string Separators(const std::string &pages) {
    return "[{\n"
           "%%BeginNonPPDFeatures\n"
           "1 dict dup/SeparatorPages[" +
           pages +
           "]put/Custom/ProcSet findresource/setcoverseparator get exec\n"
           "%%EndNonPPDFeatures\n"
           "} stopped cleartomark\n";
}

TEST_F(FeaturesPostScript, ShiftsAndScalesBookletsAsTheSwitchesSay) {
    struct {
        std::int32_t bookletMargin, autoFit;
        const char *shift;
        std::string expected;
    } const cases[] = {
        {-1, -1, "5", ""},
        {-1, 0, "5", ""},
        {-1, 1, "5", ""},
        {0, -1, "5", ""},
        {0, 0, "5", ""},
        {0, 1, "5", ""},
        {1, -1, "12", Shift("12.000")},
        {1, 0, "5", Shift("5.000") + Scale("false")},
        {1, 1, "-5", Shift("-5.000") + Scale("true")},
        {1, 2, "0", Shift("0.000") + Scale("true")},
        {1, -2, "", Shift(".000") + Scale("true")},
        {2, -1, "1.5", Shift("1.5.000")},
        {-2, -1, "9999", Shift("9999.000")},
        {1, -1, "%%n", Shift("%n.000")},
        {1, -1, "%n%s", Shift("%n%s.000")},
    };
    for (const auto &ticket : cases) {
        SCOPED_TRACE(testing::Message() << ticket.bookletMargin << ", " << ticket.autoFit);
        f.bookletMarginSwitch = ticket.bookletMargin;
        f.autoFitSwitch = ticket.autoFit;
        CopyBounded(f.bookletMarginShift, ticket.shift);
        EXPECT_EQ(AutoFit(), ticket.expected);
    }
}

TEST_F(FeaturesPostScript, DeclaresSeparatorPagesUnlessTheyAreOff) {
    struct {
        std::int32_t list;
        const char *pages;
        std::string expected;
    } const cases[] = {
        {-1, "1 2", ""},
        {1, "1 2", ""},
        {0, "", Separators("")},
        {0, "1 2 3", Separators("1 2 3")},
        {2, "1", Separators("1")},
        {-2, "1", Separators("1")},
        {0, "%%s%n", Separators("%s%n")},
        {0, "](\\", Separators("](\\")},
    };
    for (const auto &ticket : cases) {
        SCOPED_TRACE(testing::Message() << ticket.list << ", " << ticket.pages);
        f.separatorPagesList = ticket.list;
        CopyBounded(f.separatorPages, ticket.pages);
        EXPECT_EQ(SeparatorPages(), ticket.expected);
    }
}

// The line with the page list holds 99 bytes; 13 of the list fit.
TEST_F(FeaturesPostScript, CutsTheLineOfALongPageList) {
    const std::string start = "[{\n%%BeginNonPPDFeatures\n";
    const std::string end = "%%EndNonPPDFeatures\n} stopped cleartomark\n";
    f.separatorPagesList = 0;

    CopyBounded(f.separatorPages, "1 2 3 4 5 6 7");
    EXPECT_EQ(SeparatorPages(), Separators("1 2 3 4 5 6 7"));

    CopyBounded(f.separatorPages, "1 2 3 4 5 6 78");
    EXPECT_EQ(SeparatorPages(), start +
                                    "1 dict dup/SeparatorPages[1 2 3 4 5 6 78]put/Custom/ProcSet "
                                    "findresource/setcoverseparator get exec" +
                                    end);

    const std::string longest(99, '9');
    CopyBounded(f.separatorPages, longest.c_str());
    EXPECT_EQ(SeparatorPages(), start + "1 dict dup/SeparatorPages[" + longest.substr(26) + end);
}

TEST_F(FeaturesPostScript, PlacesTheBlocksByThePagesOnASheet) {
    enum Placement { kOnePage, kSeveralPages, kNowhere };
    struct {
        const char *rows, *columns;
        Placement placement;
    } const layouts[] = {
        {"", "", kOnePage},
        {"1", "1", kOnePage},
        {"0", "5", kOnePage},
        {"2", "", kOnePage},
        {"two", "2", kOnePage},
        {"-1", "-1", kOnePage},
        {"1", "2", kSeveralPages},
        {"2", "1", kSeveralPages},
        {"4", "4", kSeveralPages},
        {" 2x", "+2", kSeveralPages},
        {"-2", "-2", kSeveralPages},
        {"65536", "65536", kSeveralPages},
        {"999999999", "999999999", kSeveralPages},
        {"2147483647", "99999999999", kSeveralPages},
        {"-1", "1", kNowhere},
        {"2", "-3", kNowhere},
        {"-99999999999", "99999999999", kNowhere},
    };
    SetAll();
    const std::string separators = Separators("1 3");
    const std::string autoFit = Shift("5.000") + Scale("true");
    for (const auto &layout : layouts) {
        for (int point = -1; point <= 30; point++) {
            SCOPED_TRACE(testing::Message()
                         << layout.rows << " by " << layout.columns << ", point " << point);
            SetLayout(layout.rows, layout.columns);
            std::string expected;
            if (layout.placement == kOnePage && point == 14) expected = separators;
            if (layout.placement == kOnePage && point == 16) expected = autoFit;
            if (layout.placement == kSeveralPages && point == 21) expected = separators + autoFit;
            EXPECT_EQ(At(point), expected);
        }
    }
}

TEST_F(FeaturesPostScript, TellsItsSwitchesApart) {
    EXPECT_EQ(OptionAutoFit, 1);
    EXPECT_EQ(OptionAutoFitNone, 0);
}

TEST(FeaturesJob, DeclaresSeparatorsInThePrologAndTheShiftInTheSetup) {
    EXPECT_EQ(PrintedDocument(TicketOption("SeparatorPageListTicket", "0") +
                              TicketOption("SeparatorPageTicket", "2 4") +
                              TicketOption("BookletMarginSwitchTicket", "1") +
                              TicketOption("BookletMarginMMShiftTicket", "-3") +
                              TicketOption("AutoFitSwitchTicket", "0")),
              "%!PS-Adobe-3.0\n"
              "%%BeginProlog\n" +
                  Separators("2 4") +
                  "%%EndProlog\n"
                  "%%EndProlog\n"
                  "userdict/setpagedevice{pop}bind put\n" +
                  Shift("-3.000") + Scale("false") +
                  "%%EndSetup\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "ep\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "endp\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "ep\n"
                  "\x04");
}

TEST(FeaturesJob, PutsBothBehindTheSetupOfSheetsOfTwo) {
    EXPECT_EQ(
        PrintedDocument(TicketOption("SeparatorPageListTicket", "2") +
                        TicketOption("BookletMarginSwitchTicket", "1") +
                        TicketOption("BookletMarginMMShiftTicket", "0") + "number-up=2 " +
                        kLayoutRowCountTicketKey + "=1 " + kLayoutColumnCountTicketKey + "=2"),
        "%!PS-Adobe-3.0\n"
        "%%BeginProlog\n"
        "%%EndProlog\n"
        "%%EndProlog\n" +
            Separators("") + Shift("0.000") +
            "userdict/setpagedevice{pop}bind put\n"
            "%%EndSetup\n"
            "bp\n"
            "%%EndPageSetup\n"
            "ep\n"
            "bp\n"
            "%%EndPageSetup\n"
            "endp\n"
            "bp\n"
            "%%EndPageSetup\n"
            "ep\n"
            "\x04");
}

TEST(FeaturesJob, ATicketWithoutThemChangesNothing) {
    EXPECT_EQ(PrintedDocument(""), std::string(kEveryInjectionLine) + "\x04");
}

}  // namespace
