// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Terminal.h"

#include <langinfo.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "Tools/JobInfo/Text.h"

namespace {

constexpr std::size_t kNarrowest = 20;     // cells that folding needs
constexpr std::size_t kIndent = 2;         // of rows
constexpr std::size_t kGap = 2;            // between columns
constexpr std::size_t kWidestColumn = 44;  // where lines have no limit

// The codes of Style.
constexpr const char *kCodes[] = {"", "\x1b[1m", "\x1b[2m", "\x1b[31m", "\x1b[32m"};
constexpr char kReset[] = "\x1b[0m";

std::size_t Width(bool isTerminal) {
    const char *columns = std::getenv("COLUMNS");
    const long number = columns ? std::strtol(columns, nullptr, 10) : 0;
    std::size_t width = number > 0 ? static_cast<std::size_t>(number) : 0;
    winsize size{};
    const bool asks = width == 0 && isTerminal;
    if (asks && ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0) {  // GCOVR_EXCL_BR_LINE: fault
        width = size.ws_col;
    }
    return width == 0 ? 0 : std::max(width, kNarrowest);
}

bool IsSet(const char *variable) {
    const char *value = std::getenv(variable);
    return value && *value != '\0';
}

// Takes from `text` as much as fits `width` cells, up to a blank if there is one.
std::string TakeFolded(std::string_view &text, std::size_t width) {
    std::string_view rest = text;
    std::size_t cells = 0;
    std::size_t lastBlank = 0;
    while (!rest.empty()) {
        const std::size_t place = text.size() - rest.size();
        if (rest[0] == ' ') lastBlank = place;
        const std::string_view before = rest;
        TakeCharacter(rest);
        cells += DisplayWidth(before.substr(0, before.size() - rest.size()));
        if (cells <= width) continue;
        const std::size_t length = lastBlank > 0 ? lastBlank : std::max<std::size_t>(place, 1);
        std::string line(text.substr(0, length));
        text.remove_prefix(length);
        text.remove_prefix(std::min(text.find_first_not_of(' '), text.size()));
        return line;
    }
    std::string line(text);
    text = {};
    return line;
}

}  // namespace

Terminal StandardOutput() {
    const bool isTerminal = isatty(STDOUT_FILENO) != 0;
    const char *kind = std::getenv("TERM");
    const bool knowsColour = kind && *kind != '\0' && std::strcmp(kind, "dumb") != 0;
    return {.width = Width(isTerminal),
            .hasColour = isTerminal && knowsColour && !IsSet("NO_COLOR"),
            .isUTF8 = std::strcmp(nl_langinfo(CODESET), "UTF-8") == 0};
}

std::string Printout::Show(std::string_view bytes) const {
    return terminal_.isUTF8 ? Visible(bytes) : VisibleASCII(bytes);
}

void Printout::Put(const std::string &text, Style style) {
    const bool isPlain = !terminal_.hasColour || style == Style::kPlain || text.empty();
    if (!isPlain) text_ += kCodes[static_cast<int>(style)];
    text_ += text;
    if (!isPlain) text_ += kReset;
}

// Puts `text` from where the line stands, which is `indent` cells from the left, and ends the line.
void Printout::PutFolded(const std::string &text, std::size_t indent, Style style) {
    std::string_view rest = text;
    const std::size_t width = terminal_.width == 0
                                  ? text.size()
                                  : terminal_.width - std::min(indent, terminal_.width - 1);
    for (bool isFirst = true; isFirst || !rest.empty(); isFirst = false) {
        if (!isFirst) text_.append(indent, ' ');
        Put(TakeFolded(rest, width), style);
        text_ += '\n';
    }
}

void Printout::Heading(std::string_view title, std::string_view remark) {
    const std::string shown = Show(title);
    if (remark.empty()) return PutFolded(shown, 0, Style::kHeading);
    const std::string rest = ": " + Show(remark);
    if (terminal_.width > 0 && DisplayWidth(shown + rest) > terminal_.width) {
        return PutFolded(shown + rest, 0, Style::kHeading);
    }
    Put(shown, Style::kHeading);
    text_ += rest + "\n";
}

void Printout::Paragraph(std::string_view text, std::size_t indent, Style style) {
    text_.append(indent, ' ');
    PutFolded(Show(text), indent, style);
}

// The width of the left column: of the widest text that leaves the right one half the line.
std::size_t Printout::LeftWidth(const std::vector<Row> &rows) const {
    const std::size_t limit =
        terminal_.width == 0 ? kWidestColumn : (terminal_.width - kIndent) / 2;
    std::size_t widest = 0;
    for (const Row &row : rows) {
        const std::size_t width = row.style == Style::kHeading ? 0 : DisplayWidth(Show(row.left));
        if (width <= limit) widest = std::max(widest, width);
    }
    return widest > 0 ? widest : limit / 2;
}

void Printout::Rows(const std::vector<Row> &rows) {
    const std::size_t leftWidth = LeftWidth(rows);
    const std::size_t column = kIndent + leftWidth + kGap;
    for (const Row &row : rows) {
        if (row.style == Style::kHeading) {
            Heading(row.left, row.right);
            continue;
        }
        const std::string left = Show(row.left);
        const std::string right = Show(row.right);
        const std::size_t width = DisplayWidth(left);
        text_.append(kIndent, ' ');
        if (width > leftWidth || right.empty()) {
            PutFolded(left, kIndent, row.style);
            if (right.empty()) continue;
            text_.append(column, ' ');
        } else {
            Put(left, row.style);
            text_.append(leftWidth - width + kGap, ' ');
        }
        PutFolded(right, column, Style::kPlain);
    }
}
