// SPDX-License-Identifier: Apache-2.0
//
// Preloaded into the real filter (LD_PRELOAD), makes calls of the C library fail that no tracer of
// system calls can. The environment says which:
//
//   KVFAULT_MALLOC=N       the Nth allocation after the start of main returns null (those of the
//                          CUPS libraries do not count: what they do without memory is theirs)
//   KVFAULT_SHORT=N        each call that reads or passes on the document or its store takes N
//   bytes
//                          at most
//   KVFAULT_STORE=fail     no call reads the store back
//   KVFAULT_getaddrinfo=W  W is "fail" or "hang"
//   KVFAULT_gethostname=W  W is "fail" or "latin" (a name that is not ASCII)
//   KVFAULT_time=W         W is "fail" or "late" (beyond the year 2^31)
//   KVFAULT_COPY=1         the marker file of the job copy exists
//   KVFAULT_REPORT=PATH    at the end the number of allocations is written there: until the client
//                          is looked for, until it has been found, and in all
#include <dlfcn.h>
#include <fcntl.h>
#include <link.h>
#include <netdb.h>
#include <sys/sendfile.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *block, std::size_t size);
}

namespace {

std::atomic<bool> mainHasStarted{false};
std::atomic<long> allocations{0};
long allocationsForNames = 0, allocationsForClient = 0;
long failingAllocation = 0;

bool Is(const char *variable, const char *value) {
    const char *const set = std::getenv(variable);
    return set && std::strcmp(set, value) == 0;
}

long Number(const char *variable) {
    const char *const set = std::getenv(variable);
    return set ? std::atol(set) : 0;
}

template <class Function>
Function *Real(const char *name) {
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

// What the environment leaves of the size of a call.
std::size_t Short(std::size_t size) {
    const long most = Number("KVFAULT_SHORT");
    return most > 0 ? std::min(size, static_cast<std::size_t>(most)) : size;
}

bool StoreFails() {
    errno = EIO;
    return Is("KVFAULT_STORE", "fail");
}

// The code of the libraries whose allocations count.
struct Range {
    std::uintptr_t begin, end;
};
Range ranges[8];
int rangeCount = 0;

int AddRange(dl_phdr_info *info, std::size_t, void *) {
    const char *const name = info->dlpi_name;
    const bool counts = *name == '\0' || std::strstr(name, "/libstdc++");
    for (int i = 0; counts && i < info->dlpi_phnum && rangeCount < 8; i++) {
        const auto &segment = info->dlpi_phdr[i];
        if (segment.p_type != PT_LOAD || !(segment.p_flags & PF_X)) continue;
        const std::uintptr_t begin = info->dlpi_addr + segment.p_vaddr;
        ranges[rangeCount++] = {begin, begin + segment.p_memsz};
    }
    return 0;
}

bool Fails(const void *caller) {
    if (!mainHasStarted) return false;
    const auto address = reinterpret_cast<std::uintptr_t>(caller);
    const bool counts = std::any_of(ranges, ranges + rangeCount, [address](const Range &range) {
        return range.begin <= address && address < range.end;
    });
    if (!counts || ++allocations != failingAllocation) return false;
    errno = ENOMEM;
    return true;
}

[[gnu::destructor]] void Report() {
    mainHasStarted = false;
    const char *const path = std::getenv("KVFAULT_REPORT");
    std::FILE *const file = path ? std::fopen(path, "w") : nullptr;
    if (!file) return;
    std::fprintf(file, "%ld %ld %ld\n", allocationsForNames, allocationsForClient,
                 allocations.load());
    std::fclose(file);
}

}  // namespace

extern "C" {

// The filter's first act; it must stay readable for the tracer.
int prctl(int, ...) {
    dl_iterate_phdr(AddRange, nullptr);
    failingAllocation = Number("KVFAULT_MALLOC");
    mainHasStarted = true;
    return 0;
}

void *malloc(std::size_t size) noexcept {
    return Fails(__builtin_return_address(0)) ? nullptr : __libc_malloc(size);
}

void *calloc(std::size_t count, std::size_t size) noexcept {
    return Fails(__builtin_return_address(0)) ? nullptr : __libc_calloc(count, size);
}

void *realloc(void *block, std::size_t size) noexcept {
    return Fails(__builtin_return_address(0)) ? nullptr : __libc_realloc(block, size);
}

ssize_t read(int file, void *buffer, std::size_t size) {
    static const auto real = Real<ssize_t(int, void *, std::size_t)>("read");
    return real(file, buffer, Short(size));
}

ssize_t pread(int file, void *buffer, std::size_t size, off_t offset) {
    static const auto real = Real<ssize_t(int, void *, std::size_t, off_t)>("pread");
    return StoreFails() ? -1 : real(file, buffer, Short(size), offset);
}

ssize_t sendfile(int output, int file, off_t *offset, std::size_t size) noexcept {
    static const auto real = Real<ssize_t(int, int, off_t *, std::size_t)>("sendfile");
    return StoreFails() ? -1 : real(output, file, offset, Short(size));
}

ssize_t tee(int from, int to, std::size_t size, unsigned flags) {
    static const auto real = Real<ssize_t(int, int, std::size_t, unsigned)>("tee");
    return real(from, to, Short(size), flags);
}

ssize_t splice(int from, off64_t *start, int to, off64_t *place, std::size_t size, unsigned flags) {
    static const auto real =
        Real<ssize_t(int, off64_t *, int, off64_t *, std::size_t, unsigned)>("splice");
    return real(from, start, to, place, Short(size), flags);
}

int getaddrinfo(const char *name, const char *service, const addrinfo *hints, addrinfo **list) {
    if (Is("KVFAULT_getaddrinfo", "fail")) return EAI_FAIL;
    while (Is("KVFAULT_getaddrinfo", "hang")) pause();
    return Real<int(const char *, const char *, const addrinfo *, addrinfo **)>("getaddrinfo")(
        name, service, hints, list);
}

int gethostname(char *name, std::size_t size) noexcept {
    allocationsForNames = allocations;
    if (Is("KVFAULT_gethostname", "fail")) {
        errno = EFAULT;
        return -1;
    }
    std::strncpy(name, Is("KVFAULT_gethostname", "latin") ? "b\xC3\xBCro" : "localhost", size);
    return 0;
}

// What comes next when the client has been found.
void setbuf(std::FILE *stream, char *buffer) noexcept {
    allocationsForClient = allocations;
    std::setvbuf(stream, buffer, buffer ? _IOFBF : _IONBF, BUFSIZ);
}

std::time_t time(std::time_t *result) noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    if (Is("KVFAULT_time", "fail")) now.tv_sec = -1;
    if (Is("KVFAULT_time", "late")) now.tv_sec = std::time_t{1} << 60;
    if (result) *result = now.tv_sec;
    return now.tv_sec;
}

int access(const char *path, int mode) noexcept {
    if (Number("KVFAULT_COPY") && std::strstr(path, "/kvjobcopy")) return 0;
    return Real<int(const char *, int)>("access")(path, mode);
}

}  // extern "C"
