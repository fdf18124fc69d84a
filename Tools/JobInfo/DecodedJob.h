// SPDX-License-Identifier: Apache-2.0
//
// A printer-ready job taken apart: what the decoder found, as plain data. Sizes and offsets are
// bytes from the start of the input. However long the job is, this stays small.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

// What is wrong with a job. The names in JSON stand in ProblemName.
enum ProblemKind : char {
    kProblemNoLineEnd,
    kProblemCutLine,
    kProblemGivenTwice,
    kProblemNoPJL,
    kProblemSpecialPages,
    kProblemNoSwitch,
    kProblemNoDocument,
    kProblemNoPostScript,
    kProblemPJLInDocument,
    kProblemTruncated,
    kProblemBytesAfter,
    kProblemSecondJob,
    kProblemTooMuch,
};

// "line-without-end"; never changes, for those who read JSON.
const char *ProblemName(ProblemKind kind);

struct Problem {
    ProblemKind kind;
    std::uint64_t offset;
    std::string text;  // a sentence without its full stop; a password is masked
};

// A line of the header.
struct JobLine {
    enum End : char { kNone, kLineFeed, kReturnAndFeed };
    std::uint64_t offset;
    std::string text;  // without its end
    End end;
    bool isPartial;  // its end was cut off or never written
};

// One element of the special pages.
struct SpecialPage {
    std::string what;   // "front cover", "inserted sheets", "page exception"
    std::string words;  // "printed on both sides, Thick"
};

struct SpecialPages {
    std::uint64_t size = 0;  // 0: the job has none
    std::vector<SpecialPage> pages;
};

// PostScript of the filter's own at one kind of place.
struct OwnCode {
    const char *meaning;
    std::uint64_t count;
    std::uint64_t offset;  // of the first
};

struct JobDocument {
    bool present = false;
    std::uint64_t offset = 0;
    std::uint64_t size = 0;
    std::string firstLine;
    std::string title;
    std::string maker;
    std::string statedPages;        // the document's own count, "4"; empty if it has none
    std::uint64_t pages = 0;        // "%%Page:" comments
    std::uint64_t pageEnds = 0;     // lines that end a page: ep, endp, showpage
    bool endsWithControlD = false;  // closed as PostScript jobs are
    bool isCopy = false;  // stands in front of the switch, as in copies of jobs with PJL features
    std::vector<OwnCode> ownCode;
};

struct DecodedJob {
    // What the input is; anything but kJob is no job of this filter's, named by `foreign`.
    enum Kind : char { kEmpty, kForeign, kJob } kind = kEmpty;
    std::string foreign;  // "a PDF document"
    std::uint64_t size = 0;
    SpecialPages specialPages;
    std::vector<JobLine> header;
    std::uint64_t linesLeftOut = 0;  // of a header that is too long to be kept
    bool hasSwitch = false;          // the line that switches the printer to PostScript
    JobDocument document;
    bool hasTrailer = false;
    std::uint64_t trailerOffset = 0;
    std::vector<Problem> problems;
    std::uint64_t problemsLeftOut = 0;
};
