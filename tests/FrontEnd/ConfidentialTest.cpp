// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Confidential.h"

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>

#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/TicketJob.h"

// How Clang says that AddressSanitizer is there.
#ifdef __has_feature
#if __has_feature(address_sanitizer)
#define __SANITIZE_ADDRESS__ 1
#endif
#endif

// Memory that runs out, once, at the n-th request. AddressSanitizer has an allocator of its own.
#if defined(__GLIBC__) && !defined(__SANITIZE_ADDRESS__)
#define KVFILTER_CAN_RUN_OUT_OF_MEMORY

namespace {
long requestsLeft = 0;  // 0: memory does not run out
bool ranOut = false;

bool RunsOut() {
    if (requestsLeft == 0 || --requestsLeft > 0) return false;
    errno = ENOMEM;
    return ranOut = true;
}
}  // namespace

extern "C" {
void *__libc_malloc(std::size_t);
void *__libc_calloc(std::size_t, std::size_t);
void *__libc_realloc(void *, std::size_t);
void *malloc(std::size_t size) {
    return RunsOut() ? nullptr : __libc_malloc(size);
}
void *calloc(std::size_t count, std::size_t size) {
    return RunsOut() ? nullptr : __libc_calloc(count, size);
}
void *realloc(void *block, std::size_t size) {
    return RunsOut() ? nullptr : __libc_realloc(block, size);
}
}
#endif

namespace {

constexpr char kType[] = KV_TICKET "PrintTypeTicketKey";
constexpr char kOwnerName[] = KV_TICKET "PrintTypeUserNameTicketKey";
constexpr char kPin[] = KV_TICKET "PrintTypePasswordTicketKey";

struct Arguments {
    std::string texts[6] = {"kvfilter",
                            "17",
                            "alice",
                            "Report",
                            "1",
                            "sides=one-sided KVOwner=Anna KVPassword=4711 KVTrim=3 "
                            "time-at-processing=1 Duplex=None"};
    char *argv[7] = {};
    Arguments() {
        for (std::size_t i = 0; i < 6; i++) argv[i] = texts[i].data();
    }
};

bool ReadAsAsked(const CompletedTicket &ticket) {
    for (const auto &[key, bytes] : ticket.confidential) {
        if (!TicketWasReadAs(key, bytes)) return false;
    }
    return true;
}

}  // namespace

TEST(Confidential, SaysWhatThePrintersFieldsMustHold) {
    const CompletedTicket secure = Complete({"KVPassword=4711 KVOwner=Grüße"});
    ASSERT_EQ(secure.confidential.size(), 3U);
    EXPECT_EQ(secure.confidential[0].key + secure.confidential[0].bytes, std::string(kType) + "2");
    EXPECT_EQ(secure.confidential[1].bytes,
              "Gr\xFC\xDF"
              "e");
    EXPECT_EQ(secure.confidential[2].key + secure.confidential[2].bytes,
              std::string(kPin) + "4711");
    EXPECT_EQ(Complete({"KVMailbox=3"}).confidential.size(), 2U);
    EXPECT_EQ(Complete({"KVMailbox=3 KVPassword=1"}).confidential.size(), 3U);
    EXPECT_TRUE(Complete({"KVPrintMode=Sample"}).confidential.empty());
}

TEST(Confidential, IsComparedWithWhatTheModulesHaveRead) {
    const Arguments job;
    CompletedTicket ticket = Complete({job.texts[5]});
    Arguments read;
    read.argv[5] = ticket.options.data();
    GetTicketFromPDE(read.argv);
    EXPECT_TRUE(ReadAsAsked(ticket));
    EXPECT_TRUE(TicketWasReadAs(kType, "2"));
    EXPECT_FALSE(TicketWasReadAs(kType, "5"));
    EXPECT_FALSE(TicketWasReadAs(kOwnerName, "alice"));
    EXPECT_FALSE(TicketWasReadAs("no-such-key", ""));
    Arguments other;
    other.texts[5] = "";
    other.argv[5] = other.texts[5].data();
    GetTicketFromPDE(other.argv);
    EXPECT_FALSE(ReadAsAsked(ticket));
}

#ifdef KVFILTER_CAN_RUN_OUT_OF_MEMORY
namespace {

// How a step ended for which memory ran out. A crash within CUPS's library prints nothing either.
enum Outcome { kAsAsked, kRefused, kOpen, kHadEnough };

// Runs `step` in a process of its own, with memory running out at request 1, 2 and so on, until it
// no longer does. Returns how often that was noticed.
template <class Step>
int RunOutEverywhere(Step step) {
    int noticed = 0;
    for (long n = 1; n < 100'000; n++) {
        const pid_t child = fork();
        if (child == 0) {
            requestsLeft = n;
            const Outcome outcome = step();
            _exit(ranOut || outcome == kOpen ? outcome : kHadEnough);
        }
        int status = 0;
        waitpid(child, &status, 0);
        if (!WIFEXITED(status)) continue;
        EXPECT_NE(WEXITSTATUS(status), kOpen) << "at request " << n;
        if (WEXITSTATUS(status) == kHadEnough) return noticed;
        noticed += WEXITSTATUS(status) == kRefused;
    }
    ADD_FAILURE() << "memory runs out for ever";
    return noticed;
}

}  // namespace

TEST(Confidential, JobIsNeverOpenForWantOfMemory) {
    Complete({"", PpdOption("KVStaple", "None LeftDouble")});  // opens the PPD
    const Arguments job;
    const auto complete = [&] {
        const CompletedTicket ticket = CompleteTicket(job.argv);
        requestsLeft = 0;
        if (ticket.refused) return kRefused;
        const bool asAsked = Value(ticket, kType) == "2" && Value(ticket, kOwnerName) == "Anna" &&
                             Value(ticket, kPin) == "4711";
        return asAsked ? kAsAsked : kOpen;
    };
    EXPECT_GT(RunOutEverywhere(complete), 10);
}

TEST(Confidential, FieldsAreWatchedWhereMemoryRunsOut) {
    const Arguments job;
    CompletedTicket ticket = Complete({job.texts[5]});
    Arguments read;
    read.argv[5] = ticket.options.data();
    const auto readFields = [&] {
        GetTicketFromPDE(read.argv);
        requestsLeft = 0;
        const bool whole = TicketWasReadAs(kType, "2") && TicketWasReadAs(kOwnerName, "Anna") &&
                           TicketWasReadAs(kPin, "4711");
        if (ReadAsAsked(ticket)) return whole ? kAsAsked : kOpen;
        return kRefused;
    };
    EXPECT_GT(RunOutEverywhere(readFields), 1);
}
#endif
