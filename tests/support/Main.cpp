// SPDX-License-Identifier: Apache-2.0
//
// The main of every test program: one that had to skip a test says so by its exit status, so that
// ctest's summary names it.
#include <gtest/gtest.h>

namespace {

constexpr int kSkipped = 77;  // what ctest takes as "skipped"

}  // namespace

int main(int argc, char *argv[]) {
    testing::InitGoogleTest(&argc, argv);
    const int status = RUN_ALL_TESTS();
    const bool skipped = testing::UnitTest::GetInstance()->skipped_test_count() > 0;
    return status == 0 && skipped ? kSkipped : status;
}
