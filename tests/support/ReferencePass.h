// SPDX-License-Identifier: Apache-2.0
//
// The plain pass as it was first described, byte by byte and with nothing clever: what the fast
// reader must put out, to the byte.
#pragma once

#include <cstdio>
#include <string>

// What both passes do with the lines of a document.
struct ReferenceLines {
    std::FILE *output;  // written to through the output wrappers
    char *const *argv;  // for the page log
    std::string line = {};
    int page = 0;
    bool prologEnded = false;

    // Takes a byte that ends no line; what is longer than a line may be goes out in pieces.
    void Take(int byte);

    // Puts out the line and what belongs before and after it, and forgets it. False if the job was
    // cancelled.
    bool End(int lineEnd);
};

// Reads `input`, writes to `output` through the output wrappers, and logs pages.
void ReferencePSStream(std::FILE *input, std::FILE *output, char *const argv[]);
