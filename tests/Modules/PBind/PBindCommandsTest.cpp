// SPDX-License-Identifier: Apache-2.0
#include "Modules/PBind/PBindCommands.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "Modules/PBind/PBindTicket.h"
#include "support/CaptureOutput.h"
#include "support/Ppd.h"
#include "support/RunFilter.h"
#include "support/TempFolder.h"

namespace {

// A size of the PPD, in points.
std::string PpdSize(const std::string &name, const std::string &points) {
    return "*PageSize " + name + ": \"\"\n*PaperDimension " + name + ": \"" + points + "\"\n";
}

std::string BinderPpd() {
    return PpdWith(
        "*VariablePaperSize: True\n"
        "*CustomPageSize True: \"\"\n"
        "*ParamCustomPageSize Width: 1 points 36 1000\n"
        "*ParamCustomPageSize Height: 2 points 36 2000\n" +
        PpdSize("A3", "842 1191") + PpdSize("A5", "420 595") + PpdSize("B5", "516 729") +
        PpdSize("SRA3", "907.5 1276.9") + PpdSize("A3.Wide", "1191 842") +
        PpdSize("Minus", "-100 -1") + PpdSize("Huge", "1e9 2147483520") +
        PpdSize("Beyond", "1e20 4e9") + PpdSize("Infinite", "1e999 -1e999"));
}

// What the ticket `options` writes with the PPD at `path`, with none if it is null.
std::string Print(std::string options, const char *path) {
    char empty[] = "";
    char *argv[] = {empty, empty, empty, empty, empty, options.data(), nullptr};
    path ? setenv("PPD", path, 1) : unsetenv("PPD");
    CloseJobPPD();
    PBindGetTicketFromPDE(argv);
    return CaptureOutput(OutputKPJLCommandforPerfectBind);
}

std::string Print(const std::string &options) {
    static const TempFolder folder;
    static const std::string path = folder.Write("binder.ppd", BinderPpd());
    return Print(options, path.c_str());
}

// "A=1 B=x" as command lines.
std::string Commands(const std::string &attributes) {
    std::string lines;
    std::size_t start = 0;
    while (start < attributes.size()) {
        std::size_t end = attributes.find(' ', start);
        if (end == std::string::npos) end = attributes.size();
        lines += "@PJL SET JOBATTR=\"@" + attributes.substr(start, end - start) + "\"\n";
        start = end + 1;
    }
    return lines;
}

// The lines between the rotation and the trailing PBCI of a left-bound book.
std::string LeftBound(const std::string &attributes) {
    return Commands("PBRE=LEFT MSDA=ROTSEFLAND " + attributes + " PBCI=OFF");
}

}  // namespace

TEST(PBindCommands, NothingUnlessTheBookIsBound) {
    const std::string rest =
        " KVPBindTrimming=3EdgeCut KVPBindPageSize=A4 KVPBindCoverAdjustX=1"
        " KVPBindCoverMediaColor=Blue";
    EXPECT_EQ(Print("KVPBindPosition=None" + rest), "");
    EXPECT_EQ(Print("KVPBindPosition=OFF" + rest), "");
    EXPECT_EQ(Print("KVPBindPosition=" + rest), "");
    EXPECT_EQ(Print(rest), "");
    EXPECT_EQ(Print(""), "");
}

TEST(PBindCommands, TheLeastBook) {
    EXPECT_EQ(Print("KVPBindPosition=BindLeft"),
              LeftBound("PBTC= PBTP=CUSTOM PBTW=0 PBTH=0 ISXO=0 ISXT=0"));
    EXPECT_EQ(Print("KVPBindPosition=BindLeft KVPBindTrimming=None"), LeftBound("PBTC=OFF PBTP="));
}

TEST(PBindCommands, EveryBindPositionWithEveryTrimming) {
    const struct {
        const char *position, *attributes;
        bool turns;
    } positions[] = {
        {"BindLeft", "PBRE=LEFT MSDA=ROTSEFLAND ", false},
        {"BindRight", "PBRE=RIGHT MSDA=ROTLEFPORT ", true},
        {"BindTop", "PBRE=TOP MSDA=ROTSEFLAND ", false},
        {"Spiral", "PBRE=Spiral MSDA= ", false},
    };
    const struct {
        const char *trimming, *keyword, *cut;
        int shift;  // -1: no image shift is written
    } trimmings[] = {
        {"None", "OFF", "PBTP=A4", -1},
        {"3EdgeSpecifySize", "FULLBLEED", "PBTP=A5 PBTW=1480 PBTH=2100", 310},
        {"1EdgeSpecifySize", "FACE", "PBTP=A5 PBTW=1480 PBTH=2100", 310},
        {"1EdgeCut", "FACE", "PBTP=CUSTOM PBTW=2050 PBTH=2970", 25},
        {"3EdgeCutMinimum", "FULLBLEED", "PBTP=CUSTOM PBTW=2030 PBTH=2830", -1},
        {"1EdgeCutMinimum", "FACE", "PBTP=CUSTOM PBTW=2030 PBTH=2970", -1},
        {"3EdgeCut", "FULLBLEED", "PBTP=CUSTOM PBTW=2050 PBTH=2910", 25},
        {"1EdgeOther", "FACE", "PBTP=CUSTOM PBTW=2050 PBTH=2910", 25},
        {"Other", "Other", "PBTP=CUSTOM PBTW=2050 PBTH=2910", 25},
        {"OFF", "OFF", "PBTP=A4", -1},
        {"", "", "PBTP=CUSTOM PBTW=2050 PBTH=2910", 25},
    };
    for (const auto &position : positions) {
        for (const auto &trimming : trimmings) {
            const std::string options = std::string("KVPBindPosition=") + position.position +
                                        " KVPBindTrimming=" + trimming.trimming +
                                        " KVPBindPageSize=A4 KVPBindCutPageSize=A5"
                                        " KVPBindCutPositionTop=3mm KVPBindCutPositionFore=5mm";
            SCOPED_TRACE(options);
            std::string expected = position.attributes;
            expected += std::string("PBTC=") + trimming.keyword + " PBBP=A4 " + trimming.cut;
            if (trimming.shift >= 0) {
                const std::string shift = std::to_string(trimming.shift);
                expected += position.turns ? " ISXO=" + shift + " ISXT=-" + shift
                                           : " ISXO=-" + shift + " ISXT=" + shift;
            }
            EXPECT_EQ(Print(options), Commands(expected + " PBCI=OFF"));
        }
    }
}

// The lengths of a cut page size stand as PBTW and PBTH; half of what it leaves of the body's width
// is the image shift.
TEST(PBindCommands, LengthsAreWholeMillimetresInTenths) {
    const struct {
        const char *size, *attributes;
    } cases[] = {
        {"A4", "PBTP=A4 PBTW=2100 PBTH=2970 ISXO=-30 ISXT=30"},
        {"Letter", "PBTP=LETTER PBTW=2160 PBTH=2790 ISXO=0 ISXT=0"},
        {"A3.Wide", "PBTP= PBTW=4200 PBTH=2970 ISXO=1020 ISXT=-1020"},
        {"A3", "PBTP=A3 PBTW=2970 PBTH=4200 ISXO=405 ISXT=-405"},
        {"A5", "PBTP=A5 PBTW=1480 PBTH=2100 ISXO=-340 ISXT=340"},
        {"B5", "PBTP=JISB5 PBTW=1820 PBTH=2570 ISXO=-170 ISXT=170"},
        {"SRA3", "PBTP=SA3 PBTW=3200 PBTH=4500 ISXO=520 ISXT=-520"},  // 907 and 1276 points
        {"Custom.357x544", "PBTP= PBTW=1260 PBTH=1920 ISXO=-450 ISXT=450"},
        {"Custom.100x200mm", "PBTP= PBTW=990 PBTH=1990 ISXO=-585 ISXT=585"},  // 283 and 566 points
        {"Unknown", "PBTP= PBTW=0 PBTH=0 ISXO=-1080 ISXT=1080"},
        {"Executive", "PBTP=EXECUTIVE PBTW=0 PBTH=0 ISXO=-1080 ISXT=1080"},  // not in the PPD
        {"Minus", "PBTP= PBTW=-350 PBTH=0 ISXO=-1255 ISXT=1255"},
        {"Huge", "PBTP= PBTW=2147483647 PBTH=2147483647 ISXO=1764704800 ISXT=-1764704800"},
        {"Beyond", "PBTP= PBTW=0 PBTH=0 ISXO=-1080 ISXT=1080"},
        {"Infinite", "PBTP= PBTW=0 PBTH=0 ISXO=-1080 ISXT=1080"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.size);
        EXPECT_EQ(Print(std::string("KVPBindPosition=BindLeft KVPBindTrimming=3EdgeSpecifySize"
                                    " KVPBindPageSize=Letter KVPBindCutPageSize=") +
                        row.size),
                  LeftBound(std::string("PBTC=FULLBLEED PBBP=LETTER ") + row.attributes));
    }
}

TEST(PBindCommands, BodySizeStandsForTheTrimmedSizeOfAnUntrimmedBook) {
    const struct {
        const char *size, *keyword;
    } cases[] = {{"A4", "A4"}, {"B5", "JISB5"}, {"Custom.357x544", ""}, {"Unknown", ""}};
    for (const auto &row : cases) {
        SCOPED_TRACE(row.size);
        const std::string keyword = row.keyword;
        EXPECT_EQ(
            Print(std::string("KVPBindPosition=BindLeft KVPBindTrimming=None KVPBindPageSize=") +
                  row.size),
            LeftBound("PBTC=OFF PBBP=" + keyword + " PBTP=" + keyword));
    }
}

TEST(PBindCommands, CutPositions) {
    const struct {
        const char *positions, *attributes;
    } cases[] = {
        {"KVPBindCutPositionFore=7mm", "PBTW=2030 PBTH=2970 ISXO=-35 ISXT=35"},
        {"KVPBindCutPositionTop=7mm", "PBTH=2830 ISXO=0 ISXT=0"},
        {"KVPBindCutPositionFore=3mm KVPBindCutPositionTop=11mm",
         "PBTW=2070 PBTH=2750 ISXO=-15 ISXT=15"},
        {"", "PBTW=0 PBTH=0 ISXO=0 ISXT=0"},
        // The last two characters are the unit, whatever they are.
        {"KVPBindCutPositionFore=12cm", "PBTW=1980 PBTH=2970 ISXO=-60 ISXT=60"},
        {"KVPBindCutPositionFore=123", "PBTW=2090 PBTH=2970 ISXO=-5 ISXT=5"},
        {"KVPBindCutPositionFore=7.9mm", "PBTW=2030 PBTH=2970 ISXO=-35 ISXT=35"},
        {"KVPBindCutPositionFore=-3mm", "PBTW=2130 PBTH=2970 ISXO=15 ISXT=-15"},
        {"KVPBindCutPositionFore=widemm", "PBTW=2100 PBTH=2970 ISXO=0 ISXT=0"},
        // Given, and nothing in front of the unit.
        {"KVPBindCutPositionFore=mm", "PBTW=2100 PBTH=2970 ISXO=0 ISXT=0"},
        {"KVPBindCutPositionFore=12", "PBTW=2100 PBTH=2970 ISXO=0 ISXT=0"},
        {"KVPBindCutPositionFore=9", "PBTW=2100 PBTH=2970 ISXO=0 ISXT=0"},
        {"KVPBindCutPositionTop=m", "PBTH=2970 ISXO=0 ISXT=0"},
        // Beyond 32 bits.
        {"KVPBindCutPositionFore=2147483647mm KVPBindCutPositionTop=2147483647mm",
         "PBTW=-2147483648 PBTH=-2147483648 ISXO=-2147483648 ISXT=2147483647"},
        {"KVPBindCutPositionFore=-2147483648mm KVPBindCutPositionTop=-99999999999mm",
         "PBTW=2147483647 PBTH=2147483647 ISXO=2147483647 ISXT=-2147483648"},
        {"KVPBindCutPositionFore=214748574mm",
         "PBTW=-2147483640 PBTH=2970 ISXO=-1073742870 "
         "ISXT=1073742870"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.positions);
        EXPECT_EQ(Print(std::string("KVPBindPosition=BindLeft KVPBindTrimming=3EdgeCut"
                                    " KVPBindPageSize=A4 ") +
                        row.positions),
                  LeftBound(std::string("PBTC=FULLBLEED PBBP=A4 PBTP=CUSTOM ") + row.attributes));
    }
}

TEST(PBindCommands, CutPositionAsLongAsItsField) {
    EXPECT_EQ(Print("KVPBindPosition=BindLeft KVPBindTrimming=1EdgeCut KVPBindCutPositionFore=" +
                    std::string(252, '0') + "7mm"),
              LeftBound("PBTC=FACE PBTP=CUSTOM PBTW=-70 PBTH=0 ISXO=-35 ISXT=35"));
}

TEST(PBindCommands, AdjustmentsTurnWithTheBindPosition) {
    const struct {
        const char *position, *head, *adjustments;
    } cases[] = {
        {"BindLeft", "PBRE=LEFT MSDA=ROTSEFLAND",
         "PBAW=1 PBAH=-2 PBAT=3 PBAB=-4 PBAF=5 PBAX=-6 PBAY=-7 PBAV=8"},
        {"BindRight", "PBRE=RIGHT MSDA=ROTLEFPORT",
         "PBAW=1 PBAH=-2 PBAB=3 PBAT=-4 PBAF=-5 PBAX=6 PBAY=7 PBAV=-8"},
        {"BindTop", "PBRE=TOP MSDA=ROTSEFLAND",
         "PBAW=1 PBAH=-2 PBAT=3 PBAB=-4 PBAF=5 PBAX=-6 PBAY=-7 PBAV=8"},
        {"LEFT", "PBRE=LEFT MSDA=", "PBAW=1 PBAH=-2 PBAT=3 PBAB=-4 PBAF=5 PBAX=-6 PBAY=-7 PBAV=8"},
        {"Bottom",
         "PBRE=Bottom MSDA=", "PBAW=1 PBAH=-2 PBAT=3 PBAB=-4 PBAF=5 PBAX=-6 PBAY=7 PBAV=8"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.position);
        EXPECT_EQ(
            Print(std::string("KVPBindTrimming=None KVPBindPosition=") + row.position +
                  " KVPBindCutPageAdjustmentFore=1 KVPBindCutPageAdjustmentTB=-2"
                  " KVPBindRotationAdjustTop=3 KVPBindRotationAdjustBot=-4"
                  " KVPBindRotationAdjustFore=+5mm KVPBindCoverAdjustX=-6"
                  " KVPBindCoverAdjustY=7 KVPBindCutPositionAdjustmentTB=8"),
            Commands(std::string(row.head) + " PBTC=OFF PBTP= " + row.adjustments + " PBCI=OFF"));
    }
}

TEST(PBindCommands, EachAdjustmentIsWrittenOnlyIfGiven) {
    const char *const cases[][2] = {
        {"KVPBindCutPageAdjustmentFore", "PBAW"}, {"KVPBindCutPageAdjustmentTB", "PBAH"},
        {"KVPBindRotationAdjustTop", "PBAT"},     {"KVPBindRotationAdjustBot", "PBAB"},
        {"KVPBindRotationAdjustFore", "PBAF"},    {"KVPBindCoverAdjustX", "PBAX"},
        {"KVPBindCoverAdjustY", "PBAY"},          {"KVPBindCutPositionAdjustmentTB", "PBAV"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row[0]);
        EXPECT_EQ(
            Print(std::string("KVPBindPosition=BindLeft KVPBindTrimming=None ") + row[0] + "=text"),
            LeftBound(std::string("PBTC=OFF PBTP= ") + row[1] + "=0"));
    }
}

TEST(PBindCommands, DigitalSignRules) {
    const struct {
        const char *value;
        int factor;
        const char *position;
        int mode;
        const char *number;
    } cases[] = {
        {"12", 1, "LEFT", 0, "12"},
        {"12", 1, "RIGHT", 0, "12"},
        {"12", 1, "TOP", 0, "12"},
        {"12", 1, "Bottom", 0, "12"},
        {"12", 1, "LEFT", 1, "12"},
        {"12", 1, "RIGHT", 1, "-12"},
        {"12", 1, "TOP", 1, "12"},
        {"12", 1, "Bottom", 1, "12"},
        {"12", 1, "LEFT", 2, "-12"},
        {"12", 1, "RIGHT", 2, "12"},
        {"12", 1, "TOP", 2, "-12"},
        {"12", 1, "Bottom", 2, "12"},
        {"12", 1, "LEFT", 3, "12"},
        {"12", 1, "RIGHT", 3, "12"},
        {"12", 1, "RIGHT", -1, "12"},
        {"-12", 1, "RIGHT", 1, "12"},
        {"0", 1, "RIGHT", 1, "0"},
        {"12", 1, "RIGHTS", 1, "12"},
        {"12", 1, "right", 1, "12"},
        {"12", 1, "", 2, "12"},
        {" +12.9mm", 1, "LEFT", 0, "12"},
        {"mm", 1, "LEFT", 0, "0"},
        {"12", 5, "RIGHT", 1, "-60"},
        {"2147483647", 1, "RIGHT", 1, "-2147483647"},
        {"-2147483648", 1, "RIGHT", 0, "-2147483648"},
        {"-2147483648", 1, "RIGHT", 1, "2147483647"},
        {"-2147483648", 1, "TOP", 2, "2147483647"},
        {"99999999999999999999", 1, "LEFT", 0, "2147483647"},
        {"2147483647", 2147483647, "LEFT", 2, "-2147483648"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(std::string(row.value) + " " + row.position + " mode " +
                     std::to_string(row.mode));
        EXPECT_EQ(CaptureOutput([&] {
                      OutputKPJLCommandforPBindDigital(row.value, row.factor, "PBXX", row.position,
                                                       row.mode);
                  }),
                  Commands(std::string("PBXX=") + row.number));
    }
    EXPECT_EQ(CaptureOutput([] { OutputKPJLCommandforPBindDigital("", 1, "PBXX", "LEFT", 0); }),
              "");
}

TEST(PBindCommands, CoverLines) {
    const struct {
        const char *options, *attributes;
    } cases[] = {
        {"KVPBindCoverPageSize=A3", "PBCP=A3"},
        {"KVPBindCoverPageSize=DL", "PBCP=LEDGER"},
        {"KVPBindCoverPageSize=Tabloid", "PBCP=LEDGER"},
        {"KVPBindCoverPageSize=dl", "PBCP="},
        {"KVPBindCoverMediaType=Stationary", "PBCQ=NORMAL"},
        {"KVPBindCoverMediaType=Stationery", "PBCQ="},
        {"KVPBindCoverMediaColor=Ivory KVPBindCoverPaperTray=HCF2", "PBCC=IVORY PBCT=INTRAY7"},
        {"KVPBindCoverMediaColor=Ivory", "PBCC=IVORY PBCT="},
        {"KVPBindCoverMediaColor=Mauve KVPBindCoverPaperTray=8thTray", "PBCC= PBCT="},
        {"KVPBindCoverPaperTray=HCF2", ""},
        {"KVPBindCoverPaperTray=AutoTray KVPBindCoverMediaColor=Any KVPBindCoverMediaType=Default"
         " KVPBindCoverPageSize=KVA4Cover",
         "PBCP=A4COVER PBCQ=OFF PBCC=UNSPECIFIED PBCT=AUTO"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.options);
        const std::string attributes = row.attributes;
        EXPECT_EQ(
            Print(std::string("KVPBindPosition=BindLeft KVPBindTrimming=None ") + row.options),
            LeftBound("PBTC=OFF PBTP=" + (attributes.empty() ? "" : " " + attributes)));
    }
}

TEST(PBindCommands, WithoutAPpdWhatTheTicketAllows) {
    const std::string options =
        "KVPBindPosition=BindLeft KVPBindPageSize=A4 KVPBindCoverPageSize=A3 ";
    const TempFolder folder;
    const std::string broken = folder.Write("broken.ppd", "no PPD\n");
    const std::string missing = (folder.Path() / "missing.ppd").string();
    for (const char *path : {static_cast<const char *>(nullptr), broken.c_str(), missing.c_str()}) {
        SCOPED_TRACE(path ? path : "no PPD");
        EXPECT_EQ(Print(options + "KVPBindTrimming=None", path),
                  LeftBound("PBTC=OFF PBBP=A4 PBTP=A4 PBCP=A3"));
        EXPECT_EQ(Print(options + "KVPBindTrimming=1EdgeCut KVPBindCutPositionFore=7mm", path),
                  LeftBound("PBTC=FACE PBBP=A4 PBTP=CUSTOM PBTW=-70 PBTH=0 ISXO=-35 ISXT=35"
                            " PBCP=A3"));
        EXPECT_EQ(
            Print(options + "KVPBindTrimming=3EdgeSpecifySize KVPBindCutPageSize=B5", path),
            LeftBound("PBTC=FULLBLEED PBBP=A4 PBTP=JISB5 PBTW=0 PBTH=0 ISXO=0 ISXT=0 PBCP=A3"));
    }
}

TEST(PBindCommands, TextsStayAsTheyAreUntilALineIsFull) {
    EXPECT_EQ(Print("KVPBindPosition=100%% KVPBindTrimming=%n%s%%"),
              Commands("PBRE=100%% MSDA= PBTC=%n%s%% PBTP=CUSTOM PBTW=0 PBTH=0 ISXO=0 ISXT=0"
                       " PBCI=OFF"));
    const auto write = [](std::size_t length) {
        return CaptureOutput(
            [&] { OutputKPJLCommandforPBindNormal(std::string(length, 'x').c_str(), "PBRE"); });
    };
    const std::string start = "@PJL SET JOBATTR=\"@PBRE=";
    EXPECT_EQ(write(0), start + "\"\n");
    EXPECT_EQ(write(73), start + std::string(73, 'x') + "\"\n");
    EXPECT_EQ(write(74), start + std::string(74, 'x') + "\"");
    EXPECT_EQ(write(255), start + std::string(75, 'x'));
}

TEST(PBindCommands, ImagePositionHasNoEffect) {
    EXPECT_EQ(Print("KVPBindPosition=BindLeft KVPBindTrimming=None noKVPBindImagePosition=2"),
              LeftBound("PBTC=OFF PBTP="));
}

// The jobs as the filter prints them: the lines stand together, after the job line.
TEST(PBindCommands, InTheJob) {
    const struct {
        const char *options, *attributes;
    } cases[] = {
        {"KVPBindPosition=BindLeft KVPBindTrimming=None KVPBindPageSize=A4",
         "PBRE=LEFT MSDA=ROTSEFLAND PBTC=OFF PBBP=A4 PBTP=A4 PBCI=OFF"},
        {"KVPBindPosition=BindRight KVPBindTrimming=3EdgeCutMinimum KVPBindPageSize=A4"
         " KVPBindRotationAdjustTop=1 KVPBindRotationAdjustBot=2",
         "PBRE=RIGHT MSDA=ROTLEFPORT PBTC=FULLBLEED PBBP=A4 PBTP=CUSTOM PBTW=2030 PBTH=2830"
         " PBAB=1 PBAT=2 PBCI=OFF"},
        {"KVPBindPosition=BindTop KVPBindTrimming=1EdgeCut KVPBindCutPositionFore=7mm"
         " KVPBindPageSize=A4 KVPBindCoverPageSize=DL KVPBindCoverMediaType=CoatingPaper1"
         " KVPBindCoverMediaColor=White KVPBindCoverPaperTray=PBindInserter"
         " KVPBindCoverAdjustY=-2147483648",
         "PBRE=TOP MSDA=ROTSEFLAND PBTC=FACE PBBP=A4 PBTP=CUSTOM PBTW=2030 PBTH=2970 ISXO=-35"
         " ISXT=35 PBAY=2147483647 PBCP=LEDGER PBCQ=COATEDPAPER PBCC=WHITE PBCT=INTRAY9"
         " PBCI=OFF"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.options);
        FilterJob job;
        job.ppd = BinderPpd();
        job.options = row.options;
        const FilterResult result = RunFilter(job);
        EXPECT_EQ(result.status, 0);
        std::string lines;
        bool within = false;
        for (const std::string &line : HeaderLines(result.output)) {
            within = within || line.find("\"@PBRE=") != std::string::npos;
            if (within) lines += line;
            if (line.find("\"@PBCI=") != std::string::npos) within = false;
        }
        EXPECT_EQ(lines, Commands(row.attributes));
    }
    FilterJob plain;
    plain.ppd = BinderPpd();
    plain.options = "KVPBindPosition=None KVPBindTrimming=3EdgeCut KVPBindCoverMediaColor=White";
    EXPECT_EQ(RunFilter(plain).output.find("\"@PB"), std::string::npos);
}
