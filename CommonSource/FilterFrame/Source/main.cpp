// SPDX-License-Identifier: Apache-2.0
#include <cstdio>
#include <cstring>

#include "CommonSource/FilterFrame/Source/JobRun.h"
#include "CommonSource/FilterFrame/Source/Surroundings.h"

int main(int argc, char *argv[]) {
    SecureSurroundings();
    if (argc == 2 && std::strcmp(argv[1], "--version") == 0) {
        std::puts("kvfilter " KVFILTER_VERSION);
        return 0;
    }
    if (argc < 6) {
        std::fputs("Usage: kvfilter job-id user title copies options [file]\n", stderr);
        return 1;
    }
    return RunJob(argc, argv);
}
