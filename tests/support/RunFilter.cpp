// SPDX-License-Identifier: Apache-2.0
#include "support/RunFilter.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <stdexcept>

#include "support/ShownJob.h"
#include "support/TempFolder.h"

namespace {

struct Pipe {
    int read = -1, write = -1;
    Pipe() {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("pipe");
        read = ends[0];
        write = ends[1];
    }
    ~Pipe() {
        Close(read);
        Close(write);
    }
    static void Close(int &end) {
        if (end >= 0) close(end);
        end = -1;
    }
};

[[noreturn]] void Exec(const FilterJob &job, const std::string &ppdPath, Pipe &in, Pipe &out,
                       Pipe &err) {
    dup2(in.read, STDIN_FILENO);
    dup2(out.write, STDOUT_FILENO);
    dup2(err.write, STDERR_FILENO);
    signal(SIGPIPE, SIG_DFL);
    unsetenv("PPD");
    if (!ppdPath.empty()) setenv("PPD", ppdPath.c_str(), 1);
    for (const auto &[name, value] : job.environment) setenv(name.c_str(), value.c_str(), 1);
    std::vector<std::string> words = {"kvfilter", job.id,     job.user,
                                      job.title,  job.copies, job.options};
    words.insert(words.end(), job.more.begin(), job.more.end());
    std::vector<char *> argv;
    for (std::string &word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    execv(KVFILTER_BINARY, argv.data());
    _exit(127);
}

// Feeds `input` and drains both outputs until they close.
void Exchange(const std::string &input, Pipe &in, Pipe &out, Pipe &err, FilterResult &result) {
    std::size_t sent = 0;
    fcntl(in.write, F_SETFL, O_NONBLOCK);
    while (out.read >= 0 || err.read >= 0) {
        if (in.write >= 0 && sent == input.size()) Pipe::Close(in.write);
        pollfd ends[] = {{in.write, POLLOUT, 0}, {out.read, POLLIN, 0}, {err.read, POLLIN, 0}};
        if (poll(ends, 3, -1) < 0 && errno != EINTR) throw std::runtime_error("poll");
        if (ends[0].revents) {
            const ssize_t count = write(in.write, input.data() + sent, input.size() - sent);
            if (count > 0) sent += static_cast<std::size_t>(count);
            if (count < 0 && errno != EAGAIN) Pipe::Close(in.write);
        }
        char buffer[65536];
        if (ends[1].revents) {
            const ssize_t count = read(out.read, buffer, sizeof buffer);
            if (count > 0) result.output.append(buffer, static_cast<std::size_t>(count));
            if (count <= 0) Pipe::Close(out.read);
        }
        if (ends[2].revents) {
            const ssize_t count = read(err.read, buffer, sizeof buffer);
            if (count > 0) result.errors.append(buffer, static_cast<std::size_t>(count));
            if (count <= 0) Pipe::Close(err.read);
        }
    }
}

}  // namespace

FilterResult RunFilter(const FilterJob &job) {
    signal(SIGPIPE, SIG_IGN);
    TempFolder folder;
    const std::string ppdPath = job.ppd.empty() ? "" : folder.Write("queue.ppd", job.ppd);
    Pipe in, out, err;
    const pid_t child = fork();
    if (child < 0) throw std::runtime_error("fork");
    if (child == 0) Exec(job, ppdPath, in, out, err);
    Pipe::Close(in.read);
    Pipe::Close(out.write);
    Pipe::Close(err.write);
    FilterResult result{};
    Exchange(job.input, in, out, err, result);
    int status = 0;
    waitpid(child, &status, 0);
    result.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    if (result.status == 0) CheckShown(job, result.output);
    return result;
}

std::vector<std::string> HeaderLines(const std::string &output) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    for (std::size_t end; (end = output.find('\n', start)) != std::string::npos; start = end + 1) {
        lines.push_back(output.substr(start, end + 1 - start));
        if (lines.back() == "@PJL ENTER LANGUAGE=POSTSCRIPT\n") return lines;
    }
    return {};
}
