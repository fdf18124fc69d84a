// SPDX-License-Identifier: Apache-2.0
//
// The pass that turns PPD features into PJL, held against the reference.
#include "CommonSource/FilterFrame/Source/DecompositionPass.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "fuzz/Fuzz.h"
#include "fuzz/FuzzDocument.h"
#include "support/DecompositionJob.h"
#include "support/Injections.h"
#include "support/ReferenceDecomposition.h"

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const TempFolder folder;
    static FuzzFile file;
    static std::string options = [] {
        setenv("PPD", folder.Write("queue.ppd", DecompositionPpd()).c_str(), 1);
        setenv("TMPDIR", folder.Path().c_str(), 1);
        InializeDescriptionTable();
        return kInjecting;
    }();
    char word[] = "1", none[] = "";
    FuzzInput input(data, size);
    char *argv[] = {word,        word,   word, word, word, input.Byte() % 2 ? options.data() : none,
                    file.Path(), nullptr};
    GetTicketFromPDE(argv);
    file.Put(FuzzDocument(input));
    const FuzzOutput expected = RunQuietly([&] {
        std::FILE *document = std::fopen(file.Path(), "rb");
        ReferenceDecomposition(document, stdout, argv, true);
        std::fclose(document);
    });
    const FuzzOutput printed =
        RunQuietly([&] { OutputPSStreamtoFileandInsertPJLforFeaturePDE(7, argv); });
    FUZZ_CHECK(printed == expected);
    FUZZ_CHECK(Files(folder).size() == 1);  // the PPD
    return 0;
}
