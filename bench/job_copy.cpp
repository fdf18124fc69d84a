// SPDX-License-Identifier: Apache-2.0
//
// The filter with its job copy switched on.
#include "CommonSource/FilterFrame/Source/JobCopy.h"
#include "CommonSource/FilterFrame/Source/JobRun.h"

int main(int argc, char *argv[]) {
    FlagPath = "/";  // a marker that exists everywhere
    return argc < 6 ? 1 : RunJob(argc, argv);
}
