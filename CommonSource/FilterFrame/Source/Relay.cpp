// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/Relay.h"

#include <unistd.h>

#ifdef __linux__
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/sendfile.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "CommonSource/FilterFrame/Source/PipeCapacity.h"

namespace {

// Bytes that must have arrived in a pipe for a relay to be faster than reading them.
constexpr int kWorthwhile = 32 * 1024;

enum Kind { kNone, kPipe, kFile };

struct {
    int source = -1;
    int output = -1;
    Kind kind = kNone;
    bool isRefused = false;      // it turned out that the system does not relay after all
    int copies[2] = {-1, -1};    // the pipe that copies come through
    const char *next = nullptr;  // in the block: the first byte that is still in the source
    const char *end = nullptr;   // end of the block
    std::size_t kept = 0;        // bytes at `next` that are to be sent
    off_t offset = 0;            // of `next`, in a file
} relay;

// How what is read from `sourceFile` can be relayed to `outputFile`.
Kind KindOf(int sourceFile, int outputFile) {
    struct stat source, output;
    if (fstat(sourceFile, &source) != 0 || fstat(outputFile, &output) != 0) return kNone;
    if (!S_ISFIFO(output.st_mode)) return kNone;
    if (S_ISREG(source.st_mode)) return kFile;
    if (!S_ISFIFO(source.st_mode)) return kNone;
    if (relay.copies[0] < 0) {
        if (pipe2(relay.copies, O_CLOEXEC) != 0) return kNone;  // GCOVR_EXCL_BR_LINE: fault
        WidenPipe(relay.copies[1]);
    }
    return kPipe;
}

// Takes what will not be sent out of the pipe. False if it cannot be read.
bool SkipTo(const char *text) {
    char scratch[8192];
    while (relay.next != text) {
        const std::size_t left = static_cast<std::size_t>(text - relay.next);
        ssize_t count = static_cast<ssize_t>(left);
        if (relay.kind == kPipe) {
            count = read(relay.source, scratch, std::min(left, sizeof scratch));
        }
        if (count < 0 && errno == EINTR) continue;  // GCOVR_EXCL_BR_LINE: fault
        if (count <= 0) return false;               // GCOVR_EXCL_BR_LINE: fault
        relay.next += count;
        relay.offset += count;
    }
    return true;
}

// What cannot be tried again.
ssize_t Fail() {  // GCOVR_EXCL_START: fault
    errno = EIO;
    return -1;
}  // GCOVR_EXCL_STOP

// Copies into `block` what has arrived in the pipe, and leaves it there.
ssize_t LookAt(int pipe, char *block, std::size_t size) {
    const ssize_t count = tee(pipe, relay.copies[1], size, 0);
    for (ssize_t got = 0; got < count;) {
        const ssize_t more =
            read(relay.copies[0], block + got, static_cast<std::size_t>(count - got));
        if (more < 0 && errno == EINTR) continue;  // GCOVR_EXCL_BR_LINE: fault
        if (more <= 0) return Fail();              // GCOVR_EXCL_BR_LINE: fault
        got += more;
    }
    return count;
}

// From now on the document is read and written as usual.
void Refuse() {
    relay.isRefused = true;
    for (int &end : relay.copies) {
        if (end >= 0) close(end);  // it may hold what nobody will look at
        end = -1;
    }
}

ssize_t Send(std::size_t size) {
    if (relay.kind == kPipe) {
        return splice(relay.source, nullptr, relay.output, nullptr, size, SPLICE_F_MOVE);
    }
    off_t offset = relay.offset;
    return sendfile(relay.output, relay.source, &offset, size);
}

}  // namespace

void StartRelay(int source) {
    relay.source = source;
    relay.output = fileno(stdout);
    relay.kind = KindOf(source, relay.output);
    relay.isRefused = false;
    relay.next = relay.end = nullptr;
    if (relay.kind == kFile) relay.offset = lseek(source, 0, SEEK_CUR);
}

ssize_t RelayRead(int file, char *block, std::size_t size) {
    if (file != relay.source || relay.kind == kNone || relay.isRefused) {
        return read(file, block, size);
    }
    const std::ptrdiff_t rest = relay.end - relay.next;
    if (rest > 0 && relay.kind == kPipe) return Fail();  // could not be skipped
    int arrived = 0;
    bool stays =
        relay.kind == kFile || (ioctl(file, FIONREAD, &arrived) == 0 && arrived >= kWorthwhile);
    ssize_t count = -1;
    if (stays && relay.kind == kPipe) {
        count = LookAt(file, block, size);
        stays = count >= 0 || errno == EINTR || errno == EAGAIN;  // GCOVR_EXCL_BR_LINE: fault
        if (!stays) Refuse();                                     // GCOVR_EXCL_BR_LINE: fault
    }
    if (!stays || relay.kind == kFile) count = read(file, block, size);
    if (stays && count > 0) {
        relay.next = block - rest;
        relay.end = block + count;
    }
    return count;
}

std::size_t KeepForRelay(std::string_view text) {
    const char *const end = text.data() + text.size();
    if (relay.isRefused || end <= relay.next || end > relay.end) return 0;
    if (relay.kept > 0 && text.data() != relay.next + relay.kept) return 0;
    const char *const begin = std::max(text.data(), relay.next);
    if (relay.kept == 0 && !SkipTo(begin)) return 0;  // GCOVR_EXCL_BR_LINE: fault
    const std::size_t size = static_cast<std::size_t>(end - begin);
    relay.kept += size;
    return size;
}

bool RelayKeepsText() {
    return relay.kept > 0;
}

std::string_view SendRelayed() {
    while (relay.kept > 0) {
        const ssize_t count = Send(relay.kept);
        if (count < 0 && errno == EINTR) continue;  // GCOVR_EXCL_BR_LINE: fault
        if (count <= 0) break;
        relay.next += count;
        relay.offset += count;
        relay.kept -= static_cast<std::size_t>(count);
    }
    if (relay.kept > 0) Refuse();
    return {relay.next, std::exchange(relay.kept, 0)};
}

void SkipRelayed() {
    const bool staysReadable = relay.kind == kFile && relay.end - relay.next <= kRelayRoom;
    if (!staysReadable) SkipTo(relay.end);
}

#else

void StartRelay(int) {}

ssize_t RelayRead(int file, char *block, std::size_t size) {
    return read(file, block, size);
}

std::size_t KeepForRelay(std::string_view) {
    return 0;
}

bool RelayKeepsText() {
    return false;
}

std::string_view SendRelayed() {
    return {};
}

void SkipRelayed() {}

#endif
