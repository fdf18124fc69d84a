// SPDX-License-Identifier: Apache-2.0
//
// What the fuzz targets share. A target takes bytes that a fuzzer makes up, and ends the process
// when something that must hold does not; the sanitizers end it for the rest. Linked with libFuzzer
// (scripts/fuzz) the bytes are sought by coverage; linked with Replay.cpp they come from files, so
// that every test run repeats what was ever found.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

// Ends the process if `holds` is false.
#define FUZZ_CHECK(holds)                                                                   \
    do {                                                                                    \
        if (!(holds)) {                                                                     \
            std::fprintf(stderr, "%s:%d: does not hold: %s\n", __FILE__, __LINE__, #holds); \
            std::abort();                                                                   \
        }                                                                                   \
    } while (false)

// Takes an input apart, from the front. An empty input gives zeros and empty texts.
class FuzzInput {
  public:
    FuzzInput(const std::uint8_t *data, std::size_t size)
        : rest_(reinterpret_cast<const char *>(data), size) {}

    bool Empty() const { return rest_.empty(); }

    unsigned Byte() {
        if (rest_.empty()) return 0;
        const unsigned char byte = static_cast<unsigned char>(rest_.front());
        rest_.remove_prefix(1);
        return byte;
    }

    // A number below `limit`, at most 65536.
    std::size_t Below(std::size_t limit) {
        const std::size_t number = limit > 256 ? Byte() * 256U + Byte() : Byte();
        return number % limit;
    }

    // The bytes up to the next 0xFF, which no UTF-8 text holds, or the end.
    std::string Text() {
        const std::size_t length = rest_.find('\xFF');
        std::string text(rest_.substr(0, length));
        rest_.remove_prefix(length == std::string_view::npos ? rest_.size() : length + 1);
        return text;
    }

    // All that is left.
    std::string Rest() {
        std::string text(rest_);
        rest_ = {};
        return text;
    }

  private:
    std::string_view rest_;
};
