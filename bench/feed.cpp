// SPDX-License-Identifier: Apache-2.0
//
// Writes a document of a kind to standard output: bench_feed KIND MEGABYTES [PIECE-BYTES]
#include <unistd.h>

#include <algorithm>
#include <cstdlib>

#include "Documents.h"

int main(int argc, char *argv[]) {
    if (argc < 3) return 1;
    const std::string block = DocumentBlock(argv[1]);
    std::size_t left = std::strtoull(argv[2], nullptr, 10) * 1000000;
    const std::size_t piece = argc > 3 ? std::strtoull(argv[3], nullptr, 10) : 65536;
    if (write(STDOUT_FILENO, kDocumentStart, sizeof kDocumentStart - 1) < 0) return 1;
    for (std::size_t at = 0; left > 0;) {
        const std::size_t size = std::min({piece, block.size() - at, left});
        const ssize_t count = write(STDOUT_FILENO, block.data() + at, size);
        if (count <= 0) return 1;
        left -= static_cast<std::size_t>(count);
        at = (at + static_cast<std::size_t>(count)) % block.size();
    }
    return 0;
}
