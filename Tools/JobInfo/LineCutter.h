// SPDX-License-Identifier: Apache-2.0
//
// Cuts a stream of bytes into the lines of a job. The universal exit language begins a line
// wherever it stands: trailers follow the last byte of a document, not its last line end.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

class LineCutter {
  public:
    // Bytes of a line that are handed out before its end is seen.
    static constexpr std::size_t kLongestLine = 65536;

    // Adds what has arrived.
    void Add(std::string_view bytes);

    // Says that nothing more will arrive.
    void End() { ended_ = true; }

    // Stores the next line, its end included; it stays until the next call of Add. A line ends with
    // a line feed, and in PostScript (`isDocument`) with a carriage return too. False if its end
    // has not arrived.
    bool Next(bool isDocument, std::string_view &line);

    // Where in the stream the next line begins.
    std::uint64_t Offset() const { return offset_; }

  private:
    // A byte that lines may end at, and where it was found last.
    struct Mark {
        char byte;
        std::size_t place;
    };
    std::size_t Find(Mark &mark);
    std::size_t FindExitLanguage();

    std::string bytes_;
    std::size_t begin_ = 0;  // of the next line, in bytes_
    std::uint64_t offset_ = 0;
    bool ended_ = false;
    Mark lineFeed_{'\n', 0}, carriageReturn_{'\r', 0}, escape_{'\x1b', 0};
};
