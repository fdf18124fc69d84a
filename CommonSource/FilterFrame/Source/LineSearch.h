// SPDX-License-Identifier: Apache-2.0
//
// The vectorised searches of the document reader. They run over every byte of a document, so they
// only tell apart what certainly does not matter from what may; the reader looks closer.
//
// All look back up to kLookBack bytes from where they start, which must be readable, and return
// `end` when nothing is found.
#pragma once

#include "CommonSource/FilterFrame/Source/LineSearchPatterns.h"

struct LineSearch {
    using Search = const char *(*)(const char *from, const char *end);

    const char *name;  // of the vectors: "AVX2"
    // The next line feed or carriage return.
    Search findLineEnd;
    // The next line end after two bytes that a special line may end in.
    Search findSpecialLine;
    // The same, or the last byte of "%%B", "SCR" or "CPR": the line there may hold PPD feature code
    // or printer settings.
    Search findSpecialOrSettingsLine;
    // For documents of any maker: the last byte of "%%" at the beginning of a line, which is a
    // comment, or of ESC "%-", which may end a printer language; or the next line end after two
    // bytes that a special line may end in, unless that is a comment.
    Search findCommentLine;
    // The same, or the last byte of "SCR" or "CPR".
    Search findCommentOrSettingsLine;
};

// The searches of the widest vectors that this machine has.
const LineSearch &BestLineSearch();

// Every variant that this machine can run, the best first; ends with null.
const LineSearch *const *AllLineSearches();
