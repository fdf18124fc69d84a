// SPDX-License-Identifier: Apache-2.0
//
// The keys of a job's print type, and what the printer's fields hold of them.
#pragma once

#include <cstddef>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

// The short options that belong to it.
constexpr char kPrintMode[] = "KVPrintMode";
constexpr char kOwner[] = "KVOwner";
constexpr char kPassword[] = "KVPassword";
constexpr char kMailbox[] = "KVMailbox";
constexpr char kDelayUntil[] = "KVDelayUntil";
constexpr char kJobName[] = "KVJobName";

constexpr char kPrintTypeTicketKey[] = KV_TICKET "PrintTypeTicketKey";
constexpr char kPrintTypeUserNameTicketKey[] = KV_TICKET "PrintTypeUserNameTicketKey";
constexpr char kPrintTypePasswordTicketKey[] = KV_TICKET "PrintTypePasswordTicketKey";
constexpr char kDocumentNameTypeTicketKey[] = KV_TICKET "DocumentNameTypeTicketKey";
constexpr char kDocumentNameTicketKey[] = KV_TICKET "DocumentNameTicketKey";
constexpr char kDelayPrintTicketKey[] = KV_TICKET "DelayPrintTicketKey";
constexpr char kPrintTypeMBNTicketKey[] = KV_TICKET "PrintTypeMBNTicketKey";
constexpr char kPrintTypeMBNPasswordTicketKey[] = KV_TICKET "PrintTypeMBNPasswordTicketKey";

// Bytes of the printer's fields, without a NUL.
constexpr std::size_t kOwnerSize = 72;
constexpr std::size_t kSecurePasswordSize = 16;
constexpr std::size_t kMailboxPasswordSize = 29;
constexpr std::size_t kMailboxNumberSize = 4;
constexpr std::size_t kJobNameSize = 192;

// The printer's print types.
enum PrintType { kNormal = 1, kSecure = 2, kSample = 3, kDelay = 4, kInMailbox = 5 };
