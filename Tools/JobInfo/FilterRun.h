// SPDX-License-Identifier: Apache-2.0
//
// Runs the filter itself, to see what it makes of a job, and prints nothing. The document is that
// of SampleDocument.
#pragma once

#include <string>
#include <vector>

// What the scheduler would hand to the filter. The PPD is the one of JobPPD().
struct PlannedJob {
    std::string user, title, copies, options;
};

struct FilterRun {
    std::string document;  // as CUPS would hand it to the filter
    std::string output;    // the job
    std::string messages;  // standard error
    int status = 0;        // exit status
    std::string error;     // why the filter did not run to its end: then nothing else holds
};

// Runs the job in this process, so that the modules' records hold its ticket afterwards; once.
FilterRun RunHere(const PlannedJob &job);

// A job as it would be without one of its settings.
struct Variation {
    PlannedJob job;
    std::string withoutDefault;  // an option whose default the queue then does not have
};

// Runs each in a process of its own, from the state that this process is in.
std::vector<FilterRun> RunEach(const std::vector<Variation> &variations);
