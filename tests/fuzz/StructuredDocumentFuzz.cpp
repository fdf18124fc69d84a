// SPDX-License-Identifier: Apache-2.0
//
// Both passes with documents of any maker: without a ticket they come out as they went in, with one
// Ctrl-D, but for the PJL that they bring along.
#include "CommonSource/FilterFrame/Source/DecompositionPass.h"
#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "CommonSource/FilterFrame/Source/PostScriptPass.h"
#include "FrontEnd/ForeignPJL.h"
#include "FrontEnd/FrontEnd.h"
#include "fuzz/Fuzz.h"
#include "fuzz/FuzzDocument.h"
#include "support/Injections.h"

namespace {

// The document as the printer gets it.
std::string Ended(std::string document) {
    if (document.ends_with('\x04')) return document;
    if (!document.empty() && !IsLineEnd(document.back())) document += '\n';
    return document + '\x04';
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static FuzzFile file;
    static std::string options = (InializeDescriptionTable(), kInjecting);
    char word[] = "1", none[] = "";
    FuzzInput input(data, size);
    const unsigned mode = input.Byte();
    const bool injects = mode % 2;
    char *argv[] = {word,        word,   word, word, word, injects ? options.data() : none,
                    file.Path(), nullptr};
    FindFrontEnd("KVFrontEnd=CUPS");
    GetTicketFromPDE(argv);
    CancelJob = mode / 2 % 2;
    const std::string document = FuzzDocument(input);
    file.Put(document);
    for (const auto pass : {OutputPSStream, OutputPSStreamtoFileandInsertPJLforFeaturePDE}) {
        const std::string output = RunQuietly([&] { pass(7, argv); }).output;
        const bool hasPJL = document.find(kUniversalExit) != document.npos;
        const bool hasData = document.find("%%Begin") != document.npos;
        if (!injects && !hasPJL && CancelJob == 0) FUZZ_CHECK(output.ends_with(Ended(document)));
        if (!hasData) FUZZ_CHECK(output.find(kUniversalExit) == output.npos);
    }
    return 0;
}
