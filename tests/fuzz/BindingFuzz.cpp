// SPDX-License-Identifier: Apache-2.0
//
// Perfect binding, with any sizes, cuts and media. Its writer puts keywords in the place of what
// the ticket says: nothing of one book may reach the next.
#include "Modules/PBind/PBindCommands.h"

#include "Modules/PBind/PBindTicket.h"
#include "fuzz/FuzzJob.h"
#include "fuzz/FuzzOptions.h"

namespace {

std::string Lines(std::string options) {
    char word[] = "1";
    char *argv[] = {word, word, word, word, word, options.data(), nullptr};
    return RunQuietly([&] {
               PBindGetTicketFromPDE(argv);
               OutputKPJLCommandforPerfectBind();
           })
        .output;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const std::vector<FuzzKey> keys = [] {
        UsePpd(KVFILTER_PPD_DIR "/kv4110x.ppd");
        std::vector<FuzzKey> all = TicketKeys("Perfect binding");
        AddPpdChoices(all);
        return all;
    }();
    FuzzInput input(data, size);
    const std::string options = "KVPBindPosition=BindLeft " + FuzzOptions(input, keys);
    const std::string lines = Lines(options);
    Lines("KVPBindPosition=BindRight " + FuzzOptions(input, keys));
    FUZZ_CHECK(Lines(options) == lines);
    FUZZ_CHECK(Lines("").empty());
    return 0;
}
