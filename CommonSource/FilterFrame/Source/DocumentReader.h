// SPDX-License-Identifier: Apache-2.0
//
// Reads a document in large blocks and hands it out in place: runs of lines that nothing
// recognises, as long as they come, and each recognised line by itself. A line ends with a line
// feed or a carriage return; a CR LF pair is a line and an empty line.
//
// A line is recognised as a whole, but one that fills the line buffer (8065 bytes) is passed on and
// its rest counts as a new line; where comments are known, PJL that may begin at the end of the
// line buffer belongs to the rest. Nothing waits for a full block: what has arrived is handed out.
//
// The buffer, in the order of its addresses; some of these places often coincide:
//
//   buffer_      begin_            lineStart_       scan_        limit_         end_
//      | free      | not handed out    | line that the | not        | withheld     |
//      |           | yet               | search is in  | searched   | last byte    |
//
// The block that is read begins at buffer_ + kRoom; what the one before it left unfinished, at most
// one line, stands in front of that.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "CommonSource/FilterFrame/Source/LineSearch.h"
#include "CommonSource/FilterFrame/Source/PipeCapacity.h"
#include "CommonSource/FilterFrame/Source/Relay.h"
#include "FrontEnd/DocumentComments.h"
#include "Tables/SpecialLines.h"

// Bytes of a line, without its end, that are passed on before the end is seen.
constexpr std::size_t kLineBufferFull = 8065;

constexpr int kEndOfPostScriptJob = 4;  // Ctrl-D

// Opens the document: standard input, or the file argv[6]. Returns a descriptor, or -1; plain CUPS
// hears why.
int OpenDocument(bool fromStandardInput, char *const argv[]);

// What messages call it.
const char *DocumentName(bool fromStandardInput, char *const argv[]);

// Whether `error` (DocumentReader::Error) has cut the document called `name` short. Plain CUPS
// hears of it; elsewhere what can be read is the document, and this is false.
bool DocumentIsCut(const char *name, int error);

struct DocumentPiece {
    enum Kind {
        kRun,       // whole lines and full line buffers, nothing recognised
        kSpecial,   // the line `special`
        kFeature,   // a line that begins with "%%BeginFeature:"
        kSettings,  // a line with screen or colour-rendering settings
        // In the modes that know comments:
        kComment,  // a line that begins with `comment`
        kExit,     // a line, or a part of a long one, with the sequence that ends a language
        kLine,     // a line that was asked for and is none of the others
    };
    Kind kind;
    std::string_view text;       // line ends included; valid until the next call
    const SpecialLine *special;  // for kSpecial
    Comment comment = Comment::kNone;
};

inline bool IsLineEnd(char byte) {
    return byte == '\n' || byte == '\r';
}

// The piece that `line` is, its line end included: kComment, kSpecial or kLine.
DocumentPiece PieceOfLine(std::string_view line);

class DocumentReader {
  public:
    enum Mode {
        kPlain,     // special lines only
        kFeatures,  // feature and settings lines too; the last byte of the document is withheld
        // The same with comments: all of the document is handed out, the last line without a line
        // end, if it has none.
        kComments,
        kFeaturesAndComments,
    };

    // Reads from `file`, a descriptor that the caller owns. `beforeWaiting`, if any, is called when
    // nothing more has arrived yet: the time to pass on what is ready. `search` is for tests.
    explicit DocumentReader(int file, Mode mode, void (*beforeWaiting)() = nullptr,
                            const LineSearch &search = BestLineSearch());
    DocumentReader(const DocumentReader &) = delete;
    DocumentReader &operator=(const DocumentReader &) = delete;

    // Stores the next piece; false at the end of the document, when it cannot be read further and
    // when a cancelled job is overdue (FrontEnd/Cancel.h). Without comments, what follows the last
    // line end, up to 8064 bytes, is never handed out.
    bool Next(DocumentPiece &piece);

    // For the modes with comments; must be called before the first piece or right after one that is
    // no run. The line that follows is handed out by itself, whatever it is.
    void HandOutNextLine() { lineIsAsked_ = true; }

    // Likewise: nothing is recognised in the next `bytes` bytes, or the next `lines` lines. They
    // begin after the last piece's line end, be it CR LF.
    void PassBy(std::uint64_t bytes, std::uint64_t lines);

    // After the end: 0, or the errno of the failed read, or ECANCELED.
    int Error() const { return error_; }

    // After the end, in mode kFeatures: the last byte of the document, or -1 if it was empty.
    int LastByte() const;

  private:
    const char *LineStart(const char *first, const char *end) const;
    bool FindRecognisedLine(DocumentPiece &line);
    void PassLine(std::string_view line);
    std::size_t LengthOfPart(const char *start, const char *end) const;
    bool FindExitInLongLine(const char *&start, const char *end, DocumentPiece &part) const;
    bool Recognise(const char *lineEnd, bool hasSigns, DocumentPiece &line) const;
    static bool RecogniseComment(std::string_view text, DocumentPiece &line);
    bool TakeRun(DocumentPiece &piece);
    bool TakeLastLine(DocumentPiece &piece);
    void PassData();
    bool Refill();
    std::size_t ReadBlock(char *block);
    bool PlacesAreInOrder() const;

    // Before the block there is room for the line that the previous block left unfinished.
    static constexpr std::size_t kRoom = kRelayRoom;
    static constexpr std::size_t kBlock = kReadSize;

    const int file_;
    const Mode mode_;
    void (*const beforeWaiting_)();
    const LineSearch &search_;
    const LineSearch::Search findLine_;  // the search of the mode
    bool lineMayMatter_ = false;   // a search has seen signs of something in the line at scan_
    bool lineIsAsked_ = false;     // the line at scan_ is to be handed out
    std::uint64_t dataBytes_ = 0;  // how much is to be passed by: bytes or lines
    std::uint64_t dataLines_ = 0;
    bool afterReturn_ = false;  // of data: a line feed at scan_ is the second byte of a line end
    bool hasPending_ = false;   // pending_ is to be handed out next
    DocumentPiece pending_{};   // the recognised line after a run
    int error_ = 0;
    const char *begin_ = buffer_ + kRoom;  // first byte not handed out
    const char *lineStart_ = begin_;       // start of the line that the search has reached
    const char *searched_ = begin_;        // how far lineStart_ has been brought up to date
    const char *scan_ = begin_;            // where the search goes on
    const char *limit_ = begin_;  // where it ends: all that has arrived, less the withheld byte
    const char *end_ = begin_;    // end of what has arrived
    char buffer_[kRoom + kBlock];
};
