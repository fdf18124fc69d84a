// SPDX-License-Identifier: Apache-2.0
#include "Modules/Features/FeaturesPostScript.h"

#include <cstdarg>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "Modules/Features/FeaturesTicket.h"
#include "Tables/SpecialLines.h"

namespace {

constexpr std::int32_t kNotSet = -1;
constexpr std::int32_t kBookletMarginOff = 0;
constexpr std::int32_t kSeparatorPagesOff = 1;

// Bytes of a line that holds a ticket text, its NUL included; what is longer is cut.
constexpr std::size_t kLineSize = 100;

// Pages on a sheet, 0 if the layout is unknown. As wide as the product of two counts.
std::int64_t PagesPerSheet() {
    return static_cast<std::int64_t>(LeadingInteger(StdLayoutRowInfo)) *
           LeadingInteger(StdLayoutColumnInfo);
}

// Writes `code` as a feature that no PPD describes. Per-cent signs are doubled for KVfprintf.
void PutFeature(std::FILE *stream, const char *code) {
    KVfprintf(stream,
              "[{\n"
              "%%%%BeginNonPPDFeatures\n");
    KVfprintf(stream, code);
    KVfprintf(stream,
              "%%%%EndNonPPDFeatures\n"
              "} stopped cleartomark\n");
}

// The same for a line with ticket texts in it.
[[gnu::format(printf, 2, 3)]] void PutFeatureLine(std::FILE *stream, const char *format, ...) {
    char line[kLineSize];
    std::va_list texts;
    va_start(texts, format);
    std::vsnprintf(line, sizeof line, format, texts);
    va_end(texts);
    PutFeature(stream, line);
}

}  // namespace

int FeaturesOutputPSCommandFromFilter(int point, std::FILE *stream) {
    // A layout with a negative count is no layout: it has neither these pages nor those.
    const std::int64_t pages = PagesPerSheet();
    const bool onePage = pages == 0 || pages == 1;
    const bool severalPages = pages >= 2;
    if (onePage && point == kPointBeforeEndProlog) {
        FeaturesOutputSeparatorPages(stream);
    } else if (onePage && point == kPointBeforeEndSetup) {
        FeaturesOutputAutoFit(stream);
    } else if (severalPages && point == kPointBeforeSetPageDevicePop) {
        FeaturesOutputSeparatorPages(stream);
        FeaturesOutputAutoFit(stream);
    }
    return 1;
}

void FeaturesOutputAutoFit(std::FILE *stream) {
    const FeaturesOptions &ticket = kpjlOptionFeatures;
    if (ticket.bookletMarginSwitch == kNotSet || ticket.bookletMarginSwitch == kBookletMarginOff)
        return;
    PutFeatureLine(stream, "%s.000/Custom/ProcSet findresource/setsignatureimageshift get exec\n",
                   ticket.bookletMarginShift);

    if (ticket.autoFitSwitch == kNotSet) return;
    PutFeature(stream, ticket.autoFitSwitch == OptionAutoFitNone
                           ? "/Custom/ProcSet findresource/setsignatureautoscale 2 copy known "
                             "{get false exch exec} {pop pop} ifelse\n"
                           : "/Custom/ProcSet findresource/setsignatureautoscale 2 copy known "
                             "{get true exch exec} {pop pop} ifelse\n");
}

void FeaturesOutputSeparatorPages(std::FILE *stream) {
    const FeaturesOptions &ticket = kpjlOptionFeatures;
    if (ticket.separatorPagesList == kNotSet || ticket.separatorPagesList == kSeparatorPagesOff)
        return;
    PutFeatureLine(stream,
                   "1 dict dup/SeparatorPages[%s]put/Custom/ProcSet findresource/setcoverseparator "
                   "get exec\n",
                   ticket.separatorPages);
}
