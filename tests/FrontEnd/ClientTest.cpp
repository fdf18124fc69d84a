// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Client.h"

#include <gtest/gtest.h>
#include <netdb.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstring>
#include <string>

#include "CommonSource/FilterFrame/Source/UtilityFunctionFilter.h"
#include "FrontEnd/FrontEnd.h"
#include "support/ResolverInPlace.h"
#include "support/SocketAddresses.h"

namespace {

const char *nameOfThisComputer = nullptr;  // null: it cannot be found

}  // namespace

// In the place of the C library's.
extern "C" int gethostname(char *name, std::size_t size) noexcept {
    if (!nameOfThisComputer) {
        errno = EFAULT;
        return -1;
    }
    std::strncpy(name, nameOfThisComputer, size);
    return 0;
}

namespace {

constexpr std::chrono::hours kLong(1);

struct Identity {
    char name[97];
    char address[kAddressSize];
    std::string messages;
};

Identity Find(const char *computer, int (*lookUp)(const char *, CFMutableArrayRef)) {
    nameOfThisComputer = computer;
    const ResolverInPlace resolver(lookUp, kLong);
    FindFrontEnd("KVFrontEnd=CUPS");
    Identity client;
    std::memset(client.name, '#', sizeof client.name);
    std::memset(client.address, '#', sizeof client.address);
    testing::internal::CaptureStderr();
    FindClientForCUPS(client.name, client.address);
    client.messages = testing::internal::GetCapturedStderr();
    return client;
}

int Answer(const char *, CFMutableArrayRef addresses) {
    AppendAddress(addresses, "10.0.0.7");
    return 0;
}

int KnowNothing(const char *, CFMutableArrayRef) {
    return EAI_NONAME;
}

int NeverAnswer(const char *, CFMutableArrayRef) {
    for (;;) pause();
}

TEST(Client, IsFoundAsEverywhere) {
    const Identity client = Find("printhost", Answer);
    EXPECT_STREQ(client.name, "printhost");
    EXPECT_STREQ(client.address, "I0A000007");
    EXPECT_EQ(client.messages, "");
}

TEST(Client, UnknownToTheResolverHasNoAddressAndNoMessage) {
    const Identity client = Find("printhost", KnowNothing);
    EXPECT_STREQ(client.name, "printhost");
    EXPECT_STREQ(client.address, "");
    EXPECT_EQ(client.messages, "");
}

TEST(Client, WhoseNameIsNotASCIIStopsNothing) {
    const Identity client = Find("b\xC3\xBCro", Answer);
    EXPECT_STREQ(client.name, "b\xFCro");
    EXPECT_STREQ(client.address, "");
    EXPECT_EQ(client.messages,
              "WARNING: This computer's address is not in the job: its name is not ASCII\n");
    EXPECT_STREQ(Find("\xFF\x80", Answer).name, "") << "nor UTF-8";
}

TEST(Client, WithoutANameHasNone) {
    const Identity client = Find(nullptr, Answer);
    EXPECT_STREQ(client.name, "");
    EXPECT_STREQ(client.address, "");
    EXPECT_EQ(client.messages,
              "WARNING: This computer's name and address are not in the job: Bad address\n");
}

TEST(Client, IsNotWaitedForLongerThanASecond) {
    const auto start = std::chrono::steady_clock::now();
    const Identity client = Find("printhost", NeverAnswer);
    const std::chrono::duration<double> waited = std::chrono::steady_clock::now() - start;
    EXPECT_GE(waited.count(), 0.9);
    EXPECT_LT(waited.count(), 3);  // a second, on a busy machine
    EXPECT_STREQ(client.name, "printhost");
    EXPECT_STREQ(client.address, "");
    EXPECT_EQ(client.messages,
              "WARNING: This computer's address is not in the job: Connection timed out\n");
}

}  // namespace
