// SPDX-License-Identifier: Apache-2.0
//
// The option string of a job, argv[5], as CUPS writes it and its parser reads it.
#pragma once

#include <string>
#include <string_view>
#include <vector>

struct JobOption {
    std::string name;
    std::string value;
    // Put there by the scheduler, which turns some IPP attributes into PPD options without looking
    // whether the job has those.
    bool derived;
};

// The options, each name once; what the job names itself comes before what the scheduler derived.
// Throws std::bad_alloc also where CUPS's parser would lose options for want of memory.
std::vector<JobOption> ParseOptionString(const char *text);

// Appends " name=value" so that the parser returns just that value.
void AppendOption(std::string &options, std::string_view name, std::string_view value);

// What CUPS puts before a value of the user's own, and whether a value begins with it.
constexpr std::string_view kCustomChoice = "Custom.";
bool IsCustomChoice(std::string_view value);

// Whether two names are the same option: CUPS does not look at case.
bool SameName(std::string_view a, std::string_view b);

// The next word of `text`, up to a blank, which is left with the rest.
std::string_view NextWord(std::string_view &text);
