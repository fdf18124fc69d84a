// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PostScriptPass.h"

#include <cstdio>

#include "CommonSource/FilterFrame/Source/DocumentReader.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "CommonSource/FilterFrame/Source/PostScriptLines.h"

void OutputPSStream(int argc, char *const argv[]) {
    const int file = OpenDocument(argc == 6, argv);
    if (file < 0) return;
    // The printer gets every page as soon as it is there, however slowly the document comes.
    DocumentReader reader(file, DocumentReader::kPlain, [] { std::fflush(stdout); });
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
