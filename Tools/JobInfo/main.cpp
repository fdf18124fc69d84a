// SPDX-License-Identifier: Apache-2.0
#include <cerrno>
#include <clocale>
#include <cstdio>
#include <cstring>

#include "Tools/JobInfo/Commands.h"

namespace {

int Run(int argc, char *argv[]) {
    const char *name = argc > 1 ? argv[1] : "";
    if (std::strcmp(name, "--help") == 0) {
        PutUsage(stdout);
        return kInOrder;
    }
    if (std::strcmp(name, "--version") == 0) {
        std::puts("kvjobinfo " KVFILTER_VERSION);
        return kInOrder;
    }
    if (const Command *command = FindCommand(name)) return command->run(argc - 1, argv + 1);
    PutUsage(stderr);
    return kUnusable;
}

}  // namespace

int main(int argc, char *argv[]) {
    std::setlocale(LC_CTYPE, "");  // numbers keep to the C locale
    const int status = Run(argc, argv);
    if (std::fflush(stdout) == 0 && !std::ferror(stdout)) {  // GCOVR_EXCL_BR_LINE: fault
        return status;
    }
    return Complain("standard output", std::strerror(errno));  // GCOVR_EXCL_LINE: fault
}
