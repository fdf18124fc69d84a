// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/LineSearch.h"

#include <gtest/gtest.h>

#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace {

// Whether a search must stop at a byte, given the two bytes in front of it.
using Expected = bool (*)(std::string_view three);

bool EndsLine(std::string_view three) {
    return three[2] == '\n' || three[2] == '\r';
}

// Whether `three` is a line end after one of the pairs of bytes in `pairs`.
bool EndsLineAfter(std::string_view pairs, std::string_view three) {
    for (; EndsLine(three) && !pairs.empty(); pairs.remove_prefix(2)) {
        if (pairs.substr(0, 2) == three.substr(0, 2)) return true;
    }
    return false;
}

bool EndsSpecialLine(std::string_view three) {
    return EndsLineAfter("epdpbpupgeogut", three);
}

bool EndsSpecialOrSettings(std::string_view three) {
    return EndsSpecialLine(three) || three == "%%B" || three == "SCR" || three == "CPR";
}

bool EndsSpecialOrComment(std::string_view three) {
    return EndsLineAfter("epdpbpgeut", three) || three == "\n%%" || three == "\r%%" ||
           three == "\x1b%-";
}

bool EndsSpecialOrCommentOrSettings(std::string_view three) {
    return EndsSpecialOrComment(three) || three == "SCR" || three == "CPR";
}

struct Kind {
    const char *name;
    LineSearch::Search LineSearch::*find;
    Expected expected;
};
constexpr Kind kKinds[] = {
    {"findLineEnd", &LineSearch::findLineEnd, EndsLine},
    {"findSpecialLine", &LineSearch::findSpecialLine, EndsSpecialLine},
    {"findSpecialOrSettingsLine", &LineSearch::findSpecialOrSettingsLine, EndsSpecialOrSettings},
    {"findCommentLine", &LineSearch::findCommentLine, EndsSpecialOrComment},
    {"findCommentOrSettingsLine", &LineSearch::findCommentOrSettingsLine,
     EndsSpecialOrCommentOrSettings},
};

// The places that a search stops at in `text`, after its first two bytes.
std::vector<std::size_t> Stops(LineSearch::Search find, std::string_view text) {
    std::vector<std::size_t> stops;
    const char *end = text.data() + text.size();
    for (const char *at = text.data() + kLookBack; (at = find(at, end)) != end; at++) {
        stops.push_back(static_cast<std::size_t>(at - text.data()));
    }
    return stops;
}

std::vector<std::size_t> ExpectedStops(Expected expected, std::string_view text) {
    std::vector<std::size_t> stops;
    for (std::size_t i = kLookBack; i < text.size(); i++) {
        if (expected(text.substr(i - kLookBack, 3))) stops.push_back(i);
    }
    return stops;
}

class LineSearchTest : public testing::TestWithParam<const LineSearch *> {};

std::vector<const LineSearch *> Searches() {
    std::vector<const LineSearch *> searches;
    for (const LineSearch *const *s = AllLineSearches(); *s; s++) searches.push_back(*s);
    return searches;
}

INSTANTIATE_TEST_SUITE_P(Variants, LineSearchTest, testing::ValuesIn(Searches()),
                         [](const auto &variant) { return std::string(variant.param->name); });

// Every run of three bytes out of those that matter and some that come close.
TEST_P(LineSearchTest, StopsAtNothingElse) {
    constexpr std::string_view kBytes("epbdugotxEBSCPR%-\n\r\0\x8a\x8d \x1b;", 25);
    std::string text;
    for (const char first : kBytes) {
        for (const char second : kBytes) {
            for (const char third : kBytes) text += {first, second, third};
        }
    }
    for (const Kind &kind : kKinds) {
        const auto expected = ExpectedStops(kind.expected, text);
        EXPECT_GT(expected.size(), 0U);
        EXPECT_EQ(Stops(GetParam()->*kind.find, text), expected) << kind.name;
    }
}

// Blocks of every length up to some vectors, with a match at every place.
TEST_P(LineSearchTest, FindsAMatchAtEveryPlaceOfEveryBlock) {
    for (const std::string_view match : {"ut\r", "ge\n", "%%B", "SCR", "\r%%", "\x1b%-"}) {
        for (std::size_t length = 3; length < 70; length++) {
            for (std::size_t at = 0; at + 3 <= length; at++) {
                std::string text(length, 'p');
                text.replace(at, 3, match);
                for (const Kind &kind : kKinds) {
                    ASSERT_EQ(Stops(GetParam()->*kind.find, text),
                              ExpectedStops(kind.expected, text))
                        << kind.name << " " << match << " at " << at << " of " << length;
                }
            }
        }
    }
}

TEST_P(LineSearchTest, ReadsNothingButTheBlockAndTheTwoBytesInFrontOfIt) {
    for (std::size_t length = 0; length < 140; length++) {
        // A block of its own on the heap, which the address sanitizer watches.
        const std::vector<char> text(kLookBack + length, 'p');
        const char *end = text.data() + text.size();
        for (const Kind &kind : kKinds) {
            EXPECT_EQ((GetParam()->*kind.find)(text.data() + kLookBack, end), end);
        }
    }
}

TEST_P(LineSearchTest, StopsInRandomBytesWhereItShould) {
    std::minstd_rand random(1);
    std::string text(300000, ' ');
    for (char &byte : text) byte = static_cast<char>(random() >> 8);
    for (const Kind &kind : kKinds) {
        EXPECT_EQ(Stops(GetParam()->*kind.find, text), ExpectedStops(kind.expected, text));
    }
}

TEST(LineSearches, TheBestIsTheFirst) {
    EXPECT_EQ(&BestLineSearch(), Searches()[0]);
}

// The processor's flags as the kernel tells them, where it does.
TEST(LineSearches, UseTheVectorsThatTheProcessorHas) {
    std::string best = "SCALAR";
#if defined(__aarch64__)
    best = "NEON";
#elif defined(__x86_64__) && defined(__linux__)
    std::ifstream file("/proc/cpuinfo");
    const std::string text(std::istreambuf_iterator<char>(file), {});
    if (text.find(" ssse3 ") != std::string::npos) best = "SSSE3";
    if (text.find(" avx2 ") != std::string::npos) best = "AVX2";
#endif
    EXPECT_EQ(BestLineSearch().name, best);
}

}  // namespace
