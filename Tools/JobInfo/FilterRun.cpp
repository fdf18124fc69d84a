// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/FilterRun.h"

#include <cups/ppd.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "CommonSource/FilterFrame/Source/JobCopy.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/JobRun.h"
#include "Tools/JobInfo/SampleDocument.h"

namespace {

constexpr std::size_t kMostAtOnce = 8;  // processes that run side by side

// The three standard streams of one run, in files that nobody else sees.
struct Streams {
    std::FILE *file[3] = {std::tmpfile(), std::tmpfile(), std::tmpfile()};

    bool AreOpen() const { return file[0] && file[1] && file[2]; }  // GCOVR_EXCL_BR_LINE: fault
    void Close() {
        for (std::FILE *stream : file) {
            if (stream) std::fclose(stream);  // GCOVR_EXCL_BR_LINE: fault
        }
    }
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

// Puts the document where the run reads it and makes the streams the process's own.
void Redirect(const Streams &streams, const std::string &document) {
    std::fwrite(document.data(), 1, document.size(), streams.file[0]);
    std::fflush(streams.file[0]);
    std::rewind(streams.file[0]);
    for (int i = 0; i < 3; i++) dup2(fileno(streams.file[i]), i);
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

pid_t Start(const Variation &variation, const Streams &streams) {
    const pid_t child = streams.AreOpen() ? fork() : -1;  // GCOVR_EXCL_BR_LINE: fault
    if (child != 0) return child;
    if (!variation.withoutDefault.empty()) ForgetDefault(variation.withoutDefault);
    Redirect(streams, SampleDocument(variation.job.options));
    _exit(Run(variation.job));
}

FilterRun Collect(pid_t child, const Streams &streams) {
    if (child < 0) return {"", "", "", 128};  // GCOVR_EXCL_BR_LINE: fault
    int status = 0;
    waitpid(child, &status, 0);
    return {Contents(streams.file[0]), Contents(streams.file[1]), Contents(streams.file[2]),
            WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status)};
}

}  // namespace

FilterRun RunHere(const PlannedJob &job) {
    Streams streams;
    if (!streams.AreOpen()) return {"", "", "", 128};  // GCOVR_EXCL_BR_LINE: fault
    std::fflush(stdout);
    int saved[3];
    for (int i = 0; i < 3; i++) saved[i] = dup(i);
    Redirect(streams, SampleDocument(job.options));
    FilterRun run;
    run.status = Run(job);
    for (int i = 0; i < 3; i++) {
        dup2(saved[i], i);
        close(saved[i]);
    }
    run.document = Contents(streams.file[0]);
    run.output = Contents(streams.file[1]);
    run.messages = Contents(streams.file[2]);
    streams.Close();
    return run;
}

std::vector<FilterRun> RunEach(const std::vector<Variation> &variations) {
    std::fflush(stdout);
    std::vector<FilterRun> runs;
    while (runs.size() < variations.size()) {
        const std::size_t first = runs.size();
        const std::size_t count = std::min(kMostAtOnce, variations.size() - first);
        std::vector<Streams> streams(count);
        std::vector<pid_t> children;
        for (std::size_t i = 0; i < count; i++) {
            children.push_back(Start(variations[first + i], streams[i]));
        }
        for (std::size_t i = 0; i < count; i++) {
            runs.push_back(Collect(children[i], streams[i]));
            streams[i].Close();
        }
    }
    return runs;
}
