// SPDX-License-Identifier: Apache-2.0
//
// What the job-information block, the device settings and the booklet commands know of the job.
// The record is read by its neighbours in this folder. Texts that the ticket lacks are empty.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

constexpr std::size_t kCommentTextSize = 256;
using CommentText = char[kCommentTextSize];

#define KV_KEY KV_KEY_CONSTANT
#include "Modules/Comment/CommentTicket.def"

struct CommentOptions {
#define KV_KEY KV_KEY_FIELD
#include "Modules/Comment/CommentTicket.def"
    CommentText collation;  // "collate" or "nocollate"; empty if the ticket says neither
};
extern CommentOptions psoptioncomment;

// Values of the texts.
constexpr std::string_view kOptionNone = "None";  // staple, punch, signature, signatureVolume
constexpr std::string_view kSidesOneSided = "one-sided";
constexpr std::string_view kSidesLongEdge = "two-sided-long-edge";
constexpr std::string_view kSidesShortEdge = "two-sided-short-edge";
constexpr std::string_view kCollate = "collate";
constexpr std::string_view kNoCollate = "nocollate";
constexpr std::string_view kLeftSignature = "LeftSig";
constexpr std::string_view kLeftSignatureStapled = "LeftSigCenterStaple";
constexpr std::string_view kLeftSignatureFolded = "LeftSigFold";
constexpr std::string_view kRightSignature = "RightSig";
constexpr std::string_view kRightSignatureStapled = "RightSigCenterStaple";
constexpr std::string_view kRightSignatureFolded = "RightSigFold";

// Values of duplexBindingEdge.
constexpr std::int32_t OptionEdgeOff = 0;
constexpr std::int32_t OptionEdgeSimplex = 1;
constexpr std::int32_t OptionEdgeLong = 2;
constexpr std::int32_t OptionEdgeShort = 3;

// Values of orientation.
constexpr std::int32_t OptionPortrait = 1;
constexpr std::int32_t OptionLandscape = 4;
constexpr std::int32_t OptionRotatedLandscape = 5;
constexpr std::int32_t OptionRotatedPortrait = 6;

// Value of layoutDirection; the others are the N-up orders of the extended block.
constexpr std::int32_t OptionRightThenDown = 1;

extern const ticketData CommentticketData[];
extern const std::int32_t CommentTicketDataNum;

// Fills psoptioncomment from argv[5]. Collation is the one field that outlives a ticket which does
// not name it. Returns 1.
int CommentGetTicketFromPDE(char *const argv[]);
