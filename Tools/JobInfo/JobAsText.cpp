// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <vector>

#include "Tools/JobInfo/PJLLine.h"
#include "Tools/JobInfo/ShowJob.h"
#include "Tools/JobInfo/Text.h"

namespace {

std::string AtByte(std::uint64_t offset) {
    return "byte " + std::to_string(offset);
}

void PutSpecialPages(Printout &printout, const SpecialPages &special) {
    if (special.size == 0) return;
    printout.Heading("special pages", Count(special.size, "byte") + " of XML");
    std::vector<Row> rows;
    for (const SpecialPage &page : special.pages) rows.push_back({page.what, page.words});
    printout.Rows(rows);
}

// The header, under one heading for each of its parts.
void PutHeader(Printout &printout, const DecodedJob &job, bool showSecrets) {
    std::vector<Row> rows;
    PJLGroup group = kGroupUnknown;
    for (const JobLine &line : job.header) {
        const PJLLine parsed = ParsePJL(line.text);
        // What is not known stands with what is around it.
        if (parsed.row && parsed.row->group != group) {
            group = parsed.row->group;
            rows.push_back({GroupName(group), "", Style::kHeading});
        }
        std::string_view text = line.text;
        if (text.starts_with(kExitLanguage)) text.remove_prefix(kExitLanguage.size());
        const bool isHalf = line.isPartial && !parsed.row;
        rows.push_back({showSecrets ? std::string(text) : MaskSecret(text),
                        isHalf ? kHalfLine : MeaningOf(parsed),
                        line.isPartial ? Style::kBad : Style::kPlain});
    }
    printout.Rows(rows);
}

std::string PagesOf(const JobDocument &document) {
    std::string pages = std::to_string(document.pages > 0 ? document.pages : document.pageEnds);
    if (!document.statedPages.empty() && document.statedPages != pages) {
        pages += ", but the document says " + document.statedPages;
    }
    return pages;
}

void PutDocument(Printout &printout, const JobDocument &document) {
    if (!document.present) return;
    printout.Heading("document", Count(document.size, "byte") + " from " + AtByte(document.offset));
    std::vector<Row> rows;
    if (document.isCopy)
        rows.push_back({"copy", "as the filter stored it, in front of the switch"});
    if (!document.title.empty()) rows.push_back({"title", document.title});
    if (!document.maker.empty()) rows.push_back({"made by", document.maker});
    rows.push_back({"pages", PagesOf(document)});
    for (const OwnCode &code : document.ownCode) {
        const std::string times = code.count == 1 ? "" : ", " + Count(code.count, "time");
        rows.push_back({"by the filter",
                        std::string(code.meaning) + " (" + AtByte(code.offset) + times + ")"});
    }
    rows.push_back({"end", document.endsWithControlD ? "closed by Ctrl-D" : "without Ctrl-D"});
    printout.Rows(rows);
}

void PutProblems(Printout &printout, const DecodedJob &job) {
    if (job.problems.empty()) return;
    printout.Heading("problems");
    std::vector<Row> rows;
    for (const Problem &problem : job.problems) {
        rows.push_back({AtByte(problem.offset), problem.text, Style::kBad});
    }
    if (job.problemsLeftOut > 0)
        rows.push_back({"", "and " + Count(job.problemsLeftOut, "more problem")});
    printout.Rows(rows);
}

}  // namespace

std::string JobAsText(const DecodedJob &job, std::string_view name, bool showSecrets,
                      const Terminal &terminal) {
    Printout printout(terminal);
    const std::uint64_t problems = job.problems.size() + job.problemsLeftOut;
    printout.Heading(name, "a job of " + Count(job.size, "byte") + ", " +
                               (problems == 0 ? "in order" : Count(problems, "problem")));
    PutSpecialPages(printout, job.specialPages);
    PutHeader(printout, job, showSecrets);
    PutDocument(printout, job.document);
    if (job.hasTrailer) printout.Heading("trailer", "from " + AtByte(job.trailerOffset));
    PutProblems(printout, job);
    return printout.Text();
}
