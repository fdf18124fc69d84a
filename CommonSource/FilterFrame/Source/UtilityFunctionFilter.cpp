// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/UtilityFunctionFilter.h"

#include <netdb.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>
#include <string>
#include <string_view>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"

char *outString;
std::int32_t outStringLen;
std::int32_t result;
CFStreamError resolutionError;
bool clientMayBeMissing;

namespace {

constexpr char _IPv4_sign_ = '.';
constexpr char _IPv6_sign_ = ':';
constexpr char _IPv4_LocalHost_sign_[] = "127.0.0.1";
constexpr char _IPv6_LocalHost_sign_[] = "fe80::1";  // anywhere in the text, so fe80::1234 as well

void AssertionFailed(const char *expression, const char *function, int line) {
    if (clientMayBeMissing) {
        resolutionError = {kCFStreamErrorDomainPOSIX, ENOMEM};
        return;
    }
    std::fprintf(stderr,
                 "Assertion failed: (%s), function %s, "
                 "file CommonSource/FilterFrame/Source/UtilityFunctionFilter, line %d.\n",
                 expression, function, line);
    std::abort();
}

// Each assertion is known by its line, which stays the same when the text around it moves. One that
// fails and need not end the job ends the function with the value that is left.
#define KV_ASSERT(expression, line, ...)              \
    if (!(expression)) {                              \
        AssertionFailed(#expression, __func__, line); \
        return __VA_ARGS__;                           \
    }                                                 \
    static_cast<void>(0)

void KeepAddress(const char *text) {
    if (outStringLen > 0) CopyBounded(outString, static_cast<std::size_t>(outStringLen), text);
}

// Every group with four digits; where "::" leaves a group empty, "0000".
std::string PadGroups(std::string_view text) {
    std::string padded;
    for (;;) {
        const std::string_view group = text.substr(0, text.find(_IPv6_sign_));
        padded.append(4 - std::min<std::size_t>(group.size(), 4), '0').append(group);
        if (group.size() == text.size()) return padded;
        padded += _IPv6_sign_;
        text.remove_prefix(group.size() + 1);
    }
}

// Puts a run of groups in the place of the first group of zeros that has something after it. The
// run makes eight groups of five to eight. An address of fewer comes out one group longer and stays
// so: accounting compares these texts.
std::string ExpandZeros(const std::string &padded) {
    const std::size_t place = padded.find("0000");
    if (place == std::string::npos || place + 4 >= padded.size()) return "";
    // One group in a whole address, and one more for each four characters that are missing.
    constexpr int kWholeLength = 39;  // eight groups and their signs
    constexpr int kGroupLength = 4;
    const int groups =
        (kWholeLength + kGroupLength - static_cast<int>(padded.size())) / kGroupLength;
    std::string expanded = padded.substr(0, place);
    for (int i = 0; i < groups; i++) expanded.append(i == 0 ? "0000" : ":0000");
    return expanded.append(padded, place + 4);
}

}  // namespace

void GetClientIPAddress(char *hostName, char *address) {
    char name[256] = "";
    std::memset(hostName, 0, kHostNameSize);
    std::memset(address, 0, kAddressSize);
    if (gethostname(name, sizeof name - 1) == 0) {  // GCOVR_EXCL_BR_LINE: fault
        GetIPAddressOfHost(name, hostName, address);
    }
}

void GetIPAddressOfHost(const char *name, char *hostName, char *address) {
    char numeric[kAddressSize];
    CopyBounded(hostName, kHostNameSize, name);
    std::memset(address, 0, kAddressSize);
    if (!getHostAddress(name, numeric, kAddressSize)) return;
    if (std::strchr(numeric, _IPv4_sign_)) {
        ConvertIPv4Address(numeric, address);
    } else if (std::strchr(numeric, _IPv6_sign_)) {
        ConvertIPv6Address(numeric, address);
    }
}

void ConvertIPv4Address(const char *text, char *address) {
    std::memset(address, 0, kAddressSize);
    char *out = address;
    *out++ = 'I';
    for (int octet = 0; octet < 4; octet++) {
        const std::size_t length = std::strcspn(text, ".");
        const std::int32_t value = LeadingInteger(text);
        if (length > 3 || value > 255) {
            *address = '\0';
            return;
        }
        char digits[4];
        std::snprintf(digits, sizeof digits, "%2X", static_cast<unsigned>(value));
        *out++ = digits[0] == ' ' ? '0' : digits[0];
        *out++ = digits[1];
        text += length;
        if (*text == _IPv4_sign_) text++;
    }
}

void ConvertIPv6Address(const char *text, char *address) try {
    std::memset(address, 0, kAddressSize);
    const std::string_view withoutZone(text, std::strcspn(text, "%"));
    std::string digits = ExpandZeros(PadGroups(withoutZone));
    std::erase(digits, _IPv6_sign_);
    CopyBounded(address + 1, kAddressSize - 1, digits.c_str());
    *address = '6';
} catch (const std::bad_alloc &) {
}

bool getHostAddress(const char *hostName, char *output, std::int32_t size) {
    result = 0;
    if (!hostName || !output || size < 0) return false;
    const CFStringRef inputString =
        CFStringCreateWithCString(kCFAllocatorDefault, hostName, kCFStringEncodingASCII);
    KV_ASSERT(inputString != NULL, 649, false);
    outString = output;
    outStringLen = size;
    std::memset(output, 0, static_cast<std::size_t>(size));
    const bool started = MyResolveNameToAddress(inputString);
    CFRelease(inputString);
    if (started) CFRunLoopRun();  // GCOVR_EXCL_BR_LINE: fault
    return result != 0;
}

bool MyResolveNameToAddress(CFStringRef hostName) {
    KV_ASSERT(hostName != NULL, 618, false);
    const CFHostRef host = CFHostCreateWithName(kCFAllocatorDefault, hostName);
    KV_ASSERT(host != NULL, 621, false);
    void *const info = const_cast<void *>(static_cast<const void *>(hostName));
    CFHostClientContext context = {0, info, CFRetain, CFRelease, nullptr};
    if (!CFHostSetClient(host, MyCFHostClientCallBack, &context)) {  // GCOVR_EXCL_START: macOS
        CFRelease(host);
        return false;
    }  // GCOVR_EXCL_STOP
    CFHostScheduleWithRunLoop(host, CFRunLoopGetCurrent(), kCFRunLoopCommonModes);
    resolutionError = {};
    const bool started = CFHostStartInfoResolution(host, kCFHostAddresses, &resolutionError);
    if (!started) MyCFHostCleanup(host);  // GCOVR_EXCL_BR_LINE: fault
    return started;
}

void MyCFHostClientCallBack(CFHostRef host, CFHostInfoType typeInfo, const CFStreamError *error,
                            void *info) {
    resolutionError = *error;
    if (error->error == 0 && typeInfo == kCFHostAddresses) {
        MyPrintAddressArray(CFHostGetAddressing(host, nullptr), static_cast<CFStringRef>(info));
    }
    MyCFHostCleanup(host);
    CFRunLoopStop(CFRunLoopGetCurrent());
}

void MyPrintAddressArray(CFArrayRef addresses, CFStringRef hostName) {
    KV_ASSERT(addresses != NULL, 537);
    KV_ASSERT(hostName != NULL, 538);
    const CFIndex size =
        1 + CFStringGetMaximumSizeForEncoding(CFStringGetLength(hostName), kCFStringEncodingASCII);
    const std::unique_ptr<char[]> name(new (std::nothrow) char[static_cast<std::size_t>(size)]);
    KV_ASSERT(name != NULL, 542);
    const bool success = CFStringGetCString(hostName, name.get(), size, kCFStringEncodingASCII);
    KV_ASSERT(success, 545);

    const CFIndex count = CFArrayGetCount(addresses);
    for (CFIndex i = 0; i < count; i++) {
        const auto data = static_cast<CFDataRef>(CFArrayGetValueAtIndex(addresses, i));
        const UInt8 *const addr = CFDataGetBytePtr(data);
        KV_ASSERT(addr != NULL, 551);
        // The data is as long as the address says it is, where addresses say so.
        const auto length = static_cast<socklen_t>(CFDataGetLength(data));
        char text[kAddressSize] = "";
        result = getnameinfo(reinterpret_cast<const sockaddr *>(addr), length, text, sizeof text,
                             nullptr, 0, NI_NUMERICHOST) == 0;
        if (result == 0) continue;
        if (std::strchr(text, _IPv4_sign_) && std::strcmp(text, _IPv4_LocalHost_sign_) != 0) {
            KeepAddress(text);
            return;
        }
        if (std::strchr(text, _IPv6_sign_) && !std::strstr(text, _IPv6_LocalHost_sign_)) {
            KeepAddress(text);
        }
    }
}

void MyCFHostCleanup(CFHostRef host) {
    KV_ASSERT(host != NULL, 579);
    CFHostUnscheduleFromRunLoop(host, CFRunLoopGetCurrent(), kCFRunLoopCommonModes);
    CFHostSetClient(host, nullptr, nullptr);
    CFRelease(host);
}
