// SPDX-License-Identifier: Apache-2.0
//
// What a run loop serves, and how threads that work for it are heard.
#pragma once

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>

#include "CommonSource/CoreFoundation/CFObject.h"

using RunLoopClock = std::chrono::steady_clock;

// Wakes a run loop. Working threads share it, so that one that comes too late still finds it.
struct RunLoopBell {
    std::mutex mutex;  // guards the loop's sources and what decides when they are due
    std::condition_variable rung;
};

struct RunLoopSource : CFObject {
    // When Deliver is to be called: in the past if at once, RunLoopClock::time_point::max() if
    // nothing is expected. The bell's mutex is held.
    virtual RunLoopClock::time_point DueTime() const = 0;

    // Hands over what has come. The mutex is not held; the source stays alive until it returns.
    virtual void Deliver() = 0;
};

// Puts `source` on the loop; false where memory is short.
bool RunLoopAddSource(CFRunLoopRef runLoop, RunLoopSource *source);
void RunLoopRemoveSource(CFRunLoopRef runLoop, RunLoopSource *source);

std::shared_ptr<RunLoopBell> RunLoopGetBell(CFRunLoopRef runLoop);
