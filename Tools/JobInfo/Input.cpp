// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Input.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 18;
constexpr std::uint64_t kMegabyte = 1000000;

bool IsStandardInput(const char *path) {
    return !path || std::strcmp(path, "-") == 0;
}

// Says on a terminal how much has been read: from the first second on, and twice a second.
class Progress {
  public:
    explicit Progress(int file) : isShown_(isatty(STDERR_FILENO) != 0) {
        struct stat status {};
        if (fstat(file, &status) == 0 && S_ISREG(status.st_mode)) {  // GCOVR_EXCL_BR_LINE: fault
            size_ = static_cast<std::uint64_t>(status.st_size);
        }
    }
    ~Progress() {
        if (hasWritten_) std::fputs("\r\x1b[K", stderr);
    }
    Progress(const Progress &) = delete;
    Progress &operator=(const Progress &) = delete;

    void Add(std::size_t bytes) {
        read_ += bytes;
        const auto now = std::chrono::steady_clock::now();
        if (!isShown_ || now < next_) return;
        next_ = now + std::chrono::milliseconds(500);
        hasWritten_ = true;
        std::fprintf(stderr, "\r%llu MB", static_cast<unsigned long long>(read_ / kMegabyte));
        if (size_ > 0) {
            std::fprintf(stderr, " of %llu", static_cast<unsigned long long>(size_ / kMegabyte));
        }
    }

  private:
    bool isShown_;
    bool hasWritten_ = false;
    std::uint64_t size_ = 0;
    std::uint64_t read_ = 0;
    std::chrono::steady_clock::time_point next_ =
        std::chrono::steady_clock::now() + std::chrono::seconds(1);
};

}  // namespace

std::string ReadInput(const char *path, const std::function<void(std::string_view)> &take) {
    const bool isStandard = IsStandardInput(path);
    const int file = isStandard ? STDIN_FILENO : open(path, O_RDONLY | O_CLOEXEC);
    if (file < 0) return std::strerror(errno);
    std::string error;
    {
        Progress progress(file);
        std::vector<char> block(kBlock);
        for (;;) {
            const ssize_t count = read(file, block.data(), block.size());
            if (count < 0 && errno == EINTR) continue;  // GCOVR_EXCL_BR_LINE: fault
            if (count < 0) error = std::strerror(errno);
            if (count <= 0) break;
            take({block.data(), static_cast<std::size_t>(count)});
            progress.Add(static_cast<std::size_t>(count));
        }
    }
    if (!isStandard) close(file);
    return error;
}

std::string InputName(const char *path) {
    return IsStandardInput(path) ? "standard input" : path;
}
