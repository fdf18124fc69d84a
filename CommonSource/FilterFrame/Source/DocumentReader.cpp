// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/DocumentReader.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstring>

#include "FrontEnd/Cancel.h"
#include "FrontEnd/FrontEnd.h"
#include "FrontEnd/Messages.h"

namespace {

constexpr char kUnread[] = "could not be read";

constexpr std::string_view kBeginFeature = "%%BeginFeature:";

// Settings that the printer's PostScript carries on one line, all of a group together.
constexpr std::string_view kScreenSettings[] = {"TSCR", "GSCR", "ISCR", "TTRC", "GTRC", "ITRC"};
constexpr std::string_view kColorSettings[] = {"TCPR", "GCPR", "ICPR"};

bool IsLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

// A signal that comes right before a wait does not end it, so that no wait is longer than this.
constexpr int kLongestWait = 1000;  // milliseconds

// Waits until a read would not have to, for `timeout` milliseconds at most and until a signal
// comes. True also if only a read can tell what is wrong.
bool AwaitInput(int file, int timeout) {
    pollfd input = {file, POLLIN, 0};
    const int count = poll(&input, 1, timeout);
    return count > 0 || file < 0 || (count < 0 && errno != EINTR);
}

template <std::size_t count>
bool HoldsAll(std::string_view line, const std::string_view (&names)[count]) {
    return std::all_of(names, names + count, [line](std::string_view name) {
        return memmem(line.data(), line.size(), name.data(), name.size()) != nullptr;
    });
}

}  // namespace

int OpenDocument(bool fromStandardInput, char *const argv[]) {
    if (fromStandardInput) return STDIN_FILENO;
    const int file = open(argv[6], O_RDONLY | O_CLOEXEC);
    if (file < 0) ReportError(argv[6], kUnread, errno);
    return file;
}

const char *DocumentName(bool fromStandardInput, char *const argv[]) {
    return fromStandardInput ? "Standard input" : argv[6];
}

bool DocumentIsCut(const char *name, int error) {
    if (!FrontEndIsCUPS() || error == 0) return false;
    if (error != ECANCELED) ReportError(name, kUnread, error);
    return true;
}

DocumentReader::DocumentReader(int file, Mode mode, void (*beforeWaiting)(),
                               const LineSearch &search)
    : file_(file), mode_(mode), beforeWaiting_(beforeWaiting), search_(search) {
    std::memset(buffer_, 0, kRoom);  // the search looks back
}

bool DocumentReader::PlacesAreInOrder() const {
    const char *const places[] = {buffer_, begin_, lineStart_,       scan_,
                                  limit_,  end_,   std::end(buffer_)};
    return std::is_sorted(std::begin(places), std::end(places)) && searched_ <= scan_;
}

bool DocumentReader::Next(DocumentPiece &piece) {
    if (hasPending_) {
        hasPending_ = false;
        piece = pending_;
        return true;
    }
    do {
        DocumentPiece line;
        if (FindRecognisedLine(line)) {
            const char *start = line.text.data();
            const bool afterRun = start != begin_;
            piece = afterRun ? DocumentPiece{DocumentPiece::kRun,
                                             {begin_, static_cast<std::size_t>(start - begin_)},
                                             nullptr}
                             : line;
            pending_ = line;
            hasPending_ = afterRun;
            begin_ = scan_;
            return true;
        }
        if (TakeRun(piece)) return true;
    } while (Refill());
    return false;
}

int DocumentReader::LastByte() const {
    return limit_ == end_ ? -1 : static_cast<unsigned char>(*limit_);
}

// The start of the line that ends at `end`: after the line end before it, or `first`. Long lines
// are passed piece by piece at the speed of the search.
const char *DocumentReader::LineStart(const char *first, const char *end) const {
    constexpr std::ptrdiff_t kPiece = 1024;
    while (end - first > kPiece && search_.findLineEnd(end - kPiece, end) == end) end -= kPiece;
    while (end != first && !IsLineEnd(end[-1])) end--;
    return end;
}

// Searches what has arrived for the next recognised line; if there is one, the search has then
// reached the line after it, else all that has arrived.
bool DocumentReader::FindRecognisedLine(DocumentPiece &line) {
    const LineSearch::Search findLine =
        mode_ == kFeatures ? search_.findSpecialOrSettingsLine : search_.findSpecialLine;
    while (scan_ != limit_) {
        const char *hit = (lineMayMatter_ ? search_.findLineEnd : findLine)(scan_, limit_);
        if (hit == limit_) break;
        scan_ = hit + 1;
        const bool hasSigns = lineMayMatter_;
        lineMayMatter_ = !IsLineEnd(*hit);
        if (!lineMayMatter_ && Recognise(hit, hasSigns, line)) {
            lineStart_ = scan_;
            assert(PlacesAreInOrder());
            return true;
        }
    }
    scan_ = limit_;
    return false;
}

// Whether the line that ends at `lineEnd` is a special one or, if the search has seen signs of it,
// holds feature code or settings.
bool DocumentReader::Recognise(const char *lineEnd, bool hasSigns, DocumentPiece &line) const {
    const char *start = LineStart(lineStart_, lineEnd);
    const std::size_t length = static_cast<std::size_t>(lineEnd - start);
    start += length / kLineBufferFull * kLineBufferFull;
    const std::string_view text(start, static_cast<std::size_t>(lineEnd - start));
    line = {DocumentPiece::kSpecial, {start, text.size() + 1}, nullptr};
    if (text.size() <= kLongestSpecialLine) line.special = FindSpecialLine(text);
    if (line.special) return true;
    if (!hasSigns) return false;
    line.kind = DocumentPiece::kFeature;
    if (text.starts_with(kBeginFeature)) return true;
    line.kind = DocumentPiece::kSettings;
    return HoldsAll(text, kScreenSettings) || HoldsAll(text, kColorSettings);
}

// Takes what the search has passed, but for the line that it is in.
bool DocumentReader::TakeRun(DocumentPiece &piece) {
    // The line that an earlier search was in has its start; only what is new may hold a later one.
    const char *first = std::max(lineStart_, searched_);
    const char *start = LineStart(first, scan_);
    if (start != first) lineStart_ = start;
    searched_ = scan_;
    lineStart_ += static_cast<std::size_t>(scan_ - lineStart_) / kLineBufferFull * kLineBufferFull;
    piece = {DocumentPiece::kRun, {begin_, static_cast<std::size_t>(lineStart_ - begin_)}, nullptr};
    begin_ = lineStart_;
    assert(PlacesAreInOrder());
    return !piece.text.empty();
}

// Reads what has arrived, or else waits for it. Returns the bytes read; 0 at the end or with
// error_.
std::size_t DocumentReader::ReadBlock(char *block) {
    if (beforeWaiting_ && !AwaitInput(file_, 0)) beforeWaiting_();
    while (true) {
        const bool isReady = AwaitInput(file_, kLongestWait);
        if (CancelIsOverdue()) {
            error_ = ECANCELED;
            return 0;
        }
        if (!isReady) continue;
        const ssize_t count = read(file_, block, kBlock);
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno == EINTR || errno == EAGAIN) continue;
        error_ = errno;
        return 0;
    }
}

// Moves the unfinished line in front of the block and reads into that what has arrived.
bool DocumentReader::Refill() {
    const std::size_t rest = static_cast<std::size_t>(end_ - begin_);
    const std::size_t withheld = static_cast<std::size_t>(end_ - limit_);
    char *block = buffer_ + kRoom;
    std::memmove(block - rest, begin_, rest);
    begin_ = lineStart_ = block - rest;
    searched_ = scan_ = limit_ = block - withheld;
    end_ = block;

    const std::size_t count = ReadBlock(block);
    if (count == 0) return false;
    end_ = block + count;
    limit_ = mode_ == kFeatures ? end_ - 1 : end_;
    assert(PlacesAreInOrder());
    return true;
}
