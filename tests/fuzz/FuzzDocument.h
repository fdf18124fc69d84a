// SPDX-License-Identifier: Apache-2.0
//
// Documents for the fuzz targets: bytes as they are, but that some stand for what a fuzzer would
// seldom hit upon, the text of a line that matters, the same with its line end, or filler about as
// long as the line buffer.
#pragma once

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "FrontEnd/ForeignPJL.h"
#include "Tables/SpecialLines.h"
#include "fuzz/Fuzz.h"
#include "support/FeatureLines.h"

// Of several line buffers at most, so that hundreds are read in a second.
inline std::string FuzzDocument(FuzzInput &input) {
    static const std::size_t features = FeatureLines().size();
    static const std::vector<std::string> lines = [] {
        std::vector<std::string> all = FeatureLines();
        for (const SpecialLine &special : specialLines) all.emplace_back(special.text);
        for (const DocumentComment &row : documentComments) all.emplace_back(row.text);
        all.emplace_back(kUniversalExit);
        return all;
    }();
    constexpr unsigned kFirstText = 0x80, kFirstLine = 0xC0, kFirstFiller = 0xE0;
    std::string document;
    while (!input.Empty() && document.size() < 5 * kLineBufferFull) {
        const unsigned byte = input.Byte();
        if (byte >= kFirstFiller) {
            document.append(kLineBufferFull - 8 + byte % 16, 'x');
        } else if (byte >= kFirstLine && byte - kFirstLine + features < lines.size()) {
            document += lines[byte - kFirstLine + features] + '\n';
        } else if (byte >= kFirstText && byte - kFirstText < lines.size()) {
            document += lines[byte - kFirstText];
        } else {
            document += static_cast<char>(byte);
        }
    }
    return document;
}

// A file that the process keeps, with the contents of one document after another.
class FuzzFile {
  public:
    FuzzFile() : descriptor_(mkstemp(path_)) {
        if (descriptor_ < 0) std::abort();
    }
    ~FuzzFile() {
        close(descriptor_);
        unlink(path_);
    }
    FuzzFile(const FuzzFile &) = delete;
    FuzzFile &operator=(const FuzzFile &) = delete;

    char *Path() { return path_; }

    void Put(const std::string &text) const {
        const bool done =
            ftruncate(descriptor_, 0) == 0 &&
            pwrite(descriptor_, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size());
        if (!done) std::abort();
    }

  private:
    char path_[32] = "/tmp/kvfilter-fuzz-XXXXXX";
    const int descriptor_;
};

struct FuzzOutput {
    std::string output;
    std::string errors;
    bool operator==(const FuzzOutput &) const = default;
};

// What `action` writes to stdout and stderr.
template <class Action>
FuzzOutput RunQuietly(Action action) {
    std::FILE *const saved[] = {stdout, stderr};
    char *texts[2] = {};
    std::size_t sizes[2] = {};
    stdout = open_memstream(&texts[0], &sizes[0]);
    stderr = open_memstream(&texts[1], &sizes[1]);
    action();
    std::fclose(stdout);
    std::fclose(stderr);
    stdout = saved[0];
    stderr = saved[1];
    const FuzzOutput result = {{texts[0], sizes[0]}, {texts[1], sizes[1]}};
    std::free(texts[0]);
    std::free(texts[1]);
    return result;
}
