// SPDX-License-Identifier: Apache-2.0
//
// What a filter cannot do without: links libcups and opens the PPD once.
#include <cups/ppd.h>

#include <cstdlib>

int main() {
    ppd_file_t *ppd = ppdOpenFile(std::getenv("PPD"));
    return ppd ? 0 : 1;
}
