// SPDX-License-Identifier: Apache-2.0
#include "support/FilterProcess.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace {

void MakePipe(int (&ends)[2]) {
    if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("pipe");
}

void Close(int &end) {
    if (end >= 0) close(end);
    end = -1;
}

}  // namespace

FilterProcess::FilterProcess(const std::vector<std::string> &arguments, Output output,
                             const std::string &ppd) {
    signal(SIGPIPE, SIG_IGN);
    int in[2], out[2], err[2];
    MakePipe(in);
    MakePipe(out);
    MakePipe(err);
    std::vector<std::string> words = {"kvfilter"};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char *> argv;
    for (std::string &word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    child_ = fork();
    if (child_ < 0) throw std::runtime_error("fork");
    if (child_ == 0) {
        dup2(in[0], STDIN_FILENO);
        dup2(output == kPipe ? out[1] : open("/dev/null", O_WRONLY), STDOUT_FILENO);
        dup2(err[1], STDERR_FILENO);
        signal(SIGPIPE, SIG_DFL);
        unsetenv("PPD");
        if (!ppd.empty()) setenv("PPD", ppd.c_str(), 1);
        execv(KVFILTER_BINARY, argv.data());
        _exit(127);
    }
    close(in[0]);
    close(out[1]);
    close(err[1]);
    input_ = in[1];
    output_ = out[0];
    errors_ = err[0];
}

FilterProcess::~FilterProcess() {
    Close(input_);
    Close(output_);
    Close(errors_);
    if (child_ > 0) {
        kill(child_, SIGKILL);
        waitpid(child_, nullptr, 0);
    }
}

void FilterProcess::Write(std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = write(input_, text.data(), text.size());
        if (count < 0) throw std::runtime_error("write to the filter");
        text.remove_prefix(static_cast<std::size_t>(count));
    }
}

void FilterProcess::CloseInput() {
    Close(input_);
}

void FilterProcess::CloseOutput() {
    Close(output_);
}

std::string FilterProcess::ReadUntil(std::string_view text) {
    std::string output;
    char buffer[65536];
    for (ssize_t count; (count = read(output_, buffer, sizeof buffer)) > 0;) {
        output.append(buffer, static_cast<std::size_t>(count));
        if (!text.empty() && output.find(text) != output.npos) break;
    }
    return output;
}

std::string FilterProcess::ReadToEnd() {
    return ReadUntil("");
}

std::string FilterProcess::ReadErrorLine() {
    std::string line;
    for (char byte; read(errors_, &byte, 1) == 1;) {
        line += byte;
        if (byte == '\n') break;
    }
    return line;
}

std::string FilterProcess::ReadErrorsToEnd() {
    std::string text;
    for (std::string line; !(line = ReadErrorLine()).empty();) text += line;
    return text;
}

void FilterProcess::Signal(int number) {
    kill(child_, number);
}

int FilterProcess::Wait(rusage *usage) {
    int status = 0;
    wait4(child_, &status, 0, usage);
    child_ = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
