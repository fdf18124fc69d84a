// SPDX-License-Identifier: Apache-2.0
//
// Runs the real filter, as CUPS does, and keeps what it puts out.
#pragma once

#include <string>
#include <utility>
#include <vector>

struct FilterJob {
    std::string id = "17";
    std::string user = "alice";
    std::string title = "Report";
    std::string copies = "1";
    std::string options;
    std::vector<std::string> more;                                 // argv[6] and on
    std::string input;                                             // standard input
    std::string ppd;                                               // text of the PPD; none if empty
    std::vector<std::pair<std::string, std::string>> environment;  // set on top of the test's own
};

struct FilterResult {
    std::string output;
    std::string errors;
    int status;  // exit status, or 128 and the signal
};

// Runs the job to its end. What kvjobinfo finds wrong with a job that came out must be explained by
// what went in (ShownJob.h).
FilterResult RunFilter(const FilterJob &job);

// The lines of a job's header: what stands in front of the document, "\n" and "\r\n" kept. Empty if
// the job has no line that switches to PostScript.
std::vector<std::string> HeaderLines(const std::string &output);
