// SPDX-License-Identifier: Apache-2.0
//
// The pieces of the document path, one by one.
#include <benchmark/benchmark.h>
#include <sys/mman.h>
#include <unistd.h>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "Documents.h"

namespace {

constexpr const char *kKinds[] = {"short", "long", "ascii85", "features"};

// How fast a search runs through a document, looked at block by block.
void Search(benchmark::State &state, const LineSearch *search, LineSearch::Search find,
            const char *kind) {
    const std::string document = "  " + DocumentBlock(kind);
    const char *end = document.data() + document.size();
    std::size_t hits = 0;
    for (auto _ : state) {
        const char *at = document.data() + kLookBack;
        while ((at = find(at, end)) != end) {
            at++;
            hits++;
        }
    }
    benchmark::DoNotOptimize(hits);
    state.SetLabel(search->name);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

// The reader over a document in memory.
void Read(benchmark::State &state, const LineSearch *search, DocumentReader::Mode mode,
          const char *kind) {
    const std::string document = DocumentBlock(kind);
    const int file = memfd_create("document", MFD_CLOEXEC);
    if (write(file, document.data(), document.size()) < 0) state.SkipWithError("write");
    for (auto _ : state) {
        lseek(file, 0, SEEK_SET);
        DocumentReader reader(file, mode, nullptr, *search);
        DocumentPiece piece;
        while (reader.Next(piece)) benchmark::DoNotOptimize(piece.text.data());
    }
    close(file);
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document.size()));
}

const int registered = [] {
    for (const LineSearch *const *s = AllLineSearches(); *s; s++) {
        for (const char *kind : kKinds) {
            const std::string what = std::string("/") + kind + "/" + (*s)->name;
            benchmark::RegisterBenchmark(("findSpecialLine" + what).c_str(), Search, *s,
                                         (*s)->findSpecialLine, kind);
            benchmark::RegisterBenchmark(("findSpecialOrSettingsLine" + what).c_str(), Search, *s,
                                         (*s)->findSpecialOrSettingsLine, kind);
            benchmark::RegisterBenchmark(("findCommentLine" + what).c_str(), Search, *s,
                                         (*s)->findCommentLine, kind);
            benchmark::RegisterBenchmark(("readPlain" + what).c_str(), Read, *s,
                                         DocumentReader::kPlain, kind);
            benchmark::RegisterBenchmark(("readFeatures" + what).c_str(), Read, *s,
                                         DocumentReader::kFeatures, kind);
            benchmark::RegisterBenchmark(("readComments" + what).c_str(), Read, *s,
                                         DocumentReader::kComments, kind);
        }
    }
    return 0;
}();

}  // namespace
