// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/JobDecoder.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

const std::string kSpecialPages =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE kpif SYSTEM \"kpif-v02030a.dtd\">\n"
    "<kpif version=\"1.0\">\n<job-template-attributes>\n"
    "<cover-front syntax=\"collection\"><cover-type>front</cover-type><media-col>"
    "<media-type>Thick</media-type></media-col></cover-front>\n"
    "<insert-sheet><value><insert-after-page-number>3</insert-after-page-number>"
    "<insert-count>2</insert-count><media-col><media-color>blue</media-color><media-size>"
    "<x-dimension>2100</x-dimension><y-dimension>2970</y-dimension></media-size>"
    "<media-type>thin</media-type></media-col></value></insert-sheet>\n"
    "<page-overrides><value><input-documents><value><lower-bound>1</lower-bound>"
    "<upper-bound>2</upper-bound></value></input-documents><pages><value>"
    "<lower-bound>4</lower-bound><upper-bound>9</upper-bound></value></pages>"
    "<sides>one-sided</sides><media-col><media-type>Tab</media-type></media-col></value>"
    "</page-overrides>\n"
    "</job-template-attributes>\n</kpif>\n";
const std::string kHeader =
    "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n"
    "@PJL SET HOLDENCRYPTKEY=\"1234\"\r\n"
    "@PJL SET JOBATTR=\"@LUNA=alice\"\n"
    "@PJL SET RENDERMODE=COLOR\n";
const std::string kSwitch = "@PJL ENTER LANGUAGE=POSTSCRIPT\n";
const std::string kDocument =
    "%!PS-Adobe-3.0\n%%Title: (A Report)\n%%Creator: kvfilter\n%%Pages: (atend)\n%%EndComments\n"
    "%%BeginProlog\nuserdict/kvxInfo 2 dict dup begin\n%%EndProlog\n"
    "%%Page: 1 1\r%%BeginPageSetup\n%%EndPageSetup\nkvxbp\npgsave restore /pgsave save store "
    "gsave\n"
    "ep\n%%BeginDocument: x\n%%Title: other\n%%Page: 1 1\n%%EndDocument\n"
    "%%Page: 2 2\nkvxbp\npgsave restore /pgsave save store gsave\nep\n"
    "[{\n%%BeginNonPPDFeatures\n1 dict dup/SeparatorPages[2]put/Custom/ProcSet findresource"
    "/setcoverseparator get exec\n%%EndNonPPDFeatures\n} stopped cleartomark\n"
    "%%Trailer\n%%Pages: 2\n%%EOF\n";
const std::string kTrailer = "\x1b%-12345X@PJL EOJ\n";
const std::string kPlainJob = kHeader + kSwitch + kDocument + "\x04" + kTrailer;
const std::string kJob = kSpecialPages + kPlainJob;

struct Decoded {
    explicit Decoded(const std::string &bytes, std::size_t step = 0)
        : decoder([this](std::string_view piece) { document += piece; }) {
        if (step == 0) step = bytes.size() + 1;
        for (std::size_t i = 0; i < bytes.size(); i += step) decoder.Feed(bytes.substr(i, step));
        job = decoder.Finish();
    }
    // The names of the problems, one after another.
    std::string Problems() const {
        std::string names;
        for (const Problem &problem : job.problems) {
            names += std::string(ProblemName(problem.kind)) + " ";
        }
        return names;
    }
    std::string document;
    JobDecoder decoder;
    DecodedJob job;
};

TEST(JobDecoder, KnowsNoCountThatNeverComes) {
    const std::string document = "%!PS-Adobe-3.0\n%%Pages: (atend)\n%%EndComments\n%%EOF\n";
    EXPECT_EQ(Decoded(kHeader + kSwitch + document + "\x04" + kTrailer).job.document.statedPages,
              "");
}

TEST(JobDecoder, ReadsTitlesInParentheses) {
    const struct {
        const char *comment, *title;
    } cases[] = {{"(A Report)", "A Report"},
                 {"A (Report)", "A (Report)"},
                 {"()", ""},
                 {"(", "("},
                 {"(x", "(x"},
                 {"  (x)  ", "x"}};
    for (const auto &test : cases) {
        const Decoded decoded(kHeader + kSwitch + "%!\n%%Title: " + test.comment + "\n\x04" +
                              kTrailer);
        EXPECT_EQ(decoded.job.document.title, test.title);
    }
}

TEST(JobDecoder, TakesAJobApart) {
    for (const std::size_t step : {0U, 1U, 7U, 1000U}) {
        const Decoded decoded(kJob, step);
        const DecodedJob &job = decoded.job;
        EXPECT_EQ(decoded.Problems(), "");
        EXPECT_EQ(job.kind, DecodedJob::kJob);
        EXPECT_EQ(job.size, kJob.size());
        EXPECT_EQ(job.specialPages.size, kSpecialPages.size());
        ASSERT_EQ(job.header.size(), 5U);
        EXPECT_EQ(job.header[1].text, "@PJL SET HOLDENCRYPTKEY=\"1234\"");
        EXPECT_EQ(job.header[1].end, JobLine::kReturnAndFeed);
        EXPECT_EQ(job.header[2].end, JobLine::kLineFeed);
        EXPECT_EQ(job.header[2].offset, kJob.find("@PJL SET JOBATTR"));
        EXPECT_TRUE(job.hasSwitch);
        EXPECT_TRUE(job.hasTrailer);
        EXPECT_EQ(job.trailerOffset, kJob.size() - kTrailer.size());
        EXPECT_EQ(decoded.document, kDocument + "\x04");
    }
}

TEST(JobDecoder, ReadsTheDocument) {
    const Decoded decoded(kJob);
    const JobDocument &document = decoded.job.document;
    EXPECT_EQ(document.offset, kJob.find("%!PS"));
    EXPECT_EQ(document.size, kDocument.size() + 1);
    EXPECT_EQ(document.title, "A Report");
    EXPECT_EQ(document.maker, "kvfilter");
    EXPECT_EQ(document.statedPages, "2");
    EXPECT_EQ(document.pages, 2U);
    EXPECT_EQ(document.pageEnds, 2U);
    EXPECT_TRUE(document.endsWithControlD);
    EXPECT_FALSE(document.isCopy);
    ASSERT_EQ(document.ownCode.size(), 4U);
    EXPECT_STREQ(document.ownCode[0].meaning, "watermark: its procedures");
    EXPECT_STREQ(document.ownCode[1].meaning, "watermark: a page begins");
    EXPECT_EQ(document.ownCode[1].count, 2U);
    EXPECT_EQ(document.ownCode[1].offset, kJob.find("kvxbp"));
    EXPECT_STREQ(document.ownCode[2].meaning, "watermark: the stamp");
    EXPECT_STREQ(document.ownCode[3].meaning, "separator pages");
}

TEST(JobDecoder, KnowsWhatTheFilterPutIntoTheDocument) {
    const std::string feature = "%%BeginNonPPDFeatures\n1 dict dup/A/Custom/ProcSet findresource";
    const struct {
        std::string line;
        const char *meaning;
    } cases[] = {
        {"userdict/kvxInfo 2 dict dup begin", "watermark: its procedures"},
        {"/kvxStamp currentdict def", "watermark: what stamps the pages"},
        {"kvxbp", "watermark: a page begins"},
        {"pgsave restore /pgsave save store gsave", "watermark: the stamp"},
        {"pm restore /pm save store gsave", "watermark: the stamp"},
        {"kvxpgsave restore /kvxpgsave save store gsave", "watermark: the stamp"},
        {feature + "/setsignatureimageshift get exec", "auto-fit: shift of the image"},
        {feature + "/setsignatureautoscale get exec", "auto-fit: scaling"},
        {feature + "/setcoverseparator get exec", "separator pages"},
    };
    for (const auto &test : cases) {
        const Decoded decoded(kHeader + kSwitch + "%!\n" + test.line + "\n\x04" + kTrailer);
        ASSERT_EQ(decoded.job.document.ownCode.size(), 1U) << test.line;
        EXPECT_STREQ(decoded.job.document.ownCode[0].meaning, test.meaning);
    }
    const std::string others = "%!\n/setcoverseparator\n kvxbp\nkvxbp 1\n\x04";
    EXPECT_TRUE(Decoded(kHeader + kSwitch + others + kTrailer).job.document.ownCode.empty());
}

TEST(JobDecoder, PutsSpecialPagesIntoWords) {
    const std::vector<SpecialPage> pages = Decoded(kJob, 5).job.specialPages.pages;
    ASSERT_EQ(pages.size(), 3U);
    EXPECT_EQ(pages[0].what, "front cover");
    EXPECT_EQ(pages[0].words, "printed: front, media Thick");
    EXPECT_EQ(pages[1].what, "inserted sheets");
    EXPECT_EQ(pages[1].words, "after page 3, count 2, colour blue, 2100 x 2970, media thin");
    EXPECT_EQ(pages[2].what, "page exception");
    EXPECT_EQ(pages[2].words, "documents 1 to 2, pages 4 to 9, sides one-sided, media Tab");
}

TEST(JobDecoder, KeepsLittleOfManyOrLongSpecialPages) {
    std::string job =
        "<?xml version=\"1.0\"?>\n<kpif><page-overrides><value><input-documents><value>"
        "<lower-bound>2</lower-bound><upper-bound>1</upper-bound></value>"
        "</input-documents><media-col><media-type>" +
        std::string(150, 'a') + "&amp;" + std::string(100, 'b') +
        "&amp;c</media-type></media-col></value></page-overrides><insert-sheet>";
    for (int i = 0; i < 1010; i++) job += "<value><insert-count>2</insert-count></value>";
    const Decoded decoded(job + "</insert-sheet></kpif>\n" + kPlainJob);
    EXPECT_EQ(decoded.Problems(), "");
    const std::vector<SpecialPage> &pages = decoded.job.specialPages.pages;
    ASSERT_EQ(pages.size(), 1000U);
    EXPECT_EQ(pages[0].words,
              "documents 2 to 1, media " + std::string(150, 'a') + "&" + std::string(49, 'b'));
    EXPECT_EQ(pages[999].words, "count 2");
}

TEST(JobDecoder, SaysWhatIsWrong) {
    const std::string partial = "@PJL SET JOBOFFSET=PAGES\n@PJL SET JOBATTR=\"";
    const std::string longLine = "@PJL SET JOBNAME=\"" + std::string(300, 'x');
    const std::string start = "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n";
    const std::string rest = kSwitch + kDocument + "\x04" + kTrailer;
    const struct {
        std::string job;
        const char *problems;
    } cases[] = {
        {start + partial + rest, "line-without-end "},
        {start + partial + partial + rest, "line-without-end line-without-end "},
        {start + partial + kTrailer, "line-without-end no-document "},
        {start + longLine.substr(0, 229) + rest, "cut-line "},
        {start + longLine.substr(0, 99) + rest, "cut-line "},
        {start + longLine.substr(0, 98) + "\"\n" + rest, ""},
        {start + "@PJL SET JOBNAME=\"What @PJL says\"\n" + rest, ""},
        {start + "@PJL SET JOBNAME=\"A=@PJL SET B=C\"\n" + rest, ""},
        {start + "@PJL SET JOBATTR=\"@JOAU=@PJL \"\r\n" + rest, ""},
        {start + longLine.substr(0, 99) + "@PJL EOJ\"\n" + rest, ""},
        {start + longLine.substr(0, 229) + "@PJL \"\n" + rest, ""},
        {start + longLine.substr(0, 99) + "@PJL SET JOBNAME=\"b\"\n" + rest, "cut-line "},
        {start + partial + "@PJL SET JOBNAME=\"b\"\n" + rest, "line-without-end "},
        {start + "@PJL SET A=1\n@PJL SET RET=ON\n@PJL SET RET=OFF\n" + rest, "given-twice "},
        {start + "@PJL SET RET=ON\n@PJL SET ret=OFF\n" + rest, "given-twice "},
        {start + "@PJL SET RET=ON\n@PJL SET RET=ON\n" + rest, ""},
        {start + "hello\n" + rest, "no-pjl "},
        {start + "@PJL ENTER LANGUAGE=PCL\n" + kDocument + kTrailer, "no-postscript "},
        {start + kSwitch + "%PDF-1.7\n\x04" + kTrailer, "no-postscript "},
        {start + kSwitch + "\x04" + kTrailer, "no-document "},
        {start + kSwitch + "\x04\n%!\n" + kTrailer, "no-postscript "},
        {start + kSwitch + kTrailer, "no-document "},
        {start + kTrailer, "no-document "},
        {start + kDocument + kTrailer, "no-switch "},
        {start + kSwitch + "%!\n@PJL SET RET=ON\n\x04" + kTrailer, "pjl-in-document "},
        {start + kSwitch + kPlainJob, "pjl-in-document no-postscript "},
        {kPlainJob.substr(0, kPlainJob.size() - kTrailer.size()), "truncated "},
        {kPlainJob.substr(0, kPlainJob.size() - 1), "line-without-end "},
        {kPlainJob + "x", "bytes-after "},
        {kPlainJob + kPlainJob, "second-job "},
        {kPlainJob + kJob, "second-job "},
        {"<?xml version=\"1.0\"?>\n<kpif><a></kpif>\n" + kPlainJob, "special-pages "},
    };
    for (const auto &test : cases) {
        for (const std::size_t step : {0U, 1U}) {
            EXPECT_EQ(Decoded(test.job, step).Problems(), test.problems) << test.job.substr(0, 200);
        }
    }
}

TEST(JobDecoder, SaysItInWordsAndWhere) {
    const std::string start = "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n";
    const std::string rest = kSwitch + kDocument + "\x04" + kTrailer;
    const std::string longLine = "@PJL SET JOBNAME=\"" + std::string(300, 'x');
    const std::size_t second = start.size();  // line
    const std::size_t document = second + kSwitch.size();
    const std::string cutOff = "the job has no trailer: it is cut off in its ";
    const std::string shown = "\"" + longLine.substr(0, 40) + "\"";
    std::string manyLines;
    for (int i = 0; i < 2000; i++) manyLines += "@PJL SET RET=ON\n";
    const struct {
        std::string job;
        std::uint64_t offset;
        std::string text;
    } cases[] = {
        {"<?xml version=\"1.0\"?>\n<kpif><a></kpif>\n" + kPlainJob, 0,
         "the special pages are no well-formed XML, line 2: mismatched tag"},
        {start + "hello\n" + rest, second, "a line of the header is no PJL: \"hello\""},
        {start + longLine.substr(0, 99) + rest, second,
         "a line was cut at 99 bytes and has lost its end: " + shown},
        {start + "@PJL SET RET=" + rest, second,
         "a line without its end swallows the next one: \"@PJL SET RET=\""},
        {start + "@PJL SET RET=ON\n@PJL SET RET=OFF\n" + rest, second + 16,
         "RET is given twice with different values: ON and OFF"},
        {start + "@PJL ENTER LANGUAGE=PCL\n" + kDocument + kTrailer, second,
         "the printer is not switched to PostScript: \"@PJL ENTER LANGUAGE=PCL\""},
        {start + kSwitch + "%!\n@PJL SET RET=ON\n\x04" + kTrailer, document + 3,
         "PJL stands in the document: \"@PJL SET RET=ON\""},
        {kPlainJob.substr(0, kPlainJob.size() - 1), kPlainJob.size() - kTrailer.size(),
         "the trailer has no line end"},
        {kPlainJob + kPlainJob, kPlainJob.size(),
         "a second job begins after the first, at byte " + std::to_string(kPlainJob.size())},
        {kPlainJob + "\nx\n", kPlainJob.size(), "3 bytes stand after the trailer"},
        {start + kSwitch + kTrailer, document, "the document is empty"},
        {start + kSwitch + "\x04" + kTrailer, document, "the document is empty"},
        {start + kTrailer, second, "the job has no document"},
        {start + kSwitch + "%PDF-1.7\n\x04" + kTrailer, document,
         "the document is no PostScript, but a PDF document"},
        {start + kSwitch + "hello\n\x04" + kTrailer, document,
         "the document is no PostScript, but begins with \"hello\""},
        {start + kDocument + kTrailer, second, "no line switches the printer to PostScript"},
        {"\x1b%-1", 4, cutOff + "first line"},
        {kSpecialPages, kSpecialPages.size(), cutOff + "special pages"},
        {kHeader, kHeader.size(), cutOff + "header"},
        {kHeader + kSwitch, (kHeader + kSwitch).size(), cutOff + "document"},
        {kHeader + kDocument, (kHeader + kDocument).size(), cutOff + "document"},
        {start + manyLines + rest, 0, "the header has more lines than are shown: 2 more lines"},
    };
    for (const auto &test : cases) {
        const Decoded decoded(test.job);
        ASSERT_FALSE(decoded.job.problems.empty()) << test.text;
        EXPECT_EQ(decoded.job.problems.back().text, test.text);
        EXPECT_EQ(decoded.job.problems.back().offset, test.offset) << test.text;
    }
}

TEST(JobDecoder, NeverShowsASecretInAProblem) {
    const std::string start = "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n";
    const std::string rest = kSwitch + kDocument + "\x04" + kTrailer;
    for (const std::string &job :
         {start + "@PJL SET HOLDENCRYPTKEY=\"geheim\"\n@PJL SET HOLDENCRYPTKEY=\"geheim2\"\n" +
              rest,
          start + "@PJL SET HOLDENCRYPTKEY=\"" + std::string(199, 'g') + "eheim" + rest,
          start + kSwitch + "%!\n@PJL SET HOLDENCRYPTKEY=\"geheim\"\n\x04" + kTrailer}) {
        const Decoded decoded(job);
        ASSERT_EQ(decoded.job.problems.size(), 1U) << decoded.Problems();
        EXPECT_EQ(decoded.job.problems[0].text.find("eheim"), std::string::npos);
        EXPECT_NE(decoded.job.problems[0].text.find("HOLDENCRYPTKEY"), std::string::npos);
    }
}

// Bytes that may become the sequence that ends a job wait for the next ones, but not for ever.
TEST(JobDecoder, WaitsNoLongerThanALineForTheEnd) {
    const std::string line = std::string(70000, 'y') + "\x1b";
    std::string taken;
    JobDecoder decoder([&](std::string_view piece) { taken += piece; });
    decoder.Feed(kHeader + kSwitch + "%!\n" + line);
    EXPECT_EQ(taken.size(), 3U + 65536U);
    decoder.Feed("z\n\x04" + kTrailer);
    EXPECT_TRUE(decoder.Finish().problems.empty());
    EXPECT_TRUE(taken == "%!\n" + line + "z\n\x04") << taken.size();
}

TEST(JobDecoder, TakesALineAsLongAsAnyAtOnce) {
    std::size_t taken = 0;
    JobDecoder decoder([&](std::string_view piece) { taken += piece.size(); });
    decoder.Feed(kHeader + kSwitch + std::string(65535, 'y'));
    EXPECT_EQ(taken, 0U);
    decoder.Feed("y");
    EXPECT_EQ(taken, 65536U);
    decoder.Feed(std::string(65535, 'y') + "\x1b");  // which may end the job
    EXPECT_EQ(taken, 65536U);
    decoder.Feed("\n" + std::string(65536, 'y') + "\x1b");
    EXPECT_EQ(taken, 65536U + 65537U + 65536U);
}

TEST(JobDecoder, ReadsCopiesOfJobsWithPJLFeatures) {
    const std::string job = kHeader + "%!PS-Adobe-3.0\n@PJL SET RET=ON\n%%Page: 1 1\n" +
                            "@PJL SET JOBATTR=\"@TRAP=ON\"\nep\n\x04" + kSwitch + kTrailer;
    for (const std::size_t step : {0U, 1U}) {
        const Decoded decoded(job, step);
        EXPECT_EQ(decoded.Problems(), "");
        EXPECT_TRUE(decoded.job.document.isCopy);
        EXPECT_EQ(decoded.document, "%!PS-Adobe-3.0\n%%Page: 1 1\nep\n\x04");
        EXPECT_EQ(decoded.job.header.size(), 7U);
        EXPECT_EQ(decoded.job.document.pages, 1U);
        EXPECT_TRUE(decoded.job.document.endsWithControlD);
    }
}

TEST(JobDecoder, ShowsATruncatedJobAsFarAsItGoes) {
    for (std::size_t length = 1; length < kJob.size(); length++) {
        const Decoded decoded(kJob.substr(0, length));
        const DecodedJob &job = decoded.job;
        ASSERT_EQ(job.kind, DecodedJob::kJob) << length;
        const bool lacksOnlyLineEnd = length == kJob.size() - 1;
        EXPECT_EQ(decoded.Problems(), lacksOnlyLineEnd ? "line-without-end " : "truncated ")
            << length;
        if (length > kSpecialPages.size() + kHeader.size()) {
            EXPECT_GE(job.header.size(), 4U) << length;
            EXPECT_EQ(job.header[2].text, "@PJL SET JOBATTR=\"@LUNA=alice\"") << length;
        }
    }
}

TEST(JobDecoder, TellsWhatElseItIsGiven) {
    const struct {
        std::string data;
        const char *name;
    } cases[] = {
        {"%!PS\n", "PostScript without a job around it"},
        {"\x04%!PS\n", "PostScript without a job around it"},
        {"%PDF-1.4\n", "a PDF document"},
        {"@PJL JOB\n", "PJL that no universal exit language leads in"},
        {"\x1b"
         "E\x1b&l0O",
         "a PCL job"},
        {"\x1b&l0O", "a PCL job"},
        {"\x1b*rB", "a PCL job"},
        {") HP-PCL XL;2;0", "a PCL XL job"},
        {"RaS2", "a raster document"},
        {"UNIRAST", "a raster document"},
        {"\x89PNG\r\n", "a PNG picture"},
        {"\xff\xd8\xff\xe0", "a JPEG picture"},
        {"GIF89a", "a GIF picture"},
        {"II*", "a TIFF picture"},
        {std::string("MM\0*", 4), "a TIFF picture"},
        {"PK\x03\x04", "a ZIP archive or an office document"},
        {"\x1f\x8b\x08", "compressed data"},
        {"*PPD-Adobe: \"4.3\"\n", "a PPD file"},
        {"{\\rtf1", "an RTF document"},
        {"<!DOCTYPE html>\n", "an HTML document"},
        {"hello\nworld\n", "data that begins with \"hello\""},
        {std::string("\0\1\2", 3), "data that begins with \"<00><01><02>\""},
    };
    for (const auto &test : cases) {
        const Decoded decoded(test.data);
        EXPECT_EQ(decoded.job.kind, DecodedJob::kForeign);
        EXPECT_EQ(decoded.job.foreign, test.name);
    }
    EXPECT_EQ(Decoded("").job.kind, DecodedJob::kEmpty);
    EXPECT_EQ(Decoded(kHeader + kSwitch + "\x1b%-12345X@PJL JOB\n\x04" + kTrailer)
                  .job.problems.back()
                  .text,
              "the document is no PostScript, but a PJL job");
}

// Whatever it is given: an end, the same for any pieces, and not much memory.
TEST(JobDecoder, StandsCorruptedJobs) {
    std::mt19937 random(1);
    const auto pick = [&](std::size_t count) { return random() % count; };
    for (int i = 0; i < 1500; i++) {
        std::string job = pick(2) ? kJob : kPlainJob;
        for (std::size_t n = 1 + pick(8); n > 0; n--) {
            const std::size_t place = pick(job.size());
            switch (pick(4)) {
                case 0:
                    job[place] = static_cast<char>(random());
                    break;
                case 1:
                    job.erase(place, 1 + pick(100));
                    break;
                case 2:
                    job.insert(place, job.substr(pick(job.size()), pick(200)));
                    break;
                case 3:
                    job.insert(place, "\x1b%-12345X@PJL ");
                    break;
            }
            if (job.empty()) job = "x";
        }
        const Decoded whole(job), pieces(job, 1 + pick(50));
        EXPECT_EQ(whole.Problems(), pieces.Problems());
        EXPECT_EQ(whole.document, pieces.document);
        EXPECT_EQ(whole.job.header.size(), pieces.job.header.size());
        EXPECT_EQ(whole.job.kind, pieces.job.kind);
    }
}

TEST(JobDecoder, KeepsLittleOfALongJob) {
    std::string line = "@PJL SET RET=" + std::string(500, 'x');
    std::string job = kHeader;
    for (int i = 0; i < 20000; i++) job += line + std::to_string(i) + "\n";
    const Decoded decoded(job + std::string(10 << 20, 'y') + kSwitch + kTrailer, 65536);
    EXPECT_EQ(decoded.job.header.size(), 2000U);
    EXPECT_GT(decoded.job.linesLeftOut, 18000U);
    EXPECT_EQ(decoded.job.problems.size(), 100U);
    EXPECT_GT(decoded.job.problemsLeftOut, 19000U);
    for (const JobLine &kept : decoded.job.header) EXPECT_LE(kept.text.size(), 1024U);
}

}  // namespace
