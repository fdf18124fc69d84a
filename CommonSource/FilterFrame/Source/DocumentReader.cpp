// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/DocumentReader.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <cassert>
#include <cerrno>
#include <cstring>

#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "FrontEnd/Cancel.h"
#include "FrontEnd/ForeignPJL.h"
#include "FrontEnd/FrontEnd.h"
#include "FrontEnd/Messages.h"

namespace {

constexpr char kUnread[] = "could not be read";

constexpr std::string_view kBeginFeature = "%%BeginFeature:";

// Settings that the printer's PostScript carries on one line, all of a group together.
constexpr std::string_view kScreenSettings[] = {"TSCR", "GSCR", "ISCR", "TTRC", "GTRC", "ITRC"};
constexpr std::string_view kColorSettings[] = {"TCPR", "GCPR", "ICPR"};

// A signal that comes right before a wait does not end it, so that no wait is longer than this.
constexpr int kLongestWait = 1000;  // milliseconds

// Waits until a read would not have to, for `timeout` milliseconds at most and until a signal
// comes. True also if only a read can tell what is wrong.
bool AwaitInput(int file, int timeout) {
    pollfd input = {file, POLLIN, 0};
    const int count = poll(&input, 1, timeout);
    return count > 0 || file < 0 || (count < 0 && errno != EINTR);  // GCOVR_EXCL_BR_LINE: fault
}

LineSearch::Search SearchOf(DocumentReader::Mode mode, const LineSearch &search) {
    switch (mode) {
        case DocumentReader::kFeatures:
            return search.findSpecialOrSettingsLine;
        case DocumentReader::kComments:
            return search.findCommentLine;
        case DocumentReader::kFeaturesAndComments:
            return search.findCommentOrSettingsLine;
        default:
            return search.findSpecialLine;
    }
}

bool KnowsComments(DocumentReader::Mode mode) {
    return mode == DocumentReader::kComments || mode == DocumentReader::kFeaturesAndComments;
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

DocumentPiece PieceOfLine(std::string_view line) {
    const std::size_t end = line.find_last_not_of("\r\n") + 1;
    const std::string_view text = line.substr(0, end);
    const Comment comment = FindComment(text);
    if (comment != Comment::kNone) return {DocumentPiece::kComment, line, nullptr, comment};
    const SpecialLine *special = FindSpecialLine(text);
    return {special ? DocumentPiece::kSpecial : DocumentPiece::kLine, line, special};
}

DocumentReader::DocumentReader(int file, Mode mode, void (*beforeWaiting)(),
                               const LineSearch &search)
    : file_(file),
      mode_(mode),
      beforeWaiting_(beforeWaiting),
      search_(search),
      findLine_(SearchOf(mode, search)) {
    std::memset(buffer_, '\n', kRoom);  // the search looks back, and a document starts with a line
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
    return error_ == 0 && KnowsComments(mode_) && TakeLastLine(piece);
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
    PassData();
    while (scan_ != limit_) {
        const bool hasSigns = lineMayMatter_ || lineIsAsked_;
        const char *hit = (hasSigns ? search_.findLineEnd : findLine_)(scan_, limit_);
        if (hit == limit_) break;
        scan_ = hit + 1;
        lineMayMatter_ = !IsLineEnd(*hit);
        if (!lineMayMatter_ && Recognise(hit, hasSigns, line)) {
            PassLine(line.text);
            return true;
        }
    }
    scan_ = limit_;
    const bool hasSigns = lineMayMatter_ || lineIsAsked_;
    const char *start = lineStart_;
    if (!hasSigns || !FindExitInLongLine(start, limit_, line)) return false;
    PassLine(line.text);
    return true;
}

// Goes on after `line`, which is recognised. Of a long one that may be a part.
void DocumentReader::PassLine(std::string_view line) {
    lineStart_ = searched_ = scan_ = line.data() + line.size();
    lineMayMatter_ = !IsLineEnd(line.back());
    lineIsAsked_ = false;
    assert(PlacesAreInOrder());
}

// Bytes that are passed on of a line from `start` to `end` that is not all of it; 0 if they do not
// fill the line buffer.
std::size_t DocumentReader::LengthOfPart(const char *start, const char *end) const {
    if (end - start < static_cast<std::ptrdiff_t>(kLineBufferFull)) return 0;
    return kLineBufferFull - (KnowsComments(mode_) ? PJLBegunAtEnd({start, kLineBufferFull}) : 0);
}

// Passes by the parts of a long line up to one that may take the printer out of PostScript; false
// if there is none. `start` becomes the start of the line's last part.
bool DocumentReader::FindExitInLongLine(const char *&start, const char *end,
                                        DocumentPiece &part) const {
    start = LineStart(start, end);
    while (const std::size_t length = LengthOfPart(start, end)) {
        part = {DocumentPiece::kExit, {start, length}, nullptr};
        if (KnowsComments(mode_) && part.text.find(kUniversalExit) != part.text.npos) return true;
        start += length;
    }
    return false;
}

// Whether the line that ends at `lineEnd` is a special one or, if the search has seen signs of it,
// holds feature code or settings.
bool DocumentReader::Recognise(const char *lineEnd, bool hasSigns, DocumentPiece &line) const {
    const char *start = lineStart_;
    if (FindExitInLongLine(start, lineEnd, line)) return true;
    const std::string_view text(start, static_cast<std::size_t>(lineEnd - start));
    line = {DocumentPiece::kSpecial, {start, text.size() + 1}, nullptr};
    if (hasSigns && KnowsComments(mode_) && RecogniseComment(text, line)) return true;
    if (text.size() <= kLongestSpecialLine) line.special = FindSpecialLine(text);
    if (line.special) return true;
    if (!hasSigns) return false;
    if (mode_ == kFeatures || mode_ == kFeaturesAndComments) {
        line.kind = DocumentPiece::kFeature;
        if (text.starts_with(kBeginFeature)) return true;
        line.kind = DocumentPiece::kSettings;
        if (HoldsAll(text, kScreenSettings) || HoldsAll(text, kColorSettings)) return true;
    }
    line.kind = DocumentPiece::kLine;
    return lineIsAsked_;
}

// Whether the line of `text`, which is the rest of one if that was longer than the line buffer, may
// take the printer out of PostScript, if need be in a comment, or is a comment.
bool DocumentReader::RecogniseComment(std::string_view text, DocumentPiece &line) {
    if (text.find(kUniversalExit) != text.npos) {
        line.kind = DocumentPiece::kExit;
        return true;
    }
    if (IsLineEnd(*(text.data() - 1))) line.comment = FindComment(text);
    if (line.comment == Comment::kNone) return false;
    line.kind = DocumentPiece::kComment;
    return true;
}

// Takes what the search has passed, but for the line that it is in.
bool DocumentReader::TakeRun(DocumentPiece &piece) {
    // The line that an earlier search was in has its start; only what is new may hold a later one.
    const char *first = std::max(lineStart_, searched_);
    const char *start = LineStart(first, scan_);
    if (start != first) lineStart_ = start;
    searched_ = scan_;
    while (const std::size_t length = LengthOfPart(lineStart_, scan_)) lineStart_ += length;
    piece = {DocumentPiece::kRun, {begin_, static_cast<std::size_t>(lineStart_ - begin_)}, nullptr};
    begin_ = lineStart_;
    assert(PlacesAreInOrder());
    return !piece.text.empty();
}

// Takes what follows the last line end, at the end of the document.
bool DocumentReader::TakeLastLine(DocumentPiece &piece) {
    if (begin_ == end_) return false;
    if (!Recognise(end_, true, piece)) piece.kind = DocumentPiece::kLine;
    piece.text.remove_suffix(1);
    begin_ = lineStart_ = scan_ = end_;
    return true;
}

void DocumentReader::PassBy(std::uint64_t bytes, std::uint64_t lines) {
    dataBytes_ = bytes;
    dataLines_ = lines;
    afterReturn_ = scan_[-1] == '\r';
}

// Passes by the data that have arrived.
void DocumentReader::PassData() {
    if (dataBytes_ == 0 && dataLines_ == 0) return;
    while (scan_ != limit_ && (dataBytes_ > 0 || dataLines_ > 0)) {
        const bool isSecondByte = afterReturn_ && *scan_ == '\n';
        afterReturn_ = false;
        if (isSecondByte) {
            scan_++;
        } else if (dataBytes_ > 0) {
            const auto arrived = static_cast<std::uint64_t>(limit_ - scan_);
            const std::uint64_t bytes = std::min(dataBytes_, arrived);
            scan_ += bytes;
            dataBytes_ -= bytes;
        } else if (const char *lineEnd = search_.findLineEnd(scan_, limit_); lineEnd != limit_) {
            scan_ = lineEnd + 1;
            dataLines_--;
            afterReturn_ = *lineEnd == '\r';
        } else {
            scan_ = limit_;
        }
    }
    lineStart_ = searched_ = scan_;
}

// Reads what has arrived, or else waits for it. Returns the bytes read; 0 at the end or with
// error_.
std::size_t DocumentReader::ReadBlock(char *block) {
    bool isReady = AwaitInput(file_, 0);
    if (!isReady && beforeWaiting_) beforeWaiting_();
    for (;; isReady = false) {
        isReady = isReady || AwaitInput(file_, kLongestWait);
        if (CancelIsOverdue()) {
            error_ = ECANCELED;
            return 0;
        }
        if (!isReady) continue;
        const ssize_t count = RelayRead(file_, block, kBlock);
        if (count >= 0) return static_cast<std::size_t>(count);
        if (errno == EINTR || errno == EAGAIN) continue;  // GCOVR_EXCL_BR_LINE: fault
        error_ = errno;
        return 0;
    }
}

// Moves the unfinished line in front of the block and reads into that what has arrived.
bool DocumentReader::Refill() {
    FinishRelayedBlock();
    const std::size_t rest = static_cast<std::size_t>(end_ - begin_);
    const std::size_t withheld = static_cast<std::size_t>(end_ - limit_);
    char *block = buffer_ + kRoom;
    std::memmove(block - rest - kLookBack, begin_ - kLookBack, rest + kLookBack);
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
