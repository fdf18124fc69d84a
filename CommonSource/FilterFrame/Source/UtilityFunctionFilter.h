// SPDX-License-Identifier: Apache-2.0
//
// The sending computer's host name and network address, which job accounting reports to the
// printer.
#pragma once

#include <CFNetwork/CFNetwork.h>
#include <CoreFoundation/CoreFoundation.h>

#include <cstdint>

// Bytes of a numeric address as text, and of the printer's form of it, NUL included.
constexpr std::int32_t kAddressSize = 46;

// Bytes of what accounting reports of a host's name, NUL included.
constexpr std::int32_t kHostNameSize = 97;

// Where the resolution callback leaves its answer: the platform hands it no other way back.
extern char *outString;            // the chosen numeric address
extern std::int32_t outStringLen;  // bytes of outString
extern std::int32_t result;        // 1 when the last address looked at had a numeric form

// Why the last resolution did not start or found nothing; its error is 0 if it found addresses.
extern CFStreamError resolutionError;

// Whether want of memory leaves the client unknown, with ENOMEM in resolutionError, where it else
// ends the process by an assertion. False at first.
extern bool clientMayBeMissing;

// Fills `hostName` (97 bytes) with the host's name, cut to 96 characters, and `address` (at least
// 46 bytes) with its address as the printer reads it: "I" and 8 hexadecimal digits for IPv4, "6"
// and 32 for IPv6. What cannot be found stays empty.
void GetClientIPAddress(char *hostName, char *address);

// As above, for the host called `name`.
void GetIPAddressOfHost(const char *name, char *hostName, char *address);

// The printer's form of a numeric address, in `address` of 46 bytes: empty for an IPv4 text with a
// number above 255 or of more than three characters, and "6" alone for an IPv6 text with no group
// of zeros to expand. Where memory is short an IPv6 text leaves it empty.
void ConvertIPv4Address(const char *text, char *address);
void ConvertIPv6Address(const char *text, char *address);

// Resolves `hostName` and writes one numeric address into `output`, `size` bytes. The first IPv4
// address that is not the loopback's wins; failing that, the last usable IPv6 address. Returns
// whether the last address looked at could be written as a number.
bool getHostAddress(const char *hostName, char *output, std::int32_t size);

// Starts the resolution of `hostName` on the current run loop; returns whether it started.
bool MyResolveNameToAddress(CFStringRef hostName);

void MyCFHostClientCallBack(CFHostRef host, CFHostInfoType typeInfo, const CFStreamError *error,
                            void *info);

// Picks one of `addresses` (CFData, each a socket address) into outString.
void MyPrintAddressArray(CFArrayRef addresses, CFStringRef hostName);

// Takes `host` off the run loop and releases it.
void MyCFHostCleanup(CFHostRef host);
