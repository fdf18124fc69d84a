// SPDX-License-Identifier: Apache-2.0
//
// The plain pass as it was first described, byte by byte and with nothing clever: what the fast
// reader must put out, to the byte.
#pragma once

#include <cstdio>

// Reads `input`, writes to `output` through the output wrappers, and logs pages.
void ReferencePSStream(std::FILE *input, std::FILE *output, char *const argv[]);
