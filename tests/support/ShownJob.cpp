// SPDX-License-Identifier: Apache-2.0
#include "support/ShownJob.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "Tools/JobInfo/JobDecoder.h"
#include "Tools/JobInfo/PJLLine.h"

namespace {

std::string Document(const FilterJob &job) {
    if (job.more.empty()) return job.input;
    std::ostringstream text;
    text << std::ifstream(job.more[0], std::ios::binary).rdbuf();
    return text.str();
}

bool HasDialogKeys(const FilterJob &job) {
    return job.options.find("com.korvell.tav.printsettings.") != job.options.npos;
}

// Whether what the job was made from explains such a problem.
bool IsExplained(ProblemKind kind, const FilterJob &job, const std::string &document) {
    switch (kind) {
        case kProblemNoDocument:
        case kProblemNoPostScript:
        case kProblemNoSwitch:  // no document, no switch: jobs with PJL features
            return !document.starts_with("%!") || document.find_first_of("\r\n") == document.npos;
        case kProblemPJLInDocument:
            return document.find("@PJL") != document.npos;
        case kProblemSecondJob:
        case kProblemBytesAfter:
            return document.find("@PJL EOJ") != document.npos;
        // Values of the job's own are written as they are, also where they are missing, are too
        // long or hold a line end, and commands whose conditions hold are written beside others.
        case kProblemNoLineEnd:
            return job.options.find("number-up") != job.options.npos || HasDialogKeys(job);
        case kProblemCutLine:
            return job.user.size() > 60 || job.title.size() > 60 || job.options.size() > 60;
        case kProblemNoPJL:
            return (job.user + job.title + job.options).find_first_of("\r\n") !=
                       std::string::npos ||
                   job.options.find("/10/") != job.options.npos;
        case kProblemGivenTwice:
            return HasDialogKeys(job) || document.find("%%BeginFeature:") != document.npos;
        case kProblemSpecialPages:
            return job.options.find("KPIF") != job.options.npos;
        default:
            return false;
    }
}

}  // namespace

void CheckShown(const FilterJob &job, const std::string &output) {
    JobDecoder decoder;
    decoder.Feed(output);
    const DecodedJob &shown = decoder.Finish();
    ASSERT_EQ(shown.kind, DecodedJob::kJob) << output.substr(0, 200);
    const std::string document = Document(job);
    for (const Problem &problem : shown.problems) {
        EXPECT_TRUE(IsExplained(problem.kind, job, document))
            << ProblemName(problem.kind) << " at " << problem.offset << ": " << problem.text
            << "\noptions: " << job.options.substr(0, 1000);
    }
    for (const JobLine &line : shown.header) {
        if (line.isPartial || !line.text.starts_with("@PJL")) continue;
        EXPECT_TRUE(ParsePJL(line.text).row) << "no meaning: " << line.text;
    }
}
