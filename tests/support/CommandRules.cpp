// SPDX-License-Identifier: Apache-2.0
#include "support/CommandRules.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <ostream>

namespace {

constexpr std::size_t kLineLength = 229;

bool IsTicketKey(const std::string &name) {
    return !std::all_of(name.begin(), name.end(), [](unsigned char c) { return std::isupper(c); });
}

int IntegerOf(const std::string &key, const RuledJob &job) {
    const auto found = job.ticket.find(key);
    return found == job.ticket.end() ? -1 : std::atoi(found->second.c_str());
}

// "/72/105" is "Hi"; the byte 0 ends the text.
std::string Decode(const std::string &value) {
    if (!value.starts_with("/")) return value;
    std::string text;
    for (std::size_t at = 0; at != std::string::npos; at = value.find('/', at + 1)) {
        text += static_cast<char>(std::atoi(value.c_str() + at + 1));
    }
    return text.substr(0, text.find('\0'));
}

std::string TicketText(const std::string &key, const RuledJob &job) {
    const auto found = job.ticket.find(key);
    if (found == job.ticket.end()) return "";
    const auto length = FieldLengths().find(key);
    return Decode(found->second)
        .substr(0, length == FieldLengths().end() ? std::string::npos : length->second);
}

// The bytes that the printer's product type leaves of a title; all of them without a type.
std::size_t TitleLength(const RuledJob &job) {
    switch (IntegerOf("PrintTypeProductTypeTicketKey", job)) {
        case -1:
            return std::string::npos;
        case 2:
            return 12;
        case 3:
            return 64;
        default:
            return 24;
    }
}

}  // namespace

const std::vector<CommandRule> &AllRules() {
    static const std::vector<CommandRule> rules = [] {
        std::vector<CommandRule> all;
        for (const auto *module :
             {&PrintTypeRules(), &JBAAdminRules(), &JBACommonRules(), &FeaturesRules()}) {
            all.insert(all.end(), module->begin(), module->end());
        }
        return all;
    }();
    return rules;
}

std::vector<RuleCondition> ConditionsOf(const CommandRule &rule) {
    std::vector<RuleCondition> conditions;
    std::size_t start = 0;
    while (start < rule.conditions.size()) {
        const std::size_t end = std::min(rule.conditions.find("; ", start), rule.conditions.size());
        const std::string text = rule.conditions.substr(start, end - start);
        for (const std::string test : {"!=", "=", " is ", " has ", " lacks ", " given", " empty"}) {
            const std::size_t at = text.find(test);
            if (at == std::string::npos) continue;
            conditions.push_back({text, text.substr(0, at), test, text.substr(at + test.size())});
            break;
        }
        start = end + 2;
    }
    return conditions;
}

bool Holds(const RuleCondition &condition, const RuledJob &job) {
    const std::string &test = condition.test;
    if (test == "=") return IntegerOf(condition.name, job) == std::stoi(condition.operand);
    if (test == "!=") return IntegerOf(condition.name, job) != std::stoi(condition.operand);
    const std::string text = TextOf(condition.name, job);
    if (test == " given") return !text.empty();
    if (test == " empty") return text.empty();
    if (test == " is ") return text == condition.operand;
    return (text.find(condition.operand) != std::string::npos) == (test == " has ");
}

bool Applies(const CommandRule &rule, const RuledJob &job) {
    const std::vector<RuleCondition> conditions = ConditionsOf(rule);
    return std::all_of(conditions.begin(), conditions.end(),
                       [&](const RuleCondition &condition) { return Holds(condition, job); });
}

std::string TextOf(const std::string &name, const RuledJob &job) {
    if (IsTicketKey(name)) return TicketText(name, job);
    if (name == "USER") return job.user;
    if (name == "LOGIN") return job.user.substr(0, 32);
    if (name == "HOST") return job.host;
    if (name == "ADDRESS") return job.address;
    if (name == "TITLE") return job.title.substr(0, TitleLength(job));
    if (name == "NAME") return TitleLength(job) == std::string::npos ? "" : TextOf("TITLE", job);
    const auto numberUp = job.ticket.find("number-up");  // NUMBERUP
    return numberUp == job.ticket.end() ? "1" : ("N" + numberUp->second).substr(0, 9);
}

std::vector<std::string> ValuesOf(const CommandRule &rule) {
    std::vector<std::string> values;
    std::size_t brace = 0;
    while ((brace = rule.line.find('{', brace)) != std::string::npos) {
        values.push_back(rule.line.substr(brace + 1, rule.line.find('}', brace) - brace - 1));
        brace++;
    }
    return values;
}

std::string LineOf(const CommandRule &rule, const RuledJob &job) {
    std::string line = rule.line + rule.lineEnd;
    for (const std::string &value : ValuesOf(rule)) {
        const std::size_t brace = line.find("{" + value + "}");
        const std::string text = TextOf(value, job);
        if (text.empty()) return line.substr(0, line.rfind('"', brace) + 1);
        line.replace(brace, value.size() + 2, text);
    }
    return line.substr(0, kLineLength);
}

std::string ExpectedCommands(const RuledJob &job) {
    std::string commands;
    for (const CommandRule &rule : AllRules()) {
        if (Applies(rule, job)) commands += LineOf(rule, job);
    }
    return commands;
}

void PrintTo(const CommandRule &rule, std::ostream *stream) {
    *stream << rule.row << " if " << rule.conditions;
}
