// SPDX-License-Identifier: Apache-2.0
#include "support/ReferencePass.h"

#include <cstring>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"

void ReferencePSStream(std::FILE *input, std::FILE *output, char *const argv[]) {
    char line[8192] = "";
    std::size_t length = 0;
    int page = 0;
    bool prologEnded = false;
    int byte;
    const auto is = [&](const char *text) {
        return length == std::strlen(text) && std::memcmp(line, text, length) == 0;
    };
    const auto put = [&] {
        KVfwrite(line, 1, length, output);
        KVfputc(byte, output);
    };
    while ((byte = std::fgetc(input)) != EOF) {
        if (byte != 10 && byte != 13) {
            line[length++] = static_cast<char>(byte);
            if (length == 8065) {
                KVfwrite(line, 1, length, output);
                std::memset(line, 0, sizeof line);
                length = 0;
            }
            continue;
        }
        if (is("ep")) {
            page++;
            OutputPSCommandFromFilter(27, page, output);
            if (CancelJob == 1) return;
            put();
            OutputPageLogCommand(page, argv);
        } else if (is("endp")) {
            page++;
            OutputPSCommandFromFilter(28, page, output);
            if (CancelJob == 1) return;
            put();
        } else if (is("showpage")) {
            if (CancelJob == 1) return;
            put();
        } else if (is("bp")) {
            put();
            OutputPSCommandFromFilter(23, page, output);
        } else if (is("%%EndSetup")) {
            OutputPSCommandFromFilter(16, page, output);
            put();
        } else if (is("userdict/setpagedevice{pop}bind put")) {
            OutputPSCommandFromFilter(21, page, output);
            put();
        } else if (is("%%EndPageSetup")) {
            put();
            OutputPSCommandFromFilter(24, page, output);
        } else if (is("%%BeginProlog")) {
            put();
            OutputPSCommandFromFilter(13, page, output);
        } else if (is("%%EndProlog")) {
            if (!prologEnded) OutputPSCommandFromFilter(14, page, output);
            put();
            prologEnded = true;
        } else {
            put();
        }
        std::memset(line, 0, sizeof line);
        length = 0;
    }
    KVfputc(4, output);
}
