// SPDX-License-Identifier: Apache-2.0
//
// The real filter at work: a test feeds it bit by bit, watches what it says and sends it signals.
#pragma once

#include <sys/resource.h>
#include <sys/types.h>

#include <string>
#include <string_view>
#include <vector>

class FilterProcess {
  public:
    enum Output { kPipe, kDiscardOutput };

    // Starts the filter with `arguments` (argv[1] and on). `ppd` is the path of its PPD, or empty.
    explicit FilterProcess(const std::vector<std::string> &arguments, Output output = kPipe,
                           const std::string &ppd = "");
    ~FilterProcess();
    FilterProcess(const FilterProcess &) = delete;
    FilterProcess &operator=(const FilterProcess &) = delete;

    void Write(std::string_view text);  // all of it, to standard input
    void CloseInput();
    void CloseOutput();                            // the printer goes away
    std::string ReadUntil(std::string_view text);  // standard output, as far as it holds `text`
    std::string ReadToEnd();                       // the rest of standard output
    std::string ReadErrorLine();                   // one line of standard error, with its line end
    std::string ReadErrorsToEnd();                 // the rest of standard error
    void Signal(int number);
    pid_t Id() const { return child_; }

    // The exit status, or 128 and the signal that ended it.
    int Wait(rusage *usage = nullptr);

  private:
    pid_t child_;
    int input_ = -1, output_ = -1, errors_ = -1;
};
