// SPDX-License-Identifier: Apache-2.0
//
// The sending computer as accounting reports it, where nothing about it may keep a job from being
// printed: a queue of plain CUPS runs on servers of all kinds.
#pragma once

// As GetClientIPAddress (UtilityFunctionFilter.h), but a host name that is not ASCII stops nothing:
// it is reported in the printer's encoding, without an address. A resolver that does not answer is
// waited for one second. Both are reported.
void FindClientForCUPS(char *hostName, char *address);
