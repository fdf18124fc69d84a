// SPDX-License-Identifier: Apache-2.0
#include "Tables/CompareFunctions.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <set>
#include <string>

namespace {

TEST(CompareFunctions, Integers) {
    constexpr std::int32_t kMin = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMax = std::numeric_limits<std::int32_t>::max();
    for (const std::int32_t value : {kMin, -1, 0, 1, 2, kMax}) {
        for (const std::int32_t reference : {kMin, -1, 0, 1, 2, kMax}) {
            EXPECT_EQ(IntCampareFunc(&value, &reference), value == reference ? 1 : 0);
            EXPECT_EQ(IntNoEqualCampareFunc(&value, &reference), value != reference ? 1 : 0);
        }
    }
}

struct TextCase {
    const char *value, *reference;
    int equal, contain, given;
};

TEST(CompareFunctions, Texts) {
    // clang-format off
    const TextCase cases[] = {
        // value       reference  equal contain given
        {"true",       "true",    1,    1,      1},
        {"true ",      "true",    0,    1,      1},
        {"True",       "true",    0,    0,      1},
        {"tru",        "true",    0,    0,      1},
        {"KVCoilLeft", "Coil",    0,    1,      1},
        {"Coil",       "Coil",    1,    1,      1},
        {"CoCoil",     "Coil",    0,    1,      1},
        {"coil",       "Coil",    0,    0,      1},
        {"",           "Coil",    0,    0,      0},
        {"",           "",        1,    0,      0},  // an empty text holds nothing
        {"x",          "",        0,    1,      1},
        {" ",          "Coil",    0,    0,      1},
    };
    // clang-format on
    for (const TextCase &test : cases) {
        SCOPED_TRACE(std::string("\"") + test.value + "\", \"" + test.reference + "\"");
        const char *const reference = test.reference;
        EXPECT_EQ(StrEqualCampareFunc(test.value, &reference), test.equal);
        EXPECT_EQ(StrContainCampareFunc(test.value, &reference), test.contain);
        EXPECT_EQ(StrNotContainCampareFunc(test.value, &reference), 1 - test.contain);
        EXPECT_EQ(StrNoNULLCampareFunc(test.value, nullptr), test.given);
        EXPECT_EQ(StrIsNULLCampareFunc(test.value, nullptr), 1 - test.given);
    }
}

TEST(CompareFunctions, AMissingTextIsEmpty) {
    const char *const reference = "Coil";
    EXPECT_EQ(StrContainCampareFunc(nullptr, &reference), 0);
    EXPECT_EQ(StrNotContainCampareFunc(nullptr, &reference), 1);
    EXPECT_EQ(StrNoNULLCampareFunc(nullptr, nullptr), 0);
    EXPECT_EQ(StrIsNULLCampareFunc(nullptr, nullptr), 1);
}

}  // namespace
