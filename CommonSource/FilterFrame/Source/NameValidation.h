// SPDX-License-Identifier: Apache-2.0
//
// The user and document names, reduced to what the printer accepts: printable ASCII of limited
// length. The limit of a document name depends on the product type that the print dialog sends.
#pragma once

#include <cstddef>
#include <cstdint>

#include "CommonSource/FilterFrame/Source/JobTicket.h"

// One half of a validation scale: allowed ranges of one-byte or of two-byte characters.
struct ValidateRanges {
    static constexpr std::size_t kSlots = 10;
    struct Range {
        std::uint32_t low, high;
    };
    std::uint32_t count;  // used slots
    Range ranges[kSlots];
};

struct ValidateScale {
    ValidateRanges bytes;
    ValidateRanges words;  // two-byte characters, first byte high
};

extern const ValidateScale userNameValidateDataScale;
extern const ValidateScale docuNameValidateDataScale;
extern const ValidateScale docuNameValidateDataScaleForProduct02;
extern const ValidateScale docuNameValidateDataScaleForProduct03;
// Kept as interface; no job reaches these.
extern const ValidateScale userNameValidateDataScaleForUTF8;
extern const ValidateScale docuNameValidateDataScaleForProduct03UTF8;

// The ticket's product type, for reference; without a destination.
extern const ticketData productTypeKey[1];

// The user name of a job whose own is not acceptable.
extern const char defaultUserName[];

// 1 if the character at `position` lies in one of the ranges, else 0. The word tests read two
// bytes.
int ISByteValid(const char *position, const ValidateRanges &ranges);
int ISWordValid(const char *position, const ValidateRanges &ranges);
int ISByteSpace(const char *position, const ValidateRanges &ranges);
int ISWordSpace(const char *position, const ValidateRanges &ranges);

// 1 if every character of `text` is allowed, else 0.
int ValidateDada(const char *text, const ValidateScale &scale);

// 1 if `text` holds nothing but spaces, of one byte or of two (0x8140 in Shift JIS), else 0.
int IsAllSpace(const char *text);

// Replaces a StdUserName that is empty, all spaces or not acceptable by defaultUserName.
void InvalidateStdUserName();

// Cuts StdDocumentName to 24 bytes; returns its length before. Kept as interface; no job reaches
// this.
int InvalidateStdDocumentName();

// Cuts StdDocumentName to the limit of the ticket's product type and copies it into
// PTStdDocumentName, which stays empty if the name is not acceptable or no type is given.
void InvalidateStdDocumentNameForProductType(char *const argv[]);

// The same rules applied to PTStdDocumentName itself. Kept as interface; no job reaches this.
void InvalidatePrintTypeDocumentNameForProductType(char *const argv[]);
