// SPDX-License-Identifier: Apache-2.0
//
// Follows the structure of a document of any maker, line by line, and tells where its pages end.
//
// A page begins at "%%Page:" and ends where the next one, the trailer or the document's end is: so
// pstops counts, and a sheet of several pages, which pstops makes one page, is one here. Documents
// within the document ("%%BeginDocument") count nothing. A document without "%%Page:" is counted by
// the "ep" and "endp" lines of the print system's pages; one that does not even claim to be
// structured ("%!PS-Adobe-") and has no such line is one page, as it is for pstops.
#pragma once

#include <cstdint>
#include <string_view>

#include "FrontEnd/DocumentComments.h"

class DocumentStructure {
  public:
    // Takes in the document's first line. True if the document claims to be structured.
    bool TakeFirstLine(std::string_view line);

    // Takes in a comment. True if a page has ended before it.
    bool TakeComment(Comment comment, std::string_view line);

    // Takes in lines that are no comments.
    void TakeText(std::string_view text);

    // Takes in a line that ends a page of the print system. True if it ends one of the document.
    bool TakePageEndLine();

    // Takes in the document's end. True if a page has ended with it.
    bool TakeEnd() { return EndPage(); }

    // Whether what is taken in belongs to a document within the document.
    bool IsEmbedded() const { return embedded_ > 0; }

    int PagesEnded() const { return pagesEnded_; }

    // How many pages the document says that it has, 0 if it does not say.
    int PagesAnnounced() const { return pagesAnnounced_; }

    // How often the printer is to print each page: what the document's setup asks for, at least 1.
    int Copies() const { return copies_; }

  private:
    bool EndPage();

    int embedded_ = 0;  // how many documents within the document are open
    bool inProlog_ = false;
    bool hasPages_ = false;  // a "%%Page:" has been seen
    bool inPage_ = false;
    int pagesEnded_ = 0;
    int pagesAnnounced_ = 0;
    int copies_ = 1;
};

// How much data follows a "%%BeginBinary:" or "%%BeginData:" line and is no part of the text: bytes
// or lines, the other being 0.
struct AnnouncedData {
    std::uint64_t bytes;
    std::uint64_t lines;
};
AnnouncedData FindAnnouncedData(Comment comment, std::string_view line);
