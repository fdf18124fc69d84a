// SPDX-License-Identifier: Apache-2.0
#include "Tables/ControlSymbols.h"

#include <gtest/gtest.h>

namespace {

TEST(ControlSymbols, AreThree) {
    EXPECT_EQ(CtrlSymNum, 3);
    EXPECT_STREQ(ctrlSymTalbe[0].sym, "%d");
    EXPECT_EQ(ctrlSymTalbe[0].type, 0);
    EXPECT_STREQ(ctrlSymTalbe[1].sym, "%c");
    EXPECT_EQ(ctrlSymTalbe[1].type, 1);
    EXPECT_STREQ(ctrlSymTalbe[2].sym, "%s");
    EXPECT_EQ(ctrlSymTalbe[2].type, 2);
}

TEST(ControlSymbols, ControlCharacters) {
    EXPECT_EQ(CTRLSym_ESC, '\x1B');
    EXPECT_EQ(CTRLSym_CR, '\r');
    EXPECT_EQ(CTRLSym_LF, '\n');
    EXPECT_EQ(CTRLSym_PERCENTAGE, '%');
    EXPECT_EQ(CTRLSym_DOUBLE, '"');
}

TEST(ControlSymbols, CountsTheSymbolsOfAFormat) {
    static_assert(CountCtrlSyms("") == 0);
    static_assert(CountCtrlSyms("%") == 0);
    static_assert(CountCtrlSyms("%%%-%x%D%5d%") == 0);
    static_assert(CountCtrlSyms("%c%c-12345X") == 2);
    static_assert(CountCtrlSyms("%d%c%s") == 3);
    static_assert(CountCtrlSyms("%%s") == 1);
}

}  // namespace
