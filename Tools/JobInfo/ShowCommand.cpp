// SPDX-License-Identifier: Apache-2.0
#include <getopt.h>

#include <cstdio>

#include "Tools/JobInfo/Commands.h"
#include "Tools/JobInfo/Input.h"
#include "Tools/JobInfo/JobDecoder.h"
#include "Tools/JobInfo/ShowJob.h"
#include "Tools/JobInfo/Text.h"

int ShowCommand(int argc, char *argv[]) {
    int isJSON = 0;
    int showSecrets = 0;
    const option options[] = {{"json", no_argument, &isJSON, 1},
                              {"show-secrets", no_argument, &showSecrets, 1},
                              {nullptr, 0, nullptr, 0}};
    for (int code; (code = getopt_long(argc, argv, "", options, nullptr)) != -1;) {
        if (code != 0) return ComplainUsage(argv[0]);
    }
    if (argc - optind > 1) return ComplainUsage(argv[0]);
    const char *path = argv[optind];

    JobDecoder decoder;
    const std::string name = InputName(path);
    const std::string error = ReadInput(path, [&](std::string_view bytes) { decoder.Feed(bytes); });
    if (!error.empty()) return Complain(name.c_str(), error.c_str());
    const DecodedJob &job = decoder.Finish();
    if (job.kind == DecodedJob::kEmpty) return Complain(name.c_str(), "empty, no job");
    if (job.kind == DecodedJob::kForeign) {
        return Complain(name.c_str(), ("no job of kvfilter's, but " + job.foreign).c_str());
    }
    const std::string shown = isJSON ? JobAsJSON(job, name, showSecrets)
                                     : JobAsText(job, name, showSecrets, StandardOutput());
    std::fputs(shown.c_str(), stdout);
    return job.problems.empty() ? kInOrder : kProblemsFound;
}
