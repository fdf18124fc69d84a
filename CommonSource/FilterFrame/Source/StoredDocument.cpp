// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/StoredDocument.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>

#ifdef __linux__
#include <sys/sendfile.h>
#endif

#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "FrontEnd/Cancel.h"

namespace {

// Sends some bytes within the kernel and moves `offset` past them. Returns 0 or less where that
// does not go on.
ssize_t SendInKernel(int file, off_t &offset, std::size_t size) {
#ifdef __linux__
    return sendfile(fileno(stdout), file, &offset, size);
#else
    (void)file, (void)offset, (void)size;
    errno = ENOSYS;
    return -1;
#endif
}

// The same through this process. Returns 0 at the end of the file.
ssize_t Copy(int file, off_t &offset, std::size_t size) {
    char block[65536];
    const ssize_t count = pread(file, block, std::min(size, sizeof block), offset);
    if (count <= 0) return count;
    WriteUncopied(block, static_cast<std::size_t>(count), stdout);
    offset += count;
    return count;
}

}  // namespace

void PageEnds::Add(const PageEnd &pageEnd) {
    if (pageEnd.offset < 0 || ++skipped_ < stride_) return;
    skipped_ = 0;
    if (count_ == kMost) {
        count_ /= 2;
        for (std::size_t i = 0; i < count_; i++) pageEnds_[i] = pageEnds_[2 * i + 1];
        stride_ *= 2;
        skipped_ = stride_ / 2;
        return;
    }
    pageEnds_[count_++] = pageEnd;
}

int SendStored(int file, off_t from, off_t to) {
    auto *send = KVfflush(stdout) == 0 ? SendInKernel : Copy;
    while (from < to && !OutputHasFailed(stdout)) {
        if (CancelIsOverdue()) return ECANCELED;
        const ssize_t count = send(file, from, static_cast<std::size_t>(to - from));
        if (count > 0 || (count < 0 && errno == EINTR)) continue;  // GCOVR_EXCL_BR_LINE: fault
        if (send == Copy) return count == 0 ? 0 : errno;
        send = Copy;  // the output does not take it this way, or a read tells what is wrong
    }
    KVfflush(stdout);
    return 0;
}
