// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/FilterRun.h"

#include <cups/ppd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

#include "CommonSource/FilterFrame/Source/JobCopy.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobRun.h"
#include "Tools/JobInfo/SampleDocument.h"

namespace {

constexpr std::size_t kMostAtOnce = 8;  // processes that run side by side

// The three standard streams of one run, in files that nobody else sees.
struct Streams {
    std::FILE *file[3] = {};

    // Opens them, with `document` to be read from the first. False, and errno, if that fails.
    bool Open(const std::string &document) {
        for (std::FILE *&stream : file) {
            stream = std::tmpfile();
            if (!stream) return false;  // GCOVR_EXCL_BR_LINE: fault
        }
        const std::size_t size = std::fwrite(document.data(), 1, document.size(), file[0]);
        const bool isWritten = std::fflush(file[0]) == 0;
        std::rewind(file[0]);
        return isWritten && size == document.size();  // GCOVR_EXCL_BR_LINE: fault
    }
    void Close() {
        for (std::FILE *stream : file) {
            if (stream) std::fclose(stream);  // GCOVR_EXCL_BR_LINE: fault
        }
    }
    // Makes them the process's own.
    void TakePlace() const {
        for (int i = 0; i < 3; i++) dup2(fileno(file[i]), i);
    }
};

// A run in a process of its own.
struct Trial {
    Streams streams;
    pid_t child = -1;
    int error = 0;  // errno, where there is no child
};

std::string Contents(std::FILE *stream) {
    std::string text;
    char block[65536];
    const int file = fileno(stream);
    lseek(file, 0, SEEK_SET);
    for (ssize_t count; (count = read(file, block, sizeof block)) > 0;) {
        text.append(block, static_cast<std::size_t>(count));
    }
    return text;
}

int Run(const PlannedJob &job) {
    FlagPath = "";  // no copy of a job that is none
    std::string words[] = {"kvfilter", "0", job.user, job.title, job.copies, job.options};
    char *argv[7] = {};
    std::transform(std::begin(words), std::end(words), argv,
                   [](std::string &word) { return word.data(); });
    const int status = RunJob(6, argv);
    std::fflush(stdout);
    return status;
}

// The default itself is what the completion of the ticket looks at first.
void ForgetDefault(const std::string &name) {
    ppd_option_t *option = JobPPD() ? ppdFindOption(JobPPD(), name.c_str()) : nullptr;
    if (option) *option->defchoice = '\0';
}

void Start(const Variation &variation, Trial &trial) {
    const bool isOpen = trial.streams.Open(SampleDocument(variation.job.options));
    if (isOpen) trial.child = fork();          // GCOVR_EXCL_BR_LINE: fault
    if (trial.child < 0) trial.error = errno;  // GCOVR_EXCL_BR_LINE: fault
    if (trial.child != 0) return;
    if (!variation.withoutDefault.empty()) ForgetDefault(variation.withoutDefault);
    trial.streams.TakePlace();
    _exit(Run(variation.job));
}

FilterRun ResultsIn(const Streams &streams) {
    return {Contents(streams.file[0]), Contents(streams.file[1]), Contents(streams.file[2]), 0, ""};
}

FilterRun Failed(std::string error) {  // GCOVR_EXCL_START: fault
    return {"", "", "", 0, std::move(error)};
}  // GCOVR_EXCL_STOP

FilterRun Collect(const Trial &trial) {
    if (trial.child < 0) return Failed(std::strerror(trial.error));  // GCOVR_EXCL_BR_LINE: fault
    int status = 0;
    waitpid(trial.child, &status, 0);
    if (WIFSIGNALED(status)) {  // GCOVR_EXCL_START: fault
        return Failed("the filter was ended by signal " + std::to_string(WTERMSIG(status)));
    }  // GCOVR_EXCL_STOP
    FilterRun run = ResultsIn(trial.streams);
    run.status = WEXITSTATUS(status);
    return run;
}

}  // namespace

FilterRun RunHere(const PlannedJob &job) {
    Streams streams;
    if (!streams.Open(SampleDocument(job.options))) {  // GCOVR_EXCL_START: fault
        const int error = errno;
        streams.Close();
        return Failed(std::strerror(error));
    }  // GCOVR_EXCL_STOP
    std::fflush(stdout);
    int saved[3];
    for (int i = 0; i < 3; i++) saved[i] = dup(i);
    streams.TakePlace();
    const int status = Run(job);
    for (int i = 0; i < 3; i++) {
        dup2(saved[i], i);
        close(saved[i]);
    }
    FilterRun run = ResultsIn(streams);
    run.status = status;
    streams.Close();
    return run;
}

std::vector<FilterRun> RunEach(const std::vector<Variation> &variations) {
    std::fflush(stdout);
    std::vector<FilterRun> runs;
    while (runs.size() < variations.size()) {
        const std::size_t first = runs.size();
        const std::size_t count = std::min(kMostAtOnce, variations.size() - first);
        std::vector<Trial> trials(count);
        for (std::size_t i = 0; i < count; i++) Start(variations[first + i], trials[i]);
        for (Trial &trial : trials) {
            runs.push_back(Collect(trial));
            trial.streams.Close();
        }
    }
    return runs;
}
