// SPDX-License-Identifier: Apache-2.0
#include <getopt.h>

#include <cstdio>
#include <cstdlib>

#include "Tools/JobInfo/Commands.h"
#include "Tools/JobInfo/Input.h"
#include "Tools/JobInfo/JobDecoder.h"
#include "Tools/JobInfo/RenderPage.h"

namespace {

// The page that `text` counts from 1, or 0 if it is no such number.
int PageNumber(const char *text) {
    char *end = nullptr;
    const long number = std::strtol(text, &end, 10);
    return *end == '\0' && number > 0 && number <= 1000000 ? static_cast<int>(number) : 0;
}

}  // namespace

int PageCommand(int argc, char *argv[]) {
    const char *picture = nullptr;
    for (int code; (code = getopt(argc, argv, "o:")) != -1;) {
        if (code != 'o') return ComplainUsage(argv[0]);
        picture = optarg;
    }
    const int count = argc - optind;
    const int page = count > 0 ? PageNumber(argv[optind]) : 0;
    if (!picture || page == 0 || count > 2) return ComplainUsage(argv[0]);
    const char *path = argv[optind + 1];  // null if it is not given

    PageRenderer renderer(picture, page);
    std::string error = renderer.Start();
    if (!error.empty()) return Complain(picture, error.c_str());
    JobDecoder decoder([&](std::string_view bytes) { renderer.Write(bytes); });
    const std::string name = InputName(path);
    error = ReadInput(path, [&](std::string_view bytes) { decoder.Feed(bytes); });
    const DecodedJob &job = decoder.Finish();
    if (error.empty() && job.kind == DecodedJob::kEmpty) error = "empty, no job";
    if (error.empty() && job.kind == DecodedJob::kForeign) {
        error = "no job of kvfilter's, but " + job.foreign;
    }
    if (error.empty()) error = renderer.Finish();
    return error.empty() ? kInOrder : Complain(name.c_str(), error.c_str());
}
