// SPDX-License-Identifier: Apache-2.0
//
// What kvjobinfo is given to read: printer-ready jobs, what was once one, and anything else. Lines
// of real jobs help the fuzzer. In whatever pieces a job comes, it is understood the same.
#include <algorithm>
#include <string>
#include <vector>

#include "Tools/JobInfo/JobDecoder.h"
#include "Tools/JobInfo/ShowJob.h"
#include "fuzz/Fuzz.h"

namespace {

constexpr std::string_view kLines[] = {
    "\x1b%-12345X",
    "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n",
    "@PJL JOB MODE=PRINTER\r\n",
    "@PJL SET HOLD=STORE\n",
    "@PJL SET HOLDENCRYPTKEY=\"4711\"\r\n",
    "@PJL SET JOBATTR=\"@JOAU=alice\"\r\n",
    "@PJL SET JOBATTR=\"@PBTW=-1\"\n",
    "@PJL COMMENT KVJOBINFO BEGIN\n",
    "@PJL COMMENT KVJOBINFO STAPLE=ON\n",
    "@PJL ENTER LANGUAGE=POSTSCRIPT\n",
    "%!PS-Adobe-3.0\n",
    "%%Title: (Report)\n",
    "%%Page: 1 1\n",
    "%%BeginFeature: *KVStaple LeftDouble\n",
    "showpage\n",
    "\x04",
    "\x1b%-12345X@PJL EOJ\n",
    "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n",
    "<kpif version=\"1.0\">\n",
    "<cover-front syntax=\"collection\">\n",
    "<media-type syntax=\"name\">Thick</media-type>\n",
    "</kpif>\n",
    "%PDF-1.7\n",
};

std::string Job(FuzzInput &input) {
    constexpr unsigned kFirstLine = 0x80;
    std::string job;
    while (!input.Empty()) {
        const unsigned byte = input.Byte();
        if (byte >= kFirstLine && byte - kFirstLine < std::size(kLines)) {
            job += kLines[byte - kFirstLine];
        } else {
            job += static_cast<char>(byte);
        }
    }
    return job;
}

struct Shown {
    DecodedJob::Kind kind;
    std::size_t headerLines;
    std::vector<std::string> problems;
    std::string document;
    bool operator==(const Shown &) const = default;
};

// Nothing that a terminal obeys may come through.
void CheckLayout(const DecodedJob &job) {
    const std::string text = JobAsText(job, "job", false, {.width = 80, .hasColour = false});
    for (const char byte : text)
        FUZZ_CHECK(static_cast<unsigned char>(byte) >= 0x20 || byte == '\n');
    FUZZ_CHECK(!JobAsJSON(job, "job", false).empty());
}

Shown Decode(std::string_view job, std::size_t pieceSize) {
    std::string document;
    JobDecoder decoder([&](std::string_view bytes) { document += bytes; });
    for (std::size_t at = 0; at < job.size(); at += pieceSize) {
        decoder.Feed(job.substr(at, pieceSize));
    }
    const DecodedJob &decoded = decoder.Finish();
    Shown shown{decoded.kind, decoded.header.size(), {}, std::move(document)};
    for (const Problem &problem : decoded.problems) {
        FUZZ_CHECK(problem.offset <= job.size());
        shown.problems.push_back(problem.text);
    }
    CheckLayout(decoded);
    return shown;
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    FuzzInput input(data, size);
    const std::size_t pieceSize = 1 + input.Byte();
    const std::string job = Job(input);
    const Shown whole = Decode(job, std::max<std::size_t>(job.size(), 1));
    FUZZ_CHECK(Decode(job, pieceSize) == whole);
    FUZZ_CHECK(whole.document.size() <= job.size());
    return 0;
}
