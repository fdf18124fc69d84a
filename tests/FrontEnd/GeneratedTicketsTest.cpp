// SPDX-License-Identifier: Apache-2.0
//
// Generated jobs of plain CUPS, hostile texts among them: whatever people type, the header that the
// printer gets consists of whole lines, or the job is refused and nothing is printed.
#include <gtest/gtest.h>

#include <random>

#include "FrontEnd/OptionString.h"
#include "FrontEnd/ShortOptions.h"
#include "support/Matches.h"
#include "support/Ppd.h"
#include "support/RunFilter.h"

namespace {

constexpr unsigned kSeed = 20261121;
constexpr int kJobs = 250;

const char *const kTexts[] = {"x",        "a b",      "say \"hi\"", "\"",           "back\\slash",
                              "Grüße",    "日本",     "\r\nEOJ",    "\x1B%-12345X", "/65/66",
                              "/",        "%s%n",     "(paren",     ")]put",        "<tag>&amp;",
                              "",         " ",        "collate",    "\xFF\xFE",     "{a=b}",
                              "12",       "0",        "-5",         "3,7",          "23:30",
                              "Pages:10", "Copies:x", "True",       "Thick:both",   "3:Tab"};
const char *const kEncodings[] = {"", "*KVPrinterLanguageEncoding: \"UTF-8\"\n",
                                  "*KVPrinterLanguageEncoding: \"ISO-8859-1\"\n"};

// A line of a header: complete, with no quotation mark within a string.
bool IsWhole(const std::string &line) {
    return Matches(
        line,
        "\x1B%-12345X@PJL JOB MODE=PRINTER\r\n"
        "|@PJL SET JOBATTR=\"@[A-Z]{4}=[^\"\r\n\x1B]*\"\r?\n"
        "|@PJL SET (USERNAME|HOLDENCRYPTKEY|BOXENCRYPTKEY|JOBNAME)=\"[^\"\r\n\x1B]+\"\r\n"
        "|@PJL SET BOXNUMBER=[0-9]+\r\n"
        "|@PJL SET (HOLD|HOLDTYPE|JOBOFFSET|RENDERMODE)=[A-Z]+\n"
        "|@PJL COMMENT KVJOBINFO [A-Z]+(=[A-Z0-9.:\\[\\]]+)?\n"
        "|@PJL ENTER LANGUAGE=POSTSCRIPT\n");
}

class Generator {
  public:
    FilterJob Job() {
        FilterJob job;
        for (int options = Number(6); options-- > 0;) {
            const ShortOption &row = kShortOptions[Number(static_cast<int>(kShortOptionCount))];
            AppendOption(job.options, row.name, Value(row));
        }
        job.user = Number(3) ? "alice" : Text();
        job.title = Number(3) ? "Report" : Text();
        job.copies = "2";
        job.ppd = PpdWith(std::string("*KVFrontEnd: \"CUPS\"\n*CommentOn: \"True\"\n") +
                          kEncodings[Number(3)]);
        job.input = "%!PS-Adobe-3.0\n%%EndProlog\nshowpage\n";
        return job;
    }

  private:
    int Number(int below) { return std::uniform_int_distribution(0, below - 1)(random_); }
    std::string Text() { return kTexts[Number(static_cast<int>(std::size(kTexts)))]; }

    std::string Value(const ShortOption &row) {
        const std::string example = row.example;
        switch (Number(4)) {
            case 0:
                return example.substr(example.find('=') + 1);
            case 1:
                return "Custom." + Text();
            case 2:
                return Text() + Text();
            default:
                return Text();
        }
    }

    std::mt19937 random_{kSeed};
};

}  // namespace

TEST(GeneratedTickets, GiveWholeLinesOrNothing) {
    Generator generator;
    int refused = 0, kept = 0;
    for (int i = 0; i < kJobs; i++) {
        const FilterJob job = generator.Job();
        const FilterResult result = RunFilter(job);
        if (result.status == 1) {
            EXPECT_EQ(result.output, "") << job.options;
            EXPECT_NE(result.errors.find("ERROR: "), std::string::npos) << job.options;
            refused++;
            continue;
        }
        ASSERT_EQ(result.status, 0) << job.options;
        // The XML ticket of special pages stands in front.
        const std::size_t start = result.output.find("\x1B%-12345X@PJL JOB MODE");
        ASSERT_NE(start, std::string::npos) << job.options;
        for (const std::string &line : HeaderLines(result.output.substr(start))) {
            EXPECT_TRUE(IsWhole(line)) << line << " of " << job.options << " by " << job.user;
        }
        kept += result.output.find("@PJL SET HOLD=") != std::string::npos;
    }
    EXPECT_GT(refused, kJobs / 20);
    EXPECT_GT(kept, kJobs / 40);
}
