// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/JobDecoder.h"

#include <algorithm>
#include <utility>

#include "Tools/JobInfo/ForeignData.h"
#include "Tools/JobInfo/HeaderLines.h"
#include "Tools/JobInfo/PJLLine.h"
#include "Tools/JobInfo/Text.h"

namespace {

constexpr std::string_view kXML = "<?xml";
constexpr std::string_view kPostScript = "%!";
constexpr std::string_view kControlD = "\x04";
constexpr std::size_t kMostLines = 2000;    // of a header that are kept
constexpr std::size_t kMostProblems = 100;  // that are kept
constexpr std::size_t kShownBytes = 40;     // of a line, in a sentence about it
constexpr std::size_t kKeptBytes = 1024;    // of a line of the header

constexpr std::string_view kTrailer = "\x1b%-12345X@PJL EOJ\n";

std::string_view WithoutLineEnd(std::string_view line) {
    while (line.ends_with('\n') || line.ends_with('\r')) line.remove_suffix(1);
    return line;
}

bool IsTrailer(std::string_view line) {
    return line.starts_with(kExitLanguage) &&
           ParsePJL(WithoutLineEnd(line)).row == FindPJLName(kPJLCommand, "EOJ");
}

std::string Quoted(std::string_view line) {
    return '"' + Visible(MaskSecret(line.substr(0, kShownBytes))) + '"';
}

}  // namespace

JobDecoder::JobDecoder(std::function<void(std::string_view)> document)
    : documentTaker_(std::move(document)), notes_(job_.document) {}

void JobDecoder::Feed(std::string_view bytes) {
    job_.size += bytes.size();
    if (state_ == State::kForeign || state_ == State::kOver) return;
    cutter_.Add(bytes);
    TakeLines();
}

void JobDecoder::TakeLines() {
    std::string_view line;
    for (;;) {
        const std::uint64_t offset = cutter_.Offset();
        const bool isDocument = state_ == State::kDocument || job_.document.isCopy;
        if (!cutter_.Next(isDocument, line)) return;
        TakeLine(line, offset);
    }
}

void JobDecoder::TakeLine(std::string_view line, std::uint64_t offset) {
    // Of a trailer that is cut off, nothing is left worth showing.
    if (isOver_ && state_ != State::kStart && line.starts_with(kExitLanguage) &&
        kTrailer.starts_with(line) && !IsTrailer(line)) {
        return;
    }
    switch (state_) {  // GCOVR_EXCL_BR_LINE: all states are below
        case State::kStart:
            return TakeStart(line, offset);
        case State::kSpecialPages:
            if (!line.starts_with(kExitLanguage)) return specialPages_->Add(line);
            EndSpecialPages();
            state_ = State::kHeader;
            return TakeHeaderPiece(line, offset);
        case State::kHeader:
            if (job_.document.isCopy) return TakeCopiedLine(line, offset);
            return TakeHeaderPiece(line, offset);
        case State::kDocument:
            return TakeDocumentLine(line, offset);
        case State::kEnd:
            return TakeRest(line, offset);
        case State::kForeign:
        case State::kOver:
            return;
    }
}

void JobDecoder::TakeStart(std::string_view line, std::uint64_t offset) {
    job_.kind = DecodedJob::kJob;
    if (line.starts_with(kExitLanguage)) {
        state_ = State::kHeader;
        TakeHeaderPiece(line, offset);
    } else if (line.starts_with(kXML)) {
        state_ = State::kSpecialPages;
        specialPages_ = std::make_unique<SpecialPagesReader>(job_.specialPages);
        specialPages_->Add(line);
    } else if (!kExitLanguage.starts_with(line) && !kXML.starts_with(line)) {
        state_ = State::kForeign;
        job_.kind = DecodedJob::kForeign;
        const char *name = NameOfData(line);
        job_.foreign = name ? name : "data that begins with " + Quoted(WithoutLineEnd(line));
    }
}

void JobDecoder::EndSpecialPages() {
    const std::string error = specialPages_->End();
    if (error.empty()) return;
    Report(kProblemSpecialPages, 0, "the special pages are no well-formed XML, " + error);
}

void JobDecoder::TakeHeaderPiece(std::string_view piece, std::uint64_t offset) {
    if (IsTrailer(piece)) return TakeTrailer(piece, offset);
    for (JobLine &line : CutHeaderLines(piece, offset)) {
        if (line.text.starts_with(kPostScript)) {
            job_.document.isCopy = true;
            return TakeCopiedLine(piece.substr(line.offset - offset), line.offset);
        }
        TakeHeaderLine(std::move(line));
    }
}

void JobDecoder::TakeHeaderLine(JobLine line) {
    const PJLLine parsed = ParsePJL(line.text);
    if (parsed.name.empty() && !isOver_) {  // half a line is what a job that is cut off ends in
        Report(kProblemNoPJL, line.offset, "a line of the header is no PJL: " + Quoted(line.text));
    } else if (line.isPartial) {
        ReportPartial(line);
    } else {
        CheckGivenOnce(line);
    }
    if (parsed.name == "ENTER" && !line.isPartial) TakeSwitch(line);
    if (job_.header.size() < kMostLines) {
        line.text.resize(std::min(line.text.size(), kKeptBytes));
        job_.header.push_back(std::move(line));
    } else {
        job_.linesLeftOut++;
    }
}

void JobDecoder::ReportPartial(const JobLine &line) {
    if (isOver_) return;  // that the job is cut off says it
    const std::string length = Count(line.text.size(), "byte");
    if (IsCutAtLimit(line)) {
        Report(kProblemCutLine, line.offset,
               "a line was cut at " + length + " and has lost its end: " + Quoted(line.text));
    } else {
        Report(kProblemNoLineEnd, line.offset,
               "a line without its end swallows the next one: " + Quoted(line.text));
    }
}

void JobDecoder::CheckGivenOnce(const JobLine &line) {
    const PJLLine parsed = ParsePJL(line.text);
    if (!parsed.row || parsed.kind == kPJLCommand) return;
    const auto [first, isNew] = given_.emplace(parsed.row, parsed.value);
    if (isNew || first->second == parsed.value) return;
    std::string values;
    if (!IsSecret(parsed)) {
        values = ": " + Visible(first->second) + " and " + Visible(parsed.value);
    }
    Report(kProblemGivenTwice, line.offset,
           std::string(parsed.name) + " is given twice with different values" + values);
}

void JobDecoder::TakeSwitch(const JobLine &line) {
    job_.hasSwitch = true;
    state_ = State::kDocument;
    if (line.text.find("POSTSCRIPT") == line.text.npos) {
        Report(kProblemNoPostScript, line.offset,
               "the printer is not switched to PostScript: " + Quoted(line.text));
    }
}

// A line of a copy of a job whose PPD features become PJL: the document stands where the filter
// stored it, ahead of the switch, with the features' commands between its lines.
void JobDecoder::TakeCopiedLine(std::string_view line, std::uint64_t offset) {
    const std::size_t end = line.find(std::string(kControlD) + std::string(kPJL));
    const std::size_t length = line.starts_with(kPJL) ? 0
                               : end == line.npos     ? line.size()
                                                      : end + 1;
    if (line.starts_with(kExitLanguage)) return TakeTrailer(line, offset);
    if (length > 0) TakeDocumentLine(line.substr(0, length), offset);
    if (length == line.size()) return;
    for (JobLine &command : CutHeaderLines(line.substr(length), offset + length)) {
        TakeHeaderLine(std::move(command));
    }
}

void JobDecoder::TakeDocumentLine(std::string_view line, std::uint64_t offset) {
    if (IsTrailer(line)) return TakeTrailer(line, offset);
    const bool isPJL = line.starts_with(kExitLanguage) || line.starts_with("@PJL ");
    if (isPJL && !isAmongPJL_) {
        Report(kProblemPJLInDocument, offset,
               "PJL stands in the document: " + Quoted(WithoutLineEnd(line)));
    }
    if (!WithoutLineEnd(line).empty()) isAmongPJL_ = isPJL;
    JobDocument &document = job_.document;
    if (!document.present) document.offset = offset;
    document.present = true;
    notes_.Add(line, offset);
    if (documentTaker_) documentTaker_(line);
}

void JobDecoder::TakeTrailer(std::string_view line, std::uint64_t offset) {
    job_.hasTrailer = true;
    job_.trailerOffset = offset;
    state_ = State::kEnd;
    if (line.ends_with('\n')) return;
    Report(kProblemNoLineEnd, offset, "the trailer has no line end");
}

void JobDecoder::TakeRest(std::string_view line, std::uint64_t offset) {
    if (line.starts_with(kExitLanguage) || line.starts_with(kXML)) {
        Report(kProblemSecondJob, offset,
               "a second job begins after the first, at byte " + std::to_string(offset));
        state_ = State::kOver;
        return;
    }
    if (bytesAfter_ == 0) bytesAfterOffset_ = offset;
    bytesAfter_ += line.size();
}

void JobDecoder::CheckDocument() {
    const JobDocument &document = job_.document;
    const std::string_view text = document.firstLine;
    const bool isEmpty = document.size == 0 || (text == kControlD && document.size == 1);
    if (isEmpty) {
        Report(kProblemNoDocument, document.present ? document.offset : job_.trailerOffset,
               job_.hasSwitch ? "the document is empty" : "the job has no document");
    } else if (!text.starts_with(kPostScript) &&
               (job_.hasTrailer || !kPostScript.starts_with(text))) {
        const char *name = NameOfData(text);
        Report(kProblemNoPostScript, document.offset,
               "the document is no PostScript, but " +
                   (name ? std::string(name) : "begins with " + Quoted(text)));
    } else if (!job_.hasSwitch) {
        Report(kProblemNoSwitch, document.offset, "no line switches the printer to PostScript");
    }
}

void JobDecoder::CheckEnd() {
    if (job_.hasTrailer) return CheckDocument();
    const char *place = "document";
    if (state_ == State::kStart) place = "first line";
    if (state_ == State::kSpecialPages) place = "special pages";
    if (state_ == State::kHeader && !job_.document.present) place = "header";
    if (job_.document.present) CheckDocument();
    Report(kProblemTruncated, job_.size,
           std::string("the job has no trailer: it is cut off in its ") + place);
}

const DecodedJob &JobDecoder::Finish() {
    cutter_.End();
    isOver_ = true;
    TakeLines();
    if (job_.size == 0 || job_.kind == DecodedJob::kForeign) return job_;
    CheckEnd();
    if (bytesAfter_ > 0) {
        Report(kProblemBytesAfter, bytesAfterOffset_,
               Count(bytesAfter_, "byte") +
                   (bytesAfter_ == 1 ? " stands after the trailer" : " stand after the trailer"));
    }
    if (job_.linesLeftOut > 0) {
        Report(
            kProblemTooMuch, 0,
            "the header has more lines than are shown: " + Count(job_.linesLeftOut, "more line"));
    }
    return job_;
}

void JobDecoder::Report(ProblemKind kind, std::uint64_t offset, std::string text) {
    if (job_.problems.size() < kMostProblems) {
        job_.problems.push_back({kind, offset, std::move(text)});
    } else {
        job_.problemsLeftOut++;
    }
}
