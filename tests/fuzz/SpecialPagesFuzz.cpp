// SPDX-License-Identifier: Apache-2.0
//
// Covers, inserted sheets and page exceptions, with any counts, numbers and fields. What they make
// is well-formed XML unless a field holds what XML takes for more than text.
#include "Modules/SpecialPage/SpecialPageDocument.h"

#include <algorithm>
#include <cstring>

#include "Modules/SpecialPage/SpecialPageTicket.h"
#include "Tools/JobInfo/SpecialPagesReader.h"
#include "fuzz/FuzzJob.h"
#include "fuzz/FuzzOptions.h"

namespace {

// The counts, and the numbered values that they announce.
std::vector<FuzzKey> Keys() {
    std::vector<FuzzKey> keys = TicketKeys("Special pages");
    for (const char *kind : {"Cover", "Insertion", "Exception"}) {
        for (const char *number : {"0", "1", "2", "9", "10", "007", "-1", "99999999999"}) {
            keys.push_back({std::string(KV_TICKET "KPIF") + kind + "ValueTicket_" + number,
                            {"1,0,both,Thick", "0,3,,Tab,blue,A4", ",,,,,,,,", "2-5,1,2,3,4,5"}});
        }
    }
    return keys;
}

// Fields reach the document as they are; one that begins with a slash may stand for any bytes.
bool IsPlainText(const std::string &options) {
    return std::all_of(options.begin(), options.end(), [](char byte) {
        return byte >= ' ' && byte <= '~' && !std::strchr("<>&/", byte);
    });
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const std::vector<FuzzKey> keys = Keys();
    FuzzInput input(data, size);
    std::string options = FuzzOptions(input, keys);
    const bool isPlainText = IsPlainText(options);
    char word[] = "1";
    char *argv[] = {word, word, word, word, word, options.data(), nullptr};
    const std::string document = RunQuietly([&] {
                                     SpecialPageGetTicketFromPDE(argv);
                                     InjectKPIFCommandSP(argv);
                                 }).output;
    if (document.empty()) return 0;
    FUZZ_CHECK(document.starts_with("<?xml") && document.ends_with("</kpif>\n"));
    if (!isPlainText) return 0;
    SpecialPages pages;
    SpecialPagesReader reader(pages);
    reader.Add(document);
    FUZZ_CHECK(reader.End().empty());
    return 0;
}
