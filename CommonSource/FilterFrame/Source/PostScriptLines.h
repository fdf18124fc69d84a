// SPDX-License-Identifier: Apache-2.0
//
// What the filter does at a special line (Tables/SpecialLines.h): the modules may write PostScript
// of their own there, pages are counted and logged, and a cancelled job ends. Both passes over a
// document go through here.
#pragma once

#include <cstdio>
#include <string_view>

#include "Tables/SpecialLines.h"

// What a pass remembers from line to line.
struct DocumentState {
    int pageCounter = 0;
    bool prologEnded = false;
};

// Does what `special` asks for and writes `line`, its line end included, to `stream` through the
// output wrappers. `argv` are the filter's arguments. Returns false if the job was cancelled: the
// line is not written and the pass must end.
bool PutSpecialLine(const SpecialLine &special, std::string_view line, DocumentState &state,
                    char *const argv[], std::FILE *stream);
