// SPDX-License-Identifier: Apache-2.0
//
// What a piece of code writes to standard output, with the filter's own wrappers.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <string>

// Runs `action` with stdout pointing into memory; returns what was written.
template <class Action>
std::string CaptureOutput(Action action) {
    char *text = nullptr;
    std::size_t size = 0;
    std::FILE *saved = stdout;
    stdout = open_memstream(&text, &size);
    action();
    std::fclose(stdout);
    stdout = saved;
    std::string output(text, size);
    std::free(text);
    return output;
}
