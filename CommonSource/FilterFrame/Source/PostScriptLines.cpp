// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PostScriptLines.h"

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"

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
