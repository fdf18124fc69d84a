// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/StructuredDocument.h"

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "FrontEnd/Messages.h"
#include "FrontEnd/Progress.h"

StructuredDocument::StructuredDocument(DocumentReader &reader, std::FILE *stream,
                                       PageEnds *pageEnds)
    : reader_(reader), stream_(stream), pageEnds_(pageEnds) {
    reader_.HandOutNextLine();
}

bool StructuredDocument::Put(const DocumentPiece &piece) {
    if (piece.kind != DocumentPiece::kExit && !foreignPJL_.IsOpen()) {
        return PutDocument(piece);
    }
    std::string_view text = piece.text;
    std::string_view line;
    while (!(line = foreignPJL_.TakeDocument(text)).empty()) {
        if (!PutDocument(PieceOfLine(line))) return false;
    }
    if (foreignPJL_.IsOpen()) reader_.HandOutNextLine();
    return true;
}

void StructuredDocument::PutEnd() {
    TellPJL();
    if (structure_.TakeEnd()) TellPage();
    if (lastByte_ == kEndOfPostScriptJob) return;
    // To the printer's scanner, Ctrl-D would be a part of the word before it.
    if (!IsLineEnd(lastByte_)) Write("\n");
    KVfputc(kEndOfPostScriptJob, stream_);
}

bool StructuredDocument::PutDocument(const DocumentPiece &piece) {
    if (hasBegun_) return PutNext(piece);
    hasBegun_ = true;
    foreignPJL_.BeginDocument();
    const bool isStructured = structure_.TakeFirstLine(piece.text);
    return isStructured ? PutNext(piece) : PutUnstructured(piece);
}

// A document that does not claim to be structured has one place for everything: its beginning, if
// it is more than a comment.
bool StructuredDocument::PutUnstructured(const DocumentPiece &firstLine) {
    if (!firstLine.text.starts_with('%')) PutSetup();
    if (!PutNext(firstLine)) return false;
    if (IsLineEnd(lastByte_)) PutSetup();
    return true;
}

bool StructuredDocument::PutNext(const DocumentPiece &piece) {
    if (piece.kind == DocumentPiece::kComment) return PutComment(piece);
    if (piece.kind == DocumentPiece::kSpecial) return PutSpecial(piece);
    structure_.TakeText(piece.text);
    Write(piece.text);
    return true;
}

bool StructuredDocument::PutComment(const DocumentPiece &piece) {
    const bool pageEnds = structure_.TakeComment(piece.comment, piece.text);
    if (pageEnds) TellPage();
    const bool startsPage = piece.comment == Comment::kPage && !structure_.IsEmbedded();
    if (pageEnds || startsPage) {
        if (CancelJob == 1) return false;
        TakeStop();
    }
    if (IsOutermost()) PutBeforeComment(piece.comment);
    Write(piece.text);
    const bool endsHeader = piece.comment == Comment::kEndComments && IsLineEnd(lastByte_);
    if (IsOutermost() && endsHeader) PutStamp();
    if (piece.comment == Comment::kBeginBinary || piece.comment == Comment::kBeginData) {
        const AnnouncedData data = FindAnnouncedData(piece.comment, piece.text);
        reader_.PassBy(data.bytes, data.lines);
    }
    return true;
}

void StructuredDocument::PutBeforeComment(Comment comment) {
    switch (comment) {
        case Comment::kBeginProlog:
            PutStamp();
            return;
        case Comment::kEndProlog:
            PutStamp();
            PutPoint(kPointBeforeEndProlog);
            return;
        case Comment::kBeginSetup:
            PutStamp();
            setupIsOpen_ = true;
            return;
        case Comment::kEndSetup:
            // One without a beginning stands in front of the setup that pstops has added.
            if (setupIsOpen_) PutSetup();
            return;
        case Comment::kPage:
            PutSetup();
            return;
        default:
            return;
    }
}

bool StructuredDocument::PutSpecial(const DocumentPiece &piece) {
    if (piece.special->stopsCancelledJob && CancelJob == 1) return false;
    if (IsOutermost() && piece.special->point == kPointBeforeSetPageDevicePop) {
        PutStamp();
        PutPoint(kPointBeforeSetPageDevicePop);
    }
    Write(piece.text);
    if (piece.special->endsPage && structure_.TakePageEndLine()) TellPage();
    if (piece.special->stopsCancelledJob) TakeStop();
    return true;
}

void StructuredDocument::PutStamp() {
    if (hasStamp_) return;
    hasStamp_ = true;
    PutPageStamp(GetPageStampFromFilter(), stream_);
}

// What belongs in the document's prolog and setup, as far as they had no place for it.
void StructuredDocument::PutSetup() {
    PutStamp();
    PutPoint(kPointBeforeEndProlog);
    PutPoint(kPointBeforeSetPageDevicePop);
    PutPoint(kPointBeforeEndSetup);
}

void StructuredDocument::PutPoint(InjectionPoint point) {
    const unsigned bit = 1U << point;
    if ((pointsPut_ & bit) != 0) return;
    pointsPut_ |= bit;
    OutputPSCommandFromFilter(point, structure_.PagesEnded(), stream_);
}

// A page counts once it has left: not if the printer has gone.
void StructuredDocument::TellPage() {
    if (pageEnds_ || KVfflush(stream_) != 0 || std::ferror(stream_)) return;
    ReportPage(structure_.PagesEnded(), structure_.Copies(), structure_.PagesAnnounced());
}

// Takes in that the document may end here if the job is cancelled while it is sent.
void StructuredDocument::TakeStop() {
    if (!pageEnds_) return;
    pageEnds_->Add({ftello(stream_), structure_.PagesEnded(), structure_.Copies()});
}

void StructuredDocument::TellPJL() const {
    if (!foreignPJL_.WasFound()) return;
    if (foreignPJL_.HasDocument()) {
        ReportWarning("The PJL that the document brought along was left out.");
    } else {
        ReportError("The document holds PJL, but no PostScript.");
    }
}

void StructuredDocument::Write(std::string_view text) {
    lastByte_ = text.back();
    KVfwrite(text.data(), 1, text.size(), stream_);
}
