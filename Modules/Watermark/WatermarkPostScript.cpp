// SPDX-License-Identifier: Apache-2.0
#include "Modules/Watermark/WatermarkPostScript.h"

#include <cstdarg>
#include <iterator>

#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "Modules/Watermark/WatermarkPosition.h"
#include "Modules/Watermark/WatermarkTicket.h"
#include "Tables/SpecialLines.h"

namespace {

// What stands between operands, as a value for "%c".
constexpr int WATERMARKSPACE = 32;

// Bytes of a line: the longest text or font name that the ticket holds, and its operator.
constexpr std::size_t kLineSize = sizeof psOptionWatermark.font + 32;

// What is written at one injection point.
struct Snippet {
    InjectionPoint point;
    const char *code;
    bool stamps;  // the text follows
};

// clang-format off
constexpr Snippet snippets[] = {
    // point                  code                                             stamps
    {kPointAfterBeginProlog,  "userdict/kvxInfo 2 dict dup begin\n"
                              "/kvxpgsave 0 def\n"
                              "/kvxbp{/kvxpgsave save store} bind def\n",         false},
    {kPointAfterEndPageSetup, "kvxbp\n",                                          false},
    {kPointBeforeEp,          "pgsave restore /pgsave save store gsave\n",        true},
    {kPointBeforeEndp,        "pm restore /pm save store gsave\n",                true},
    {kPointBeforePageRestore, "kvxpgsave restore /kvxpgsave save store gsave\n",  true},
};
// clang-format on

// The job's: which snippets have had their turn, where the watermark is for the first page alone.
bool isDone[std::size(snippets)];

[[gnu::format(printf, 2, 3)]] void PutLine(std::FILE *stream, const char *format, ...) {
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
    const WatermarkOptions &ticket = psOptionWatermark;
    float x = 0.0F;
    float y = 0.0F;
    GetWatermarkPostion(&x, &y, kWatermarkOnPage, ticket.width, ticket.height,
                        ticket.horizontalOffset, ticket.verticalOffset);
    PutLine(stream, "%.2f%c%.2f%c%.2f setrgbcolor\n", Thinned(ticket.red), WATERMARKSPACE,
            Thinned(ticket.green), WATERMARKSPACE, Thinned(ticket.blue));
    PutLine(stream, "/%s%c%d selectfont\n", ticket.font, WATERMARKSPACE, ticket.fontSize);
    PutLine(stream, "%.2f%c%.2f moveto\n", x, WATERMARKSPACE, y);
    PutLine(stream, "%d rotate\n", ticket.angle);
    PutLine(stream, "%s show\n", ticket.text);
    KVfprintf(stream, "grestore\n");
}

void WatermarkOutputPSCommandFromFilter(int point, int, std::FILE *stream) {
    if (!WatermarkIsDrawn()) return;
    psOptionWatermark.options = 1;
    for (std::size_t i = 0; i < std::size(snippets); i++) {
        const Snippet &snippet = snippets[i];
        if (snippet.point != point || isDone[i]) continue;
        KVfprintf(stream, snippet.code);
        if (snippet.stamps) WatermarkOutputStamp(stream);
        isDone[i] = psOptionWatermark.onlyFirst != 0;
    }
}
