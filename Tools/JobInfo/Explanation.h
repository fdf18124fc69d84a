// SPDX-License-Identifier: Apache-2.0
//
// Why a job is told what it is told: each of its settings, where it comes from and what it causes.
// What a setting causes is what changes when the filter runs without it.
#pragma once

#include <string>
#include <vector>

#include "Tools/JobInfo/Conditions.h"
#include "Tools/JobInfo/Effects.h"
#include "Tools/JobInfo/FilterRun.h"

// A ticket key that an option sets.
struct ExplainedKey {
    std::string key;
    std::string value;    // as the printer gets it, in bytes; masked if it is secret
    std::string words;    // what the value means, empty where it says that itself
    std::string note;     // what was cut or dropped, may be empty
    std::string meaning;  // of the key
};

struct ExplainedOption {
    std::string name;
    std::string given;    // its value, masked if it is secret; empty if it has none
    std::string source;   // "job", "queue default"
    std::string meaning;  // empty if nobody knows the option
    bool isKnown = false;
    std::string nearest;  // of an unknown option: the known one that it is like
    std::vector<ExplainedKey> keys;
    std::vector<Effect> writes;        // what the job is told with it,
    std::vector<Effect> insteadOf;     // and what it would be told without it
    bool changesDocument = false;      // CUPS puts code of the PPD's into the document
    std::vector<std::string> notices;  // what was dropped, changed, refused
};

struct Explanation {
    bool isPlainCUPS = false;    // plain CUPS stands in front of the filter
    bool isRefused = false;      // nothing would be printed
    int status = 0;              // the filter's exit status
    std::vector<Effect> header;  // all that the job is told
    std::vector<ExplainedOption> options;
    std::vector<Effect> always;  // what no setting causes
    std::vector<NearMiss> nearMisses;
    std::vector<std::string> messages;  // of the filter: its errors and warnings
    std::string error;                  // why the job could not be tried: then nothing else holds
};

// Explains the job for the PPD of JobPPD(), or without one. Runs the filter in this process: once.
Explanation Explain(const PlannedJob &job);

// For people, and as one JSON object.
std::string ExplanationAsText(const Explanation &explanation, const struct Terminal &terminal);
std::string ExplanationAsJSON(const Explanation &explanation);
