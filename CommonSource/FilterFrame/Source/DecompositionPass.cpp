// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/DecompositionPass.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "CommonSource/FilterFrame/Source/FeatureToPJL.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PostScriptLines.h"

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

// Reads the document into `stored` and writes the PJL of its features. False if the job was
// cancelled.
bool StoreDocument(int document, char *const argv[], std::FILE *stored) {
    DocumentReader reader(document, DocumentReader::kFeatures);
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
    return true;
}

// Sends the stored document and removes it. The job copy has it already.
void SendDocument() {
    const int stored = open(PPDPJLOutFilePath, O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    if (stored < 0) return;
    DocumentReader reader(stored, DocumentReader::kPlain);
    DocumentPiece piece;
    while (reader.Next(piece)) {
        std::fwrite(piece.text.data(), 1, piece.text.size(), stdout);
        if (EndsCancelledJob(piece)) break;
    }
    close(stored);
    std::remove(PPDPJLOutFilePath);
}

}  // namespace

void OutputPSStreamtoFileandInsertPJLforFeaturePDE(int argc, char *const argv[]) {
    const int document = OpenDocument(argc != 7, argv);
    if (document < 0) return;
    std::FILE *stored = CreatePrivateFile(PPDPJLOutFileFormat, PPDPJLOutFilePath);
    if (!stored) return;
    const bool cancelled = !StoreDocument(document, argv, stored);
    close(document);
    std::fclose(stored);
    if (cancelled) return;
    OutputKPJLCommandFromArray(argv, prtFmtTableEnterPS, numFmtTableEnterPS);
    SendDocument();
}
