// SPDX-License-Identifier: Apache-2.0
//
// The commands of kvjobinfo. Each gets its own arguments, its name first, as main would, writes to
// standard output and, what went wrong, to standard error, and returns the exit status.
#pragma once

#include <cstdio>

// Exit statuses.
constexpr int kInOrder = 0;
constexpr int kProblemsFound = 1;
constexpr int kUnusable = 2;  // wrong arguments, or input that is no job

int ShowCommand(int argc, char *argv[]);
int PageCommand(int argc, char *argv[]);
int ExplainCommand(int argc, char *argv[]);
int OptionsCommand(int argc, char *argv[]);

struct Command {
    const char *name;
    int (*run)(int argc, char *argv[]);
    const char *usage;    // its arguments
    const char *meaning;  // what it does
};

// Null if there is none of that name.
const Command *FindCommand(const char *name);

// Says what commands there are and how each is called.
void PutUsage(std::FILE *stream);

// "kvjobinfo: name: message" on standard error; returns kUnusable.
int Complain(const char *name, const char *message);

// Says on standard error how the command of that name is called; returns kUnusable.
int ComplainUsage(const char *name);
