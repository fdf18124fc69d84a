// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/JobTicket.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/TextEncoding.h"

namespace {

// The working copy of a ticket value; what is longer is cut.
constexpr std::int32_t kWorkingSize = 1024;

using Convert = int (*)(const char *source, char *destination, std::int32_t size);

void SetInteger(void *destination, std::int32_t value) {
    std::memcpy(destination, &value, sizeof value);
}

// Decodes `value`, which may be slash-coded, and converts it.
void StoreDecoded(const char *value, Convert convert, void *destination, std::int32_t size) {
    char working[kWorkingSize];
    CopyBounded(working, value);
    numstrtochar(working, sizeof working);
    convert(working, static_cast<char *>(destination), size);
}

int GetDecodedString(const char *key, int optionCount, cups_option_t *options, void *destination,
                     std::int32_t size, Convert convert) {
    std::memset(destination, 0, static_cast<std::size_t>(size));
    const char *value = cupsGetOption(key, optionCount, options);
    if (!value) return 0;
    StoreDecoded(value, convert, destination, size);
    return 1;
}

// The pages on a sheet that the layout's rows and columns make; 1 if the ticket has neither.
std::int32_t LayoutPages(int optionCount, cups_option_t *options) {
    std::int64_t product = 1;
    for (const char *key : {kLayoutRowCountTicketKey, kLayoutColumnCountTicketKey}) {
        const char *value = cupsGetOption(key, optionCount, options);
        if (value) product *= LeadingInteger(value);
    }
    return static_cast<std::int32_t>(
        std::clamp<std::int64_t>(product, std::numeric_limits<std::int32_t>::min(),
                                 std::numeric_limits<std::int32_t>::max()));
}

void StoreNumberUp(const char *key, int optionCount, cups_option_t *options, void *destination,
                   std::int32_t size, const char *prefix) {
    char digits[3];
    char code[kWorkingSize] = "1";
    const char *value = cupsGetOption(key, optionCount, options);
    if (!value) {
        const std::int32_t pages = LayoutPages(optionCount, options);
        if (pages != 1) value = itoa(pages, digits, sizeof digits);
    }
    if (value) {
        CopyBounded(code, prefix);
        const std::size_t length = std::strlen(code);
        CopyBounded(code + length, sizeof code - length, value);
    }
    StoreDecoded(code, ConvertUTF8ToEncoding, destination, size);
}

}  // namespace

TicketOptions::TicketOptions(const char *optionString) : count(0), list(nullptr) {
    count = cupsParseOptions(optionString, 0, &list);
}

TicketOptions::~TicketOptions() {
    cupsFreeOptions(count, list);
}

int GetTicketFromArray(char *const argv[], const ticketData *table, std::int32_t count) {
    const TicketOptions options(argv[5]);
    for (const ticketData *row = table; row < table + count; row++) {
        row->getter(row->key, options.count, options.list, row->destination, row->size);
    }
    return 1;
}

int CheckTicketKey(const char *key, int optionCount, cups_option_t *options, void *destination,
                   std::int32_t) {
    SetInteger(destination, cupsGetOption(key, optionCount, options) ? 0 : 1);
    return 1;
}

int GetTicketInteger(const char *key, int optionCount, cups_option_t *options, void *destination,
                     std::int32_t) {
    const char *value = cupsGetOption(key, optionCount, options);
    SetInteger(destination, value ? LeadingInteger(value) : -1);
    return value != nullptr;
}

int GetTicketFloat(const char *key, int optionCount, cups_option_t *options, void *destination,
                   std::int32_t) {
    const char *value = cupsGetOption(key, optionCount, options);
    float number = -1.0F;
    if (value) {
        // The process keeps to the C locale, whatever the user's is.
        const double parsed = std::strtod(value, nullptr);
        // "inf", "nan" and what a float cannot hold are no measures of a page.
        const bool fits = std::fabs(parsed) <= std::numeric_limits<float>::max();
        number = fits ? static_cast<float>(parsed) : 0.0F;
    }
    std::memcpy(destination, &number, sizeof number);
    return value != nullptr;
}

int GetTicketString(const char *key, int optionCount, cups_option_t *options, void *destination,
                    std::int32_t size) {
    std::memset(destination, 0, static_cast<std::size_t>(size));
    const char *value = cupsGetOption(key, optionCount, options);
    if (!value) return 0;
    ConvertUTF8ToEncoding(value, static_cast<char *>(destination), size);
    return 1;
}

int GetTicketStringConvertedToPrtLang(const char *key, int optionCount, cups_option_t *options,
                                      void *destination, std::int32_t size) {
    return GetDecodedString(key, optionCount, options, destination, size, ConvertUTF8ToEncoding);
}

int GetTicketStringConvertedToPrtLangForUTF8(const char *key, int optionCount,
                                             cups_option_t *options, void *destination,
                                             std::int32_t size) {
    return GetDecodedString(key, optionCount, options, destination, size,
                            ConvertUTF8ToEncodingForUTF8);
}

int GetTicketStringConvertedToPPDEncodingString(const char *key, int optionCount,
                                                cups_option_t *options, void *destination,
                                                std::int32_t size) {
    return GetDecodedString(key, optionCount, options, destination, size,
                            [](const char *source, char *text, std::int32_t textSize) {
                                return ConvertUTF8ToPPDEncoding(
                                    source, text, textSize,
                                    GetCFStringSimEncodingFromPPD(JobPPD()));
                            });
}

int GetNumberUpTicketString(const char *key, int optionCount, cups_option_t *options,
                            void *destination, std::int32_t size) {
    StoreNumberUp(key, optionCount, options, destination, size, "N");
    return 1;
}

int GetNumberUpTicketStringForComment(const char *key, int optionCount, cups_option_t *options,
                                      void *destination, std::int32_t size) {
    StoreNumberUp(key, optionCount, options, destination, size, "");
    return 1;
}

void numstrtochar(char *text, std::int32_t size) {
    if (*text != '/') return;
    const char *end = text + strnlen(text, static_cast<std::size_t>(size) - 1);
    const char *slash = text;
    char *out = text;
    while (slash != end) {
        const std::int32_t value = LeadingInteger(slash + 1);
        slash = std::find(slash + 1, end, '/');
        *out = static_cast<char>(value < 257 ? value & 0xFF : 0);
        if (*out == '\0') return;
        out++;
    }
    *out = '\0';
}
