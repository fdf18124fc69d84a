// SPDX-License-Identifier: Apache-2.0
#include "support/TableChecks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <set>
#include <string>

namespace {

std::size_t SymbolsOf(const char *format) {
    std::size_t count = 0;
    while ((format = GetNextCtrlSym(format)) != nullptr) {
        count++;
        format += 2;
    }
    return count;
}

void ExpectNamed(const CommandValue &value) {
    ASSERT_NE(value.name, nullptr);
    EXPECT_STRNE(value.name, "");
    EXPECT_NE(value.pointer, nullptr) << value.name;
}

bool IsKnown(CompareFunc function) {
    constexpr CompareFunc kKnown[] = {
        IntCampareFunc,           IntNoEqualCampareFunc, StrEqualCampareFunc, StrContainCampareFunc,
        StrNotContainCampareFunc, StrNoNULLCampareFunc,  StrIsNULLCampareFunc};
    return std::ranges::find(kKnown, function) != std::end(kKnown);
}

}  // namespace

void ExpectRows(std::span<const PrtFmtEntry> table, const std::vector<CommandRule> &rules) {
    ASSERT_EQ(table.size(), rules.size());
    std::set<std::string> names;
    for (std::size_t i = 0; i < table.size(); i++) {
        const PrtFmtEntry &row = table[i];
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.name, rules[i].row);
        EXPECT_TRUE(names.insert(row.name).second);
        EXPECT_EQ(SymbolsOf(row.prtfmtStr), row.symPara ? row.symPara->num : 0);
        for (std::uint32_t k = 0; row.symPara && k < row.symPara->num; k++) {
            ExpectNamed(row.symPara->cmdParaList[k]);
        }
        ASSERT_NE(row.comparationPara, nullptr);
        EXPECT_EQ(row.comparationPara->num, ConditionsOf(rules[i]).size());
        for (std::uint32_t k = 0; k < row.comparationPara->num; k++) {
            const ComparationItem &item = row.comparationPara->items[k];
            ExpectNamed(item.value);
            ExpectNamed(item.reference);
            EXPECT_TRUE(IsKnown(item.compareFunc));
        }
    }
}
