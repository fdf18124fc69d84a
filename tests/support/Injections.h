// SPDX-License-Identifier: Apache-2.0
//
// A document that has every line at which the filter may write, and jobs that print it.
#pragma once

#include <string>

#include "support/Ghostscript.h"
#include "support/Ppd.h"
#include "support/RunFilter.h"

inline constexpr char kEveryInjectionLine[] =
    "%!PS-Adobe-3.0\n"
    "%%BeginProlog\n"
    "%%EndProlog\n"
    "%%EndProlog\n"
    "userdict/setpagedevice{pop}bind put\n"
    "%%EndSetup\n"
    "bp\n"
    "%%EndPageSetup\n"
    "ep\n"
    "bp\n"
    "%%EndPageSetup\n"
    "endp\n"
    "bp\n"
    "%%EndPageSetup\n"
    "ep\n";

// What the printer's interpreter gets of `input` in a job with `options`, the end of the PostScript
// job included.
inline std::string PrintedDocument(const std::string &options,
                                   const std::string &input = kEveryInjectionLine) {
    FilterJob job;
    job.ppd = PpdWith();
    job.options = options;
    job.input = input;
    return DocumentOf(RunFilter(job).output);
}
