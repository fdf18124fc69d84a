// SPDX-License-Identifier: Apache-2.0
#include "support/RuledJobs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <set>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/UtilityFunctionFilter.h"
#include "support/CaptureOutput.h"
#include "support/RunFilter.h"

namespace {

using Value = std::optional<std::string>;  // of a ticket key; none if it is absent

// Gives `name` a value, or takes it away.
void Set(RuledJob &job, const std::string &name, const Value &value) {
    const std::string key = name == "NAME"       ? "PrintTypeProductTypeTicketKey"
                            : name == "NUMBERUP" ? "number-up"
                                                 : name;
    if (name == "USER") {
        job.user = value.value_or("");
    } else if (name == "TITLE") {
        job.title = value.value_or("");
    } else if (name == "HOST") {
        job.host = value.value_or("");
    } else if (value) {
        job.ticket[key] = *value;
    } else {
        job.ticket.erase(key);
    }
}

// A text of three characters, another one for each key.
std::string SomeText(const RuledJob &job) {
    return "t" + std::to_string(10 + job.ticket.size());
}

void Satisfy(RuledJob &job, const RuleCondition &condition) {
    if (Holds(condition, job)) return;
    if (condition.test == " given") {
        Set(job, condition.name, condition.name == "NAME" ? "3" : SomeText(job));
    } else if (condition.test == " empty") {
        Set(job, condition.name, std::nullopt);
    } else if (condition.test == " has ") {
        Set(job, condition.name, "Punch" + condition.operand + "Round");
    } else {
        Set(job, condition.name, condition.operand);
    }
}

std::vector<Value> ValuesToTry(const RuleCondition &condition) {
    if (condition.test == "=" || condition.test == "!=") {
        return {std::nullopt, "0", "1", "2", "3", "4", "5", "8", "9", "-2", "x"};
    }
    if (condition.name == "NAME") return {std::nullopt};
    return {std::nullopt, "", "/0", "PunchCoilRound", "Punch", "true", "false", "truer", "TRUE"};
}

// Whether all conditions but `broken` hold; `named` tells whether those on its name count too.
bool OthersHold(const CommandRule &rule, const RuleCondition &broken, const RuledJob &job,
                bool named) {
    const std::vector<RuleCondition> conditions = ConditionsOf(rule);
    return std::all_of(conditions.begin(), conditions.end(), [&](const RuleCondition &other) {
        if (other.text == broken.text || (!named && other.name == broken.name)) return true;
        return Holds(other, job);
    });
}

// The scheduler's jobs have a user, and the computer the name that it has.
bool CanComeFromTheScheduler(const RuledJob &job) {
    return !job.user.empty() && job.host == PlainJob().host;
}

std::string Between(const std::string &text, const std::string &begin, const std::string &end) {
    const std::size_t from = text.find(begin);
    const std::size_t to = text.find(end);
    if (from == std::string::npos || to == std::string::npos) return "no header in " + text;
    return text.substr(from + begin.size(), to - from - begin.size());
}

}  // namespace

std::string OptionString(const RuledJob &job) {
    std::string options;
    for (const auto &[key, value] : job.ticket) {
        const bool plain = key == "number-up" || key.starts_with("KV");
        options += (plain ? "" : "com.korvell.tav.printsettings.") + key + "='";
        for (const char character : value) {
            if (character == '\'' || character == '\\') options += '\\';
            options += character;
        }
        options += "' ";
    }
    return options;
}

RuledJob PlainJob() {
    static const RuledJob plain = [] {
        RuledJob job;
        char host[sizeof HostNameStr] = "", address[sizeof IPAddressStr] = "";
        GetClientIPAddress(host, address);
        job.host = host;
        job.address = address;
        return job;
    }();
    return plain;
}

RuledJob JobFor(const CommandRule &rule) {
    RuledJob job = PlainJob();
    for (const RuleCondition &condition : ConditionsOf(rule)) Satisfy(job, condition);
    for (const std::string &name : ValuesOf(rule)) {
        if (TextOf(name, job).empty()) Set(job, name, SomeText(job));
    }
    return job;
}

std::vector<BrokenJob> JobsThatBreak(const CommandRule &rule) {
    std::vector<BrokenJob> jobs;
    for (const RuleCondition &condition : ConditionsOf(rule)) {
        std::vector<BrokenJob> alone, withItsName;
        for (const Value &value : ValuesToTry(condition)) {
            RuledJob job = JobFor(rule);
            Set(job, condition.name, value);
            if (Holds(condition, job)) continue;
            if (OthersHold(rule, condition, job, true)) alone.push_back({condition.text, job});
            if (OthersHold(rule, condition, job, false)) {
                withItsName.push_back({condition.text, job});
            }
        }
        const std::vector<BrokenJob> &broken = alone.empty() ? withItsName : alone;
        EXPECT_FALSE(broken.empty()) << condition.text;
        jobs.insert(jobs.end(), broken.begin(), broken.end());
    }
    return jobs;
}

std::string CommandsOfFilter(const RuledJob &job) {
    FilterJob filterJob;
    filterJob.user = job.user;
    filterJob.title = job.title;
    filterJob.options = OptionString(job);
    // After the modules' commands comes what a job without a colour mode gets.
    return Between(RunFilter(filterJob).output, "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n",
                   "@PJL SET RENDERMODE=GRAYSCALE\n@PJL ENTER LANGUAGE=POSTSCRIPT\n");
}

std::string CommandsInProcess(const RuledJob &job) {
    CopyBounded(StdUserName, job.user.c_str());
    CopyBounded(StdJBAUserName, job.user.c_str());
    CopyBounded(StdDocumentName, TextOf("TITLE", job).c_str());
    CopyBounded(PTStdDocumentName, TextOf("NAME", job).c_str());
    CopyBounded(HostNameStr, job.host.c_str());
    CopyBounded(IPAddressStr, job.address.c_str());
    std::string words[] = {"kvfilter", "17", job.user, job.title, "1", OptionString(job)};
    char *argv[7] = {};
    std::transform(std::begin(words), std::end(words), argv,
                   [](std::string &word) { return word.data(); });
    InializeDescriptionTable();
    GetTicketFromPDE(argv);
    return CaptureOutput([&] { OutputKPJLCommandFromFilter(argv); });
}

void CheckThroughFilter(const CommandRule &rule) {
    const RuledJob whole = JobFor(rule);
    if (CanComeFromTheScheduler(whole)) {
        const std::string commands = CommandsOfFilter(whole);
        EXPECT_EQ(commands, ExpectedCommands(whole)) << OptionString(whole);
        EXPECT_NE(commands.find(LineOf(rule, whole)), std::string::npos);
    }
    std::set<std::string> done;
    for (const auto &[condition, job] : JobsThatBreak(rule)) {
        if (!CanComeFromTheScheduler(job) || !done.insert(condition).second) continue;
        EXPECT_FALSE(Applies(rule, job));
        EXPECT_EQ(CommandsOfFilter(job), ExpectedCommands(job))
            << "without " << condition << ": " << OptionString(job);
    }
}

void CheckInProcess(const CommandRule &rule) {
    const RuledJob whole = JobFor(rule);
    const std::string commands = CommandsInProcess(whole);
    EXPECT_EQ(commands, ExpectedCommands(whole)) << OptionString(whole);
    EXPECT_NE(commands.find(LineOf(rule, whole)), std::string::npos);
    for (const auto &[condition, job] : JobsThatBreak(rule)) {
        EXPECT_FALSE(Applies(rule, job));
        EXPECT_EQ(CommandsInProcess(job), ExpectedCommands(job))
            << "without " << condition << ": " << OptionString(job);
    }
}

void CheckFieldSizes(const CommandRule &rule) {
    for (const std::string &key : ValuesOf(rule)) {
        const auto field = FieldLengths().find(key);
        if (field == FieldLengths().end()) continue;
        std::string text;
        while (text.size() <= field->second) text += static_cast<char>('0' + text.size() % 75);
        for (const std::size_t length : {field->second - 1, field->second, field->second + 1}) {
            RuledJob job = JobFor(rule);
            job.ticket[key] = text.substr(0, length);
            const std::string kept = text.substr(0, std::min(length, field->second));
            const std::string commands = CommandsOfFilter(job);
            EXPECT_EQ(commands, ExpectedCommands(job)) << length;
            EXPECT_NE(commands.find(kept.substr(0, 200)), std::string::npos) << length;
        }
    }
}
