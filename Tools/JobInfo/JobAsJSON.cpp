// SPDX-License-Identifier: Apache-2.0
#include <nlohmann/json.hpp>
#include <string>

#include "Tools/JobInfo/PJLLine.h"
#include "Tools/JobInfo/ShowJob.h"
#include "Tools/JobInfo/Text.h"

namespace {

using JSON = nlohmann::ordered_json;

const char *EndName(JobLine::End end) {
    constexpr const char *names[] = {"none", "LF", "CRLF"};
    return names[end];
}

JSON LineAsJSON(const JobLine &line, bool showSecrets) {
    const PJLLine parsed = ParsePJL(line.text);
    const bool isSecret = IsSecret(parsed);
    JSON object = {{"offset", line.offset},
                   {"line", Visible(showSecrets ? line.text : MaskSecret(line.text))},
                   {"end", EndName(line.end)},  // GCOVR_EXCL_LINE: counted with its neighbours
                   {"group", GroupName(parsed.row ? parsed.row->group : kGroupUnknown)},
                   {"name", Visible(parsed.name)}};
    if (!isSecret || showSecrets) object["value"] = Visible(parsed.value);
    if (isSecret) object["secret"] = true;
    if (parsed.row) object["meaning"] = MeaningOf(parsed);
    if (line.isPartial) object["partial"] = true;
    return object;
}

JSON SpecialPagesAsJSON(const SpecialPages &special) {
    JSON pages = JSON::array();
    for (const SpecialPage &page : special.pages) {
        pages.push_back({{"what", page.what}, {"words", Visible(page.words)}});
    }
    return {{"size", special.size}, {"pages", pages}};
}

JSON DocumentAsJSON(const JobDocument &document) {
    JSON ownCode = JSON::array();
    for (const OwnCode &code : document.ownCode) {
        ownCode.push_back(
            {{"meaning", code.meaning}, {"count", code.count}, {"offset", code.offset}});
    }
    return {{"offset", document.offset},
            {"size", document.size},
            {"title", Visible(document.title)},
            {"maker", Visible(document.maker)},
            {"statedPages", Visible(document.statedPages)},
            {"pages", document.pages},
            {"pageEnds", document.pageEnds},
            {"closedByControlD", document.endsWithControlD},
            {"isCopy", document.isCopy},
            {"ownPostScript", ownCode}};
}

}  // namespace

std::string JobAsJSON(const DecodedJob &job, std::string_view name, bool showSecrets) {
    JSON header = JSON::array();
    for (const JobLine &line : job.header) header.push_back(LineAsJSON(line, showSecrets));
    JSON problems = JSON::array();
    for (const Problem &problem : job.problems) {
        problems.push_back({{"kind", ProblemName(problem.kind)},
                            {"offset", problem.offset},
                            {"text", problem.text}});
    }
    JSON object = {{"name", Visible(name)}, {"size", job.size}, {"header", header}};
    if (job.specialPages.size > 0) object["specialPages"] = SpecialPagesAsJSON(job.specialPages);
    if (job.document.present) object["document"] = DocumentAsJSON(job.document);
    if (job.hasTrailer) object["trailer"] = {{"offset", job.trailerOffset}};
    object["problems"] = problems;
    if (job.problemsLeftOut > 0) object["problemsLeftOut"] = job.problemsLeftOut;
    return object.dump(2) + "\n";
}
