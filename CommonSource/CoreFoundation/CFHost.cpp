// SPDX-License-Identifier: Apache-2.0
#include <CFNetwork/CFNetwork.h>

#include <cerrno>
#include <csignal>
#include <exception>
#include <string>
#include <system_error>
#include <thread>

#include "CommonSource/CoreFoundation/CFRunLoopSource.h"
#include "CommonSource/CoreFoundation/HostResolver.h"

namespace {

// One question and its answer. The thread that asks holds it too, so that an answer may come when
// nobody is left to hear it.
struct Resolution {
    Resolution(const std::string &host, std::shared_ptr<RunLoopBell> loopBell)
        : name(host), bell(std::move(loopBell)) {}
    ~Resolution() {
        if (addresses) CFRelease(addresses);  // GCOVR_EXCL_BR_LINE: fault
    }
    Resolution(const Resolution &) = delete;
    Resolution &operator=(const Resolution &) = delete;

    const std::string name;
    const std::shared_ptr<RunLoopBell> bell;
    const HostResolver resolver = hostResolver;
    const RunLoopClock::time_point deadline = RunLoopClock::now() + resolver.timeout;
    const CFMutableArrayRef addresses =
        CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks);
    // Guarded by the bell's mutex; once answered, nothing here changes any more.
    bool answered = false;
    int status = 0;
};

// The body of the asking thread. It touches nothing but the resolution.
void Ask(const std::shared_ptr<Resolution> &resolution) noexcept {
    const int status = resolution->resolver.lookUp(resolution->name.c_str(), resolution->addresses);
    {
        const std::lock_guard lock(resolution->bell->mutex);
        resolution->status = status;
        resolution->answered = true;
    }
    resolution->bell->rung.notify_all();
}

// Keeps signals from a thread that is started while it lives: the job's handlers run on the main
// thread.
struct SignalsBlocked {
    SignalsBlocked() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before);
    }
    ~SignalsBlocked() { pthread_sigmask(SIG_SETMASK, &before, nullptr); }
    SignalsBlocked(const SignalsBlocked &) = delete;
    SignalsBlocked &operator=(const SignalsBlocked &) = delete;

    sigset_t before;
};

}  // namespace

struct __CFHost final : RunLoopSource {
    explicit __CFHost(std::string &&hostname) : name(std::move(hostname)) {}
    ~__CFHost() override {
        CFHostUnscheduleFromRunLoop(this, runLoop, kCFRunLoopCommonModes);
        CFHostSetClient(this, nullptr, nullptr);
        if (addresses) CFRelease(addresses);
    }

    RunLoopClock::time_point DueTime() const override;
    void Deliver() override;

    const std::string name;
    CFHostClientCallBack callBack = nullptr;
    CFHostClientContext context{};
    CFRunLoopRef runLoop = nullptr;
    std::shared_ptr<Resolution> resolution;  // the one under way
    CFArrayRef addresses = nullptr;
};

RunLoopClock::time_point __CFHost::DueTime() const {
    if (!resolution) return RunLoopClock::time_point::max();
    return resolution->answered ? RunLoopClock::time_point::min() : resolution->deadline;
}

void __CFHost::Deliver() {
    const std::shared_ptr<Resolution> ended = std::move(resolution);
    CFStreamError error{kCFStreamErrorDomainPOSIX, ETIMEDOUT};
    {
        const std::lock_guard lock(ended->bell->mutex);
        if (ended->answered) error = {kCFStreamErrorDomainNetDB, ended->status};
    }
    if (error.error == 0) {
        error.domain = 0;
        if (addresses) CFRelease(addresses);
        addresses = static_cast<CFArrayRef>(CFRetain(ended->addresses));
    }
    callBack(this, kCFHostAddresses, &error, context.info);
}

namespace {

// Starts a resolution; returns 0 or an errno.
SInt32 Start(CFHostRef host, CFHostInfoType info) {
    if (info != kCFHostAddresses || !host->callBack || !host->runLoop) return EINVAL;
    if (host->resolution) return EBUSY;
    try {
        const auto resolution =
            std::make_shared<Resolution>(host->name, RunLoopGetBell(host->runLoop));
        if (!resolution->addresses) return ENOMEM;  // GCOVR_EXCL_BR_LINE: fault
        const SignalsBlocked blocked;
        std::thread(Ask, resolution).detach();  // ends with its answer or with the process
        host->resolution = resolution;
        return 0;
    } catch (const std::bad_alloc &) {  // GCOVR_EXCL_START: fault
        return ENOMEM;
    } catch (const std::system_error &) {
        return EAGAIN;
    }  // GCOVR_EXCL_STOP
}

}  // namespace

const SInt32 kCFStreamErrorDomainNetDB = 12;

CFHostRef CFHostCreateWithName(CFAllocatorRef, CFStringRef hostname) {
    const CFIndex size =
        CFStringGetMaximumSizeForEncoding(CFStringGetLength(hostname), kCFStringEncodingUTF8) + 1;
    try {
        std::string name(static_cast<std::size_t>(size), '\0');
        if (!CFStringGetCString(hostname, name.data(), size, kCFStringEncodingUTF8)) return nullptr;
        return NewObject<__CFHost>(std::move(name));
    } catch (const std::exception &) {
        return nullptr;  // GCOVR_EXCL_LINE: fault
    }
}

Boolean CFHostSetClient(CFHostRef host, CFHostClientCallBack callBack,
                        CFHostClientContext *context) {
    const CFHostClientContext former = host->context;
    host->callBack = callBack;
    host->context = callBack && context ? *context : CFHostClientContext{};
    CFHostClientContext &kept = host->context;
    if (kept.retain) kept.info = const_cast<void *>(kept.retain(kept.info));
    if (former.release) former.release(former.info);
    if (!callBack) host->resolution.reset();
    return true;
}

void CFHostScheduleWithRunLoop(CFHostRef host, CFRunLoopRef runLoop, CFStringRef mode) {
    CFHostUnscheduleFromRunLoop(host, host->runLoop, mode);
    if (!runLoop || !RunLoopAddSource(runLoop, host)) return;  // GCOVR_EXCL_BR_LINE: fault
    CFRetain(runLoop);
    host->runLoop = runLoop;
}

void CFHostUnscheduleFromRunLoop(CFHostRef host, CFRunLoopRef runLoop, CFStringRef) {
    if (!runLoop || runLoop != host->runLoop) return;
    RunLoopRemoveSource(runLoop, host);
    CFRelease(runLoop);
    host->runLoop = nullptr;
    host->resolution.reset();
}

Boolean CFHostStartInfoResolution(CFHostRef host, CFHostInfoType info, CFStreamError *error) {
    const SInt32 status = Start(host, info);
    if (status != 0 && error) *error = {kCFStreamErrorDomainPOSIX, status};
    return status == 0;
}

CFArrayRef CFHostGetAddressing(CFHostRef host, Boolean *hasBeenResolved) {
    if (hasBeenResolved) *hasBeenResolved = host->addresses != nullptr;
    return host->addresses;
}
