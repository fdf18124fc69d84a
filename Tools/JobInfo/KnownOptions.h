// SPDX-License-Identifier: Apache-2.0
//
// Every option that the filter knows, from the rows that the filter itself reads.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Where an option is known.
enum class OptionKind { kShortOption, kQueueOption, kTicketKey };

struct KnownOption {
    OptionKind kind;
    std::string group;    // what stands around it: "Accounting"
    std::string name;     // as it is typed
    std::string values;   // what may be given, in words
    std::string meaning;  // may be empty
    std::string example;  // may be empty
    std::string choice;   // that the queue's PPD marks by default, if it has the option
    bool isSecret;        // its value is a password
};

// The short options if plain CUPS stands in front of the filter, or nobody knows; the options of
// the PPD of JobPPD(), if there is one; and the ticket's keys. A name that is in two of these is
// there twice.
std::vector<KnownOption> KnownOptions();

// The option of that name, the first of its kinds, or null. Names are compared without case; a
// numbered key is known by what it begins with.
const KnownOption *FindKnownOption(const std::vector<KnownOption> &options, std::string_view name);

// The name most like one that is not known, empty if none is like it.
std::string NearestOption(const std::vector<KnownOption> &options, std::string_view name);

// Whether the value of an option of that name must not be shown, known or not.
bool IsSecretOption(const std::vector<KnownOption> &options, std::string_view name);
