// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/Relay.h"

#include <unistd.h>

#ifdef __linux__
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <utility>

#include "CommonSource/FilterFrame/Source/PipeCapacity.h"

namespace {

// Bytes that must have arrived for a relay to be faster than reading them.
constexpr unsigned kWorthwhile = 32 * 1024;

class Pipe {
  public:
    bool Open() {
        if (In() >= 0) return true;
        if (pipe2(ends_, O_CLOEXEC) != 0) return false;  // GCOVR_EXCL_BR_LINE: fault
        WidenPipe(In());
        return true;
    }

    void Close() {
        for (int &end : ends_) {
            if (end >= 0) close(end);
            end = -1;
        }
    }

    int Out() const { return ends_[0]; }
    int In() const { return ends_[1]; }

    // Reads `size` bytes, which must be there.
    bool Read(char *memory, std::size_t size) const {
        while (size > 0) {
            const ssize_t count = read(Out(), memory, size);
            if (count < 0 && errno == EINTR) continue;  // GCOVR_EXCL_BR_LINE: fault
            if (count <= 0) return false;               // GCOVR_EXCL_BR_LINE: fault
            memory += count;
            size -= static_cast<std::size_t>(count);
        }
        return true;
    }

  private:
    int ends_[2] = {-1, -1};
};

struct {
    int source = -1;  // what is relayed, or -1
    int output = -1;
    Pipe held;                   // holds the document from `next` to `end`
    Pipe copies;                 // brings the copies to look at
    const char *next = nullptr;  // in memory: the first byte that is held
    const char *end = nullptr;   // end of the block
    std::size_t kept = 0;        // bytes at `next` that are to be sent
} relay;

bool CanBeRelayed(int source, int output) {
    struct stat from, to;
    if (fstat(source, &from) != 0 || fstat(output, &to) != 0) return false;
    if (!S_ISFIFO(to.st_mode) || !(S_ISFIFO(from.st_mode) || S_ISREG(from.st_mode))) return false;
    return relay.held.Open() && relay.copies.Open();  // GCOVR_EXCL_BR_LINE: fault
}

// From now on the document is read and written as usual.
void Refuse() {
    relay.source = -1;
    relay.next = relay.end = nullptr;
    relay.held.Close();
    relay.copies.Close();
}

// Drops what will not be sent.
void SkipTo(const char *text) {
    char scratch[8192];
    while (relay.next != text) {
        const auto left = static_cast<std::size_t>(text - relay.next);
        const std::size_t size = std::min(left, sizeof scratch);
        if (!relay.held.Read(scratch, size)) return Refuse();  // GCOVR_EXCL_BR_LINE: fault
        relay.next += size;
    }
}

// Whether enough has arrived. Of a file that is what follows, modulo 4 GB.
bool IsWorthwhile(int source) {
    unsigned arrived = 0;
    return ioctl(source, FIONREAD, &arrived) == 0 && arrived >= kWorthwhile;
}

// Copies what is held into `memory`.
bool LookAtHeld(char *memory, std::size_t size) {
    const ssize_t count = tee(relay.held.Out(), relay.copies.In(), size, 0);
    return count == static_cast<ssize_t>(size) && relay.copies.Read(memory, size);
}

// Holds what has arrived, and copies it into `block`. Returns what read(2) would; if what has been
// taken from the source cannot be had, less than 0 and the relay is refused.
ssize_t Hold(int source, char *block, std::size_t size) {
    const ssize_t count =
        splice(source, nullptr, relay.held.In(), nullptr, size, SPLICE_F_MOVE | SPLICE_F_NONBLOCK);
    if (count <= 0) return count;
    char *const held = block - (relay.end - relay.next);
    relay.next = held;
    relay.end = block + count;
    const auto heldSize = static_cast<std::size_t>(relay.end - held);
    if (LookAtHeld(held, heldSize)) return count;  // GCOVR_EXCL_BR_LINE: fault
    // GCOVR_EXCL_START: fault
    const bool isRead = relay.held.Read(held, heldSize);
    Refuse();
    errno = EIO;
    return isRead ? count : -1;
}  // GCOVR_EXCL_STOP

}  // namespace

void StartRelay(int source) {
    SkipTo(relay.end);
    relay.output = fileno(stdout);
    relay.source = CanBeRelayed(source, relay.output) ? source : -1;
}

ssize_t RelayRead(int file, char *block, std::size_t size) {
    if (file == relay.source && IsWorthwhile(file)) {
        const ssize_t count = Hold(file, block, size);
        if (count >= 0 || relay.source < 0) return count;  // GCOVR_EXCL_BR_LINE: fault
        // Full with very small pieces, or nothing has arrived after all; a read tells.
        if (errno != EAGAIN && errno != EINTR) Refuse();  // GCOVR_EXCL_BR_LINE: fault
    }
    SkipTo(relay.end);
    return read(file, block, size);
}

std::size_t KeepForRelay(std::string_view text) {
    const char *const end = text.data() + text.size();
    if (end <= relay.next || end > relay.end) return 0;
    if (relay.kept > 0 && text.data() != relay.next + relay.kept) return 0;
    const char *const begin = std::max(text.data(), relay.next);
    if (relay.kept == 0) SkipTo(begin);
    if (relay.end == nullptr) return 0;  // GCOVR_EXCL_BR_LINE: fault
    const std::size_t size = static_cast<std::size_t>(end - begin);
    relay.kept += size;
    return size;
}

bool RelayKeepsText() {
    return relay.kept > 0;
}

std::string_view SendRelayed() {
    while (relay.kept > 0) {
        const ssize_t count =
            splice(relay.held.Out(), nullptr, relay.output, nullptr, relay.kept, SPLICE_F_MOVE);
        if (count < 0 && errno == EINTR) continue;  // GCOVR_EXCL_BR_LINE: fault
        if (count <= 0) break;
        relay.next += count;
        relay.kept -= static_cast<std::size_t>(count);
    }
    const std::string_view rest(relay.next, std::exchange(relay.kept, 0));
    if (!rest.empty()) Refuse();
    return rest;
}

void SkipRelayed() {
    if (relay.end - relay.next > kRelayRoom) SkipTo(relay.end);
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
