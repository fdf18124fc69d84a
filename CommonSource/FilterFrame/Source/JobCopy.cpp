// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobCopy.h"

#include <sys/stat.h>
#include <unistd.h>

#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PrivateFile.h"

namespace {

constexpr char JobFileNamePath[] = "/private/tmp/kv%s.job";

// Readable and writable for all, and executable for the group: the odd bit is how support staff
// tell a finished copy.
constexpr mode_t kFinishedMode = 0676;

}  // namespace

const char *FlagPath = "/Library/Printers/Korvell/kvjobcopy";

void OpenJobCopy() {
    char path[kPrivatePathSize];
    gJobFilefp = access(FlagPath, F_OK) == 0 ? CreatePrivateFile(JobFileNamePath, path) : nullptr;
}

void CloseJobCopy() {
    if (!gJobFilefp) return;
    std::fflush(gJobFilefp);
    fchmod(fileno(gJobFilefp), kFinishedMode);  // by its handle: the path may be another's by now
    std::fclose(gJobFilefp);
    gJobFilefp = nullptr;
}
