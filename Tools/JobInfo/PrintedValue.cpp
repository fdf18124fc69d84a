// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/PrintedValue.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <string_view>

#include "Tools/JobInfo/Text.h"

namespace {

// Bytes of a ticket's value that the getters look at, and room for all that comes of them.
constexpr std::size_t kWorkingSize = 1024;
constexpr std::int32_t kRoom = 4096;

std::string Integer(const ticketData &row, const TicketOptions &options) {
    std::int32_t number = 0;
    row.getter(row.key, options.count, options.list, &number, sizeof number);
    return std::to_string(number);
}

std::string Float(const ticketData &row, const TicketOptions &options) {
    float number = 0;
    row.getter(row.key, options.count, options.list, &number, sizeof number);
    char text[64];
    std::snprintf(text, sizeof text, "%g", static_cast<double>(number));
    return text;
}

std::string Text(const ticketData &row, const TicketOptions &options, std::int32_t size) {
    char text[kRoom];
    row.getter(row.key, options.count, options.list, text, size);
    return text;
}

bool IsNumber(std::string_view text) {
    const std::size_t digits = text.find_first_not_of("+-0123456789.");
    return !text.empty() && digits == text.npos;
}

bool IsDecoded(TicketGetter getter) {
    return getter != GetTicketString;
}

// The characters of `text`; each byte counts that is none of UTF-8.
std::size_t Characters(std::string_view text) {
    std::size_t count = 0;
    for (; !text.empty(); count++) TakeCharacter(text);
    return count;
}

// What was lost between the value as it was given and `whole`, which is not cut.
std::string LossOf(const ticketData &row, const char *given, const std::string &whole) {
    if (std::strlen(given) >= kWorkingSize) return "cut to 1023 bytes before it is read";
    char decoded[kWorkingSize] = "";
    std::strncpy(decoded, given, sizeof decoded - 1);
    if (IsDecoded(row.getter)) numstrtochar(decoded, sizeof decoded);
    if (*decoded == '\0') return "";
    if (whole.empty()) return "dropped: nothing of it is in the printer's letters";
    const std::size_t letters = Characters(decoded);
    if (letters <= whole.size()) return "";
    return "dropped: " + Count(letters - whole.size(), "letter") + " that the printer lacks";
}

}  // namespace

PrintedValue PrintedValueOf(const ticketData &row, const TicketOptions &options) {
    const char *given = cupsGetOption(row.key, options.count, options.list);
    if (!given) return {};
    if (row.getter == CheckTicketKey) return {"given", ""};
    if (row.getter == GetTicketInteger || row.getter == GetTicketFloat) {
        const bool isInteger = row.getter == GetTicketInteger;
        return {isInteger ? Integer(row, options) : Float(row, options),
                IsNumber(given) ? "" : "read as a number as far as it is one"};
    }
    const std::string text = Text(row, options, std::min(row.size, kRoom));
    if (row.getter == GetNumberUpTicketString || row.getter == GetNumberUpTicketStringForComment) {
        return {text, ""};
    }
    const std::string whole = Text(row, options, kRoom);
    std::string note = LossOf(row, given, whole);
    if (text != whole) {
        note += (note.empty() ? "" : "; ") + ("cut to " + Count(text.size(), "byte"));
    }
    return {text, note};
}
