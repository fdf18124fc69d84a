// SPDX-License-Identifier: Apache-2.0
//
// The watermark through the whole filter: from the ticket to the lines of the document.
#include <gtest/gtest.h>

#include "support/GermanLocale.h"
#include "support/Injections.h"
#include "support/WatermarkJob.h"

namespace {

const std::string kProcedures =
    "userdict/kvxInfo 2 dict dup begin\n"
    "/kvxpgsave 0 def\n"
    "/kvxbp{/kvxpgsave save store} bind def\n";

// The stamp of a WatermarkJob as it comes: 306 - 90, 396 - 17.
const std::string kStamp =
    "0.00 0.00 0.00 setrgbcolor\n"
    "/Courier 60 selectfont\n"
    "216.00 379.00 moveto\n"
    "0 rotate\n"
    "(DRAFT) show\n"
    "grestore\n";

const std::string kStampAtEp = "pgsave restore /pgsave save store gsave\n" + kStamp;
const std::string kStampAtEndp = "pm restore /pm save store gsave\n" + kStamp;

TEST(WatermarkJob, StampsEveryPage) {
    EXPECT_EQ(PrintedDocument(WatermarkJob{}.Options()),
              "%!PS-Adobe-3.0\n"
              "%%BeginProlog\n" +
                  kProcedures +
                  "%%EndProlog\n"
                  "%%EndProlog\n"
                  "userdict/setpagedevice{pop}bind put\n"
                  "%%EndSetup\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "kvxbp\n" +
                  kStampAtEp +
                  "ep\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "kvxbp\n" +
                  kStampAtEndp +
                  "endp\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "kvxbp\n" +
                  kStampAtEp +
                  "ep\n"
                  "\x04");
}

// Once at each kind of line: a document ends all its pages in one way.
TEST(WatermarkJob, StampsTheFirstPageOnly) {
    WatermarkJob job;
    job.onlyFirst = 1;
    EXPECT_EQ(PrintedDocument(job.Options()),
              "%!PS-Adobe-3.0\n"
              "%%BeginProlog\n" +
                  kProcedures +
                  "%%EndProlog\n"
                  "%%EndProlog\n"
                  "userdict/setpagedevice{pop}bind put\n"
                  "%%EndSetup\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "kvxbp\n" +
                  kStampAtEp +
                  "ep\n"
                  "bp\n"
                  "%%EndPageSetup\n" +
                  kStampAtEndp +
                  "endp\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "ep\n"
                  "\x04");
}

TEST(WatermarkJob, ThreePagesWithOnlyFirstHaveOneStamp) {
    WatermarkJob job;
    job.onlyFirst = 1;
    const std::string page = "bp\n%%EndPageSetup\nep\n";
    EXPECT_EQ(PrintedDocument(job.Options(), page + page + page),
              "bp\n%%EndPageSetup\nkvxbp\n" + kStampAtEp + "ep\n" + page + page + "\x04");
}

TEST(WatermarkJob, ATicketWithoutOnlyFirstStampsOnce) {
    const std::string page = "bp\nep\n";
    const std::string options = KV_TICKET "WMARKNameTicket=x " KV_TICKET "WMARKTypeTicket=0";
    EXPECT_EQ(PrintedDocument(options, page + page),
              "bp\n"
              "pgsave restore /pgsave save store gsave\n"
              "1.02 1.02 1.02 setrgbcolor\n"
              "/ -1 selectfont\n"
              "-1.00 -1.00 moveto\n"
              "-1 rotate\n"
              " show\n"
              "grestore\n"
              "ep\n" +
                  page + "\x04");
}

TEST(WatermarkJob, ATicketWithoutATypeOrANameDrawsNothing) {
    for (const char *options : {KV_TICKET "WMARKNameTicket=x " KV_TICKET "WMARKTextTicket=(x)",
                                KV_TICKET "WMARKTypeTicket=0 " KV_TICKET "WMARKTextTicket=(x)",
                                KV_TICKET "WMARKNameTicket=x " KV_TICKET "WMARKTypeTicket=1", ""}) {
        SCOPED_TRACE(options);
        EXPECT_EQ(PrintedDocument(options), std::string(kEveryInjectionLine) + "\x04");
    }
}

// The watermark first, then separator pages and the image shift, each at its own lines.
TEST(WatermarkJob, GoesWithTheOutputHandlingFeatures) {
    WatermarkJob job;
    job.onlyFirst = 1;
    EXPECT_EQ(PrintedDocument(job.Options() + KV_TICKET "SeparatorPageListTicket=0 " KV_TICKET
                                                        "SeparatorPageTicket='1 5' " KV_TICKET
                                                        "BookletMarginSwitchTicket=1 " KV_TICKET
                                                        "BookletMarginMMShiftTicket=12 " KV_TICKET
                                                        "AutoFitSwitchTicket=1"),
              "%!PS-Adobe-3.0\n"
              "%%BeginProlog\n" +
                  kProcedures +
                  "[{\n"
                  "%%BeginNonPPDFeatures\n"
                  "1 dict dup/SeparatorPages[1 5]put/Custom/ProcSet findresource/setcoverseparator "
                  "get exec\n"
                  "%%EndNonPPDFeatures\n"
                  "} stopped cleartomark\n"
                  "%%EndProlog\n"
                  "%%EndProlog\n"
                  "userdict/setpagedevice{pop}bind put\n"
                  "[{\n"
                  "%%BeginNonPPDFeatures\n"
                  "12.000/Custom/ProcSet findresource/setsignatureimageshift get exec\n"
                  "%%EndNonPPDFeatures\n"
                  "} stopped cleartomark\n"
                  "[{\n"
                  "%%BeginNonPPDFeatures\n"
                  "/Custom/ProcSet findresource/setsignatureautoscale 2 copy known "
                  "{get true exch exec} {pop pop} ifelse\n"
                  "%%EndNonPPDFeatures\n"
                  "} stopped cleartomark\n"
                  "%%EndSetup\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "kvxbp\n" +
                  kStampAtEp +
                  "ep\n"
                  "bp\n"
                  "%%EndPageSetup\n" +
                  kStampAtEndp +
                  "endp\n"
                  "bp\n"
                  "%%EndPageSetup\n"
                  "ep\n"
                  "\x04");
}

std::string Coded(const std::string &text) {
    std::string coded;
    for (const char byte : text) {
        coded.append("/").append(std::to_string(static_cast<unsigned char>(byte)));
    }
    return coded;
}

TEST(WatermarkJob, AnyTextArrivesWhole) {
    for (const std::string text :
         {"(100%)", "(%n%n%s%s%x)", "(\\(a\\) \\\\ 'b' \"c\")", "((", ")", "(a{b}c=d,e f)"}) {
        SCOPED_TRACE(text);
        WatermarkJob job;
        job.text = Coded(text);
        const std::string document = PrintedDocument(job.Options(), "ep\n");
        EXPECT_NE(document.find("\n0 rotate\n" + text + " show\ngrestore\nep\n\x04"),
                  document.npos);
    }
}

TEST(WatermarkJob, ATextOf255BytesKeepsItsOperator) {
    for (const std::size_t length : {255U, 300U}) {
        WatermarkJob job;
        job.text = std::string(length, 'A');
        job.font = std::string(length, 'F');
        const std::string document = PrintedDocument(job.Options(), "ep\n");
        EXPECT_NE(document.find("\n" + std::string(255, 'A') + " show\ngrestore\nep\n"),
                  document.npos);
        EXPECT_NE(document.find("\n/" + std::string(255, 'F') + " 60 selectfont\n"), document.npos);
    }
}

// A number is written with a point wherever the user lives.
TEST(WatermarkJob, WritesNumbersWithAPointInEveryLocale) {
    FilterJob job;
    job.ppd = PpdWith();
    job.options = WatermarkJob{}.Options();
    job.input = "ep\n";
    const GermanLocale german;
    job.environment = german.Environment();
    EXPECT_EQ(DocumentOf(RunFilter(job).output), kStampAtEp + "ep\n\x04");
}

}  // namespace
