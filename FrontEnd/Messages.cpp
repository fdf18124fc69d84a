// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/Messages.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "FrontEnd/FrontEnd.h"

namespace {

// CUPS splits a line of more than CUPS_MAX_MESSAGE (2047) bytes and takes its rest for another
// message; shorter ones are also what a person reads.
constexpr std::size_t kMessageSize = 1024;

bool errorReported = false;

bool IsControl(char byte) {
    return static_cast<unsigned char>(byte) < 0x20 || byte == 0x7F;
}

// One write, so that the messages of the chain's filters do not mix within a line.
void Report(std::string_view prefix, std::string_view text) {
    if (!FrontEndIsCUPS()) return;
    char line[kMessageSize];
    char *end = std::copy(prefix.begin(), prefix.end(), line);
    const std::size_t room = sizeof line - prefix.size() - 1;
    end = std::replace_copy_if(
        text.begin(), text.begin() + static_cast<std::ptrdiff_t>(std::min(room, text.size())), end,
        IsControl, ' ');
    *end++ = '\n';
    std::fwrite(line, 1, static_cast<std::size_t>(end - line), stderr);
}

// What printf takes for "%.*s".
int Width(std::string_view text) {
    return static_cast<int>(std::min(text.size(), kMessageSize));
}

// What snprintf has put into `buffer`, if it returned `length`.
std::string_view Printed(const char (&buffer)[kMessageSize], int length) {
    return {buffer, std::min(static_cast<std::size_t>(std::max(length, 0)), sizeof buffer - 1)};
}

// "text: cause", in the caller's buffer.
std::string_view WithCause(std::string_view text, int error, char (&buffer)[kMessageSize]) {
    return Printed(buffer, std::snprintf(buffer, sizeof buffer, "%.*s: %s", Width(text),
                                         text.data(), std::strerror(error)));
}

}  // namespace

void ReportError(std::string_view text) {
    if (FrontEndIsCUPS()) errorReported = true;
    Report("ERROR: ", text);
}

void ReportError(std::string_view text, int error) {
    char buffer[kMessageSize] = "";
    ReportError(WithCause(text, error, buffer));
}

void ReportError(std::string_view name, std::string_view what, int error) {
    char buffer[kMessageSize] = "";
    const int length = std::snprintf(buffer, sizeof buffer, "%.*s %.*s", Width(name), name.data(),
                                     Width(what), what.data());
    ReportError(Printed(buffer, length), error);
}

void ReportWarning(std::string_view text) {
    Report("WARNING: ", text);
}

void ReportWarning(std::string_view text, int error) {
    char buffer[kMessageSize] = "";
    ReportWarning(WithCause(text, error, buffer));
}

void ReportInfo(std::string_view text) {
    Report("INFO: ", text);
}

void ReportDebug(std::string_view text) {
    Report("DEBUG: ", text);
}

void ReportAttribute(std::string_view text) {
    Report("ATTR: ", text);
}

bool ErrorWasReported() {
    return errorReported;
}
