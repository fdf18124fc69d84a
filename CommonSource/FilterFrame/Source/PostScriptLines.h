// SPDX-License-Identifier: Apache-2.0
//
// The lines of the print system's PostScript that the filter knows, and what it does at each: the
// modules may write PostScript of their own there, pages are counted and logged, and a cancelled
// job ends. Both passes over a document go through here.
#pragma once

#include <cstdio>
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
constexpr std::size_t kSpecialLineCount = 9;
extern const SpecialLine specialLines[kSpecialLineCount];

// Bytes of the longest special line.
constexpr std::size_t kLongestSpecialLine = 35;

// The special line that `line`, without its line end, is; or null.
const SpecialLine *FindSpecialLine(std::string_view line);

// What a pass remembers from line to line.
struct DocumentState {
    int pageCounter = 0;
    bool prologEnded = false;
};

// Does what `special` asks for and writes `line`, its line end included, to `stream` through the
// output wrappers. `argv` are the filter's arguments. Returns false if the job was cancelled: the
// line is not written and the pass must end.
bool PutSpecialLine(const SpecialLine &special, std::string_view line, DocumentState &state,
                    char *const argv[], std::FILE *stream);
