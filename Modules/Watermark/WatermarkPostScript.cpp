// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkPostScript.h"

#include <cstdarg>

#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "Modules/Watermark/WatermarkPosition.h"
#include "Modules/Watermark/WatermarkTicket.h"
#include "Tables/SpecialLines.h"

namespace {

// What stands between operands, as a value for "%c".
constexpr int WATERMARKSPACE = 32;

// Bytes of a line: the longest text or font name that the ticket holds, and its operator.
constexpr std::size_t kLineSize = sizeof psOptionWatermark.font + 32;

// What is written at one injection point. `toPrint` is per job: it falls when the watermark is for
// the first page alone.
struct Snippet {
    InjectionPoint point;
    const char *code;
    bool stamps;  // the text follows
    bool toPrint;
};

// clang-format off
Snippet snippets[] = {
    // point                  code                                             stamps toPrint
    {kPointAfterBeginProlog,  "userdict/kvxInfo 2 dict dup begin\n"
                              "/kvxpgsave 0 def\n"
                              "/kvxbp{/kvxpgsave save store} bind def\n",         false, true},
    {kPointAfterEndPageSetup, "kvxbp\n",                                          false, true},
    {kPointBeforeEp,          "pgsave restore /pgsave save store gsave\n",        true,  true},
    {kPointBeforeEndp,        "pm restore /pm save store gsave\n",                true,  true},
    {kPointBeforePageRestore, "kvxpgsave restore /kvxpgsave save store gsave\n",  true,  true},
};
// clang-format on

__attribute__((format(printf, 2, 3))) void PutLine(std::FILE *stream, const char *format, ...) {
    char line[kLineSize];
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(line, sizeof line, format, values);
    va_end(values);
    KVfprintf(stream, line);
}

// A colour component thinned to the watermark's density: 0 is white.
float Thinned(float component) {
    const float density = static_cast<float>(psOptionWatermark.density) / 100.0F;
    return 1.0F - (1.0F - component) * density;
}

}  // namespace

bool WatermarkIsDrawn() {
    return psOptionWatermark.name[0] != '\0' && psOptionWatermark.type == kWatermarkText;
}

void WatermarkOutputStamp(std::FILE *stream) {
    const WatermarkOptions &w = psOptionWatermark;
    float x = 0.0F;
    float y = 0.0F;
    GetWatermarkPostion(&x, &y, kWatermarkOnPage, w.width, w.height, w.horizontalOffset,
                        w.verticalOffset);
    PutLine(stream, "%.2f%c%.2f%c%.2f setrgbcolor\n", Thinned(w.red), WATERMARKSPACE,
            Thinned(w.green), WATERMARKSPACE, Thinned(w.blue));
    PutLine(stream, "/%s%c%d selectfont\n", w.font, WATERMARKSPACE, w.fontSize);
    PutLine(stream, "%.2f%c%.2f moveto\n", x, WATERMARKSPACE, y);
    PutLine(stream, "%d rotate\n", w.angle);
    PutLine(stream, "%s show\n", w.text);
    KVfprintf(stream, "grestore\n");
}

void WatermarkOutputPSCommandFromFilter(int point, int, std::FILE *stream) {
    if (!WatermarkIsDrawn()) return;
    psOptionWatermark.options = 1;
    for (Snippet &snippet : snippets) {
        if (snippet.point != point || !snippet.toPrint) continue;
        KVfprintf(stream, snippet.code);
        if (snippet.stamps) WatermarkOutputStamp(stream);
        snippet.toPrint = psOptionWatermark.onlyFirst == 0;
    }
}
