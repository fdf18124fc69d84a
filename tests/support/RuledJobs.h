// SPDX-License-Identifier: Apache-2.0
//
// Jobs made from the rules of the modules' commands, and what the filter makes of them.
#pragma once

#include <string>
#include <vector>

#include "support/CommandRules.h"

// The job's ticket as an option string.
std::string OptionString(const RuledJob &job);

// A job of alice's on this computer, without any ticket key.
RuledJob PlainJob();

// The same with all that the rule asks for, and a value for each name in its line.
RuledJob JobFor(const CommandRule &rule);

// A job for which one condition fails and all others hold. Only another condition on the same name
// may fail with it, where one implies the other ("a!=0; a=2").
struct BrokenJob {
    std::string condition;
    RuledJob job;
};

// Jobs that break each condition of the rule in every way that the ticket's values allow.
std::vector<BrokenJob> JobsThatBreak(const CommandRule &rule);

// The commands of the modules as the filter writes them, a process of its own.
std::string CommandsOfFilter(const RuledJob &job);

// The same from the modules in this process, which take a user or a host without a name too.
std::string CommandsInProcess(const RuledJob &job);

// Checks the whole block of commands of JobFor, which must hold the rule's line, and of
// JobsThatBreak, for which the rule must not apply: through the filter once for each condition that
// a job from the scheduler can break, and in this process with every job.
void CheckThroughFilter(const CommandRule &rule);
void CheckInProcess(const CommandRule &rule);

// Checks through the filter that each ticket value in the rule's line may fill its field, and is
// cut to it.
void CheckFieldSizes(const CommandRule &rule);
