// SPDX-License-Identifier: Apache-2.0
//
// What a host resolution may answer: any bytes as socket addresses, any text as a number.
#include <netinet/in.h>
#include <sys/socket.h>

#include <cctype>
#include <cstring>
#include <vector>

#include "CommonSource/FilterFrame/Source/UtilityFunctionFilter.h"
#include "fuzz/Fuzz.h"
#include "support/ResolverInPlace.h"

namespace {

std::vector<std::string> answers;

int Answer(const char *, CFMutableArrayRef addresses) {
    for (const std::string &answer : answers) {
        const CFDataRef data =
            CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8 *>(answer.data()),
                         static_cast<CFIndex>(answer.size()));
        CFArrayAppendValue(addresses, data);
        CFRelease(data);
    }
    return 0;
}

// Bytes of a socket address of either family, whole or cut.
std::string SocketAddress(FuzzInput &input) {
    std::string bytes = input.Text();
    const bool isIPv6 = input.Byte() % 2 != 0;
    bytes.resize(isIPv6 ? sizeof(sockaddr_in6) : sizeof(sockaddr_in));
    const sa_family_t family = isIPv6 ? AF_INET6 : AF_INET;
    std::memcpy(bytes.data() + offsetof(sockaddr, sa_family), &family, sizeof family);
    if (input.Byte() % 8 == 0) bytes.resize(sizeof(sockaddr) + input.Byte() % 8);
    return bytes;
}

// "I" and 8 upper-case hexadecimal digits, "6" and up to 44, or nothing.
void CheckAddress(std::string_view address) {
    if (address.empty()) return;
    FUZZ_CHECK(address.front() == 'I' ? address.size() == 9 : address.front() == '6');
    for (const char digit : address.substr(1)) {
        FUZZ_CHECK(std::isxdigit(static_cast<unsigned char>(digit)));
        FUZZ_CHECK(address.front() == '6' || !std::islower(static_cast<unsigned char>(digit)));
    }
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    FuzzInput input(data, size);
    char address[kAddressSize];
    const std::string number = input.Text();
    ConvertIPv4Address(number.c_str(), address);
    FUZZ_CHECK(std::memchr(address, '\0', sizeof address) != nullptr);
    ConvertIPv6Address(number.c_str(), address);
    FUZZ_CHECK(std::memchr(address, '\0', sizeof address) != nullptr && address[0] == '6');

    answers.clear();
    while (!input.Empty() && answers.size() < 8) answers.push_back(SocketAddress(input));
    const ResolverInPlace resolver(Answer, std::chrono::hours(1));
    char hostName[97];
    GetIPAddressOfHost("printer", hostName, address);
    FUZZ_CHECK(std::strcmp(hostName, "printer") == 0);
    CheckAddress(address);
    return 0;
}
