// SPDX-License-Identifier: Apache-2.0
//
// The pass that turns PPD features into PJL as it was first described: byte by byte, one byte
// behind, in two passes and with nothing clever.
#pragma once

#include <cstdio>
#include <string>

// Reads `input`, writes PJL and document to `output` and logs pages. `monochrome` tells whether the
// PPD's ColorDevice is "False". Returns what the temporary file held.
std::string ReferenceDecomposition(std::FILE *input, std::FILE *output, char *const argv[],
                                   bool monochrome);
