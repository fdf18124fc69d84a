// SPDX-License-Identifier: Apache-2.0
//
// A document that has every line at which the filter may write, and jobs that print it.
#pragma once

#include <string>

#include "support/Ghostscript.h"
#include "support/Ppd.h"
#include "support/RunFilter.h"

// A watermark on every page, and separator pages: PostScript at every point that takes any.
inline constexpr char kInjecting[] =
    "com.korvell.tav.printsettings.WMARKNameTicket=draft "
    "com.korvell.tav.printsettings.WMARKTypeTicket=0 "
    "com.korvell.tav.printsettings.WMARKOnlyFirstTicket=0 "
    "com.korvell.tav.printsettings.WMARKTextTicket=(DRAFT) "
    "com.korvell.tav.printsettings.SeparatorPageListTicket=2 "
    "com.korvell.tav.printsettings.BookletMarginSwitchTicket=1 "
    "com.korvell.tav.printsettings.AutoFitSwitchTicket=1";

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
