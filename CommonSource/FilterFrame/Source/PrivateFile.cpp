// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PrivateFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

constexpr char kFolder[] = "/private/tmp";
constexpr char kRandom[] = "-XXXXXX";

// The folder that stands for /private/tmp where no file can be made there.
const char *OtherFolder() {
    const char *folder = std::getenv("TMPDIR");
    return folder && *folder ? folder : "/tmp";
}

// The local time as YYYYmmddHHMMSS; zeros for a clock that no calendar knows.
void PutTime(char (&text)[64]) {
    const std::time_t now = std::time(nullptr);
    const std::tm *const local = std::localtime(&now);
    std::strcpy(text, "00000000000000");
    if (local) std::strftime(text, sizeof text, "%Y%m%d%H%M%S", local);
}

// Builds the path; false, and errno, if it does not fit or the format is none.
bool BuildPath(const char *folder, const char *format, const char *name,
               char (&path)[kPrivatePathSize]) {
    const char *const mark = std::strstr(format, "%s");
    if (!mark || std::strncmp(format, kFolder, sizeof kFolder - 1) != 0) {
        errno = EINVAL;
        return false;
    }
    const char *const fileFormat = format + sizeof kFolder - 1;
    const int length =
        std::snprintf(path, sizeof path, "%s%.*s%s%s", folder, static_cast<int>(mark - fileFormat),
                      fileFormat, name, mark + 2);
    if (static_cast<std::size_t>(length) < sizeof path) return true;
    errno = ENAMETOOLONG;
    return false;
}

int CreateExclusively(const char *path) {
    return open(path, O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
}

int CreateAtRandom(char *path, const char *format) {
    const char *const suffix = std::strstr(format, "%s") + 2;
    return mkostemps(path, static_cast<int>(std::strlen(suffix)), O_CLOEXEC);
}

// Both names that are tried first can be foretold, so somebody may hold them; the third cannot.
int CreateIn(const char *folder, const char *format, char (&path)[kPrivatePathSize]) {
    char time[64], process[32];
    PutTime(time);
    std::snprintf(process, sizeof process, "-%ld", static_cast<long>(getpid()));
    const char *const ends[] = {"", process, kRandom};
    for (const char *end : ends) {  // GCOVR_EXCL_BR_LINE: fault
        char name[sizeof time + sizeof process];
        std::snprintf(name, sizeof name, "%s%s", time, end);
        if (!BuildPath(folder, format, name, path)) return -1;
        const int file = end == kRandom ? CreateAtRandom(path, format) : CreateExclusively(path);
        if (file >= 0 || errno != EEXIST) return file;
    }
    return -1;  // GCOVR_EXCL_LINE: fault
}

}  // namespace

std::FILE *CreatePrivateFile(const char *format, char (&path)[kPrivatePathSize]) {
    int file = CreateIn(kFolder, format, path);
    if (file < 0) {  // GCOVR_EXCL_BR_LINE: macOS has the folder
        file = CreateIn(OtherFolder(), format, path);
    }
    if (file < 0) return nullptr;
    std::FILE *const stream = fdopen(file, "w+b");
    if (stream) return stream;  // GCOVR_EXCL_BR_LINE: fault
    const int cause = errno;    // GCOVR_EXCL_START: fault
    close(file);
    unlink(path);
    errno = cause;
    return nullptr;
}  // GCOVR_EXCL_STOP

std::FILE *CreateNamelessFile(const char *format, char (&path)[kPrivatePathSize]) {
    sigset_t all, before;
    sigfillset(&all);
    sigprocmask(SIG_SETMASK, &all, &before);  // none may end the process while there is a name
    std::FILE *const stream = CreatePrivateFile(format, path);
    const int cause = errno;
    if (stream) unlink(path);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    errno = cause;
    return stream;
}

bool IsNameOf(const char *path, std::FILE *file) {
    struct stat named, opened;
    if (fstat(fileno(file), &opened) != 0) return false;  // GCOVR_EXCL_BR_LINE: fault
    return lstat(path, &named) == 0 && named.st_dev == opened.st_dev &&
           named.st_ino == opened.st_ino;
}
