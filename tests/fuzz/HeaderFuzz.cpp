// SPDX-License-Identifier: Apache-2.0
//
// Options of every kind to the whole header, on a press and on a printer that take all of them.
#include "fuzz/FuzzJob.h"
#include "fuzz/FuzzOptions.h"

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    static const std::vector<FuzzKey> keys = TicketKeys();
    constexpr const char *kModels[] = {"kv1010p", "kv1150p", "kv2110c", "kv4110x"};
    static unsigned model = ~0U;
    FuzzInput input(data, size);
    const unsigned wanted = input.Byte() % std::size(kModels);
    if (wanted != model) UsePpd(std::string(KVFILTER_PPD_DIR "/") + kModels[wanted] + ".ppd");
    model = wanted;
    const std::string options = FuzzOptions(input, keys);
    const std::string header = HeaderThatStays(options, FuzzOptions(input, keys));
    FUZZ_CHECK(header.find("\x1b%-12345X") != std::string::npos);
    FUZZ_CHECK(header.find("@PJL JOB MODE=PRINTER\r\n") != std::string::npos);
    return 0;
}
