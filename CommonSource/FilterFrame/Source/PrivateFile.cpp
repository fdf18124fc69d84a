// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PrivateFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

constexpr char kFolder[] = "/private/tmp";

bool IsDirectory(const char *path) {
    struct stat status;
    return stat(path, &status) == 0 && S_ISDIR(status.st_mode);
}

// The folder that stands for /private/tmp on this system.
const char *Folder() {
    if (IsDirectory(kFolder)) return kFolder;
    const char *folder = std::getenv("TMPDIR");
    return folder && *folder ? folder : "/tmp";
}

// Builds the path; false if it does not fit.
bool BuildPath(const char *format, const char *name, char (&path)[kPrivatePathSize]) {
    const char *fileFormat = format + std::strlen(kFolder);
    const char *mark = std::strstr(fileFormat, "%s");
    const int length =
        std::snprintf(path, sizeof path, "%s%.*s%s%s", Folder(),
                      static_cast<int>(mark - fileFormat), fileFormat, name, mark + 2);
    return length >= 0 && static_cast<std::size_t>(length) < sizeof path;
}

int CreateExclusively(const char *path) {
    return open(path, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
}

}  // namespace

std::FILE *CreatePrivateFile(const char *format, char (&path)[kPrivatePathSize]) {
    char name[64] = "";
    const std::time_t now = std::time(nullptr);
    const std::size_t timeLength =
        std::strftime(name, sizeof name, "%Y%m%d%H%M%S", std::localtime(&now));
    if (!BuildPath(format, name, path)) return nullptr;
    int file = CreateExclusively(path);
    if (file < 0) {
        std::snprintf(name + timeLength, sizeof name - timeLength, "-%ld",
                      static_cast<long>(getpid()));
        if (!BuildPath(format, name, path)) return nullptr;
        file = CreateExclusively(path);
    }
    if (file < 0) return nullptr;
    std::FILE *stream = fdopen(file, "wb");
    if (!stream) close(file);
    return stream;
}
