// SPDX-License-Identifier: Apache-2.0
//
// Searches the first bytes of a document of short lines once, for an emulator to count the
// instructions of: bench_count BYTES (65536 at most)
#include <cstdio>
#include <cstdlib>
#include <string>

#include "CommonSource/FilterFrame/Source/LineSearch.h"

int main(int argc, char *argv[]) {
    if (argc < 2) return 1;
    std::string document;
    while (document.size() < kLookBack + 65536) document += "100 -7.25 moveto (text)\n";
    const LineSearch &search = BestLineSearch();
    const char *at = document.data() + kLookBack;
    const char *end = at + std::strtoul(argv[1], nullptr, 10);
    std::printf("%s\n", search.name);
    return search.findSpecialLine(at, end) == end ? 0 : 1;
}
