// SPDX-License-Identifier: Apache-2.0
#include <clocale>
#include <cstdio>
#include <cstring>

#include "Tools/JobInfo/Commands.h"

namespace {

// clang-format off
constexpr Command commands[] = {
    {"show",    ShowCommand,    "[--json] [--show-secrets] [FILE]", "says what a printer-ready job tells the printer, and what is wrong with it"},
    {"page",    PageCommand,    "N -o FILE.png [FILE]",             "leaves a page of a job as a picture, drawn by Ghostscript"},
    {"explain", ExplainCommand, "[--ppd FILE | --queue NAME] [--user U] [--title T] [--copies N] [--json] [OPTIONS]", "says what each option of a job would do, and why others would do nothing"},
    {"options", OptionsCommand, "[--ppd FILE] [--json]",            "lists every option that the filter knows"},
};
// clang-format on

void PutUsage(std::FILE *stream) {
    std::fputs("Usage: kvjobinfo COMMAND ...\n", stream);
    for (const Command &command : commands) {
        std::fprintf(stream, "  %s %s\n      %s\n", command.name, command.usage, command.meaning);
    }
}

}  // namespace

int Complain(const char *name, const char *message) {
    std::fprintf(stderr, "kvjobinfo: %s: %s\n", name, message);
    return kUnusable;
}

int ComplainUsage(const char *name) {
    for (const Command &command : commands) {
        if (std::strcmp(command.name, name) != 0) continue;
        std::fprintf(stderr, "Usage: kvjobinfo %s %s\n", command.name, command.usage);
    }
    return kUnusable;
}

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
    for (const Command &command : commands) {
        if (std::strcmp(command.name, name) == 0) return command.run(argc - 1, argv + 1);
    }
    PutUsage(stderr);
    return kUnusable;
}
