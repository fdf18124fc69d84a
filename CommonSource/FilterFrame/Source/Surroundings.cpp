// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/Surroundings.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <initializer_list>
#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace {

// In ascending order, so that each takes the lowest descriptor that is free: its own.
void OpenClosedDescriptors() {
    for (const int file : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (fcntl(file, F_GETFD) >= 0) continue;
        const int mode = file == STDIN_FILENO ? O_WRONLY : O_RDONLY;
        if (open("/dev/null", mode) < 0) return;  // GCOVR_EXCL_BR_LINE: fault
    }
}

// A stream gives up at the first write that would have to wait, and loses what it holds.
void MakeBlocking(int file) {
    const int flags = fcntl(file, F_GETFL);
    if (flags < 0) return;  // GCOVR_EXCL_BR_LINE: fault
    if (flags & O_NONBLOCK) fcntl(file, F_SETFL, flags & ~O_NONBLOCK);
}

// The passwords of the job stand in the memory of its process.
void KeepMemoryPrivate() {
    const rlimit none = {0, 0};
    setrlimit(RLIMIT_CORE, &none);
#ifdef __linux__
    prctl(PR_SET_DUMPABLE, 0);  // programs that collect core dumps need not heed the limit
#endif
}

}  // namespace

void SecureSurroundings() {
    OpenClosedDescriptors();
    MakeBlocking(STDOUT_FILENO);
    MakeBlocking(STDERR_FILENO);
    KeepMemoryPrivate();
}
