// SPDX-License-Identifier: Apache-2.0
//
// What the passes do with a document of any maker, where plain CUPS stands in front of the filter
// (FrontEnd.h): the modules' PostScript goes where the document's structure has a place for it, and
// pages are told as they pass. Nothing is lost for want of a line end, and PJL that the document
// brings along is taken off.
#pragma once

#include <cstdio>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "FrontEnd/DocumentStructure.h"
#include "FrontEnd/ForeignPJL.h"

class StructuredDocument {
  public:
    enum Way {
        kToPrinter,  // from CUPS to standard output
        kToStore,    // from CUPS to a file: pages are not told yet
        kFromStore,  // from there to standard output, as it is; the job copy has it already
    };

    // Copies what `reader`, in a mode that knows comments, hands out to `stream`. `pages` is how
    // many pages the document has, if that is known, else 0.
    StructuredDocument(Way way, DocumentReader &reader, std::FILE *stream, int pages = 0);

    // Puts the next piece. False if the job was cancelled: the document then ends at a page end,
    // and no more must be put.
    bool Put(const DocumentPiece &piece);

    // Ends the document as a PostScript job ends, with one Ctrl-D.
    void PutEnd();

    // How many pages have ended.
    int PagesEnded() const { return structure_.PagesEnded(); }

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
    void TellPage() const;
    void TellPJL() const;
    bool IsOutermost() const { return way_ != kFromStore && !structure_.IsEmbedded(); }
    void Write(std::string_view text);

    const Way way_;
    DocumentReader &reader_;
    std::FILE *const stream_;
    const int pages_;
    DocumentStructure structure_;
    ForeignPJL foreignPJL_;
    bool hasBegun_ = false;
    bool hasStamp_ = false;     // the stamp is in the document, if there is one
    bool setupIsOpen_ = false;  // after "%%BeginSetup"
    unsigned pointsPut_ = 0;    // a bit for each injection point that the modules have had
    char lastByte_ = '\n';
};
