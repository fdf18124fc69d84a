// SPDX-License-Identifier: Apache-2.0
//
// Runs the real filter, as CUPS does, and keeps what it puts out.
#pragma once

#include <sys/types.h>

#include <string>
#include <utility>
#include <vector>

#include "support/TempFolder.h"

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

// Runs the job to its end.
FilterResult RunFilter(const FilterJob &job);

// A filter at work, for tests that act while it is: they wait for what it puts out, not for time.
class RunningFilter {
  public:
    // Starts the job; `job.input` waits until it is sent.
    explicit RunningFilter(const FilterJob &job);
    ~RunningFilter();
    RunningFilter(const RunningFilter &) = delete;
    RunningFilter &operator=(const RunningFilter &) = delete;

    pid_t Process() const { return process_; }

    // Sends more input with the next call below.
    void Send(const std::string &text) { input_ += text; }
    void SendAll() { inputEnds_ = true; }

    // Go on until the output, or standard error, holds `text`. Return false if it ends without.
    bool AwaitOutput(const std::string &text) { return Exchange(result_.output, text); }
    bool AwaitErrors(const std::string &text) { return Exchange(result_.errors, text); }

    // Ends the input and waits for the end of the job.
    FilterResult Finish();

  private:
    bool Exchange(const std::string &text, const std::string &awaited);

    TempFolder folder_;  // of the PPD
    pid_t process_;
    int in_, out_, err_;  // this side of the filter's pipes; -1 when closed
    std::string input_;   // to be sent
    bool inputEnds_ = false;
    FilterResult result_{};
};

// The lines of a job's header: what stands in front of the document, "\n" and "\r\n" kept. Empty if
// the job has no line that switches to PostScript.
std::vector<std::string> HeaderLines(const std::string &output);
