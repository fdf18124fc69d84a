// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobCopy.h"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PrivateFile.h"
#include "FrontEnd/FrontEnd.h"
#include "FrontEnd/Messages.h"

namespace {

constexpr char JobFileNamePath[] = "/private/tmp/kv%s.job";

// Readable and writable for all, and executable for the group: the odd bit is how support staff
// tell a finished copy.
constexpr mode_t kFinishedMode = 0676;

}  // namespace

const char *FlagPath = "/Library/Printers/Korvell/kvjobcopy";

void OpenJobCopy() {
    char path[kPrivatePathSize];
    gJobFilefp = nullptr;
    if (access(FlagPath, F_OK) != 0) return;
    gJobFilefp = CreatePrivateFile(JobFileNamePath, path);
    if (!gJobFilefp) ReportWarning("No copy of the job can be made", errno);
}

void CloseJobCopy() {
    if (!gJobFilefp) return;
    if (std::fflush(gJobFilefp) != 0 && jobCopyError == 0) {  // GCOVR_EXCL_BR_LINE: fault
        jobCopyError = errno;
    }
    if (jobCopyError != 0) ReportWarning("The copy of the job is not whole", jobCopyError);
    if (jobCopyError == 0 || !FrontEndIsCUPS()) {
        fchmod(fileno(gJobFilefp), kFinishedMode);  // by its handle: the path may be another's
    }
    std::fclose(gJobFilefp);
    gJobFilefp = nullptr;
}
