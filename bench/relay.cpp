// SPDX-License-Identifier: Apache-2.0
//
// What no filter can beat: passes its standard input on, through pipes as wide as the filter's.
// bench_relay copy    reads and writes every byte
// bench_relay look    looks at a copy of every byte (tee, or read of a file) and passes on the rest
//                     in the kernel (splice)
// bench_relay splice  looks at nothing
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>
#include <cstring>

#include "CommonSource/FilterFrame/Source/PipeCapacity.h"

namespace {

char block[kReadSize];

bool WriteAll(ssize_t left) {
    for (const char *at = block; left > 0;) {
        const ssize_t count = write(STDOUT_FILENO, at, static_cast<std::size_t>(left));
        if (count <= 0) return false;
        at += count;
        left -= count;
    }
    return true;
}

bool SpliceAll(ssize_t left, off_t *from) {
    while (left > 0) {
        const ssize_t count = splice(STDIN_FILENO, from, STDOUT_FILENO, nullptr,
                                     static_cast<std::size_t>(left), SPLICE_F_MOVE);
        if (count <= 0) return false;
        left -= count;
    }
    return true;
}

int Copy() {
    ssize_t count;
    while ((count = read(STDIN_FILENO, block, sizeof block)) > 0) {
        if (!WriteAll(count)) return 1;
    }
    return count == 0 ? 0 : 1;
}

int Look() {
    struct stat input;
    int copies[2];
    if (fstat(STDIN_FILENO, &input) != 0 || pipe(copies) != 0) return 1;
    WidenPipe(copies[1]);
    off_t offset = 0;
    ssize_t count;
    if (S_ISREG(input.st_mode)) {
        while ((count = pread(STDIN_FILENO, block, sizeof block, offset)) > 0) {
            if (!SpliceAll(count, &offset)) return 1;
        }
        return count == 0 ? 0 : 1;
    }
    while ((count = tee(STDIN_FILENO, copies[1], sizeof block, 0)) > 0) {
        for (ssize_t got = 0; got < count;) {
            const ssize_t more = read(copies[0], block, sizeof block);
            if (more <= 0) return 1;
            got += more;
        }
        if (!SpliceAll(count, nullptr)) return 1;
    }
    return count == 0 ? 0 : 1;
}

int Splice() {
    ssize_t count;
    while ((count = splice(STDIN_FILENO, nullptr, STDOUT_FILENO, nullptr, sizeof block,
                           SPLICE_F_MOVE)) > 0) {
    }
    return count == 0 ? 0 : 1;
}

}  // namespace

int main(int argc, char *argv[]) {
    WidenPipe(STDIN_FILENO);
    WidenPipe(STDOUT_FILENO);
    if (argc == 2 && std::strcmp(argv[1], "copy") == 0) return Copy();
    if (argc == 2 && std::strcmp(argv[1], "look") == 0) return Look();
    if (argc == 2 && std::strcmp(argv[1], "splice") == 0) return Splice();
    std::fputs("usage: bench_relay copy | look | splice\n", stderr);
    return 2;
}
