// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/NameValidation.h"

#include <algorithm>
#include <cstring>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"

const char defaultUserName[] = "UnknownUser";

const ValidateScale userNameValidateDataScale = {{1, {{0x20, 0x7E}}}, {0, {}}};
const ValidateScale docuNameValidateDataScale = {{1, {{0x20, 0x7E}}}, {0, {}}};
const ValidateScale docuNameValidateDataScaleForProduct02 = {{2, {{0x20, 0x7E}, {0x00, 0x00}}},
                                                             {0, {}}};
const ValidateScale docuNameValidateDataScaleForProduct03 = {{2, {{0x20, 0x7E}, {0x00, 0x00}}},
                                                             {0, {}}};
const ValidateScale userNameValidateDataScaleForUTF8 = {{1, {{0x20, 0xFF}}},
                                                        {1, {{0x0020, 0xFFFF}}}};
const ValidateScale docuNameValidateDataScaleForProduct03UTF8 = {{1, {{0x20, 0xFF}}},
                                                                 {1, {{0x0020, 0xFFFF}}}};

const ticketData productTypeKey[1] = {
    {KV_TICKET "PrintTypeProductTypeTicketKey", nullptr, 0, GetTicketInteger, "",
     "2 = up to 12 bytes, 3 = up to 64 bytes, any other = up to 24 bytes",
     "kind of machine: how long a document's name may be"},
};

namespace {

constexpr ValidateRanges kByteSpaces = {1, {{0x20, 0x20}}};
constexpr ValidateRanges kWordSpaces = {1, {{0x8140, 0x8140}}};

// What a product accepts as a document name.
struct DocumentNameRule {
    std::int32_t productType;
    std::size_t limit;  // bytes
    const ValidateScale *scale;
    bool clearsFirst;  // whether PTStdDocumentName is cleared before the name is copied
};
constexpr DocumentNameRule kDocumentNameRules[] = {
    {2, 12, &docuNameValidateDataScaleForProduct02, true},
    {3, 64, &docuNameValidateDataScaleForProduct03, true},
};
constexpr DocumentNameRule kOtherDocumentNameRule = {0, 24, &docuNameValidateDataScale, false};

// The rule of the ticket's product type; null when the ticket names none.
const DocumentNameRule *RuleForProductType(char *const argv[]) {
    const TicketOptions options(argv[5]);
    std::int32_t type = 0;
    if (!GetTicketInteger(productTypeKey->key, options.count, options.list, &type, sizeof type)) {
        return nullptr;
    }
    for (const DocumentNameRule &rule : kDocumentNameRules) {
        if (rule.productType == type) return &rule;
    }
    return &kOtherDocumentNameRule;
}

// Cuts `text` to at most `limit` bytes.
void Cut(StdText &text, std::size_t limit) {
    std::memset(text + limit, 0, sizeof text - limit);
}

void ClearUnacceptable(StdText &name, const DocumentNameRule *rule) {
    const ValidateScale &scale = rule ? *rule->scale : docuNameValidateDataScale;
    if (!ValidateDada(name, scale)) std::memset(name, 0, sizeof name);
}

std::uint32_t Byte(const char *position) {
    return static_cast<unsigned char>(*position);
}

std::uint32_t Word(const char *position) {
    return Byte(position) << 8 | Byte(position + 1);
}

bool InRanges(std::uint32_t value, const ValidateRanges &ranges, std::uint32_t mask) {
    const std::uint32_t count = std::min<std::uint32_t>(ranges.count, ValidateRanges::kSlots);
    return std::any_of(ranges.ranges, ranges.ranges + count, [=](const ValidateRanges::Range &r) {
        return (r.low & mask) <= value && value <= (r.high & mask);
    });
}

}  // namespace

int ISByteValid(const char *position, const ValidateRanges &ranges) {
    return InRanges(Byte(position), ranges, 0xFF);
}

int ISWordValid(const char *position, const ValidateRanges &ranges) {
    return InRanges(Word(position), ranges, 0xFFFF);
}

int ISByteSpace(const char *position, const ValidateRanges &ranges) {
    return ISByteValid(position, ranges);
}

int ISWordSpace(const char *position, const ValidateRanges &ranges) {
    return ISWordValid(position, ranges);
}

int ValidateDada(const char *text, const ValidateScale &scale) {
    while (*text != '\0') {
        // The last byte has no partner: its NUL belongs to no character.
        if (scale.words.count > 0 && text[1] != '\0' && ISWordValid(text, scale.words)) {
            text += 2;
        } else if (scale.bytes.count > 0 && ISByteValid(text, scale.bytes)) {
            text++;
        } else {
            return 0;
        }
    }
    return 1;
}

int IsAllSpace(const char *text) {
    while (*text != '\0') {
        if (ISByteSpace(text, kByteSpaces)) {
            text++;
        } else if (ISWordSpace(text, kWordSpaces)) {
            text += 2;
        } else {
            return 0;
        }
    }
    return 1;
}

void InvalidateStdUserName() {
    Cut(StdUserName, kStdTextLength);
    if (*StdUserName != '\0' && ValidateDada(StdUserName, userNameValidateDataScale) &&
        !IsAllSpace(StdUserName)) {
        return;
    }
    std::memset(StdUserName, 0, sizeof StdUserName);
    std::memcpy(StdUserName, defaultUserName, sizeof defaultUserName);
}

int InvalidateStdDocumentName() {
    const int length = static_cast<int>(std::strlen(StdDocumentName));
    Cut(StdDocumentName, kOtherDocumentNameRule.limit);
    return length;
}

void InvalidateStdDocumentNameForProductType(char *const argv[]) {
    const DocumentNameRule *rule = RuleForProductType(argv);
    if (rule) {
        Cut(StdDocumentName, rule->limit);
        if (rule->clearsFirst) std::memset(PTStdDocumentName, 0, sizeof PTStdDocumentName);
        std::memcpy(PTStdDocumentName, StdDocumentName, rule->limit);
    }
    ClearUnacceptable(PTStdDocumentName, rule);
}

void InvalidatePrintTypeDocumentNameForProductType(char *const argv[]) {
    const DocumentNameRule *rule = RuleForProductType(argv);
    if (rule) Cut(PTStdDocumentName, rule->limit);
    ClearUnacceptable(PTStdDocumentName, rule);
}
