// SPDX-License-Identifier: Apache-2.0
#include <getopt.h>
#include <pwd.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "FrontEnd/OptionString.h"
#include "Tools/JobInfo/Commands.h"
#include "Tools/JobInfo/Explanation.h"
#include "Tools/JobInfo/Queue.h"
#include "Tools/JobInfo/Terminal.h"

namespace {

struct Arguments {
    int isJSON = 0;
    const char *ppd = nullptr;
    const char *queue = nullptr;
    std::string user, title = "Untitled", copies = "1", options;
};

// False if they are wrong.
bool Read(int argc, char *argv[], Arguments &arguments) {
    const option names[] = {{"json", no_argument, &arguments.isJSON, 1},
                            {"ppd", required_argument, nullptr, 'p'},
                            {"queue", required_argument, nullptr, 'q'},
                            {"user", required_argument, nullptr, 'u'},
                            {"title", required_argument, nullptr, 't'},
                            {"copies", required_argument, nullptr, 'n'},
                            {nullptr, 0, nullptr, 0}};
    const passwd *user = getpwuid(getuid());
    arguments.user = user ? user->pw_name : "anonymous";  // GCOVR_EXCL_BR_LINE: a user has a name
    for (int code; (code = getopt_long(argc, argv, "", names, nullptr)) != -1;) {
        if (code == '?') return false;
        if (code == 'p') arguments.ppd = optarg;
        if (code == 'q') arguments.queue = optarg;
        if (code == 'u') arguments.user = optarg;
        if (code == 't') arguments.title = optarg;
        if (code == 'n') arguments.copies = optarg;
    }
    if (argc - optind > 1 || (arguments.ppd && arguments.queue)) return false;
    if (argv[optind]) arguments.options = argv[optind];
    return true;
}

// The queue's defaults go first: of two values the last one counts.
std::string UseQueue(Arguments &arguments) {
    const Queue queue = FindQueue(arguments.queue);
    if (!queue.error.empty()) return queue.error;
    std::string options;
    for (const JobOption &option :
         ParseOptionString((queue.defaults + " " + arguments.options).c_str())) {
        AppendOption(options, option.name, option.value);
    }
    arguments.options = options;
    if (queue.ppd.empty()) return "the queue has no PPD";
    setenv("PPD", queue.ppd.c_str(), 1);
    const bool isReadable = JobPPD() != nullptr;
    unlink(queue.ppd.c_str());
    return isReadable ? "" : "the queue's PPD cannot be read";
}

}  // namespace

int ExplainCommand(int argc, char *argv[]) {
    Arguments arguments;
    if (!Read(argc, argv, arguments)) return ComplainUsage(argv[0]);
    unsetenv("PPD");
    if (arguments.queue) {
        const std::string error = UseQueue(arguments);
        if (!error.empty()) return Complain(arguments.queue, error.c_str());
    }
    if (arguments.ppd) {
        setenv("PPD", arguments.ppd, 1);
        if (!JobPPD()) return Complain(arguments.ppd, "no PPD that can be read");
    }
    const Explanation explanation =
        Explain({arguments.user, arguments.title, arguments.copies, arguments.options});
    if (!explanation.error.empty()) {  // GCOVR_EXCL_START: fault
        return Complain(argv[0], explanation.error.c_str());
    }  // GCOVR_EXCL_STOP
    const std::string shown = arguments.isJSON ? ExplanationAsJSON(explanation)
                                               : ExplanationAsText(explanation, StandardOutput());
    std::fputs(shown.c_str(), stdout);
    const bool isInOrder =
        explanation.status == 0 && explanation.nearMisses.empty() && explanation.messages.empty();
    return isInOrder ? kInOrder : kProblemsFound;
}
