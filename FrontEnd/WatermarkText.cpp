// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/WatermarkText.h"

#include <algorithm>
#include <cstdint>

#include "CommonSource/FilterFrame/Source/TextEncoding.h"

namespace {

constexpr char kHyphen = '-';
constexpr char kHyphenOfLatin1Fonts = '\xAD';  // whose '-' is a minus sign

bool IsASCII(char byte) {
    return static_cast<unsigned char>(byte) < 0x80;
}

bool IsControl(char byte) {
    const auto code = static_cast<unsigned char>(byte);
    return code < 0x20 || (code >= 0x7F && code < 0xA0);
}

bool StartsLetter(char utf8Byte) {
    return (static_cast<unsigned char>(utf8Byte) & 0xC0) != 0x80;
}

// The letters that ISO Latin-1 has.
std::string Latin1Of(const std::string &utf8) {
    std::string text(utf8.size() + 1, '\0');
    text.resize(static_cast<std::size_t>(
        ConvertUTF8ToEncoding(utf8.c_str(), text.data(), static_cast<std::int32_t>(text.size()))));
    std::erase_if(text, IsControl);
    return text;
}

// A byte in a PostScript string. What PostScript or a format string would take for something else
// is written as its octal code, and so is what is not ASCII: some converters on the way expect
// text.
std::string Escaped(char byte) {
    constexpr std::string_view kSpecial = "()\\%";
    if (IsASCII(byte) && kSpecial.find(byte) == std::string_view::npos) return {byte};
    const auto code = static_cast<unsigned char>(byte);
    const auto digit = [code](int shift) { return static_cast<char>('0' + ((code >> shift) & 7)); };
    return {'\\', digit(6), digit(3), digit(0)};
}

// A font of its own whose letters are those of ISO Latin-1: the printer's show ASCII only. It is
// made when it is first needed, and again on each page that forgets what it defined.
std::string Latin1Font(const std::string &name) {
    const std::string latin1Name = name + "-Latin1";
    return latin1Name + " FontDirectory 1 index known{pop}{/" + name +
           " findfont dup length dict copy dup/FID undef"
           " dup/Encoding ISOLatin1Encoding put definefont pop}ifelse/" +
           latin1Name;
}

}  // namespace

WatermarkText MakeWatermarkText(const Font &font, const std::string &utf8, std::size_t size) {
    std::string latin1 = Latin1Of(utf8);
    const auto letters = std::count_if(utf8.begin(), utf8.end(), StartsLetter);
    const std::string name(font.name);

    WatermarkText text{};
    text.lacksLetters = latin1.size() != static_cast<std::size_t>(letters);
    text.font = name;
    if (!std::all_of(latin1.begin(), latin1.end(), IsASCII)) {
        text.font = Latin1Font(name);
        std::replace(latin1.begin(), latin1.end(), kHyphen, kHyphenOfLatin1Fonts);
    }
    text.operand += '(';
    std::size_t length = 0;
    for (; length < latin1.size(); length++) {
        const std::string byte = Escaped(latin1[length]);
        if (text.operand.size() + byte.size() + 1 > size) break;
        text.operand += byte;
    }
    text.operand += ')';
    text.isCut = length != latin1.size();
    text.box = MeasureText(font, std::string_view(latin1).substr(0, length));
    return text;
}
