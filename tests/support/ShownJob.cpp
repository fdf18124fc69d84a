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
        // Commands whose value is missing or too long, and texts of the ticket in XML, are written
        // as they are.
        case kProblemGivenTwice:  // also by the document's features, one after another
            if (document.find("%%BeginFeature:") != document.npos) return true;
            [[fallthrough]];
        case kProblemNoLineEnd:
        case kProblemCutLine:
            return job.options.find("com.korvell.tav.printsettings.") != job.options.npos;
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
        if (line.isPartial) continue;
        EXPECT_TRUE(ParsePJL(line.text).row) << "no meaning: " << line.text;
    }
}
