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

namespace {

struct Pipe {
    int read, write;
    Pipe() {
        int ends[2];
        if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("pipe");
        read = ends[0];
        write = ends[1];
    }
};

void Close(int &end) {
    if (end >= 0) close(end);
    end = -1;
}

[[noreturn]] void Exec(const FilterJob &job, const std::string &ppdPath, const Pipe &in,
                       const Pipe &out, const Pipe &err) {
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

// Reads what has arrived.
void Receive(int &end, std::string &text) {
    char buffer[65536];
    const ssize_t count = read(end, buffer, sizeof buffer);
    if (count > 0) text.append(buffer, static_cast<std::size_t>(count));
    if (count <= 0) Close(end);
}

}  // namespace

RunningFilter::RunningFilter(const FilterJob &job) : input_(job.input) {
    signal(SIGPIPE, SIG_IGN);
    const std::string ppdPath = job.ppd.empty() ? "" : folder_.Write("queue.ppd", job.ppd);
    Pipe in, out, err;
    process_ = fork();
    if (process_ < 0) throw std::runtime_error("fork");
    if (process_ == 0) Exec(job, ppdPath, in, out, err);
    Close(in.read);
    Close(out.write);
    Close(err.write);
    in_ = in.write;
    out_ = out.read;
    err_ = err.read;
    fcntl(in_, F_SETFL, O_NONBLOCK);
}

RunningFilter::~RunningFilter() {
    if (process_ >= 0) Finish();
}

// Feeds the input and drains both outputs until `text`, one of them, holds what is awaited (never,
// if that is empty) or both close.
bool RunningFilter::Exchange(const std::string &text, const std::string &awaited) {
    std::size_t sent = 0;
    const auto arrived = [&] { return !awaited.empty() && text.find(awaited) != text.npos; };
    while (!arrived() && (out_ >= 0 || err_ >= 0)) {
        const bool sending = sent < input_.size();
        if (!sending && inputEnds_) Close(in_);
        pollfd ends[] = {{sending ? in_ : -1, POLLOUT, 0}, {out_, POLLIN, 0}, {err_, POLLIN, 0}};
        if (poll(ends, 3, -1) < 0 && errno != EINTR) throw std::runtime_error("poll");
        if (ends[0].revents) {
            const ssize_t count = write(in_, input_.data() + sent, input_.size() - sent);
            if (count > 0) sent += static_cast<std::size_t>(count);
            if (count < 0 && errno != EAGAIN) Close(in_);
        }
        if (ends[1].revents) Receive(out_, result_.output);
        if (ends[2].revents) Receive(err_, result_.errors);
    }
    input_.erase(0, sent);
    return arrived();
}

FilterResult RunningFilter::Finish() {
    SendAll();
    Exchange(result_.output, "");
    Close(in_);
    int status = 0;
    waitpid(process_, &status, 0);
    process_ = -1;
    result_.status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    return result_;
}

FilterResult RunFilter(const FilterJob &job) {
    return RunningFilter(job).Finish();
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
