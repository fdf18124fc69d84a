// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Commands.h"

#include <cstring>

namespace {

// clang-format off
constexpr Command commands[] = {
    {"show",    ShowCommand,    "[--json] [--show-secrets] [FILE]", "says what a printer-ready job tells the printer, and what is wrong with it"},
    {"page",    PageCommand,    "N -o FILE.png [FILE]",             "leaves a page of a job as a picture, drawn by Ghostscript"},
    {"explain", ExplainCommand, "[--ppd FILE | --queue NAME] [--user U] [--title T] [--copies N] [--json] [OPTIONS]", "says what each option of a job would do, and why others would do nothing"},
    {"options", OptionsCommand, "[--ppd FILE] [--json]",            "lists every option that the filter knows"},
};
// clang-format on

}  // namespace

const Command *FindCommand(const char *name) {
    for (const Command &command : commands) {
        if (std::strcmp(command.name, name) == 0) return &command;
    }
    return nullptr;
}

void PutUsage(std::FILE *stream) {
    std::fputs("Usage: kvjobinfo COMMAND ...\n", stream);
    for (const Command &command : commands) {
        std::fprintf(stream, "  %s %s\n      %s\n", command.name, command.usage, command.meaning);
    }
}

int Complain(const char *name, const char *message) {
    std::fprintf(stderr, "kvjobinfo: %s: %s\n", name, message);
    return kUnusable;
}

int ComplainUsage(const char *name) {
    std::fprintf(stderr, "Usage: kvjobinfo %s %s\n", name, FindCommand(name)->usage);
    return kUnusable;
}
