// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/SampleDocument.h"

#include <cups/ppd.h>

#include <cstdio>
#include <cstdlib>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"

namespace {

void PutFeatures(std::FILE *stream, ppd_section_t section) {
    if (JobPPD()) ppdEmit(JobPPD(), stream, section);
}

void PutDocument(std::FILE *stream, bool isSeveralUp) {
    std::fputs("%!PS-Adobe-3.0\n%%Pages: 1\n%%EndComments\n%%BeginProlog\n", stream);
    PutFeatures(stream, PPD_ORDER_PROLOG);
    std::fputs("%%EndProlog\n%%BeginSetup\n", stream);
    PutFeatures(stream, PPD_ORDER_DOCUMENT);
    PutFeatures(stream, PPD_ORDER_ANY);
    if (isSeveralUp) std::fputs("userdict/setpagedevice{pop}bind put\n", stream);
    std::fputs("%%EndSetup\n%%Page: 1 1\n%%BeginPageSetup\n", stream);
    PutFeatures(stream, PPD_ORDER_PAGE);
    std::fputs("%%EndPageSetup\nep\n%%Trailer\n%%EOF\n\x04", stream);
}

}  // namespace

std::string SampleDocument(const std::string &options) {
    const TicketOptions job(options.c_str());
    if (JobPPD()) {
        ppdMarkDefaults(JobPPD());
        cupsMarkOptions(JobPPD(), job.count, job.list);
    }
    const char *pages = cupsGetOption(kNumberUpTicketKey, job.count, job.list);
    char *text = nullptr;
    std::size_t size = 0;
    std::FILE *stream = open_memstream(&text, &size);
    if (!stream) return "";  // GCOVR_EXCL_BR_LINE: fault
    PutDocument(stream, pages && LeadingInteger(pages) > 1);
    std::fclose(stream);
    std::string document(text, size);
    std::free(text);
    return document;
}
