// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/RenderPage.h"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

constexpr int kNoGhostscript = 127;

}  // namespace

PageRenderer::~PageRenderer() {
    if (input_ >= 0) close(input_);
    if (child_ > 0) waitpid(child_, nullptr, 0);
    if (folder_.empty()) return;
    std::remove(DrawnPath().c_str());
    rmdir(folder_.c_str());
}

void PageRenderer::Run(int input) const {
    dup2(input, STDIN_FILENO);
    dup2(STDERR_FILENO, STDOUT_FILENO);
    std::signal(SIGPIPE, SIG_DFL);
    const std::string pages = "-sPageList=" + std::to_string(page_);
    if (chdir(folder_.c_str()) == 0) {  // GCOVR_EXCL_BR_LINE: fault
        execlp("gs", "gs", "-q", "-dSAFER", "-dBATCH", "-dNOPAUSE", "-sDEVICE=png16m", "-r72",
               "-dTextAlphaBits=4", "-dGraphicsAlphaBits=4", pages.c_str(), "-sOutputFile=page.png",
               "-", nullptr);
    }
    _exit(kNoGhostscript);
}

std::string PageRenderer::Start() {
    std::string folder = picture_ + ".XXXXXX";
    if (!mkdtemp(folder.data())) return std::strerror(errno);
    folder_ = folder;
    int ends[2];
    if (pipe(ends) != 0) return std::strerror(errno);  // GCOVR_EXCL_BR_LINE: fault
    fcntl(ends[1], F_SETFD, FD_CLOEXEC);
    std::signal(SIGPIPE, SIG_IGN);  // Ghostscript may end before the document
    child_ = fork();
    if (child_ == 0) Run(ends[0]);
    close(ends[0]);
    input_ = ends[1];
    return child_ < 0 ? std::strerror(errno) : "";  // GCOVR_EXCL_BR_LINE: fault
}

void PageRenderer::Write(std::string_view bytes) const {
    while (!bytes.empty()) {
        const ssize_t count = write(input_, bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR) continue;  // GCOVR_EXCL_BR_LINE: fault
        if (count < 0) return;                      // GCOVR_EXCL_BR_LINE: fault
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
}

std::string PageRenderer::Finish() {
    close(input_);
    input_ = -1;
    int status = 0;
    waitpid(child_, &status, 0);
    child_ = -1;
    if (WIFEXITED(status) && WEXITSTATUS(status) == kNoGhostscript) {
        return "Ghostscript's command gs is needed to draw a page, and there is none";
    }
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
        return "the document does not run to its end";
    if (access(DrawnPath().c_str(), F_OK) != 0) return "there is no page " + std::to_string(page_);
    if (std::rename(DrawnPath().c_str(), picture_.c_str()) != 0) return std::strerror(errno);
    return "";
}
