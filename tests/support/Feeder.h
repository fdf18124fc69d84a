// SPDX-License-Identifier: Apache-2.0
//
// A pipe that delivers a text in pieces of given sizes, each when its reader has nothing left to
// read, so that every run reads the same pieces.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "CommonSource/FilterFrame/Source/PipeCapacity.h"

class Feeder {
  public:
    // `sizes` are the bytes of the pieces, taken over and over.
    Feeder(std::string text, std::vector<std::size_t> sizes)
        : text_(std::move(text)), rest_(text_), sizes_(std::move(sizes)) {
        int ends[2];
        if (pipe(ends) != 0) throw std::runtime_error("pipe");
        read_ = ends[0];
        write_ = ends[1];
        WidenPipe(write_);
        fcntl(write_, F_SETFL, O_NONBLOCK);
        feeding_ = this;
    }
    ~Feeder() {
        if (write_ >= 0) close(write_);
        close(read_);
        feeding_ = nullptr;
    }
    Feeder(const Feeder &) = delete;
    Feeder &operator=(const Feeder &) = delete;

    int ReadEnd() const { return read_; }

    // What the reader calls before it waits.
    static void Feed() { feeding_->FeedPiece(); }

  private:
    // The next piece, or what the pipe holds of it; after the last, the end.
    void FeedPiece() {
        if (rest_.empty()) {
            close(write_);
            write_ = -1;
            return;
        }
        if (piece_ == 0) piece_ = std::min(sizes_[next_++ % sizes_.size()], rest_.size());
        const ssize_t count = write(write_, rest_.data(), piece_);
        if (count < 0) throw std::runtime_error("write");
        rest_.remove_prefix(static_cast<std::size_t>(count));
        piece_ -= static_cast<std::size_t>(count);
    }

    static inline Feeder *feeding_ = nullptr;  // there is one at a time
    const std::string text_;
    std::string_view rest_;  // what is not delivered yet
    const std::vector<std::size_t> sizes_;
    std::size_t next_ = 0;   // of sizes_, over and over
    std::size_t piece_ = 0;  // bytes that are left of the current piece
    int read_ = -1, write_ = -1;
};
