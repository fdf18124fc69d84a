// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/UtilityFunctionFilter.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netdb.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "support/SocketAddresses.h"

// One test asks for more memory than there is.
extern "C" const char *__asan_default_options() {
    return "allocator_may_return_null=1";
}

namespace {

using Conversion = void (*)(const char *text, char *address);

// Converts into an address buffer that held something else.
std::string Convert(Conversion conversion, const std::string &text) {
    char address[kAddressSize];
    std::memset(address, '#', sizeof address);
    conversion(text.c_str(), address);
    return std::string(address, strnlen(address, sizeof address));
}

std::string Zeros(std::size_t groups) {
    return std::string(groups * 4, '0');
}

CFStringRef String(const char *text, CFStringEncoding encoding = kCFStringEncodingUTF8) {
    return CFStringCreateWithCString(kCFAllocatorDefault, text, encoding);
}

CFMutableArrayRef EmptyList() {
    return CFArrayCreateMutable(kCFAllocatorDefault, 0, &kCFTypeArrayCallBacks);
}

struct Choice {
    std::string address;
    std::int32_t result;
};

// What is chosen from a list of numeric texts, with room for `size` bytes.
Choice Choose(const std::vector<const char *> &texts, std::int32_t size = kAddressSize) {
    char chosen[kAddressSize] = "";
    outString = chosen;
    outStringLen = size;
    result = 0;
    const CFMutableArrayRef addresses = EmptyList();
    for (const char *text : texts) AppendAddress(addresses, text);
    const CFStringRef name = String("host");
    MyPrintAddressArray(addresses, name);
    CFRelease(name);
    CFRelease(addresses);
    return {chosen, result};
}

}  // namespace

TEST(UtilityFunctionFilterDeathTest, AssertionsNameThemselvesWhereTheClientMayNotBeMissing) {
    static UniChar unit = 'h';
    const CFStringRef name = String("host");
    const CFStringRef accented = String("hôst");
    const CFStringRef endless = CFStringCreateMutableWithExternalCharactersNoCopy(
        kCFAllocatorDefault, &unit, std::numeric_limits<CFIndex>::max() / 4,
        std::numeric_limits<CFIndex>::max() / 4, kCFAllocatorNull);
    const UniChar half = 0xD800;
    const CFStringRef noText = CFStringCreateWithCharacters(kCFAllocatorDefault, &half, 1);
    const CFMutableArrayRef none = EmptyList();
    const CFMutableArrayRef empty = EmptyList();
    const CFDataRef noBytes = CFDataCreate(kCFAllocatorDefault, nullptr, 0);
    CFArrayAppendValue(empty, noBytes);
    char address[kAddressSize];

    const struct {
        const char *function;
        int line;
        const char *expression;
        std::function<void()> action;
    } cases[] = {
        // clang-format off
        {"MyPrintAddressArray",    537, "addresses != NULL",   [&] { MyPrintAddressArray(nullptr, name); }},
        {"MyPrintAddressArray",    538, "hostName != NULL",    [&] { MyPrintAddressArray(none, nullptr); }},
        {"MyPrintAddressArray",    542, "name != NULL",        [&] { MyPrintAddressArray(none, endless); }},
        {"MyPrintAddressArray",    545, "success",             [&] { MyPrintAddressArray(none, accented); }},
        {"MyPrintAddressArray",    551, "addr != NULL",        [&] { MyPrintAddressArray(empty, name); }},
        {"MyCFHostCleanup",        579, "host != NULL",        [&] { MyCFHostCleanup(nullptr); }},
        {"MyResolveNameToAddress", 618, "hostName != NULL",    [&] { MyResolveNameToAddress(nullptr); }},
        {"MyResolveNameToAddress", 621, "host != NULL",        [&] { MyResolveNameToAddress(noText); }},
        {"getHostAddress",         649, "inputString != NULL", [&] { getHostAddress("hôst", address, kAddressSize); }},
        // clang-format on
    };
    for (const auto &[function, line, expression, action] : cases) {
        SCOPED_TRACE(line);
        const std::string message = std::string("Assertion failed: \\(") + expression +
                                    "\\), function " + function +
                                    ", file CommonSource/FilterFrame/Source/UtilityFunctionFilter"
                                    ", line " +
                                    std::to_string(line) + "\\.\n";
        EXPECT_EXIT(action(), testing::KilledBySignal(SIGABRT), message);
        clientMayBeMissing = true;
        resolutionError = {};
        result = 0;
        action();
        EXPECT_EQ(resolutionError.error, ENOMEM);
        EXPECT_EQ(resolutionError.domain, kCFStreamErrorDomainPOSIX);
        EXPECT_EQ(result, 0);
        clientMayBeMissing = false;
    }
    for (const CFTypeRef object :
         std::initializer_list<CFTypeRef>{name, accented, endless, noText, none, empty, noBytes}) {
        CFRelease(object);
    }
}

TEST(UtilityFunctionFilter, IPv4AsPrintersReadIt) {
    const struct {
        const char *text;
        const char *address;
    } cases[] = {
        {"192.168.1.10", "IC0A8010A"},
        {"10.0.0.7", "I0A000007"},
        {"255.255.255.255", "IFFFFFFFF"},
        {"0.0.0.0", "I00000000"},
        {"1.2.3.4.5", "I01020304"},        // four numbers are enough
        {"10.1", "I0A010000"},             // what is missing is zero
        {"", "I00000000"},                 //
        {".", "I00000000"},                //
        {"...", "I00000000"},              //
        {"007.010.1.1", "I070A0101"},      // decimal, whatever it begins with
        {"256.1.1.1", ""},                 // above 255
        {"1.1.1.999", ""},                 //
        {"1.1.1.0001", ""},                // four characters
        {"1000.1.1.1", ""},                //
        {"::ffff:192.168.1.10", ""},       // no number of three characters
        {"99999999999999999999.1.1", ""},  //
        {"-1.1.1.1", "IFF010101"},         //
    };
    for (const auto &[text, address] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(Convert(ConvertIPv4Address, text), address);
    }
    EXPECT_EQ(Convert(ConvertIPv4Address, std::string(100000, '9')), "");
    EXPECT_EQ(Convert(ConvertIPv4Address, std::string(100000, '.')), "I00000000");
}

TEST(UtilityFunctionFilter, IPv6OfFiveToEightGroupsHas32Digits) {
    const struct {
        const char *text;
        std::string address;
    } cases[] = {
        {"fe80::1a2b:3c4d:5e6f:7a8b", "6fe80" + Zeros(3) + "1a2b3c4d5e6f7a8b"},
        {"fe80::1a2b:3c4d:5e6f:7a8b%eth0", "6fe80" + Zeros(3) + "1a2b3c4d5e6f7a8b"},
        {"2001:db8::1:2", "620010db8" + Zeros(4) + "00010002"},
        {"2001:db8::1:2:3:4", "620010db8" + Zeros(2) + "0001000200030004"},
        {"2001:db8:1::2:3:4:5", "620010db80001" + Zeros(1) + "0002000300040005"},
        {"2001:db8:1:0:2:3:4:5", "620010db80001" + Zeros(1) + "0002000300040005"},
        // The first group of zeros is replaced, "::" or not.
        {"2001:0:1::2:3", "62001" + Zeros(3) + "0001" + Zeros(1) + "00020003"},
        // "::" at an end leaves nine groups, of which one goes.
        {"::2:3:4:5:6:7:8", "6" + Zeros(1) + "0002000300040005000600070008"},
        {"1:2:3:4:5:6:7::", "60001000200030004000500060007" + Zeros(1)},
    };
    for (const auto &[text, address] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(address.size(), 33U);
        EXPECT_EQ(Convert(ConvertIPv6Address, text), address);
    }
}

TEST(UtilityFunctionFilter, IPv6OfFewerGroupsHas36Digits) {
    const struct {
        const char *text;
        std::string address;
    } cases[] = {
        {"fe80::1", "6fe80" + Zeros(7) + "0001"},
        {"2001:db8::5", "620010db8" + Zeros(6) + "0005"},
        {"::1", "6" + Zeros(8) + "0001"},
        {"::", "6" + Zeros(9)},
        {":", "6" + Zeros(9)},
    };
    for (const auto &[text, address] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(address.size(), 37U);
        EXPECT_EQ(Convert(ConvertIPv6Address, text), address);
    }
}

TEST(UtilityFunctionFilter, IPv6WithoutZerosInsideIsEmpty) {
    EXPECT_EQ(Convert(ConvertIPv6Address, "2001:db8:1:2:3:4:5:6"), "6");
    EXPECT_EQ(Convert(ConvertIPv6Address, "2001:db8:1:2:3:4:5:0"), "6");  // the last is not inside
    EXPECT_EQ(Convert(ConvertIPv6Address, "2001:db8:1:2:3:4:5:0%eth0"), "6");
    EXPECT_EQ(Convert(ConvertIPv6Address, ""), "6");
    EXPECT_EQ(Convert(ConvertIPv6Address, "%eth0"), "6");
}

TEST(UtilityFunctionFilter, IPv6NeverLeavesItsBuffer) {
    EXPECT_EQ(Convert(ConvertIPv6Address, std::string(45, ':')), "6" + Zeros(11));
    EXPECT_EQ(Convert(ConvertIPv6Address, std::string(100000, ':')), "6" + Zeros(11));
    EXPECT_EQ(Convert(ConvertIPv6Address, std::string(100000, '0')), "6" + Zeros(11));
    EXPECT_EQ(Convert(ConvertIPv6Address, std::string(100000, 'f')), "6");
    // Longer than four digits stays as long.
    EXPECT_EQ(Convert(ConvertIPv6Address, "12345::1"), "612345" + Zeros(7) + "0001");
}

TEST(UtilityFunctionFilter, ChoosesTheFirstIPv4) {
    const Choice choice = Choose({"127.0.0.1", "fe80::1%1", "2001:db8::5", "10.0.0.7", "10.0.0.8"});
    EXPECT_EQ(choice.address, "10.0.0.7");
    EXPECT_EQ(choice.result, 1);
    EXPECT_EQ(Choose({"10.0.0.8", "10.0.0.7"}).address, "10.0.0.8");
    EXPECT_EQ(Choose({"127.0.0.2"}).address, "127.0.0.2");
}

TEST(UtilityFunctionFilter, ChoosesTheLastIPv6WithoutIPv4) {
    EXPECT_EQ(Choose({"127.0.0.1", "2001:db8::5"}).address, "2001:db8::5");
    EXPECT_EQ(Choose({"2001:db8::5", "2001:db8::6"}).address, "2001:db8::6");
    EXPECT_EQ(Choose({"::1"}).address, "::1");
    EXPECT_EQ(Choose({"::ffff:10.0.0.7", "10.0.0.8"}).address, "::ffff:10.0.0.7");  // has dots
}

TEST(UtilityFunctionFilter, SkipsLoopbackAndLinkLocalOne) {
    for (const char *text :
         {"127.0.0.1", "fe80::1", "fe80::1%1", "fe80::1234", "fe80::1a2b:3c4d:5e6f:7a8b"}) {
        SCOPED_TRACE(text);
        const Choice choice = Choose({text});
        EXPECT_EQ(choice.address, "");
        EXPECT_EQ(choice.result, 1);
        EXPECT_EQ(Choose({"2001:db8::5", text}).address, "2001:db8::5");
    }
    EXPECT_EQ(Choose({"fe80::2"}).address, "fe80::2");
}

TEST(UtilityFunctionFilter, ResultIsThatOfTheLastAddressLookedAt) {
    EXPECT_EQ(Choose({}).result, 0);
    EXPECT_EQ(Choose({kBrokenAddress}).result, 0);
    EXPECT_EQ(Choose({kBrokenAddress}).address, "");
    EXPECT_EQ(Choose({"127.0.0.1", kBrokenAddress}).result, 0);
    EXPECT_EQ(Choose({kBrokenAddress, "127.0.0.1"}).result, 1);
    EXPECT_EQ(Choose({"2001:db8::5", kBrokenAddress}).result, 0);
    EXPECT_EQ(Choose({"10.0.0.7", kBrokenAddress}).result, 1);  // the second is not looked at
}

TEST(UtilityFunctionFilter, ChosenAddressIsCutToItsBuffer) {
    EXPECT_EQ(Choose({"10.0.0.7"}, 5).address, "10.0");
    EXPECT_EQ(Choose({"10.0.0.7"}, 1).address, "");
    EXPECT_EQ(Choose({"10.0.0.7"}, 0).address, "");
}

TEST(UtilityFunctionFilter, HostAddressNeedsSomewhereToGo) {
    char address[kAddressSize] = "#";
    for (const auto &[name, output, size] :
         {std::tuple<const char *, char *, std::int32_t>{nullptr, address, kAddressSize},
          {"localhost", nullptr, kAddressSize},
          {"localhost", address, -1}}) {
        result = 1;
        EXPECT_FALSE(getHostAddress(name, output, size));
        EXPECT_EQ(result, 0);
        EXPECT_STREQ(address, "#");
    }
}

TEST(UtilityFunctionFilter, HostAddressOfANumericName) {
    char address[kAddressSize] = "#";
    EXPECT_TRUE(getHostAddress("10.0.0.7", address, kAddressSize));
    EXPECT_STREQ(address, "10.0.0.7");
    EXPECT_EQ(outString, address);
    EXPECT_EQ(outStringLen, kAddressSize);
    EXPECT_TRUE(getHostAddress("127.0.0.1", address, kAddressSize));
    EXPECT_STREQ(address, "");
}

TEST(UtilityFunctionFilter, IPAddressOfANumericName) {
    const struct {
        const char *name;
        std::string address;
    } cases[] = {
        {"10.0.0.7", "I0A000007"},
        {"2001:db8::5", "620010db8" + Zeros(6) + "0005"},
        {"fe80::abcd%1", "6fe80" + Zeros(7) + "abcd"},
        {"fe80::1234", ""},
        {"127.0.0.1", ""},
        {"::ffff:10.0.0.7", ""},
    };
    for (const auto &[name, expected] : cases) {
        SCOPED_TRACE(name);
        char hostName[97];
        char address[kAddressSize];
        std::memset(hostName, '#', sizeof hostName);
        std::memset(address, '#', sizeof address);
        GetIPAddressOfHost(name, hostName, address);
        EXPECT_STREQ(hostName, name);
        EXPECT_EQ(address, expected);
    }
}

// What is no list of addresses is not looked at, and the host is let go all the same.
TEST(UtilityFunctionFilter, CallBackLooksAtAddressesOnly) {
    const struct {
        CFStreamError error;
        CFHostInfoType type;
    } cases[] = {
        {{12, 1}, kCFHostAddresses},
        {{0, 0}, static_cast<CFHostInfoType>(kCFHostAddresses + 1)},
    };
    for (const auto &[error, type] : cases) {
        const CFStringRef name = String("host");
        const CFHostRef host = CFHostCreateWithName(kCFAllocatorDefault, name);
        void *const info = const_cast<void *>(static_cast<const void *>(name));
        CFHostClientContext context = {0, info, CFRetain, CFRelease, nullptr};
        ASSERT_TRUE(CFHostSetClient(host, MyCFHostClientCallBack, &context));
        CFHostScheduleWithRunLoop(host, CFRunLoopGetCurrent(), kCFRunLoopCommonModes);
        CFRetain(host);
        result = 7;
        MyCFHostClientCallBack(host, type, &error, info);
        EXPECT_EQ(result, 7);
        EXPECT_EQ(CFGetRetainCount(host), 1);
        EXPECT_EQ(CFGetRetainCount(name), 1);  // the client is gone
        CFRunLoopRun();                        // returns: nothing is scheduled any more
        CFRelease(host);
        CFRelease(name);
    }
}
