// SPDX-License-Identifier: Apache-2.0
//
// Linked into every program of the preset "coverage": what a process has run counts too if it ends
// by _exit, as children that never become another program do, or by an assertion, or if it may not
// write large files.
#include <sys/resource.h>

#include <csignal>
#include <cstdlib>

extern "C" void __gcov_dump();

namespace {

// Counts that a limit cuts short spoil those of all processes. Only root may raise it again.
[[gnu::destructor]] void LiftLimit() {
    const rlimit none = {RLIM_INFINITY, RLIM_INFINITY};
    setrlimit(RLIMIT_FSIZE, &none);
}

void Dump() {
    LiftLimit();
    __gcov_dump();
}

[[maybe_unused]] const auto dumpsAtAbort = std::signal(SIGABRT, [](int) { Dump(); });

}  // namespace

// In the place of the C library's.
extern "C" void _exit(int status) {
    Dump();
    std::_Exit(status);
}
