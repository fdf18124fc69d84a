// SPDX-License-Identifier: Apache-2.0
//
// Any PPD: the keywords that the filter reads with any value, options with any choices, and lines
// of any text, for a job that asks for everything.
#include "FrontEnd/CompleteTicket.h"
#include "fuzz/FuzzJob.h"
#include "fuzz/FuzzOptions.h"
#include "support/Ppd.h"

namespace {

constexpr const char *kKeywords[] = {"KVPSDecompMode",  "KVPrinterLanguageEncoding",
                                     "CommentOn",       "PCFileName",
                                     "KVColorMode",     "KVLineWeightAdjustment",
                                     "KVSignature",     "KVStaple",
                                     "KVPBindPageSize", "ColorDevice",
                                     "KVFrontEnd",      "LanguageEncoding",
                                     "cupsJobPassword", "Duplex",
                                     "PageSize"};
constexpr const char *kValues[] = {"1",     "True", "UTF-8", "KV1010P.PPD", "Color",
                                   "False", "CUPS", "",      "ISO-8859-1",  "LeftDouble"};

std::string Lines(FuzzInput &input) {
    std::string lines;
    for (int i = 0; i < 40 && !input.Empty(); i++) {
        const std::string keyword = kKeywords[input.Below(std::size(kKeywords))];
        const std::string value = FuzzValue(input, {std::begin(kValues), std::end(kValues)});
        switch (input.Byte() % 4) {
            case 0:
                lines += "*" + keyword + ": \"" + value + "\"\n";
                break;
            case 1:
                lines += "*OpenUI *" + keyword + ": PickOne\n*Default" + keyword + ": " + value +
                         "\n*" + keyword + " " + value + "/Text: \"code\"\n*CloseUI: *" + keyword +
                         "\n";
                break;
            case 2:
                lines += "*UIConstraints: *" + keyword + " " + value + " *PageSize A4\n";
                break;
            default:
                lines += value + "\n";
        }
    }
    return lines;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const TempFolder folder;
    FuzzInput input(data, size);
    UsePpd(folder.Write("queue.ppd", PpdWith(Lines(input))));
    char word[] = "1";
    std::string options =
        "KVStaple=LeftDouble sides=two-sided-long-edge media=A4 KVWatermark=Draft "
        "KVPBindPosition=BindLeft KVPBindPageSize=A4 KVSignature=LeftSig KVColorMode=Color";
    char *argv[] = {word, word, word, word, word, options.data(), nullptr};
    const CompletedTicket ticket = CompleteTicket(argv);
    HeaderOf(ticket.options);
    HeaderOf(options);
    return 0;
}
