// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PostScriptPass.h"

#include <unistd.h>

#include <cstdio>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PostScriptLines.h"
#include "CommonSource/FilterFrame/Source/StructuredDocument.h"
#include "FrontEnd/FrontEnd.h"

namespace {

// The printer gets every page as soon as it is there, however slowly the document comes.
void PassOn() {
    KVfflush(stdout);
}

void OutputStructuredDocument(int file, const char *name) {
    DocumentReader reader(file, DocumentReader::kComments, PassOn);
    const RelayedDocument relayed(file);
    StructuredDocument document(reader, stdout);
    DocumentPiece piece;
    while (!OutputHasFailed(stdout) && reader.Next(piece)) {
        if (!document.Put(piece)) return;
    }
    if (!DocumentIsCut(name, reader.Error())) document.PutEnd();
}

void OutputPlainDocument(int file, char *const argv[]) {
    DocumentReader reader(file, DocumentReader::kPlain, PassOn);
    const RelayedDocument relayed(file);
    DocumentState state;
    DocumentPiece piece;
    while (reader.Next(piece)) {
        if (piece.kind == DocumentPiece::kRun) {
            KVfwrite(piece.text.data(), 1, piece.text.size(), stdout);
        } else if (!PutSpecialLine(*piece.special, piece.text, state, argv, stdout)) {
            return;
        }
    }
    KVfputc(kEndOfPostScriptJob, stdout);
}

}  // namespace

void OutputPSStream(int argc, char *const argv[]) {
    const bool fromStandardInput = argc == 6;
    const int file = OpenDocument(fromStandardInput, argv);
    if (file < 0) return;
    if (FrontEndIsCUPS()) {
        OutputStructuredDocument(file, DocumentName(fromStandardInput, argv));
    } else {
        OutputPlainDocument(file, argv);
    }
    if (!fromStandardInput) close(file);
}
