// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Text.h"

#include <wchar.h>

#include <algorithm>
#include <cstdio>

namespace {

struct NamedByte {
    std::int32_t code;
    const char *name;
};
constexpr NamedByte namedBytes[] = {{0x0A, "<LF>"}, {0x0D, "<CR>"}, {0x1B, "<ESC>"}};

// Whether a terminal obeys the character or reorders the text around it.
bool IsControl(std::int32_t code) {
    return code < 0x20 || (code >= 0x7F && code < 0xA0) || (code >= 0x200E && code <= 0x200F) ||
           (code >= 0x2028 && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
}

bool IsUTF8(std::string_view bytes) {
    while (!bytes.empty()) {
        if (TakeCharacter(bytes) < 0) return false;
    }
    return true;
}

void AppendNamed(std::string &text, std::int32_t code) {
    for (const NamedByte &byte : namedBytes) {
        if (byte.code == code) {
            text += byte.name;
            return;
        }
    }
    char name[16];
    std::snprintf(name, sizeof name, "<%02X>", static_cast<unsigned>(code));
    text += name;
}

void AppendLatin1(std::string &text, unsigned char byte) {
    text += static_cast<char>(0xC0 | byte >> 6);
    text += static_cast<char>(0x80 | (byte & 0x3F));
}

}  // namespace

std::int32_t TakeCharacter(std::string_view &text) {
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first < 0x80   ? 1
                               : first < 0xC2 ? 0
                               : first < 0xE0 ? 2
                               : first < 0xF0 ? 3
                               : first < 0xF5 ? 4
                                              : 0;
    std::int32_t code = length == 1 ? first : first & (0xFF >> (length + 1));
    for (std::size_t i = 1; i < length; i++) {
        const unsigned char next = i < text.size() ? static_cast<unsigned char>(text[i]) : 0;
        if ((next & 0xC0) != 0x80) code = -1;
        if (code >= 0) code = code << 6 | (next & 0x3F);
    }
    constexpr std::int32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code <= 0xDFFF;
    if (length == 0 || code < kSmallest[length] || code > 0x10FFFF || isSurrogate) code = -1;
    text.remove_prefix(code < 0 ? 1 : length);
    return code;
}

std::string Visible(std::string_view bytes) {
    std::string text;
    text.reserve(bytes.size());
    const bool isUTF8 = IsUTF8(bytes);
    while (!bytes.empty()) {
        const std::string_view rest = bytes;
        const auto byte = static_cast<unsigned char>(bytes[0]);
        std::int32_t code = byte;
        if (isUTF8) {
            code = TakeCharacter(bytes);
        } else {
            bytes.remove_prefix(1);
        }
        if (IsControl(code)) {
            AppendNamed(text, code);
        } else if (!isUTF8 && byte >= 0x80) {
            AppendLatin1(text, byte);
        } else {
            text += rest.substr(0, rest.size() - bytes.size());
        }
    }
    return text;
}

std::string VisibleASCII(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) {
        const auto code = static_cast<unsigned char>(byte);
        if (code < 0x20 || code >= 0x7F) {
            AppendNamed(text, code);
        } else {
            text += byte;
        }
    }
    return text;
}

std::size_t DisplayWidth(std::string_view text) {
    std::size_t width = 0;
    while (!text.empty()) {
        const std::int32_t code = TakeCharacter(text);
        width += code < 0x80 ? 1 : static_cast<std::size_t>(std::max(wcwidth(code), 0));
    }
    return width;
}

std::string Count(std::uint64_t count, std::string_view thing) {
    std::string digits = std::to_string(count);
    for (std::size_t place = digits.size(); place > 3;) digits.insert(place -= 3, ",");
    return digits + " " + std::string(thing) + (count == 1 ? "" : "s");
}
