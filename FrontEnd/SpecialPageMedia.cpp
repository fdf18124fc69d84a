// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/SpecialPageMedia.h"

#include <cups/ppd.h>
#include <cups/pwg.h>
#include <strings.h>

#include <cctype>
#include <cmath>
#include <cstdint>
#include <vector>

#include "FrontEnd/MarkedChoice.h"
#include "FrontEnd/PageRanges.h"
#include "FrontEnd/Sheet.h"

namespace {

// Bytes of a field of a ticket value, without its NUL.
constexpr std::size_t kFieldLength = 49;

constexpr char kInterposer[] = "Interposer";
constexpr char kOrdinaryType[] = "plain";
constexpr char kOrdinaryColour[] = "white";

// Stores the code point that `text` begins with and removes it; false if it is not valid UTF-8.
bool TakeCodePoint(std::string_view &text, std::uint32_t &code) {
    const auto byte = [&](std::size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const std::uint32_t first = byte(0);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    constexpr std::uint32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    code = length == 1 ? first : first & (0x7FU >> length);
    for (std::size_t i = 1; i < length; i++) {
        if ((byte(i) & 0xC0) != 0x80) return false;
        code = code << 6 | (byte(i) & 0x3F);
    }
    if (first >= 0xF8 || (first >= 0x80 && first < 0xC0) || code < kLeast[length]) return false;
    if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF)) return false;
    text.remove_prefix(length);
    return true;
}

// Stores `text` as the content of an XML element in plain ASCII, which is the same in every
// encoding that it may pass. False if XML cannot hold it or the field is too small for it.
bool ToXML(std::string_view text, std::string &xml) {
    xml.clear();
    while (!text.empty()) {
        std::uint32_t code = 0;
        if (!TakeCodePoint(text, code) || code < 0x20 || code == 0x7F) return false;
        const bool isPlain = code < 0x7F && code != '<' && code != '>' && code != '&';
        xml +=
            isPlain ? std::string(1, static_cast<char>(code)) : "&#" + std::to_string(code) + ";";
    }
    return xml.size() <= kFieldLength;
}

// A name as a keyword of IPP's, the way CUPS makes them from the names in PPDs: "extra-thick" of
// "ExtraThick".
std::string ToKeyword(const std::string &name) {
    std::string keyword;
    bool wasLower = false;
    for (const char byte : name) {
        const bool isUpper = byte >= 'A' && byte <= 'Z';
        if (isUpper && wasLower) keyword += '-';
        keyword += isUpper ? static_cast<char>(byte - 'A' + 'a') : byte == ' ' ? '-' : byte;
        wasLower = !isUpper && std::isalnum(static_cast<unsigned char>(byte));
    }
    return keyword;
}

void SetSize(double width, double height, SpecialPageMedia &media) {
    // Sizes in points are rounded; a standard size is exactly what its standard says.
    constexpr double kHundredthsInAPoint = 2540.0 / 72.0;
    const auto hundredths = [](double points) {
        return static_cast<int>(std::lround(points * kHundredthsInAPoint));
    };
    const pwg_media_t *size = pwgMediaForSize(hundredths(width), hundredths(height));
    media.width = std::to_string(size ? size->width : hundredths(width));
    media.height = std::to_string(size ? size->length : hundredths(height));
}

// Whether `name` is a page size: one of the queue's PPD or a name of IPP's.
bool ReadSize(const std::string &name, const CompletionContext &context, SpecialPageMedia &media) {
    for (int i = 0; context.ppd && i < context.ppd->num_sizes; i++) {
        const ppd_size_t &size = context.ppd->sizes[i];
        if (strcasecmp(size.name, name.c_str()) != 0) continue;
        SetSize(size.width, size.length, media);
        return true;
    }
    const pwg_media_t *size = pwgMediaForPWG(name.c_str());
    if (!size) size = pwgMediaForPPD(name.c_str());
    if (!size) return false;
    media.width = std::to_string(size->width);
    media.height = std::to_string(size->length);
    return true;
}

// The job's own type; where the printer is to choose one, the ordinary one.
std::string JobMediaType(ppd_file_t *ppd) {
    const std::string choice = MarkedChoice(ppd, "MediaType");
    return choice.empty() || choice.starts_with("Auto") ? kOrdinaryType : choice;
}

// The parts after the type: false if there is one that the ticket cannot hold.
bool ReadParts(const std::vector<std::string_view> &parts, const CompletionContext &context,
               SpecialPageMedia &media, std::string &problem) {
    for (std::size_t i = 1; i < parts.size(); i++) {
        const std::string part(parts[i]);
        if (SameName(part, kInterposer)) {
            media.isNamed = true;
        } else if (!part.empty() && !ReadSize(part, context, media) &&
                   !ToXML(ToKeyword(part), media.colour)) {
            problem = part;
            return false;
        }
    }
    return true;
}

}  // namespace

bool ReadSpecialPageMedia(std::string_view text, const CompletionContext &context,
                          SpecialPageMedia &media, std::string &problem) {
    const Sheet sheet = SheetOf(context);
    SetSize(sheet.width, sheet.height, media);
    media.colour = kOrdinaryColour;
    const std::vector<std::string_view> parts = SplitAt(',', text);
    if (!ReadParts(parts, context, media, problem)) return false;
    const std::string type = parts[0].empty() ? JobMediaType(context.ppd) : std::string(parts[0]);
    if (ToXML(media.isNamed ? type : ToKeyword(type), media.type)) return true;
    problem = type;
    return false;
}
