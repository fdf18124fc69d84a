// SPDX-License-Identifier: Apache-2.0
//
// Runs a command and leaves its peak resident size, in kilobytes, and its processor time, in
// microseconds, in a file: bench_cost FILE COMMAND [ARGUMENT ...]
//
// A process inherits the peak of the one that starts it, so the measured one must not be started by
// an interpreter.
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>

int main(int argc, char *argv[]) {
    if (argc < 3) return 1;
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[2], argv + 2);
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child) return 1;
    std::FILE *file = std::fopen(argv[1], "w");
    if (!file) return 1;
    const auto microseconds = [](const timeval &time) {
        return time.tv_sec * 1000000L + time.tv_usec;
    };
    std::fprintf(file, "%ld %ld\n", usage.ru_maxrss,
                 microseconds(usage.ru_utime) + microseconds(usage.ru_stime));
    std::fclose(file);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 1;
}
