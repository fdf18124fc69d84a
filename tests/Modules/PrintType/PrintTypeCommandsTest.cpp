// SPDX-License-Identifier: Apache-2.0
#include "Modules/PrintType/PrintTypeCommands.h"

#include <gtest/gtest.h>

#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/RuledJobs.h"
#include "support/TableChecks.h"

namespace {

class PrintTypeRow : public testing::TestWithParam<CommandRule> {};

TEST_P(PrintTypeRow, DependsOnEachConditionInTheFilter) {
    CheckThroughFilter(GetParam());
}

TEST_P(PrintTypeRow, DependsOnEachConditionWithEveryValue) {
    CheckInProcess(GetParam());
}

INSTANTIATE_TEST_SUITE_P(, PrintTypeRow, testing::ValuesIn(PrintTypeRules()),
                         [](const auto &test) { return test.param.row; });

TEST(PrintTypeCommands, RowsStandAsTheRulesDo) {
    InializeDescriptionTable();
    EXPECT_EQ(PrintTypeFmtTableNum, 12);
    ExpectRows({PrintTypeFmtTable, 12}, PrintTypeRules());
}

}  // namespace
