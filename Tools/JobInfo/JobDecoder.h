// SPDX-License-Identifier: Apache-2.0
//
// Takes a printer-ready job apart as it comes, in any pieces, and finds what is wrong with it. It
// understands the filter's output as far as it goes, the copies that the filter keeps of its jobs,
// and tells what anything else is. Nothing in a job, however hostile, makes it take much memory or
// time.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "Tables/PJLNames.h"
#include "Tools/JobInfo/DecodedJob.h"
#include "Tools/JobInfo/DocumentNotes.h"
#include "Tools/JobInfo/LineCutter.h"
#include "Tools/JobInfo/SpecialPagesReader.h"

class JobDecoder {
  public:
    // `document`, if given, gets the document's bytes as they pass.
    explicit JobDecoder(std::function<void(std::string_view)> document = nullptr);

    void Feed(std::string_view bytes);

    // Says that the input is over. Returns what it was; valid as long as this object.
    const DecodedJob &Finish();

  private:
    enum class State { kStart, kForeign, kSpecialPages, kHeader, kDocument, kEnd, kOver };

    void TakeLines();
    void TakeLine(std::string_view line, std::uint64_t offset);
    void TakeStart(std::string_view line, std::uint64_t offset);
    void TakeHeaderPiece(std::string_view piece, std::uint64_t offset);
    void TakeHeaderLine(JobLine line);
    void TakeSwitch(const JobLine &line);
    void ReportPartial(const JobLine &line);
    void CheckGivenOnce(const JobLine &line);
    void TakeDocumentLine(std::string_view line, std::uint64_t offset);
    void TakeCopiedLine(std::string_view line, std::uint64_t offset);
    void TakeTrailer(std::string_view line, std::uint64_t offset);
    void TakeRest(std::string_view line, std::uint64_t offset);
    void EndSpecialPages();
    void CheckDocument();
    void CheckEnd();
    void Report(ProblemKind kind, std::uint64_t offset, std::string text);

    std::function<void(std::string_view)> documentTaker_;
    LineCutter cutter_;
    State state_ = State::kStart;
    bool isOver_ = false;      // nothing more will come
    bool isAmongPJL_ = false;  // the line before, of the document, is PJL
    DecodedJob job_;
    DocumentNotes notes_;
    std::unique_ptr<SpecialPagesReader> specialPages_;
    std::map<const PJLName *, std::string> given_;  // the value that a name has
    std::uint64_t bytesAfter_ = 0;                  // after the trailer
    std::uint64_t bytesAfterOffset_ = 0;
};
