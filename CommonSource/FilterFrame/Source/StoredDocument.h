// SPDX-License-Identifier: Apache-2.0
//
// What has been stored goes to standard output page by page, without being read again where the
// system can do that: where the pages end was written down while they were stored.
#pragma once

#include <sys/types.h>

#include <cstddef>

// A place in a stored document where a cancelled job may end.
struct PageEnd {
    off_t offset;  // of the byte that follows; less than 0 if that could not be told
    int pages;     // how many pages have ended by then
    int copies;    // of a page, that the printer makes
};

// The page ends of a document, in their order. There is room for as many as any press prints at a
// time; of more, only every second is kept, then every fourth and so on.
class PageEnds {
  public:
    void Add(const PageEnd &pageEnd);
    const PageEnd *begin() const { return pageEnds_; }
    const PageEnd *end() const { return pageEnds_ + count_; }

  private:
    static constexpr std::size_t kMost = 8192;

    std::size_t count_ = 0;
    std::size_t stride_ = 1;   // one of so many is kept
    std::size_t skipped_ = 0;  // since the last one
    PageEnd pageEnds_[kMost];
};

// Sends the bytes of `file` from `from` to `to`, or to its end if that comes before, to standard
// output but not into the job copy. Returns 0, or the errno of a read that failed, or ECANCELED if
// a cancelled job became overdue (FrontEnd/Cancel.h). What cannot be written is noted as ever
// (OutputWriter.h).
int SendStored(int file, off_t from, off_t to);
