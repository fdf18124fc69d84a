// SPDX-License-Identifier: Apache-2.0
#include <clocale>
#include <cstdio>
#include <cstring>

#include "Tools/JobInfo/Commands.h"

int main(int argc, char *argv[]) {
    std::setlocale(LC_CTYPE, "");  // numbers keep to the C locale
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
