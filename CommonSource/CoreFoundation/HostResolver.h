// SPDX-License-Identifier: Apache-2.0
//
// Where CFHost gets its answers. It stands by itself so that tests can put another resolver in its
// place: one that knows any host, or none, or never answers.
#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <chrono>

struct HostResolver {
    // Looks `name` up and appends its socket addresses, as CFData, to `addresses`. Returns 0 or an
    // EAI_ number. Runs on a thread of its own, which nobody waits for longer than `timeout`.
    int (*lookUp)(const char *name, CFMutableArrayRef addresses);
    std::chrono::milliseconds timeout;
};

// The system's own, with 5 seconds.
extern HostResolver hostResolver;
