// SPDX-License-Identifier: Apache-2.0
//
// Socket addresses as a host resolution delivers them.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <netdb.h>
#include <sys/socket.h>

#include <cstring>
#include <stdexcept>

// An address that has no numeric form.
constexpr char kBrokenAddress[] = "broken";

// Appends the socket address of a numeric text, "fe80::1%1" for one with a zone.
inline void AppendAddress(CFMutableArrayRef addresses, const char *text) {
    CFDataRef data = nullptr;
    if (std::strcmp(text, kBrokenAddress) == 0) {
        const UInt8 bytes[sizeof(sockaddr)] = {};
        data = CFDataCreate(kCFAllocatorDefault, bytes, 1);
    } else {
        addrinfo hints{};
        hints.ai_flags = AI_NUMERICHOST;
        hints.ai_socktype = SOCK_STREAM;
        addrinfo *list = nullptr;
        if (getaddrinfo(text, nullptr, &hints, &list) != 0) throw std::invalid_argument(text);
        data = CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8 *>(list->ai_addr),
                            static_cast<CFIndex>(list->ai_addrlen));
        freeaddrinfo(list);
    }
    CFArrayAppendValue(addresses, data);
    CFRelease(data);
}
