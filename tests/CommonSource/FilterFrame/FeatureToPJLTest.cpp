// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/FeatureToPJL.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <memory>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "support/CaptureOutput.h"
#include "support/Ppd.h"
#include "support/TempFolder.h"

using namespace std::string_literals;

namespace {

constexpr char kResolution600[] =
    "@PJL SET RESOLUTION=600\n"
    "@PJL SET BITSPERPIXEL=1\n"
    "@PJL SET JOBATTR=\"@DRDM=RASTER\"\n";
constexpr char kResolution1200[] =
    "@PJL SET RESOLUTION=1200\n"
    "@PJL SET BITSPERPIXEL=1\n"
    "@PJL SET JOBATTR=\"@DRDM=RASTER\"\n";
constexpr char kFineness[] =
    "@PJL SET JOBATTR=\"@TTRC=64\"\n"
    "@PJL SET JOBATTR=\"@GTRC=64\"\n"
    "@PJL SET JOBATTR=\"@ITRC=64\"\n"
    "@PJL SET JOBATTR=\"@TSCR=64\"\n"
    "@PJL SET JOBATTR=\"@GSCR=64\"\n"
    "@PJL SET JOBATTR=\"@ISCR=64\"\n";
constexpr char kGradation[] =
    "@PJL SET JOBATTR=\"@TTRC=66\"\n"
    "@PJL SET JOBATTR=\"@GTRC=66\"\n"
    "@PJL SET JOBATTR=\"@ITRC=66\"\n"
    "@PJL SET JOBATTR=\"@TSCR=66\"\n"
    "@PJL SET JOBATTR=\"@GSCR=66\"\n"
    "@PJL SET JOBATTR=\"@ISCR=66\"\n";
constexpr char kMode2[] = "@PJL SET ECONOMODE=MODE2\n";

std::string Feature(std::string_view line, FeatureState &state) {
    return CaptureOutput([&] { PutFeaturePJL(line, state); });
}

// A feature line on its own, on a colour device.
std::string Feature(std::string_view line) {
    FeatureState state{.monochrome = false};
    return Feature(line, state);
}

std::string Settings(std::string_view line) {
    return CaptureOutput([&] { PutSettingsPJL(line); });
}

std::string Attribute(const std::string &name, const std::string &value) {
    return "@PJL SET JOBATTR=\"@" + name + "=" + value + "\"\n";
}

TEST(FeatureToPJL, SendsTheFirstResolutionOnly) {
    FeatureState state{.monochrome = false};
    EXPECT_EQ(Feature("%%BeginFeature: *KVOutputMode 300x300", state), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVOutputMode 1200x1200", state), kResolution1200);
    EXPECT_EQ(Feature("%%BeginFeature: *KVOutputMode 600x600", state), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVOutputMode 1200x1200", state), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVOutputMode 600x600"), kResolution600);
}

TEST(FeatureToPJL, LooksForAnOutputModeThatIsNoResolutionInTheTable) {
    FeatureState state{.monochrome = true};
    EXPECT_EQ(Feature("%%BeginFeature: *KVOutputMode HighSpeed", state),
              "@PJL SET BITSPERPIXEL=1\n");
    EXPECT_EQ(Feature("%%BeginFeature: *KVOutputMode Standard", state),
              "@PJL SET BITSPERPIXEL=8\n");
    EXPECT_EQ(Feature("%%BeginFeature: *KVOutputMode 600x600", state), kResolution600);
}

TEST(FeatureToPJL, TakesResolutionsFromTheOutputModeOnly) {
    EXPECT_EQ(Feature("%%BeginFeature: *Resolution 600x600"), "");
    EXPECT_EQ(Feature("%%BeginFeature: KVOutputMode 600x600"), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVOutputMode 600X600"), "");
}

TEST(FeatureToPJL, SendsScreensOfMonochromeDevicesEachTime) {
    FeatureState state{.monochrome = true};
    EXPECT_EQ(Feature("%%BeginFeature: *KVHalftone Fineness", state), kFineness);
    EXPECT_EQ(Feature("%%BeginFeature: *KVHalftone Gradation", state), kGradation);
    EXPECT_EQ(Feature("%%BeginFeature: *KVHalftone Fineness", state), kFineness);
    EXPECT_EQ(Feature("%%BeginFeature: *KVHalftone fineness", state), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVTonerSaver Fineness", state), "");
}

TEST(FeatureToPJL, SendsNoScreensOfColourDevices) {
    EXPECT_EQ(Feature("%%BeginFeature: *KVHalftone Fineness"), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVHalftone Gradation"), "");
}

TEST(FeatureToPJL, LeavesTheFrameModeToPostScript) {
    for (const char *value : {"True", "False", "Fineness", "600x600"}) {
        FeatureState state{.monochrome = true};
        EXPECT_EQ(Feature("%%BeginFeature: "s.append(kFrameModeKeyword) + " " + value, state), "");
    }
}

TEST(FeatureToPJL, SplitsAtBlanks) {
    EXPECT_EQ(Feature("%%BeginFeature: *KVTonerSaver Mode2"), kMode2);
    EXPECT_EQ(Feature("%%BeginFeature:   *KVTonerSaver    Mode2   "), kMode2);
    EXPECT_EQ(Feature("%%BeginFeature: *KVTonerSaver Mode2 Mode3 more"), kMode2);
    EXPECT_EQ(Feature("%%BeginFeature:x *KVTonerSaver Mode2"), kMode2);
    EXPECT_EQ(Feature("%%BeginFeature: *KVTonerSaver\tMode2"), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVTonerSaver Mode2\t"), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVTonerSaver Mode2\0"s), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVTonerSaver\0 Mode2"s), "");
    EXPECT_EQ(Feature("%%BeginFeature: \0*KVTonerSaver Mode2"s), "");
    EXPECT_EQ(Feature("%%BeginFeature: *KVTonerSaver Mode2 \0"s), kMode2);
}

TEST(FeatureToPJL, WritesNothingForFewerThanThreeTokens) {
    for (const char *line :
         {"%%BeginFeature:", "%%BeginFeature: ", "%%BeginFeature: *KVTonerSaver",
          "%%BeginFeature: *KVTonerSaver ", "%%BeginFeature:*KVTonerSaver Mode2"}) {
        EXPECT_EQ(Feature(line), "") << line;
    }
}

TEST(FeatureToPJL, LooksAt99BytesOfAFeatureLine) {
    const std::string start = "%%BeginFeature: ";
    const std::string feature = "*KVTonerSaver Mode2";
    const std::string blanks(99 - start.size() - feature.size(), ' ');
    EXPECT_EQ(Feature(start + blanks + feature), kMode2);
    EXPECT_EQ(Feature(start + blanks + feature + "345"), kMode2);
    EXPECT_EQ(Feature(start + blanks + " " + feature), "");  // "Mode"
    EXPECT_EQ(Feature(start + std::string(8000, ' ') + feature), "");
}

TEST(FeatureToPJL, SendsEverySettingOfALine) {
    EXPECT_EQ(Settings("/TTRC 5 /GTRC 12 /ITRC 7 /TSCR 64 /GSCR 64 /ISCR 64"),
              Attribute("TTRC", "5") + Attribute("GTRC", "12") + Attribute("ITRC", "7") +
                  Attribute("TSCR", "64") + Attribute("GSCR", "64") + Attribute("ISCR", "64"));
    EXPECT_EQ(Settings("/TCPR 1 /GCPR 2 /ICPR 30 def"),
              Attribute("TCPR", "1") + Attribute("GCPR", "2") + Attribute("ICPR", "30"));
    EXPECT_EQ(Settings("/TSCR 90 /GSCR 09"), Attribute("TSCR", "90") + Attribute("GSCR", "09"));
    EXPECT_EQ(Settings("no digits"), "");
    EXPECT_EQ(Settings(""), "");
}

TEST(FeatureToPJL, TakesDigitsInPairs) {
    EXPECT_EQ(Settings("/TSCR 123"), Attribute("TSCR", "12") + Attribute("CR 1", "3"));
    EXPECT_EQ(Settings("/TSCR 1234"), Attribute("TSCR", "12") + Attribute("CR 1", "34"));
    EXPECT_EQ(Settings("/TSCR 1 2"), Attribute("TSCR", "1") + Attribute("CR 1", "2"));
    EXPECT_EQ(Settings("/TSCR=7"), Attribute("TSCR", "7"));
    EXPECT_EQ(Settings("/TSCR -7"), Attribute("SCR ", "7"));
}

TEST(FeatureToPJL, SkipsNumbersWithoutRoomForAName) {
    EXPECT_EQ(Settings("1"), "");
    EXPECT_EQ(Settings("1234"), "");
    EXPECT_EQ(Settings("0123 567"), Attribute("0123", "56") + Attribute("23 5", "7"));
    EXPECT_EQ(Settings("abcd5"), "");
    EXPECT_EQ(Settings("abcd56"), "");  // the pair begins too early
    EXPECT_EQ(Settings("abcd567"), Attribute("bcd5", "7"));
    EXPECT_EQ(Settings("abcd 6"), Attribute("abcd", "6"));
}

TEST(FeatureToPJL, LooksAt100Digits) {
    std::string line, expected;
    for (int i = 0; i < 120; i++) {
        line += "/TSCR 7 ";
        if (i < 100) expected += Attribute("TSCR", "7");
    }
    EXPECT_EQ(Settings(line), expected);
    // The second digit of a pair that begins with the hundredth does not count.
    line.clear();
    expected.clear();
    for (int i = 0; i < 99; i++) {
        line += "/TSCR 7 ";
        expected += Attribute("TSCR", "7");
    }
    EXPECT_EQ(Settings(line + "/GSCR 89"), expected + Attribute("GSCR", "8"));
}

TEST(FeatureToPJL, EndsANameAtANul) {
    EXPECT_EQ(Settings("/TS\0R 64"s), Attribute("TS", "64"));
    EXPECT_EQ(Settings("\0\0\0\0 64"s), Attribute("", "64"));
}

TEST(FeatureToPJL, CutsStrings) {
    const auto cut = [](const char *text, std::int32_t start, std::int32_t end) {
        const std::unique_ptr<char, void (*)(void *)> string(GetSubString(text, start, end),
                                                             std::free);
        return std::string(string.get());
    };
    EXPECT_EQ(cut("abcdef", 0, 5), "abcdef");
    EXPECT_EQ(cut("abcdef", 1, 3), "bcd");
    EXPECT_EQ(cut("abcdef", 2, 2), "c");
    EXPECT_EQ(cut("abcdef", 0, 0), "a");
}

TEST(FeatureToPJL, TakesTheKindOfDeviceFromThePPD) {
    const struct {
        const char *lines;
        bool monochrome;
    } kCases[] = {
        {"*ColorDevice: False\n", true},
        {"*ColorDevice: \"False\"\n", true},
        {"*ColorDevice: True\n", false},
        {"*ColorDevice: false\n", false},
        {"", false},
        {"*ColorDeviceKind: False\n*ColorDevice: True\n", true},  // a prefix is enough
    };
    const TempFolder folder;
    for (const auto &[lines, monochrome] : kCases) {
        CloseJobPPD();
        setenv("PPD", folder.Write("queue.ppd", PpdWith(lines)).c_str(), 1);
        EXPECT_EQ(StartFeatures().monochrome, monochrome) << lines;
        EXPECT_TRUE(StartFeatures().resolutionPending);
    }
    CloseJobPPD();
    unsetenv("PPD");
    EXPECT_FALSE(StartFeatures().monochrome);
    CloseJobPPD();
}

}  // namespace
