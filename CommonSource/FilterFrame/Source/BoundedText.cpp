// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/BoundedText.h"

#include <algorithm>
#include <limits>

char *itoa(std::int32_t number, char *buffer, std::int32_t size) {
    char *first = buffer + size - 1;
    *first = '\0';
    for (; number > 0 && first > buffer; number /= 10) {
        *--first = static_cast<char>('0' + number % 10);
    }
    return first;
}

std::int32_t LeadingInteger(const char *text) {
    text += std::strspn(text, " \t\n\v\f\r");
    const bool negative = *text == '-';
    if (*text == '-' || *text == '+') text++;
    std::int64_t number = 0;
    const std::int64_t limit =
        std::numeric_limits<std::int32_t>::max() + static_cast<std::int64_t>(negative);
    for (; *text >= '0' && *text <= '9'; text++) {
        number = std::min(number * 10 + (*text - '0'), limit);
    }
    return static_cast<std::int32_t>(negative ? -number : number);
}
