// SPDX-License-Identifier: Apache-2.0
//
// The modules' commands restated as text: when each is written and what it says, in an order and a
// form that can be held against the accounting rules by eye. From the rules follows the whole block
// of commands that a job must get.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <map>
#include <string>
#include <vector>

// One command. The line holds "{name}" for a value. The conditions are joined by "; ": "name=2",
// "name!=8", "name given", "name empty", "name is true", "name has Coil", "name lacks Coil".
//
// A name in capitals is one of the texts that do not stand in the ticket: USER, LOGIN (the user's
// name in 32 bytes), TITLE, NAME (the title as far as the printer takes it for a name), HOST and
// ADDRESS of the sending computer, NUMBERUP. All others are ticket keys, those of the print dialog
// without the "com.korvell.tav.printsettings." that they begin with.
struct CommandRule {
    std::string row;
    std::string line;
    std::string lineEnd;
    std::string conditions;
};

const std::vector<CommandRule> &PrintTypeRules();
const std::vector<CommandRule> &JBAAdminRules();
const std::vector<CommandRule> &JBACommonRules();
const std::vector<CommandRule> &FeaturesRules();
const std::vector<CommandRule> &AllRules();  // in the order of the job header

// The bytes of text that a record keeps of each ticket value that a command prints or searches.
const std::map<std::string, std::size_t> &FieldLengths();

// A job as the rules see it. The user's name is one that the printer accepts.
struct RuledJob {
    std::string user = "alice";
    std::string title = "Report";
    std::string host;
    std::string address;
    std::map<std::string, std::string> ticket;
};

struct RuleCondition {
    std::string text;                 // as in the rule
    std::string name, test, operand;  // "PrintTypeTicketKey", "=", "2"
};
std::vector<RuleCondition> ConditionsOf(const CommandRule &rule);
bool Holds(const RuleCondition &condition, const RuledJob &job);

// Whether all conditions of the rule hold for the job.
bool Applies(const CommandRule &rule, const RuledJob &job);

// The text that a name stands for.
std::string TextOf(const std::string &name, const RuledJob &job);

// The names of the values in the rule's line.
std::vector<std::string> ValuesOf(const CommandRule &rule);

// What the rule writes for the job: the line and its line end, cut to 229 characters; or, if a
// value is empty, what stands up to the quotation mark in front of that value.
std::string LineOf(const CommandRule &rule, const RuledJob &job);

// All commands of the job, in order.
std::string ExpectedCommands(const RuledJob &job);

// For test names and messages.
void PrintTo(const CommandRule &rule, std::ostream *stream);
