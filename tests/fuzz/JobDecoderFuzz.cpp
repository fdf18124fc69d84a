// SPDX-License-Identifier: Apache-2.0
//
// kvjobinfo show: any bytes, in pieces whose size the first byte gives, taken apart and laid out.
#include <cstdlib>

#include "Tools/JobInfo/JobDecoder.h"
#include "Tools/JobInfo/ShowJob.h"
#include "fuzz/Fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    if (size == 0) return 0;
    const std::size_t step = std::size_t{data[0]} + 1;
    const std::string_view bytes(reinterpret_cast<const char *>(data) + 1, size - 1);
    JobDecoder decoder;
    for (std::size_t i = 0; i < bytes.size(); i += step) decoder.Feed(bytes.substr(i, step));
    const DecodedJob &job = decoder.Finish();
    const std::string text = JobAsText(job, "job", false, {.width = 80, .hasColour = false});
    for (const char byte : text) {
        // Nothing that a terminal obeys may come through.
        if (static_cast<unsigned char>(byte) < 0x20 && byte != '\n') std::abort();
    }
    return JobAsJSON(job, "job", false).empty();
}
