// SPDX-License-Identifier: Apache-2.0
//
// What the passes do with a document of any maker, where plain CUPS stands in front of the filter
// (FrontEnd.h): the modules' PostScript goes where the document's structure has a place for it, and
// pages are told as they pass. Nothing is lost for want of a line end, and PJL that the document
// brings along is taken off.
#pragma once

#include <cstdio>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "CommonSource/FilterFrame/Source/StoredDocument.h"
#include "FrontEnd/DocumentStructure.h"
#include "FrontEnd/ForeignPJL.h"

class StructuredDocument {
  public:
    // Copies what `reader`, in a mode that knows comments, hands out to `stream`: the printer, or,
    // with `pageEnds`, a store. Pages that are stored are not told yet; their ends are added there.
    StructuredDocument(DocumentReader &reader, std::FILE *stream, PageEnds *pageEnds = nullptr);

    // Puts the next piece. False if the job was cancelled: the document then ends at a page end,
    // and no more must be put.
    bool Put(const DocumentPiece &piece);

    // Ends the document as a PostScript job ends, with one Ctrl-D.
    void PutEnd();

    const DocumentStructure &Structure() const { return structure_; }

  private:
    bool PutDocument(const DocumentPiece &piece);
    bool PutUnstructured(const DocumentPiece &firstLine);
    bool PutNext(const DocumentPiece &piece);
    bool PutComment(const DocumentPiece &piece);
    bool PutSpecial(const DocumentPiece &piece);
    void PutBeforeComment(Comment comment);
    void PutStamp();
    void PutSetup();
    void PutPoint(InjectionPoint point);
    void TellPage();
    void TakeStop();
    void TellPJL() const;
    bool IsOutermost() const { return !structure_.IsEmbedded(); }
    void Write(std::string_view text);

    DocumentReader &reader_;
    std::FILE *const stream_;
    PageEnds *const pageEnds_;
    DocumentStructure structure_;
    ForeignPJL foreignPJL_;
    bool hasBegun_ = false;
    bool hasStamp_ = false;     // the stamp is in the document, if there is one
    bool setupIsOpen_ = false;  // after "%%BeginSetup"
    unsigned pointsPut_ = 0;    // a bit for each injection point that the modules have had
    char lastByte_ = '\n';
};
