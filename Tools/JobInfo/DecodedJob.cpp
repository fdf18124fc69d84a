// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/DecodedJob.h"

#include <iterator>

const char *ProblemName(ProblemKind kind) {
    constexpr const char *names[] = {
        "line-without-end", "cut-line",    "given-twice",   "no-pjl",          "special-pages",
        "no-switch",        "no-document", "no-postscript", "pjl-in-document", "truncated",
        "bytes-after",      "second-job",  "too-much",
    };
    static_assert(std::size(names) == kProblemTooMuch + 1);
    return names[kind];
}
