// SPDX-License-Identifier: Apache-2.0
//
// The texts and flags of the one job that this process prints. The job run clears and fills them
// before any command is written; the command tables point straight at them. All texts are
// NUL-terminated and in the printer's encoding.
#pragma once

#include <csignal>
#include <cstddef>

// Bytes of text in a name buffer. The conversion from UTF-8 keeps one byte less; the cleaning of
// names works on all of them, so each buffer has one byte more for its NUL.
constexpr std::size_t kStdTextLength = 255;
using StdText = char[kStdTextLength + 1];

extern StdText StdUserName;        // argv[2], cleaned
extern char StdJBAUserName[33];    // the first 32 bytes of argv[2], converted but not cleaned
extern StdText StdDocumentName;    // argv[3], cut to the limit of the product type
extern StdText PTStdDocumentName;  // StdDocumentName as far as the printer accepts it

// Page layout, filled from the ticket by the accounting module.
extern StdText StdNUpInfo;     // "N4" for four pages on a sheet, "1" for one
extern StdText StdLayoutInfo;  // "number-up" as it stands in the ticket
extern StdText StdLayoutDirectionInfo;
extern StdText StdLayoutRowInfo;
extern StdText StdLayoutColumnInfo;

// The unadjusted paper rectangle of the page format and, after it, of the job, in points.
extern StdText StdPaperInfoRectOriginXKey;
extern StdText StdPaperInfoRectOriginYKey;
extern StdText StdPaperInfoRectHeightKey;
extern StdText StdPaperInfoRectWidthKey;
extern StdText StdAdobePaperInfoRectOriginXKey;
extern StdText StdAdobePaperInfoRectOriginYKey;
extern StdText StdAdobePaperInfoRectHeightKey;
extern StdText StdAdobePaperInfoRectWidthKey;

// The sending computer: its host name, and its address as "I" or "6" and hexadecimal digits.
extern char HostNameStr[97];
extern char IPAddressStr[46];

// Set by the signal handlers and read at page ends (SIGTERM) and for the exit status (SIGPIPE).
extern volatile std::sig_atomic_t CancelJob;
extern volatile std::sig_atomic_t CancelJobForPipe;

// Clears the layout and paper texts.
void ClearLayoutBuffers();
