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
#include "FrontEnd/FrontEnd.h"
#include "FrontEnd/Messages.h"

char PPDPJLOutFilePath[kPrivatePathSize];

namespace {

constexpr char PPDPJLOutFileFormat[] = "/private/tmp/kvPPDPJL%s.job";

void PutPJL(const DocumentPiece &piece, FeatureState &state) {
    const std::string_view line = piece.text.substr(0, piece.text.size() - 1);
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

// Reads the document into `stored` and writes the PJL of its features. Returns whether it is to be
// sent: not if the job was cancelled and, with plain CUPS, not if a part is missing.
bool StoreDocument(int document, const char *name, char *const argv[], std::FILE *stored) {
    DocumentReader reader(document, DocumentReader::kFeatures);
    FeatureState features = StartFeatures();
    DocumentState state;
    DocumentPiece piece;
    while (!OutputHasFailed(stored) && reader.Next(piece)) {
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
    if (DocumentIsCut(name, reader.Error())) return false;
    if (!std::ferror(stored)) PutEnd(reader.LastByte(), stored);
    KVfflush(stored);
    if (OutputHasFailed(stored)) ReportError(PPDPJLOutFilePath, "could not be written", writeError);
    return !OutputHasFailed(stored);
}

// Sends the stored document. The job copy has it already.
void SendDocument(std::FILE *stored) {
    lseek(fileno(stored), 0, SEEK_SET);
    DocumentReader reader(fileno(stored), DocumentReader::kPlain);
    DocumentPiece piece;
    while (!OutputHasFailed(stdout) && reader.Next(piece)) {
        WriteUncopied(piece.text.data(), piece.text.size(), stdout);
        if (EndsCancelledJob(piece)) return;
    }
    DocumentIsCut(PPDPJLOutFilePath, reader.Error());
}

// With plain CUPS nothing but this process can reach the document, and nothing is left of it.
std::FILE *CreateStore() {
    std::FILE *const stored = FrontEndIsCUPS()
                                  ? CreateNamelessFile(PPDPJLOutFileFormat, PPDPJLOutFilePath)
                                  : CreatePrivateFile(PPDPJLOutFileFormat, PPDPJLOutFilePath);
    if (!stored) ReportError(PPDPJLOutFilePath, "could not be made", errno);
    return stored;
}

}  // namespace

void OutputPSStreamtoFileandInsertPJLforFeaturePDE(int argc, char *const argv[]) {
    const bool fromStandardInput = argc != 7;
    const int document = OpenDocument(fromStandardInput, argv);
    if (document < 0) return;
    std::FILE *stored = CreateStore();
    if (!stored) return;
    const bool isToBeSent =
        StoreDocument(document, DocumentName(fromStandardInput, argv), argv, stored);
    close(document);
    if (isToBeSent) {
        OutputKPJLCommandFromArray(argv, prtFmtTableEnterPS, numFmtTableEnterPS);
        // Whoever has taken the file away or put another in its place has taken the document.
        const bool isOurs = FrontEndIsCUPS() || IsNameOf(PPDPJLOutFilePath, stored);
        if (isOurs) SendDocument(stored);
        if (isOurs && !FrontEndIsCUPS()) std::remove(PPDPJLOutFilePath);
    }
    std::fclose(stored);
}
