// SPDX-License-Identifier: Apache-2.0
#include <CoreFoundation/CoreFoundation.h>
#include <gtest/gtest.h>

#include <functional>
#include <latch>
#include <string>
#include <thread>

#include "CommonSource/CoreFoundation/CFRunLoopSource.h"

namespace {

// Something scheduled on the current run loop while it lives, due at a time of the test's choice.
struct TestSource : RunLoopSource {
    explicit TestSource(RunLoopClock::time_point when) : due(when) {
        EXPECT_TRUE(RunLoopAddSource(loop, this));
    }
    ~TestSource() override { RunLoopRemoveSource(loop, this); }
    RunLoopClock::time_point DueTime() const override { return due; }
    void Deliver() override {
        deliveries++;
        action();
    }

    const CFRunLoopRef loop = CFRunLoopGetCurrent();
    RunLoopClock::time_point due;
    std::function<void()> action;
    int deliveries = 0;
};

constexpr auto kNow = RunLoopClock::time_point::min();
constexpr auto kNever = RunLoopClock::time_point::max();

void StopCurrent() {
    CFRunLoopStop(CFRunLoopGetCurrent());
}

}  // namespace

TEST(CFRunLoop, EachThreadHasItsOwn) {
    const CFRunLoopRef mine = CFRunLoopGetCurrent();
    EXPECT_EQ(CFRunLoopGetCurrent(), mine);
    std::thread([mine] { EXPECT_NE(CFRunLoopGetCurrent(), mine); }).join();
}

TEST(CFRunLoop, EndsAtOnceWithNothingScheduled) {
    CFRunLoopRun();
    StopCurrent();  // ends no run that is yet to come
    TestSource source(kNow);
    source.action = [&] {
        if (source.deliveries == 2) RunLoopRemoveSource(source.loop, &source);
    };
    CFRunLoopRun();
    EXPECT_EQ(source.deliveries, 2);
    CFRunLoopRun();
    EXPECT_EQ(source.deliveries, 2);
}

TEST(CFRunLoop, ServesUntilStopped) {
    TestSource source(kNow);
    source.action = [&] {
        if (source.deliveries % 3 == 0) StopCurrent();
    };
    CFRunLoopRun();
    EXPECT_EQ(source.deliveries, 3);
    CFRunLoopRun();
    EXPECT_EQ(source.deliveries, 6);
}

TEST(CFRunLoop, EndsWhenTheLastSourceGoes) {
    TestSource source(kNow);
    source.action = [&] { RunLoopRemoveSource(source.loop, &source); };
    CFRunLoopRun();
    EXPECT_EQ(source.deliveries, 1);
}

TEST(CFRunLoop, ServesTheEarliestFirst) {
    const auto now = RunLoopClock::now();
    std::string order;
    TestSource later(now + std::chrono::milliseconds(2));
    TestSource sooner(now + std::chrono::milliseconds(1));
    TestSource never(kNever);
    later.action = [&] {
        order += "later";
        StopCurrent();
    };
    sooner.action = [&] {
        order += "sooner ";
        sooner.due = kNever;
    };
    CFRunLoopRun();
    EXPECT_EQ(order, "sooner later");
    EXPECT_GE(RunLoopClock::now(), later.due);
    EXPECT_EQ(never.deliveries, 0);
}

TEST(CFRunLoop, StopEndsTheInnermostRun) {
    TestSource source(kNow);
    source.action = [&] {
        if (source.deliveries == 1) {
            CFRunLoopRun();
            EXPECT_EQ(source.deliveries, 2);
        } else {
            StopCurrent();
        }
    };
    CFRunLoopRun();
    EXPECT_EQ(source.deliveries, 3);
}

TEST(CFRunLoop, StopsFromAnotherThread) {
    TestSource source(kNow);
    std::latch running(1);
    const CFRunLoopRef loop = CFRunLoopGetCurrent();
    source.action = [&] {
        source.due = kNever;
        running.count_down();
    };
    std::thread other([&] {
        running.wait();
        CFRunLoopStop(loop);
    });
    CFRunLoopRun();
    other.join();
    EXPECT_EQ(source.deliveries, 1);
}

TEST(CFRunLoop, CommonModesHaveTheirName) {
    char name[32];
    ASSERT_TRUE(
        CFStringGetCString(kCFRunLoopCommonModes, name, sizeof name, kCFStringEncodingASCII));
    EXPECT_STREQ(name, "kCFRunLoopCommonModes");
}
