// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Client.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "CommonSource/FilterFrame/Source/TextEncoding.h"
#include "CommonSource/FilterFrame/Source/UtilityFunctionFilter.h"
#include "FrontEnd/Messages.h"
#ifndef __APPLE__
#include "CommonSource/CoreFoundation/HostResolver.h"
#endif

namespace {

bool IsASCII(const char *text) {
    return std::all_of(text, text + std::strlen(text),
                       [](char byte) { return static_cast<unsigned char>(byte) < 0x80; });
}

// A resolver that knows the name at all answers at once. Where the platform brings its own, its
// limit holds.
void LimitResolver() {
#ifndef __APPLE__
    hostResolver.timeout = std::chrono::seconds(1);
#endif
}

}  // namespace

void FindClientForCUPS(char *hostName, char *address) {
    char name[256] = "";
    std::memset(hostName, 0, kHostNameSize);
    std::memset(address, 0, kAddressSize);
    if (gethostname(name, sizeof name - 1) != 0) {
        ReportWarning("This computer's name and address are not in the job", errno);
        return;
    }
    if (!IsASCII(name)) {
        ConvertUTF8ToEncoding(name, hostName, kHostNameSize);
        ReportWarning("This computer's address is not in the job: its name is not ASCII");
        return;
    }
    LimitResolver();
    clientMayBeMissing = true;
    GetIPAddressOfHost(name, hostName, address);
    if (resolutionError.error != 0 && resolutionError.domain == kCFStreamErrorDomainPOSIX) {
        ReportWarning("This computer's address is not in the job", resolutionError.error);
    }
}
