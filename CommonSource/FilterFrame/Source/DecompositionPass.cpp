// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/DecompositionPass.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <limits>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "CommonSource/FilterFrame/Source/FeatureToPJL.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PostScriptLines.h"
#include "CommonSource/FilterFrame/Source/StoredDocument.h"
#include "CommonSource/FilterFrame/Source/StructuredDocument.h"
#include "FrontEnd/FrontEnd.h"
#include "FrontEnd/Messages.h"
#include "FrontEnd/Progress.h"

char PPDPJLOutFilePath[kPrivatePathSize];

namespace {

constexpr char PPDPJLOutFileFormat[] = "/private/tmp/kvPPDPJL%s.job";

void PutPJL(const DocumentPiece &piece, FeatureState &state) {
    std::string_view line = piece.text;
    if (IsLineEnd(line.back())) line.remove_suffix(1);
    if (piece.kind == DocumentPiece::kFeature) PutFeaturePJL(line, state);
    if (piece.kind == DocumentPiece::kSettings) PutSettingsPJL(line);
}

// Whether a cancelled job ends at this piece of the document.
bool EndsCancelledJob(const DocumentPiece &piece) {
    return piece.special && piece.special->stopsCancelledJob && CancelJob == 1;
}

// Ends the stored document as the printer's PostScript ends: with one Ctrl-D.
void PutEnd(int lastByte, std::FILE *stored) {
    if (lastByte >= 0) KVfputc(lastByte, stored);
    if (lastByte != kEndOfPostScriptJob) KVfputc(kEndOfPostScriptJob, stored);
}

// Reads the document into `stored`, its page ends into `pageEnds`, and writes the PJL of its
// features. False if the job was cancelled.
bool StoreDocument(int file, char *const argv[], std::FILE *stored, PageEnds &pageEnds) {
    DocumentReader reader(file, DocumentReader::kFeatures);
    FeatureState features = StartFeatures();
    DocumentState state;
    DocumentPiece piece;
    while (reader.Next(piece)) {
        PutPJL(piece, features);
        // After a gap nothing is stored: a page with a hole in it would print nonsense.
        if (std::ferror(stored)) {
            if (EndsCancelledJob(piece)) return false;
            continue;
        }
        if (!piece.special) {
            KVfwrite(piece.text.data(), 1, piece.text.size(), stored);
        } else if (!PutSpecialLine(*piece.special, piece.text, state, argv, stored)) {
            return false;
        } else if (piece.special->stopsCancelledJob) {
            pageEnds.Add({ftello(stored), 0, 0});
        }
    }
    if (!std::ferror(stored)) PutEnd(reader.LastByte(), stored);
    KVfflush(stored);
    return true;
}

// Sends the stored document, which ends with its last line end. The job copy has it already.
void SendDocument(std::FILE *stored, const PageEnds &pageEnds) {
    const int file = fileno(stored);
    const off_t size = lseek(file, 0, SEEK_END);
    off_t sent = 0;
    for (const PageEnd &pageEnd : pageEnds) {
        if (pageEnd.offset > size) break;  // not stored, for want of space
        if (SendStored(file, sent, pageEnd.offset) != 0 || CancelJob == 1) return;
        sent = pageEnd.offset;
    }
    if (lseek(file, sent, SEEK_SET) != sent) return;  // GCOVR_EXCL_BR_LINE: fault
    DocumentReader reader(file, DocumentReader::kPlain);
    const RelayedDocument relayed(file);
    DocumentPiece piece;
    while (reader.Next(piece)) {
        WriteUncopied(piece.text.data(), piece.text.size(), stdout);
        if (EndsCancelledJob(piece)) return;
    }
}

// A stored document of any maker.
struct StoredPages {
    PageEnds ends;
    PageEnd whole;  // all there is
    int announced;  // pages, by the document itself; 0 if it does not say
};

// As StoreDocument for a document called `name`; also false if a part of it is missing.
bool StoreStructuredDocument(int file, const char *name, std::FILE *stored, StoredPages &pages) {
    DocumentReader reader(file, DocumentReader::kFeaturesAndComments);
    StructuredDocument document(reader, stored, &pages.ends);
    FeatureState features = StartFeatures();
    DocumentPiece piece;
    while (!OutputHasFailed(stored) && reader.Next(piece)) {
        PutPJL(piece, features);
        if (!document.Put(piece)) return false;
    }
    if (DocumentIsCut(name, reader.Error())) return false;
    document.PutEnd();
    KVfflush(stored);
    if (OutputHasFailed(stored)) {  // GCOVR_EXCL_START: fault
        ReportError(PPDPJLOutFilePath, "could not be written", writeError);
        return false;
    }  // GCOVR_EXCL_STOP
    const DocumentStructure &structure = document.Structure();
    pages.whole = {std::numeric_limits<off_t>::max(), structure.PagesEnded(), structure.Copies()};
    pages.announced = structure.PagesAnnounced();
    return true;
}

// As SendDocument, and tells the pages that have left.
void SendStructuredDocument(std::FILE *stored, const StoredPages &pages) {
    const int total = std::max(pages.whole.pages, pages.announced);
    PageEnd sent{};
    const auto sendTo = [&](const PageEnd &end) {
        const int error = SendStored(fileno(stored), sent.offset, end.offset);
        if (DocumentIsCut(PPDPJLOutFilePath, error) || OutputHasFailed(stdout)) return false;
        while (sent.pages < end.pages) ReportPage(++sent.pages, end.copies, total);
        sent = end;
        return CancelJob != 1;
    };
    if (std::ranges::all_of(pages.ends, sendTo)) sendTo(pages.whole);
}

// Of plain CUPS's documents nothing but this process can reach the store, and nothing is left of
// it.
void PassThroughNamelessFile(int file, const char *name, char *const argv[]) {
    std::FILE *stored = CreateNamelessFile(PPDPJLOutFileFormat, PPDPJLOutFilePath);
    if (!stored) {  // GCOVR_EXCL_START: fault
        ReportError(PPDPJLOutFilePath, "could not be made", errno);
        return;
    }  // GCOVR_EXCL_STOP
    StoredPages pages{};
    if (StoreStructuredDocument(file, name, stored, pages)) {
        OutputKPJLCommandFromArray(argv, prtFmtTableEnterPS, numFmtTableEnterPS);
        SendStructuredDocument(stored, pages);
    }
    std::fclose(stored);
}

void PassThroughFile(int file, char *const argv[]) {
    std::FILE *stored = CreatePrivateFile(PPDPJLOutFileFormat, PPDPJLOutFilePath);
    if (!stored) return;
    PageEnds pageEnds;
    if (StoreDocument(file, argv, stored, pageEnds)) {
        OutputKPJLCommandFromArray(argv, prtFmtTableEnterPS, numFmtTableEnterPS);
        // Whoever has taken the file away or put another in its place has taken the document.
        if (IsNameOf(PPDPJLOutFilePath, stored)) {
            SendDocument(stored, pageEnds);
            std::remove(PPDPJLOutFilePath);
        }
    }
    std::fclose(stored);
}

}  // namespace

void OutputPSStreamtoFileandInsertPJLforFeaturePDE(int argc, char *const argv[]) {
    const bool fromStandardInput = argc != 7;
    const int file = OpenDocument(fromStandardInput, argv);
    if (file < 0) return;
    if (FrontEndIsCUPS()) {
        PassThroughNamelessFile(file, DocumentName(fromStandardInput, argv), argv);
    } else {
        PassThroughFile(file, argv);
    }
    close(file);
}
