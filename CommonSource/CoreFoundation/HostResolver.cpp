// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/CoreFoundation/HostResolver.h"

#include <netdb.h>
#include <sys/socket.h>

namespace {

int AskSystem(const char *name, CFMutableArrayRef addresses) {
    addrinfo hints{};
    hints.ai_family = AF_UNSPEC;
    hints.ai_socktype = SOCK_STREAM;  // each address once, not once for each kind of socket
    addrinfo *list = nullptr;
    const int status = getaddrinfo(name, nullptr, &hints, &list);
    if (status != 0) return status;
    for (const addrinfo *entry = list; entry; entry = entry->ai_next) {
        const CFDataRef address =
            CFDataCreate(kCFAllocatorDefault, reinterpret_cast<const UInt8 *>(entry->ai_addr),
                         static_cast<CFIndex>(entry->ai_addrlen));
        if (!address) continue;  // GCOVR_EXCL_BR_LINE: fault
        CFArrayAppendValue(addresses, address);
        CFRelease(address);
    }
    freeaddrinfo(list);
    return 0;
}

}  // namespace

HostResolver hostResolver = {AskSystem, std::chrono::seconds(5)};
