// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/TicketText.h"

#include <cups/language.h>
#include <cups/transcode.h>

#include <algorithm>
#include <vector>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "CommonSource/FilterFrame/Source/TextEncoding.h"

namespace {

constexpr cups_utf32_t kLastOfLatin1 = 0xFF;
// The getters' working copy of a value.
constexpr std::size_t kWorkingSize = 1024;

// The characters of UTF-8 text; none if it is not UTF-8.
std::vector<cups_utf32_t> Characters(std::string_view text) {
    const std::string terminated(text);
    std::vector<cups_utf32_t> characters(text.size() + 1);
    const int count = cupsUTF8ToUTF32(characters.data(),
                                      reinterpret_cast<const cups_utf8_t *>(terminated.c_str()),
                                      static_cast<int>(characters.size()));
    characters.resize(static_cast<std::size_t>(std::max(count, 0)));
    return characters;
}

bool IsControl(cups_utf32_t character) {
    return character < 0x20 || (character >= 0x7F && character < 0xA0);
}

std::string UTF8(cups_utf32_t character) {
    const cups_utf32_t source[] = {character, 0};
    cups_utf8_t buffer[8] = {};
    const int length = cupsUTF32ToUTF8(buffer, source, sizeof buffer);
    return length > 0 ? std::string(reinterpret_cast<char *>(buffer)) : std::string();
}

// What of the ticket makes the printer's bytes `bytes`: the getters write a byte for each character
// up to 0xFF.
std::string AsLatin1Characters(std::string_view bytes) {
    std::string text;
    for (const char byte : bytes) text += UTF8(static_cast<unsigned char>(byte));
    return text;
}

}  // namespace

bool PrinterReadsUTF8() {
    return JobPPDAttributeIs(KPPDPrinterLanguageEncodingKey, "UTF-8");
}

bool PrinterReadsLatin1() {
    return JobPPDAttributeIs(KPPDPrinterLanguageEncodingKey, "ISO-8859-1");
}

PrinterText MakePrinterText(std::string_view text, std::size_t size) {
    const bool utf8 = PrinterReadsUTF8();
    const std::vector<cups_utf32_t> characters = Characters(text);
    PrinterText made{"", "", characters.empty() && !text.empty()};
    for (cups_utf32_t character : characters) {
        made.changed |= character == '"';
        if (character == '"') character = '\'';
        const std::string letter = UTF8(character);
        if (IsControl(character) || letter.empty() || !(utf8 || character <= kLastOfLatin1)) {
            made.changed = true;
            continue;
        }
        const std::string bytes = utf8 ? letter : std::string(1, static_cast<char>(character));
        if (made.bytes.size() + bytes.size() > size) {
            made.changed = true;
            break;
        }
        made.shown += letter;
        made.bytes += bytes;
    }
    return made;
}

std::string TicketValueOf(const PrinterText &text) {
    const std::string value = AsLatin1Characters(text.bytes);
    // The getters would take a text that begins with a slash for slash-coded.
    return value.starts_with('/') ? SlashCoded(value) : value;
}

std::string SlashCoded(std::string_view text) {
    std::string coded;
    for (const char byte : text.substr(0, kMostSlashCoded)) {
        coded += '/' + std::to_string(static_cast<unsigned char>(byte));
    }
    return coded;
}

std::string PrinterBytes(const char *value, std::size_t size, bool &faithful) {
    char decoded[kWorkingSize];
    CopyBounded(decoded, value);
    numstrtochar(decoded, sizeof decoded);
    std::string bytes(size, '\0');
    ConvertUTF8ToEncoding(decoded, bytes.data(), static_cast<std::int32_t>(size));
    bytes.resize(std::char_traits<char>::length(bytes.c_str()));
    const std::vector<cups_utf32_t> characters = Characters(decoded);
    const bool safe = std::none_of(characters.begin(), characters.end(), [](cups_utf32_t c) {
        return c < 0x20 || c == 0x7F || c == '"' || c > kLastOfLatin1;
    });
    faithful = safe && bytes.size() == characters.size() && !bytes.empty() &&
               std::char_traits<char>::length(value) < kWorkingSize;
    return bytes;
}
