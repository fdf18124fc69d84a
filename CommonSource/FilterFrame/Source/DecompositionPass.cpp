// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/DecompositionPass.h"

#include <unistd.h>

#include <cerrno>
#include <cstdio>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "CommonSource/FilterFrame/Source/FeatureToPJL.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PostScriptLines.h"
#include "CommonSource/FilterFrame/Source/StructuredDocument.h"
#include "FrontEnd/FrontEnd.h"
#include "FrontEnd/Messages.h"

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

// Reads the document into `stored` and writes the PJL of its features. False if the job was
// cancelled.
bool StoreDocument(int file, char *const argv[], std::FILE *stored) {
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
        }
    }
    if (!std::ferror(stored)) PutEnd(reader.LastByte(), stored);
    KVfflush(stored);
    return true;
}

// The same for a document of any maker, called `name`; also false if a part of it is missing.
// `pages` becomes the number of its pages.
bool StoreStructuredDocument(int file, const char *name, std::FILE *stored, int &pages) {
    DocumentReader reader(file, DocumentReader::kFeaturesAndComments);
    StructuredDocument document(StructuredDocument::kToStore, reader, stored);
    FeatureState features = StartFeatures();
    DocumentPiece piece;
    while (!OutputHasFailed(stored) && reader.Next(piece)) {
        PutPJL(piece, features);
        if (!document.Put(piece)) return false;
    }
    if (DocumentIsCut(name, reader.Error())) return false;
    document.PutEnd();
    pages = document.PagesEnded();
    KVfflush(stored);
    if (OutputHasFailed(stored)) ReportError(PPDPJLOutFilePath, "could not be written", writeError);
    return !OutputHasFailed(stored);
}

// Sends the stored document. The job copy has it already.
void SendDocument(std::FILE *stored) {
    DocumentReader reader(fileno(stored), DocumentReader::kPlain);
    const RelayedDocument relayed(fileno(stored));
    DocumentPiece piece;
    while (reader.Next(piece)) {
        WriteUncopied(piece.text.data(), piece.text.size(), stdout);
        // Page by page: the relay would send many at once, and a cancelled job with them.
        if (piece.special && piece.special->stopsCancelledJob) KVfflush(stdout);
        if (EndsCancelledJob(piece)) return;
    }
}

// The same for a document of any maker, of `pages` pages.
void SendStructuredDocument(std::FILE *stored, int pages) {
    DocumentReader reader(fileno(stored), DocumentReader::kComments);
    const RelayedDocument relayed(fileno(stored));
    StructuredDocument document(StructuredDocument::kFromStore, reader, stdout, pages);
    DocumentPiece piece;
    while (!OutputHasFailed(stdout) && reader.Next(piece)) {
        if (!document.Put(piece)) return;
    }
    if (!DocumentIsCut(PPDPJLOutFilePath, reader.Error())) document.PutEnd();
}

// Of plain CUPS's documents nothing but this process can reach the store, and nothing is left of
// it.
void PassThroughNamelessFile(int file, const char *name, char *const argv[]) {
    std::FILE *stored = CreateNamelessFile(PPDPJLOutFileFormat, PPDPJLOutFilePath);
    if (!stored) {
        ReportError(PPDPJLOutFilePath, "could not be made", errno);
        return;
    }
    int pages = 0;
    if (StoreStructuredDocument(file, name, stored, pages)) {
        OutputKPJLCommandFromArray(argv, prtFmtTableEnterPS, numFmtTableEnterPS);
        if (lseek(fileno(stored), 0, SEEK_SET) == 0) {
            SendStructuredDocument(stored, pages);
        } else {
            ReportError(PPDPJLOutFilePath, "could not be read", errno);
        }
    }
    std::fclose(stored);
}

void PassThroughFile(int file, char *const argv[]) {
    std::FILE *stored = CreatePrivateFile(PPDPJLOutFileFormat, PPDPJLOutFilePath);
    if (!stored) return;
    if (StoreDocument(file, argv, stored)) {
        OutputKPJLCommandFromArray(argv, prtFmtTableEnterPS, numFmtTableEnterPS);
        // Whoever has taken the file away or put another in its place has taken the document.
        if (IsNameOf(PPDPJLOutFilePath, stored)) {
            lseek(fileno(stored), 0, SEEK_SET);
            SendDocument(stored);
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
