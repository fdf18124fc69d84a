// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Explanation.h"
#include "Tools/JobInfo/PJLLine.h"
#include "Tools/JobInfo/Terminal.h"
#include "Tools/JobInfo/Text.h"

namespace {

// Keys of the dialog's that are listed one by one; a watermark alone has twenty.
constexpr std::size_t kMostKeys = 6;

void AddEffects(std::vector<Row> &rows, const char *label, const std::vector<Effect> &effects) {
    for (const Effect &effect : effects) {
        rows.push_back({label, MaskSecret(effect.line) + "  (" + effect.meaning + ")"});
        label = "";
    }
}

std::string RemarkOn(const ExplainedOption &option) {
    std::string remark = option.source;
    if (!option.meaning.empty()) remark += ", " + option.meaning;
    if (option.isKnown || !option.meaning.empty()) return remark;
    if (!option.nearest.empty()) return remark + ", not known; is " + option.nearest + " meant?";
    return remark + ", none of the filter's";
}

std::string ShownValue(const ExplainedKey &key) {
    if (key.value.empty()) return "nothing";
    return Visible(key.value) + (key.words.empty() ? "" : " (" + key.words + ")");
}

void AddKeys(std::vector<Row> &rows, const ExplainedOption &option) {
    const bool isShort = option.keys.size() <= kMostKeys;
    for (const ExplainedKey &key : option.keys) {
        const bool isItself = key.key == option.name;
        const bool saysMore =
            !key.note.empty() || (isShort && (!isItself || key.value != option.given));
        if (!saysMore) continue;
        const std::string what = isItself ? "" : key.meaning + ": ";
        rows.push_back({"printer gets", what + ShownValue(key)});
        if (!key.note.empty()) rows.push_back({"", key.note});
    }
}

void PutOption(Printout &printout, const Explanation &explanation, const ExplainedOption &option) {
    const bool isJobs = option.source != "queue default";
    const bool changes =
        !option.writes.empty() || !option.insteadOf.empty() || (isJobs && option.changesDocument);
    std::vector<Row> rows;
    for (const std::string &notice : option.notices) rows.push_back({"note", notice, Style::kBad});
    AddKeys(rows, option);
    AddEffects(rows, "writes", option.writes);
    AddEffects(rows, "instead of", option.insteadOf);
    if (isJobs && option.changesDocument) {
        rows.push_back({"document", "CUPS puts the PPD's code for it there"});
    }
    // A default that changes nothing is no news.
    if (!isJobs && !changes && option.notices.empty()) return;
    if (isJobs && !changes && !explanation.isRefused) rows.push_back({"changes", "nothing"});
    printout.Heading(option.name + (option.given.empty() ? "" : "=" + option.given),
                     RemarkOn(option));
    printout.Rows(rows);
}

void PutRest(Printout &printout, const std::vector<Effect> &always) {
    if (always.empty()) return;
    printout.Heading("whatever the options");
    std::vector<Row> rows;
    for (const Effect &effect : always) rows.push_back({MaskSecret(effect.line), ""});
    printout.Rows(rows);
}

void PutNearMisses(Printout &printout, const std::vector<NearMiss> &misses) {
    if (misses.empty()) return;
    printout.Heading("not written");
    std::vector<Row> rows;
    for (const NearMiss &miss : misses) rows.push_back({miss.command, miss.reason, Style::kBad});
    printout.Rows(rows);
}

}  // namespace

std::string ExplanationAsText(const Explanation &explanation, const Terminal &terminal) {
    Printout printout(terminal);
    for (const ExplainedOption &option : explanation.options) {
        PutOption(printout, explanation, option);
    }
    PutRest(printout, explanation.always);
    PutNearMisses(printout, explanation.nearMisses);
    if (!explanation.messages.empty()) printout.Heading("the filter says");
    for (const std::string &message : explanation.messages) {
        printout.Paragraph(message, 2, Style::kBad);
    }
    if (explanation.isRefused) printout.Heading("nothing is printed", "the job is refused");
    return printout.Text();
}
