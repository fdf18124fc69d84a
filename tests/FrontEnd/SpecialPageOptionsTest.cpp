// SPDX-License-Identifier: Apache-2.0
#include "FrontEnd/SpecialPageOptions.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "Modules/SpecialPage/SpecialPageDocument.h"
#include "Modules/SpecialPage/SpecialPageTicket.h"
#include "support/CaptureOutput.h"
#include "support/LeaksOfCups.h"
#include "support/TicketJob.h"

namespace {

constexpr char kMediaAndDuplex[] =
    "*OpenUI *MediaType/Type: PickOne\n"
    "*DefaultMediaType: Heavy\n"
    "*MediaType Heavy/Heavy: \"\"\n"
    "*CloseUI: *MediaType\n"
    "*OpenUI *Duplex/Duplex: PickOne\n"
    "*DefaultDuplex: DuplexNoTumble\n"
    "*Duplex None/Off: \"\"\n"
    "*Duplex DuplexNoTumble/Long: \"\"\n"
    "*Duplex DuplexTumble/Short: \"\"\n"
    "*CloseUI: *Duplex\n";

CompletedTicket Complete(const std::string &options, const std::string &lines = "") {
    return Complete(TicketJob{options, lines});
}

// The values of one kind under their numbers, then the count; empty if there are none.
std::vector<std::string> ValuesOf(const CompletedTicket &ticket, const std::string &kind) {
    const TicketOptions options(ticket.options.c_str());
    const auto value = [&](const std::string &name) {
        const std::string key = KV_TICKET "KPIF" + kind + name;
        return cupsGetOption(key.c_str(), options.count, options.list);
    };
    std::vector<std::string> values;
    const char *count = value("CountTicket");
    for (int i = 0; count && i < std::stoi(count); i++) {
        const char *found = value("ValueTicket_" + std::to_string(i));
        values.emplace_back(found ? found : "absent");
    }
    return values;
}

using Values = std::vector<std::string>;

Values Insertions(const std::string &value) {
    const CompletedTicket ticket = Complete("KVInsert=" + value);
    EXPECT_EQ(Said(ticket), "");
    return ValuesOf(ticket, "Insertion");
}

Values Exceptions(const std::string &value, const std::string &options = "",
                  const std::string &lines = "") {
    const CompletedTicket ticket = Complete("KVException=" + value + " " + options, lines);
    EXPECT_EQ(Said(ticket), "");
    return ValuesOf(ticket, "Exception");
}

// The XML that the printer gets.
std::string Document(const CompletedTicket &ticket) {
    std::string options = ticket.options;
    char empty[] = "";
    char *argv[] = {empty, empty, empty, empty, empty, options.data(), nullptr};
    SpecialPageGetTicketFromPDE(argv);
    return CaptureOutput([&] { InjectKPIFCommandSP(argv); });
}

}  // namespace

TEST(SpecialPageOptions, CoversHaveTheirPlacesAndSides) {
    EXPECT_EQ(ValuesOf(Complete("KVFrontCover=Thick"), "Cover"),
              (Values{"0,1,print-none,thick,white,21000,29700", "absent"}));
    EXPECT_EQ(ValuesOf(Complete("KVBackCover=Custom.Thick,blue:BOTH PageSize=Letter"), "Cover"),
              (Values{"absent", "1,1,print-both,thick,blue,21590,27940"}));
    EXPECT_EQ(ValuesOf(Complete("KVFrontCover=Thick,Letter:front KVBackCover=Tab,Interposer:back"),
                       "Cover"),
              (Values{"0,1,print-front,thick,white,21590,27940", "1,0,print-back,Tab"}));
    EXPECT_TRUE(ValuesOf(Complete("KVFrontCover=None KVBackCover=none"), "Cover").empty());
}

TEST(SpecialPageOptions, SheetsAreInsertedAfterEachPage) {
    EXPECT_EQ(Insertions("3,7:Tab,Interposer"), (Values{"0,3,1,Tab", "0,7,1,Tab"}));
    EXPECT_EQ(Insertions("0,2-4:Thick,yellow:12"),
              (Values{"1,0,12,yellow,21000,29700,thick", "1,2,12,yellow,21000,29700,thick",
                      "1,3,12,yellow,21000,29700,thick", "1,4,12,yellow,21000,29700,thick"}));
    EXPECT_EQ(Insertions("1:A+2:B,Interposer:2"), (Values{"1,1,1,white,21000,29700,a", "0,2,2,B"}));
    EXPECT_EQ(Insertions("1-1000:A").size(), 1000U);
}

TEST(SpecialPageOptions, ExceptionsHaveMediaAndSides) {
    EXPECT_EQ(Exceptions("2-5:Thick"), (Values{"1,1,1,2,5,one-sided,thick,white,21000,29700"}));
    EXPECT_EQ(Exceptions("2,9-:Thick,A3:two-sided-short-edge"),
              (Values{"1,1,1,2,2,two-sided-short-edge,thick,white,29700,42000",
                      "1,1,1,9,2147483647,two-sided-short-edge,thick,white,29700,42000"}));
    EXPECT_EQ(Exceptions("3:Tab,Interposer"), (Values{"0,1,1,3,3,one-sided,Tab"}));
    EXPECT_EQ(Exceptions("-2:A+7:B"), (Values{"1,1,1,1,2,one-sided,a,white,21000,29700",
                                              "1,1,1,7,7,one-sided,b,white,21000,29700"}));
}

TEST(SpecialPageOptions, WhatAnExceptionLeavesOpenIsTheJobs) {
    EXPECT_EQ(Exceptions("2::one-sided"), (Values{"1,1,1,2,2,one-sided,plain,white,21000,29700"}));
    EXPECT_EQ(Exceptions("2:", "", kMediaAndDuplex),
              (Values{"1,1,1,2,2,two-sided-long-edge,heavy,white,21000,29700"}));
    EXPECT_EQ(Exceptions("2:Thin", "sides=two-sided-short-edge media=Letter", kMediaAndDuplex),
              (Values{"1,1,1,2,2,two-sided-short-edge,thin,white,21590,27940"}));
    EXPECT_EQ(Exceptions("2:Thin", "Duplex=None", kMediaAndDuplex),
              (Values{"1,1,1,2,2,one-sided,thin,white,21000,29700"}));
}

TEST(SpecialPageOptions, TypesAndColoursAreKeywordsUnlessTheyAreNames) {
    EXPECT_EQ(Insertions("1:ExtraThick,LightBlue"),
              (Values{"1,1,1,light-blue,21000,29700,extra-thick"}));
    EXPECT_EQ(Insertions("1:Tab5Cut"), (Values{"1,1,1,white,21000,29700,tab5-cut"}));
    EXPECT_EQ(Insertions("'1:My Own Paper,Interposer'"), (Values{"0,1,1,My Own Paper"}));
    EXPECT_EQ(Insertions("'1:My Own Paper'"), (Values{"1,1,1,white,21000,29700,my-own-paper"}));
}

TEST(SpecialPageOptions, SizesAreNamedByThePPDOrByIPP) {
    EXPECT_EQ(Insertions("1:T,iso_a5_148x210mm"), (Values{"1,1,1,white,14800,21000,t"}));
    EXPECT_EQ(Insertions("1:T,letter,red"), (Values{"1,1,1,red,21590,27940,t"}));
    const std::string cover =
        "*PaperDimension BigCover/Cover: \"632 842\"\n"
        "*PageSize BigCover/Cover: \"\"\n";
    EXPECT_EQ(ValuesOf(Complete("KVFrontCover=T,BigCover", cover), "Cover")[0],
              "0,1,print-none,t,white,22296,29704");
    const std::string nothing =
        "*PaperDimension Nothing/Nothing: \"0 0\"\n"
        "*PageSize Nothing/Nothing: \"\"\n";
    EXPECT_EQ(ValuesOf(Complete("KVFrontCover=T,Nothing", nothing), "Cover")[0],
              "0,1,print-none,t,white,0,0");
}

TEST(SpecialPageOptions, AnEmptyPartLeavesTheColourAndTheSize) {
    EXPECT_EQ(Insertions("1:T,,red"), (Values{"1,1,1,red,21000,29700,t"}));
    EXPECT_EQ(Insertions("1:\xEE\x80\x80"), (Values{"1,1,1,white,21000,29700,&#57344;"}));
}

TEST(SpecialPageOptions, NamesHoldAnyLetterOfUTF8) {
    const std::pair<std::string, std::string> letters[] = {
        {"\xC2\x80", "128"},           {"\xDF\xBF", "2047"},
        {"\xE0\xA0\x80", "2048"},      {"\xED\x9F\xBF", "55295"},
        {"\xEE\x80\x80", "57344"},     {"\xEF\xBF\xBD", "65533"},
        {"\xF0\x90\x80\x80", "65536"}, {"\xF4\x8F\xBF\xBF", "1114111"},
    };
    for (const auto &[letter, code] : letters) {
        EXPECT_EQ(Insertions("1:" + letter), (Values{"1,1,1,white,21000,29700,&#" + code + ";"}));
    }
    for (const std::string wrong :
         {"\x7F", "\x80", "\xC1\xBF", "\xE0\x9F\xBF", "\xED\xA0\x80", "\xED\xBF\xBF",
          "\xF0\x8F\xBF\xBF", "\xF4\x90\x80\x80", "\xF8\x88\x80\x80", "\xC2", "\xE0\xA0"}) {
        const CompletedTicket ticket = Complete("KVInsert=1:" + wrong);
        EXPECT_TRUE(ValuesOf(ticket, "Insertion").empty());
        EXPECT_EQ(Said(ticket), "KVInsert=1:" + wrong +
                                    " names what the printer's ticket cannot hold: " + wrong +
                                    "\n");
    }
}

TEST(SpecialPageOptions, TheOrdinaryTypeStandsWhereThePrinterIsToChoose) {
    for (const char *choices : {"AutoSelect Heavy", "Auto Heavy"}) {
        EXPECT_EQ(Exceptions("2::one-sided", "", PpdOption("MediaType", choices)),
                  Exceptions("2::one-sided"))
            << choices;
    }
}

TEST(SpecialPageOptions, ATypeOfTheJobsOwnIsTheOrdinaryOne) {
    std::string lines =
        PpdOption("MediaType", "Heavy Thin") +
        "*CustomMediaType True: \"pop\"\n*ParamCustomMediaType Text: 1 string 1 30\n";
    const Values plain = {"1,1,1,2,2,one-sided,plain,white,21000,29700"};
    EXPECT_EQ(Exceptions("2::one-sided", "MediaType=Custom.Vellum", lines), plain);
    lines.erase(lines.find("*DefaultMediaType: Heavy\n"), 25);
    EXPECT_EQ(Exceptions("2::one-sided", "MediaType=Custom.Vellum", lines), plain);
}

TEST(SpecialPageOptions, SizesNeedNoPPD) {
    unsetenv("PPD");
    CloseJobPPD();
    std::string options = "KVFrontEnd=CUPS KVInsert=1:T,Letter";
    std::string word = "1";
    char *argv[] = {word.data(), word.data(),    word.data(), word.data(),
                    word.data(), options.data(), nullptr};
    FindFrontEnd(options.c_str());
    EXPECT_EQ(ValuesOf(CompleteTicket(argv), "Insertion"), (Values{"1,1,1,white,21590,27940,t"}));
}

TEST(SpecialPageOptions, TextsCannotBreakTheDocument) {
    const CompletedTicket ticket = Complete("KVFrontCover=</kpif>&grün€😀");
    EXPECT_EQ(Said(ticket), "");
    EXPECT_EQ(ValuesOf(ticket, "Cover")[0],
              "0,1,print-none,&#60;/kpif&#62;&#38;gr&#252;n&#8364;&#128512;,white,21000,29700");
    EXPECT_NE(Document(ticket).find("<media-type syntax=\"keyword\">&#60;/kpif&#62;&#38;gr&#252;n"
                                    "&#8364;&#128512;</media-type>\n"),
              std::string::npos);
}

TEST(SpecialPageOptions, TheDocumentHoldsThemAll) {
    const std::string document = Document(
        Complete("KVFrontCover=Thick:both KVInsert=3:Tab,Interposer KVException=2-5::one-sided"));
    for (const char *line :
         {"<cover-front syntax=\"collection\">\n",
          "<cover-type syntax=\"keyword\">print-both</cover-type>\n",
          "<insert-after-page-number syntax=\"integer\">3</insert-after-page-number>\n",
          "<media-type syntax=\"name\">Tab</media-type>\n",
          "<lower-bound syntax=\"integer\">2</lower-bound>\n",
          "<upper-bound syntax=\"integer\">5</upper-bound>\n",
          "<sides syntax=\"keyword\">one-sided</sides>\n"}) {
        EXPECT_NE(document.find(line), std::string::npos) << line << document;
    }
    EXPECT_EQ(document.find("cover-back"), std::string::npos);
}

TEST(SpecialPageOptions, WhatIsNotUnderstoodIsDroppedWhole) {
    const struct {
        const char *option, *value;
    } cases[] = {
        {"KVFrontCover", "Thick:outside"},
        {"KVFrontCover", ":both"},
        {"KVFrontCover", "Thick:both:1"},
        {"KVBackCover", "Thick+Thin"},
        {"KVInsert", "3"},
        {"KVInsert", "3:"},
        {"KVInsert", "x:Tab"},
        {"KVInsert", "3:Tab:0"},
        {"KVInsert", "3:Tab:1000"},
        {"KVInsert", "3:Tab:1:1"},
        {"KVInsert", "3:Tab+"},
        {"KVInsert", "1-1001:Tab"},
        {"KVInsert", "0-:Tab"},
        {"KVInsert", "1-600:Tab+1-401:Tab"},
        {"KVException", "2-5"},
        {"KVException", "0:Thick"},
        {"KVException", "5-2:Thick"},
        {"KVException", "2:Thick:both"},
        {"KVException", "2:Thick:one-sided:1"},
        {"KVInsert", "3:12345678901234567890123456789012345678901234567890"},
        {"KVInsert", "3:T,12345678901234567890123456789012345678901234567890"},
        {"KVInsert", "3:a\xC3(b"},
        {"KVInsert", "3:a\xED\xA0\x80"},
        {"KVInsert", "3:a\xC0\xAF"},
        {"KVInsert", "3:a\xF8\x88\x80\x80\x80"},
        {"KVInsert", "3:a\x01"},
        {"KVInsert", "3:a\x7F"},
        {"KVInsert", "3:a\x80"},
        {"KVInsert", "3:a\xBF\xBF"},
        {"KVInsert", "3:a\xC3"},
        {"KVInsert", "3:a\xE2\x82"},
        {"KVInsert", "3:a\xF4\x90\x80\x80"},
    };
    for (const auto &bad : cases) {
        SCOPED_TRACE(std::string(bad.option) + "=" + bad.value);
        const CompletedTicket ticket = Complete(std::string(bad.option) + "='" + bad.value + "'");
        ASSERT_EQ(ticket.notices.size(), 1U);
        EXPECT_EQ(ticket.notices[0].kind, TicketNotice::Dropped);
        EXPECT_EQ(ticket.notices[0].option, bad.option);
        EXPECT_EQ(ticket.options.find("KPIF"), std::string::npos);
    }
}

TEST(SpecialPageOptions, ManyRangesAreTooMany) {
    std::string value = "1";
    for (int page = 2; page <= 1000; page++) value += "," + std::to_string(page);
    EXPECT_EQ(ValuesOf(Complete("KVException=" + value + ":T"), "Exception").size(), 1000U);
    const CompletedTicket tooMany = Complete("KVException=" + value + ",1001:T");
    EXPECT_TRUE(ValuesOf(tooMany, "Exception").empty());
    ASSERT_EQ(tooMany.notices.size(), 1U);
    EXPECT_TRUE(tooMany.notices[0].text.ends_with(" names more than 1000 places in the document"))
        << tooMany.notices[0].text;
}

TEST(SpecialPageOptions, TheDialogsOwnKeysStayAsTheyAre) {
    const CompletedTicket ticket =
        Complete("KVInsert=3,4:Tab KVBackCover=Thick " KV_TICKET
                 "KPIFInsertionCountTicket=2 " KV_TICKET "KPIFInsertionValueTicket_0=0,9,9,Blue");
    EXPECT_EQ(ValuesOf(ticket, "Insertion"), (Values{"0,9,9,Blue", "absent"}));
    EXPECT_EQ(ValuesOf(ticket, "Cover").size(), 2U);
}
