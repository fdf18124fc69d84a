// SPDX-License-Identifier: Apache-2.0
#include "support/ReferencePass.h"

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"

void ReferenceLines::Take(int byte) {
    line += static_cast<char>(byte);
    if (line.size() < 8065) return;
    KVfwrite(line.data(), 1, line.size(), output);
    line.clear();
}

bool ReferenceLines::End(int lineEnd) {
    const std::string text = line;
    line.clear();
    const bool endsPage = text == "ep" || text == "endp";
    if (endsPage) {
        page++;
        OutputPSCommandFromFilter(text == "ep" ? 27 : 28, page, output);
    }
    if ((endsPage || text == "showpage") && CancelJob == 1) return false;
    if (text == "%%EndSetup") OutputPSCommandFromFilter(16, page, output);
    if (text == "userdict/setpagedevice{pop}bind put") OutputPSCommandFromFilter(21, page, output);
    if (text == "%%EndProlog") {
        if (!prologEnded) OutputPSCommandFromFilter(14, page, output);
        prologEnded = true;
    }
    KVfwrite(text.data(), 1, text.size(), output);
    KVfputc(lineEnd, output);
    if (text == "bp") OutputPSCommandFromFilter(23, page, output);
    if (text == "%%EndPageSetup") OutputPSCommandFromFilter(24, page, output);
    if (text == "%%BeginProlog") OutputPSCommandFromFilter(13, page, output);
    if (text == "ep") OutputPageLogCommand(page, argv);
    return true;
}

void ReferencePSStream(std::FILE *input, std::FILE *output, char *const argv[]) {
    ReferenceLines lines{output, argv};
    for (int byte; (byte = std::fgetc(input)) != EOF;) {
        if (byte != 10 && byte != 13) {
            lines.Take(byte);
        } else if (!lines.End(byte)) {
            return;
        }
    }
    KVfputc(4, output);
}
