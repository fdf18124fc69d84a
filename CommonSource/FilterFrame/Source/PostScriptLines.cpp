// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PostScriptLines.h"

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"

// clang-format off
const SpecialLine specialLines[kSpecialLineCount] = {
    // text                                   point                         modules write         ends   logs   stops
    {"ep",                                    kPointBeforeEp,               SpecialLine::kBefore, true,  true,  true},
    {"endp",                                  kPointBeforeEndp,             SpecialLine::kBefore, true,  false, true},
    {"showpage",                              kPointNone,                   SpecialLine::kBefore, false, false, true},
    {"bp",                                    kPointAfterBp,                SpecialLine::kAfter,  false, false, false},
    {"%%EndSetup",                            kPointBeforeEndSetup,         SpecialLine::kBefore, false, false, false},
    {"userdict/setpagedevice{pop}bind put",   kPointBeforeSetPageDevicePop, SpecialLine::kBefore, false, false, false},
    {"%%EndPageSetup",                        kPointAfterEndPageSetup,      SpecialLine::kAfter,  false, false, false},
    {"%%BeginProlog",                         kPointAfterBeginProlog,       SpecialLine::kAfter,  false, false, false},
    {"%%EndProlog",                           kPointBeforeEndProlog,        SpecialLine::kBefore, false, false, false},
};
// clang-format on

const SpecialLine *FindSpecialLine(std::string_view line) {
    for (const SpecialLine &special : specialLines) {
        if (special.text == line) return &special;
    }
    return nullptr;
}

bool PutSpecialLine(const SpecialLine &special, std::string_view line, DocumentState &state,
                    char *const argv[], std::FILE *stream) {
    if (special.endsPage) state.pageCounter++;
    InjectionPoint point = special.point;
    if (point == kPointBeforeEndProlog) {
        if (state.prologEnded) point = kPointNone;
        state.prologEnded = true;
    }
    if (point != kPointNone && special.when == SpecialLine::kBefore) {
        OutputPSCommandFromFilter(point, state.pageCounter, stream);
    }
    if (special.stopsCancelledJob && CancelJob == 1) return false;
    KVfwrite(line.data(), 1, line.size(), stream);
    if (point != kPointNone && special.when == SpecialLine::kAfter) {
        OutputPSCommandFromFilter(point, state.pageCounter, stream);
    }
    if (special.logsPage) OutputPageLogCommand(state.pageCounter, argv);
    return true;
}
