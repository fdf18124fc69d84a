// SPDX-License-Identifier: Apache-2.0
#include <CFNetwork/CFNetwork.h>
#include <gtest/gtest.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <latch>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "CommonSource/CoreFoundation/CFObject.h"
#include "support/ResolverInPlace.h"
#include "support/SocketAddresses.h"

namespace {

constexpr std::chrono::hours kLong(1);
constexpr std::chrono::milliseconds kAtOnce(0);

// A host with a client that writes down how it was called, scheduled on the current run loop.
struct Client {
    explicit Client(const char *name) {
        const CFStringRef text =
            CFStringCreateWithCString(kCFAllocatorDefault, name, kCFStringEncodingUTF8);
        host = CFHostCreateWithName(kCFAllocatorDefault, text);
        CFRelease(text);
        CFHostClientContext context = {0, this, nullptr, nullptr, nullptr};
        EXPECT_TRUE(CFHostSetClient(host, Called, &context));
        CFHostScheduleWithRunLoop(host, CFRunLoopGetCurrent(), kCFRunLoopCommonModes);
    }
    ~Client() { CFRelease(host); }
    Client(const Client &) = delete;
    Client &operator=(const Client &) = delete;

    static void Called(CFHostRef host, CFHostInfoType type, const CFStreamError *error,
                       void *info) {
        Client &client = *static_cast<Client *>(info);
        EXPECT_EQ(host, client.host);
        EXPECT_EQ(type, kCFHostAddresses);
        client.calls++;
        client.error = *error;
        client.thread = std::this_thread::get_id();
        CFRunLoopStop(CFRunLoopGetCurrent());
    }

    bool Start() { return CFHostStartInfoResolution(host, kCFHostAddresses, nullptr); }
    void Unschedule() {
        CFHostUnscheduleFromRunLoop(host, CFRunLoopGetCurrent(), kCFRunLoopCommonModes);
    }
    std::vector<CFIndex> AddressSizes() const {
        std::vector<CFIndex> sizes;
        const CFArrayRef addresses = CFHostGetAddressing(host, nullptr);
        for (CFIndex i = 0; i < CFArrayGetCount(addresses); i++) {
            const auto address = static_cast<CFDataRef>(CFArrayGetValueAtIndex(addresses, i));
            sizes.push_back(CFDataGetLength(address));
        }
        return sizes;
    }
    bool IsResolved() const {
        Boolean resolved = true;
        EXPECT_EQ(CFHostGetAddressing(host, &resolved) != nullptr, resolved);
        return resolved;
    }

    CFHostRef host;
    int calls = 0;
    CFStreamError error{-1, -1};
    std::thread::id thread;
};

constexpr CFIndex kIPv4Size = sizeof(sockaddr_in);
constexpr CFIndex kIPv6Size = sizeof(sockaddr_in6);

std::string askedName;
std::thread::id askingThread;

int FindTwo(const char *name, CFMutableArrayRef addresses) {
    askedName = name;
    askingThread = std::this_thread::get_id();
    AppendAddress(addresses, "2001:db8::5");
    AppendAddress(addresses, "10.0.0.7");
    return 0;
}

int FindNothing(const char *, CFMutableArrayRef) {
    return EAI_NONAME;
}

int NeverAnswer(const char *, CFMutableArrayRef) {
    for (;;) pause();
}

// Holds an answer back until the test opens it, and says when the thread that brought it is gone.
struct Gate {
    std::latch open{1};
    std::latch gone{1};
};
std::shared_ptr<Gate> gate;

int AnswerAtTheGate(const char *, CFMutableArrayRef addresses) {
    struct AtThreadEnd {
        ~AtThreadEnd() { passed->gone.count_down(); }
        const std::shared_ptr<Gate> passed = gate;
    };
    static thread_local const AtThreadEnd end;
    end.passed->open.wait();
    AppendAddress(addresses, "10.0.0.7");
    return 0;
}

void LetTheAnswerCome() {
    gate->open.count_down();
    gate->gone.wait();
}

}  // namespace

TEST(CFHost, KeepsItsRunLoopWhileItIsScheduled) {
    const CFRunLoopRef loop = CFRunLoopGetCurrent();
    const auto references = [loop] {
        return static_cast<const CFObject *>(static_cast<CFTypeRef>(loop))->references.load();
    };
    const CFIndex before = references();
    {
        Client client("localhost");
        EXPECT_EQ(references(), before + 1);
        CFHostScheduleWithRunLoop(client.host, loop, kCFRunLoopCommonModes);
        EXPECT_EQ(references(), before + 1) << "scheduled again";
        client.Unschedule();
        EXPECT_EQ(references(), before);
    }
    EXPECT_EQ(references(), before);
}

TEST(CFHost, DeliversTheAddressesInOrder) {
    const ResolverInPlace resolver(FindTwo, kLong);
    Client client("printhost");
    EXPECT_FALSE(client.IsResolved());
    ASSERT_TRUE(client.Start());
    EXPECT_EQ(client.calls, 0);
    CFRunLoopRun();
    EXPECT_EQ(client.calls, 1);
    EXPECT_EQ(client.error.domain, 0);
    EXPECT_EQ(client.error.error, 0);
    EXPECT_TRUE(client.IsResolved());
    EXPECT_EQ(client.AddressSizes(), (std::vector{kIPv6Size, kIPv4Size}));
    EXPECT_EQ(askedName, "printhost");
}

TEST(CFHost, CallsOnTheThreadThatRunsTheLoop) {
    const ResolverInPlace resolver(FindTwo, kLong);
    Client client("printhost");
    ASSERT_TRUE(client.Start());
    CFRunLoopRun();
    EXPECT_EQ(client.thread, std::this_thread::get_id());
    EXPECT_NE(askingThread, std::this_thread::get_id());
}

TEST(CFHost, TellsThatThereIsNoSuchHost) {
    const ResolverInPlace resolver(FindNothing, kLong);
    Client client("printhost");
    ASSERT_TRUE(client.Start());
    CFRunLoopRun();
    EXPECT_EQ(client.calls, 1);
    EXPECT_EQ(client.error.domain, kCFStreamErrorDomainNetDB);
    EXPECT_EQ(client.error.error, EAI_NONAME);
    EXPECT_FALSE(client.IsResolved());
}

TEST(CFHost, ResolvesAgain) {
    const ResolverInPlace resolver(FindTwo, kLong);
    Client client("printhost");
    for (int run = 1; run <= 2; run++) {
        ASSERT_TRUE(client.Start());
        CFRunLoopRun();
        EXPECT_EQ(client.calls, run);
        EXPECT_EQ(client.AddressSizes().size(), 2U);
    }
}

TEST(CFHost, WaitsFiveSeconds) {
    EXPECT_EQ(hostResolver.timeout, std::chrono::seconds(5));
}

TEST(CFHost, GivesUpOnAResolverThatDoesNotAnswer) {
    gate = std::make_shared<Gate>();
    const ResolverInPlace resolver(AnswerAtTheGate, kAtOnce);
    {
        Client client("printhost");
        ASSERT_TRUE(client.Start());
        CFRunLoopRun();
        EXPECT_EQ(client.calls, 1);
        EXPECT_EQ(client.error.domain, kCFStreamErrorDomainPOSIX);
        EXPECT_EQ(client.error.error, ETIMEDOUT);
        EXPECT_FALSE(client.IsResolved());
    }
    LetTheAnswerCome();
}

TEST(CFHost, AnswersMayOutliveTheThreadThatAsked) {
    gate = std::make_shared<Gate>();
    const ResolverInPlace resolver(AnswerAtTheGate, kAtOnce);
    std::thread([] {
        Client client("printhost");
        ASSERT_TRUE(client.Start());
        CFRunLoopRun();
        EXPECT_EQ(client.calls, 1);
        EXPECT_EQ(client.error.error, ETIMEDOUT);
    }).join();
    EXPECT_FALSE(gate->gone.try_wait()) << "the answer is still to come";
    LetTheAnswerCome();
    EXPECT_TRUE(gate->gone.try_wait());
}

// Threads count among the processes that an ordinary user may have.
TEST(CFHost, SaysSoWhenNoThreadCanBeHad) {
    const pid_t child = fork();
    if (child == 0) {
        const rlimit none = {0, 0};
        constexpr uid_t kNobody = 65534;
        if (setrlimit(RLIMIT_NPROC, &none) != 0) _exit(10);
        if (geteuid() == 0 && setuid(kNobody) != 0) _exit(11);
        const ResolverInPlace resolver(FindTwo, kLong);
        Client client("printhost");
        CFStreamError error{};
        if (CFHostStartInfoResolution(client.host, kCFHostAddresses, &error)) _exit(12);
        if (error.domain != kCFStreamErrorDomainPOSIX || error.error != EAGAIN) _exit(13);
        _exit(client.calls == 0 && !client.IsResolved() ? 0 : 14);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_TRUE(WIFEXITED(status));
}

TEST(CFHost, UnscheduledHostsAreNotHeard) {
    gate = std::make_shared<Gate>();
    const ResolverInPlace resolver(AnswerAtTheGate, kLong);
    Client client("printhost");
    ASSERT_TRUE(client.Start());
    client.Unschedule();
    client.Unschedule();  // for good measure
    LetTheAnswerCome();
    CFRunLoopRun();  // ends: nothing is scheduled
    EXPECT_EQ(client.calls, 0);
    EXPECT_FALSE(client.IsResolved());
}

TEST(CFHost, HostsWithoutAClientAreSilent) {
    gate = std::make_shared<Gate>();
    const ResolverInPlace resolver(AnswerAtTheGate, kLong);
    Client silent("silent");
    ASSERT_TRUE(silent.Start());
    EXPECT_TRUE(CFHostSetClient(silent.host, nullptr, nullptr));
    LetTheAnswerCome();
    hostResolver.lookUp = FindNothing;
    Client other("other");
    ASSERT_TRUE(other.Start());
    CFRunLoopRun();
    EXPECT_EQ(silent.calls, 0);
    EXPECT_EQ(other.calls, 1);
}

TEST(CFHost, HostsShareARunLoop) {
    const ResolverInPlace resolver(FindNothing, kLong);
    Client first("first");
    Client second("second");
    ASSERT_TRUE(first.Start());
    ASSERT_TRUE(second.Start());
    CFRunLoopRun();
    CFRunLoopRun();
    EXPECT_EQ(first.calls, 1);
    EXPECT_EQ(second.calls, 1);
}

TEST(CFHost, StartsOnlyWhatItCanFinish) {
    const ResolverInPlace resolver(FindNothing, kLong);
    CFStreamError error{};
    Client client("printhost");
    EXPECT_FALSE(CFHostStartInfoResolution(client.host, static_cast<CFHostInfoType>(2), &error));
    EXPECT_EQ(error.domain, kCFStreamErrorDomainPOSIX);
    EXPECT_EQ(error.error, EINVAL);
    ASSERT_TRUE(client.Start());
    EXPECT_FALSE(CFHostStartInfoResolution(client.host, kCFHostAddresses, &error));
    EXPECT_EQ(error.error, EBUSY);
    client.Unschedule();
    EXPECT_FALSE(CFHostStartInfoResolution(client.host, kCFHostAddresses, &error));
    EXPECT_EQ(error.error, EINVAL);
    CFHostScheduleWithRunLoop(client.host, CFRunLoopGetCurrent(), kCFRunLoopCommonModes);
    EXPECT_TRUE(CFHostSetClient(client.host, nullptr, nullptr));
    EXPECT_FALSE(client.Start());
    EXPECT_EQ(client.calls, 0);
}

TEST(CFHost, KeepsTheClientsInformation) {
    const CFStringRef name =
        CFStringCreateWithCString(kCFAllocatorDefault, "printhost", kCFStringEncodingASCII);
    const CFHostRef host = CFHostCreateWithName(kCFAllocatorDefault, name);
    void *const info = const_cast<void *>(static_cast<const void *>(name));
    CFHostClientContext context = {0, info, CFRetain, CFRelease, nullptr};
    const auto ignore = [](CFHostRef, CFHostInfoType, const CFStreamError *, void *) {};
    EXPECT_EQ(CFGetRetainCount(name), 1);
    EXPECT_TRUE(CFHostSetClient(host, ignore, &context));
    EXPECT_EQ(CFGetRetainCount(name), 2);
    EXPECT_TRUE(CFHostSetClient(host, ignore, &context));  // in the place of the former
    EXPECT_EQ(CFGetRetainCount(name), 2);
    EXPECT_TRUE(CFHostSetClient(host, nullptr, nullptr));
    EXPECT_EQ(CFGetRetainCount(name), 1);
    EXPECT_TRUE(CFHostSetClient(host, ignore, &context));
    EXPECT_TRUE(CFHostSetClient(host, ignore, nullptr));
    EXPECT_EQ(CFGetRetainCount(name), 1) << "a client may have none";
    EXPECT_TRUE(CFHostSetClient(host, ignore, &context));
    CFRelease(host);
    EXPECT_EQ(CFGetRetainCount(name), 1);
    CFRelease(name);
}

TEST(CFHost, NamesAreText) {
    const UniChar half = 0xD800;
    const CFStringRef name = CFStringCreateWithCharacters(kCFAllocatorDefault, &half, 1);
    EXPECT_EQ(CFHostCreateWithName(kCFAllocatorDefault, name), nullptr);
    CFRelease(name);
}

TEST(CFHost, SignalsGoToTheJobsThread) {
    static int blocked;
    const auto recordMask = [](const char *, CFMutableArrayRef) {
        sigset_t mask;
        pthread_sigmask(SIG_SETMASK, nullptr, &mask);
        blocked = sigismember(&mask, SIGTERM) + sigismember(&mask, SIGPIPE);
        return 0;
    };
    const ResolverInPlace resolver(recordMask, kLong);
    Client client("printhost");
    ASSERT_TRUE(client.Start());
    CFRunLoopRun();
    EXPECT_EQ(blocked, 2);
    sigset_t mask;
    pthread_sigmask(SIG_SETMASK, nullptr, &mask);
    EXPECT_EQ(sigismember(&mask, SIGTERM) + sigismember(&mask, SIGPIPE), 0);
}

TEST(CFHost, TheSystemKnowsNumericNames) {
    for (const auto &[name, size] :
         {std::pair{"10.0.0.7", kIPv4Size}, {"2001:db8::5", kIPv6Size}}) {
        Client client(name);
        ASSERT_TRUE(client.Start());
        CFRunLoopRun();
        EXPECT_EQ(client.error.error, 0);
        EXPECT_EQ(client.AddressSizes(), std::vector{size});
    }
}

TEST(CFHost, TheSystemKnowsNoImpossibleNames) {
    Client client(std::string(64, 'x').c_str());  // a part of a name has at most 63 characters
    ASSERT_TRUE(client.Start());
    CFRunLoopRun();
    EXPECT_EQ(client.error.domain, kCFStreamErrorDomainNetDB);
    EXPECT_NE(client.error.error, 0);
}

TEST(CFHostDeathTest, AHangingResolverDoesNotKeepTheProcess) {
    const auto askAndLeave = [] {
        const ResolverInPlace resolver(NeverAnswer, kAtOnce);
        Client client("printhost");
        if (!client.Start()) std::exit(1);
        CFRunLoopRun();
        std::exit(client.error.error == ETIMEDOUT ? 0 : 2);
    };
    EXPECT_EXIT(askAndLeave(), testing::ExitedWithCode(0), "");
}
