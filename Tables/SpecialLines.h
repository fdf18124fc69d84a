// SPDX-License-Identifier: Apache-2.0
//
// The lines of the print system's PostScript that the filter knows, and the points at which the
// modules may write PostScript of their own. A row says what a pass does at its line
// (PostScriptLines.h); nothing about a line stands elsewhere.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

// Where a module may write PostScript: the position code that it is given.
enum InjectionPoint : int {
    kPointNone = 0,
    kPointAfterBeginProlog = 13,
    kPointBeforeEndProlog = 14,  // the first one only
    kPointBeforeEndSetup = 16,
    kPointBeforeSetPageDevicePop = 21,
    kPointAfterBp = 23,
    kPointAfterEndPageSetup = 24,
    kPointBeforeEp = 27,
    kPointBeforeEndp = 28,
    kPointBeforePageRestore = 29,  // answered by the watermark, raised by no line
};

// A line that is recognised when it is nothing but `text`.
struct SpecialLine {
    std::string_view text;
    InjectionPoint point;
    enum : char { kBefore, kAfter } when;  // the modules write before or after the line
    bool endsPage;                         // raises the page counter first
    bool logsPage;                         // writes the page log last
    bool stopsCancelledJob;                // a cancelled job ends in front of the line
};

// clang-format off
inline constexpr SpecialLine specialLines[] = {
    // text                                   point                         modules write         ends   logs   stops
    {"ep",                                    kPointBeforeEp,               SpecialLine::kBefore, true,  true,  true},
    {"endp",                                  kPointBeforeEndp,             SpecialLine::kBefore, true,  false, true},
    {"showpage",                              kPointNone,                   SpecialLine::kBefore, false, false, true},
    {"bp",                                    kPointAfterBp,                SpecialLine::kAfter,  false, false, false},
    {"%%EndSetup",                            kPointBeforeEndSetup,         SpecialLine::kBefore, false, false, false},
    {"userdict/setpagedevice{pop}bind put",   kPointBeforeSetPageDevicePop, SpecialLine::kBefore, false, false, false},
    {"%%EndPageSetup",                        kPointAfterEndPageSetup,      SpecialLine::kAfter,  false, false, false},
    {"%%BeginProlog",                         kPointAfterBeginProlog,       SpecialLine::kAfter,  false, false, false},
    {"%%EndProlog",                           kPointBeforeEndProlog,        SpecialLine::kBefore, false, false, false},
};
// clang-format on

// Bytes of the longest special line.
inline constexpr std::size_t kLongestSpecialLine =
    std::ranges::max(specialLines, {}, [](const SpecialLine &line) {
        return line.text.size();
    }).text.size();

// The special line that `line`, without its line end, is; or null.
constexpr const SpecialLine *FindSpecialLine(std::string_view line) {
    const SpecialLine *found = std::ranges::find(specialLines, line, &SpecialLine::text);
    return found == std::end(specialLines) ? nullptr : found;
}
