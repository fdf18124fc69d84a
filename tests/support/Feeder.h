// SPDX-License-Identifier: Apache-2.0
//
// A pipe that delivers a text in pieces of given sizes, from a thread of its own.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <csignal>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

class Feeder {
  public:
    // `sizes` are the bytes of the pieces, taken over and over.
    Feeder(std::string text, std::vector<std::size_t> sizes) {
        int ends[2];
        if (pipe(ends) != 0) throw std::runtime_error("pipe");
        signal(SIGPIPE, SIG_IGN);
        read_ = ends[0];
        thread_ = std::thread([write = ends[1], text = std::move(text), sizes = std::move(sizes)] {
            std::size_t sent = 0;
            for (std::size_t i = 0; sent < text.size(); i++) {
                const std::size_t size = std::min(sizes[i % sizes.size()], text.size() - sent);
                const ssize_t count = ::write(write, text.data() + sent, size);
                if (count < 0) break;
                sent += static_cast<std::size_t>(count);
            }
            close(write);
        });
    }
    ~Feeder() {
        close(read_);
        thread_.join();
    }
    Feeder(const Feeder &) = delete;
    Feeder &operator=(const Feeder &) = delete;

    int ReadEnd() const { return read_; }

  private:
    int read_;
    std::thread thread_;
};
