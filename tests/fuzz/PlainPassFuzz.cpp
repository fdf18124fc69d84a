// SPDX-License-Identifier: Apache-2.0
//
// The plain pass with everything injected that can be, held against the reference.
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/PostScriptPass.h"
#include "fuzz/Fuzz.h"
#include "fuzz/FuzzDocument.h"
#include "support/Injections.h"
#include "support/ReferencePass.h"

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static FuzzFile file;
    static std::string options = (InializeDescriptionTable(), kInjecting);
    char word[] = "1", none[] = "";
    FuzzInput input(data, size);
    const unsigned mode = input.Byte();
    char *argv[] = {word,        word,   word, word, word, mode % 2 ? options.data() : none,
                    file.Path(), nullptr};
    GetTicketFromPDE(argv);
    CancelJob = mode / 2 % 2;
    file.Put(FuzzDocument(input));
    const FuzzOutput expected = RunQuietly([&] {
        std::FILE *document = std::fopen(file.Path(), "rb");
        ReferencePSStream(document, stdout, argv);
        std::fclose(document);
    });
    FUZZ_CHECK(RunQuietly([&] { OutputPSStream(7, argv); }) == expected);
    return 0;
}
