// SPDX-License-Identifier: Apache-2.0
//
// Texts of the ticket: slash-coded ones decoded, UTF-8 converted for the printer's commands.
#include <cstring>
#include <vector>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "CommonSource/FilterFrame/Source/TextEncoding.h"
#include "fuzz/Fuzz.h"

namespace {

// The characters of a text that is valid UTF-8 throughout; false for any other.
bool Decode(std::string_view text, std::vector<char32_t> &characters) {
    for (std::size_t i = 0; i < text.size();) {
        const auto byte = [&](std::size_t at) -> unsigned {
            return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
        };
        const unsigned first = byte(i);
        const std::size_t length = first < 0x80    ? 1
                                   : first < 0xC2  ? 0
                                   : first < 0xE0  ? 2
                                   : first < 0xF0  ? 3
                                   : first <= 0xF4 ? 4
                                                   : 0;
        if (length == 0) return false;
        char32_t character = length == 1 ? first : first & (0x7FU >> length);
        for (std::size_t k = 1; k < length; k++) {
            if ((byte(i + k) & 0xC0) != 0x80) return false;
            character = character << 6 | (byte(i + k) & 0x3F);
        }
        if (length == 3 && (character < 0x800 || (character >= 0xD800 && character < 0xE000))) {
            return false;
        }
        if (length == 4 && (character < 0x10000 || character > 0x10FFFF)) return false;
        characters.push_back(character);
        i += length;
    }
    return true;
}

// A converted text is terminated, as long as is said, and clear of old bytes after that.
void CheckBuffer(const std::vector<char> &buffer, int length) {
    FUZZ_CHECK(length >= 0 && static_cast<std::size_t>(length) < buffer.size());
    FUZZ_CHECK(std::strlen(buffer.data()) == static_cast<std::size_t>(length));
    for (std::size_t i = static_cast<std::size_t>(length); i < buffer.size(); i++) {
        FUZZ_CHECK(buffer[i] == '\0');
    }
}

void CheckLatin1(const std::string &text, std::int32_t size) {
    std::vector<char> buffer(static_cast<std::size_t>(size), '#');
    CheckBuffer(buffer, ConvertUTF8ToEncoding(text.c_str(), buffer.data(), size));
    std::vector<char32_t> characters;
    std::string expected;
    if (Decode(text.c_str(), characters)) {
        for (const char32_t character : characters) {
            if (character < 0x100) expected += static_cast<char>(character);
        }
    }
    FUZZ_CHECK(expected.substr(0, buffer.size() - 1) == buffer.data());
}

void CheckUTF8(const std::string &text, std::int32_t size) {
    std::vector<char> buffer(static_cast<std::size_t>(size), '#');
    CheckBuffer(buffer, ConvertUTF8ToEncodingForUTF8(text.c_str(), buffer.data(), size));
    std::vector<char32_t> characters;
    if (!Decode(text.c_str(), characters)) FUZZ_CHECK(buffer[0] == '\0');

    std::fill(buffer.begin(), buffer.end(), '#');
    CheckBuffer(buffer,
                ConvertUTF8ToPPDEncoding(text.c_str(), buffer.data(), size, kCFStringEncodingUTF8));
}

void CheckSlashCoded(const std::string &text, std::int32_t size) {
    std::vector<char> buffer(static_cast<std::size_t>(size), '\0');
    std::strncpy(buffer.data(), text.c_str(), buffer.size() - 1);
    const std::string before = buffer.data();
    numstrtochar(buffer.data(), size);
    FUZZ_CHECK(std::strlen(buffer.data()) < buffer.size());
    if (before.find('/') == std::string::npos) FUZZ_CHECK(before == buffer.data());
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    FuzzInput input(data, size);
    const auto bufferSize = static_cast<std::int32_t>(1 + input.Below(300));
    const std::string text = input.Rest();
    CheckLatin1(text, bufferSize);
    CheckUTF8(text, bufferSize);
    CheckSlashCoded(text, bufferSize);
    const std::int32_t number = LeadingInteger(text.c_str());
    char digits[12];
    if (number > 0) FUZZ_CHECK(LeadingInteger(itoa(number, digits, sizeof digits)) == number);
    return 0;
}
