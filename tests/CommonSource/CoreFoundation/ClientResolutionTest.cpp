// SPDX-License-Identifier: Apache-2.0
//
// The client's name and address as the job finds them, with hosts of the test's own.
#include <gtest/gtest.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/UtilityFunctionFilter.h"
#include "support/ResolverInPlace.h"
#include "support/SocketAddresses.h"

namespace {

constexpr std::chrono::hours kLong(1);

std::vector<const char *> listed;
std::string askedName;

int FindListed(const char *name, CFMutableArrayRef addresses) {
    askedName = name;
    for (const char *text : listed) AppendAddress(addresses, text);
    return 0;
}

int NeverAnswer(const char *, CFMutableArrayRef) {
    for (;;) pause();
}

struct Identity {
    char name[97];
    char address[kAddressSize];
};

// What accounting would report if this computer had `addresses`.
Identity ClientWith(const std::vector<const char *> &addresses) {
    listed = addresses;
    const ResolverInPlace resolver(FindListed, kLong);
    Identity identity;
    std::memset(&identity, '#', sizeof identity);
    GetClientIPAddress(identity.name, identity.address);
    return identity;
}

std::string ThisHost() {
    char name[256] = "";
    gethostname(name, sizeof name - 1);
    return name;
}

}  // namespace

TEST(ClientResolution, FirstIPv4Address) {
    const Identity client = ClientWith({"127.0.0.1", "fe80::1%1", "2001:db8::5", "10.0.0.7"});
    EXPECT_STREQ(client.address, "I0A000007");
    EXPECT_EQ(client.name, ThisHost());
    EXPECT_EQ(askedName, ThisHost());
}

TEST(ClientResolution, IPv6AddressWithoutIPv4) {
    EXPECT_STREQ(ClientWith({"127.0.0.1", "2001:db8::5"}).address,
                 "620010db80000000000000000000000000005");
    EXPECT_STREQ(ClientWith({"2001:db8:1:2:3:4:5:6"}).address, "6");
    EXPECT_STREQ(ClientWith({"fe80::a:2:3:4%1"}).address, "6fe80000000000000000a000200030004");
}

TEST(ClientResolution, NoUsableAddress) {
    for (const std::vector<const char *> &addresses : {std::vector<const char *>{},
                                                       {"127.0.0.1"},
                                                       {"fe80::1234"},
                                                       {"::ffff:10.0.0.7"},
                                                       {kBrokenAddress},
                                                       {"2001:db8::5", kBrokenAddress}}) {
        SCOPED_TRACE(testing::PrintToString(addresses));
        const Identity client = ClientWith(addresses);
        EXPECT_STREQ(client.address, "");
        EXPECT_EQ(client.name, ThisHost());
    }
}

TEST(ClientResolution, LongHostNamesAreResolvedWholeAndReportedCut) {
    listed = {"10.0.0.7"};
    const ResolverInPlace resolver(FindListed, kLong);
    const std::string name = std::string(100, 'a') + std::string(100, 'b');
    Identity client;
    std::memset(&client, '#', sizeof client);
    GetIPAddressOfHost(name.c_str(), client.name, client.address);
    EXPECT_EQ(client.name, std::string(96, 'a'));
    EXPECT_EQ(askedName, name);
    EXPECT_STREQ(client.address, "I0A000007");
}

TEST(ClientResolution, FailuresLeaveTheAddressEmpty) {
    const ResolverInPlace resolver([](const char *, CFMutableArrayRef) { return EAI_FAIL; }, kLong);
    Identity client;
    std::memset(&client, '#', sizeof client);
    GetClientIPAddress(client.name, client.address);
    EXPECT_STREQ(client.address, "");
    EXPECT_EQ(client.name, ThisHost());
}

TEST(ClientResolution, AResolverThatDoesNotAnswerLeavesTheAddressEmpty) {
    const ResolverInPlace resolver(NeverAnswer, std::chrono::milliseconds(0));
    Identity client;
    std::memset(&client, '#', sizeof client);
    GetClientIPAddress(client.name, client.address);
    EXPECT_STREQ(client.address, "");
    EXPECT_EQ(client.name, ThisHost());
    EXPECT_FALSE(getHostAddress("printhost", client.address, kAddressSize));
}

// The address that this computer's own resolver lists first among the usable IPv4 ones.
TEST(ClientResolution, ClientIsThisComputer) {
    char hostName[97];
    char address[kAddressSize];
    // However long the resolver takes: the test asks it too.
    const ResolverInPlace resolver(hostResolver.lookUp, std::chrono::hours(1));
    GetClientIPAddress(hostName, address);

    char name[256] = "";
    ASSERT_EQ(gethostname(name, sizeof name - 1), 0);
    EXPECT_EQ(hostName, std::string(name).substr(0, 96));

    std::string expected;
    addrinfo hints{};
    hints.ai_socktype = SOCK_STREAM;
    addrinfo *list = nullptr;
    if (getaddrinfo(name, nullptr, &hints, &list) != 0) list = nullptr;
    for (const addrinfo *entry = list; entry && expected.empty(); entry = entry->ai_next) {
        if (entry->ai_family != AF_INET) continue;
        sockaddr_in found{};
        std::memcpy(&found, entry->ai_addr, sizeof found);
        const std::uint32_t number = ntohl(found.sin_addr.s_addr);
        if (number == INADDR_LOOPBACK) continue;
        char text[10];
        std::snprintf(text, sizeof text, "I%08X", number);
        expected = text;
    }
    if (list) freeaddrinfo(list);
    if (!expected.empty()) {
        EXPECT_EQ(address, expected);
    } else {
        EXPECT_TRUE(*address == '\0' || *address == '6') << address;
    }
}
