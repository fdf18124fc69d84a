// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PostScriptPass.h"

#include <cstdio>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PostScriptLines.h"

void OutputPSStream(int argc, char *const argv[]) {
    const bool fromStandardInput = argc == 6;
    const int file = OpenDocument(fromStandardInput, argv);
    if (file < 0) return;
    // The printer gets every page as soon as it is there, however slowly the document comes.
    DocumentReader reader(file, DocumentReader::kPlain, [] { KVfflush(stdout); });
    DocumentState state;
    DocumentPiece piece;
    while (!OutputHasFailed(stdout) && reader.Next(piece)) {
        if (piece.kind == DocumentPiece::kRun) {
            KVfwrite(piece.text.data(), 1, piece.text.size(), stdout);
        } else if (!PutSpecialLine(*piece.special, piece.text, state, argv, stdout)) {
            return;
        }
    }
    if (DocumentIsCut(DocumentName(fromStandardInput, argv), reader.Error())) return;
    KVfputc(kEndOfPostScriptJob, stdout);
}
