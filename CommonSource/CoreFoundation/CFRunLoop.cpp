// SPDX-License-Identifier: Apache-2.0
#include <CoreFoundation/CoreFoundation.h>

#include <algorithm>
#include <vector>

#include "CommonSource/CoreFoundation/CFRunLoopSource.h"

struct __CFRunLoop : CFObject {
    const std::shared_ptr<RunLoopBell> bell = std::make_shared<RunLoopBell>();
    std::vector<RunLoopSource *> sources;
    bool *stopped = nullptr;  // of the innermost CFRunLoopRun
};

namespace {

struct ThreadRunLoop {
    ~ThreadRunLoop() {
        if (loop) CFRelease(loop);  // GCOVR_EXCL_BR_LINE: fault
    }
    const CFRunLoopRef loop = NewObject<__CFRunLoop>();
};

bool IsDueBefore(const RunLoopSource *first, const RunLoopSource *second) {
    return first->DueTime() < second->DueTime();
}

}  // namespace

const CFStringRef kCFRunLoopCommonModes =
    CFStringCreateWithCString(kCFAllocatorDefault, "kCFRunLoopCommonModes", kCFStringEncodingASCII);

CFRunLoopRef CFRunLoopGetCurrent() {
    static thread_local const ThreadRunLoop current;
    return current.loop;
}

void CFRunLoopRun() {
    const CFRunLoopRef loop = CFRunLoopGetCurrent();
    if (!loop) return;  // GCOVR_EXCL_BR_LINE: fault
    bool stopped = false;
    std::unique_lock lock(loop->bell->mutex);
    bool *const outer = std::exchange(loop->stopped, &stopped);
    while (!stopped && !loop->sources.empty()) {
        RunLoopSource *next = *std::ranges::min_element(loop->sources, IsDueBefore);
        const auto due = next->DueTime();
        if (due == RunLoopClock::time_point::max()) {
            loop->bell->rung.wait(lock);
        } else if (due > RunLoopClock::now()) {
            loop->bell->rung.wait_until(lock, due);
        } else {
            CFRetain(next);
            lock.unlock();
            next->Deliver();
            CFRelease(next);
            lock.lock();
        }
    }
    loop->stopped = outer;
}

void CFRunLoopStop(CFRunLoopRef runLoop) {
    const std::lock_guard lock(runLoop->bell->mutex);
    if (runLoop->stopped) *runLoop->stopped = true;
    runLoop->bell->rung.notify_all();
}

bool RunLoopAddSource(CFRunLoopRef runLoop, RunLoopSource *source) {
    const std::lock_guard lock(runLoop->bell->mutex);
    try {
        runLoop->sources.push_back(source);
        return true;
    } catch (const std::bad_alloc &) {  // GCOVR_EXCL_START: fault
        return false;
    }  // GCOVR_EXCL_STOP
}

void RunLoopRemoveSource(CFRunLoopRef runLoop, RunLoopSource *source) {
    const std::lock_guard lock(runLoop->bell->mutex);
    std::erase(runLoop->sources, source);
}

std::shared_ptr<RunLoopBell> RunLoopGetBell(CFRunLoopRef runLoop) {
    return runLoop->bell;
}
