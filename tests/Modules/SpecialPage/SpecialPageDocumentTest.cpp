// SPDX-License-Identifier: Apache-2.0
#include "Modules/SpecialPage/SpecialPageDocument.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "Modules/SpecialPage/SpecialPageTicket.h"
#include "support/CaptureOutput.h"
#include "support/Ppd.h"
#include "support/RunFilter.h"
#include "support/TempFolder.h"

namespace {

// One option of the printer's own, its value quoted.
std::string Option(const std::string &name, const std::string &value) {
    return "com.korvell.tav.printsettings." + name + "='" + value + "' ";
}

// The options of `values` of one kind ("Cover"), their count first.
std::string Values(const std::string &kind, const std::vector<std::string> &values) {
    std::string options = Option("KPIF" + kind + "CountTicket", std::to_string(values.size()));
    for (std::size_t i = 0; i < values.size(); i++) {
        options += Option("KPIF" + kind + "ValueTicket_" + std::to_string(i), values[i]);
    }
    return options;
}

std::string Inject(std::string options) {
    char empty[] = "";
    char *argv[] = {empty, empty, empty, empty, empty, options.data(), nullptr};
    SpecialPageInializeDescriptionTable();
    SpecialPageGetTicketFromPDE(argv);
    return CaptureOutput([&] { InjectKPIFCommandSP(argv); });
}

std::string Document(const std::string &body) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE kpif SYSTEM "kpif-v02030a.dtd">
<kpif version="1.0" cpss-version="2.01" xml:lang="en-US">
  <job-template-attributes>
)" + body + R"(  </job-template-attributes>
</kpif>
)";
}

std::string NamedCover(const std::string &side, const std::string &type, const std::string &name) {
    return "    <cover-" + side + " syntax=\"collection\">\n" +
           "        <cover-type syntax=\"keyword\">" + type + "</cover-type>\n" +
           "        <media-col syntax=\"collection\">\n" +
           "            <media-type syntax=\"name\">" + name + "</media-type>\n" +
           "        </media-col>\n" + "    </cover-" + side + ">\n";
}

std::string NamedInsertion(const std::string &page, const std::string &count,
                           const std::string &name) {
    return "        <value syntax=\"collection\">\n"
           "                <insert-after-page-number syntax=\"integer\">" +
           page + "</insert-after-page-number>\n" +
           "                <insert-count syntax=\"integer\">" + count + "</insert-count>\n" +
           "                <media-col syntax=\"collection\">\n" +
           "                    <media-type syntax=\"name\">" + name + "</media-type>\n" +
           "                </media-col>\n"
           "        </value>\n";
}

std::string InsertSheet(const std::string &body) {
    return "    <insert-sheet syntax=\"1setOf\">\n" + body + "    </insert-sheet>\n";
}

std::string PageOverrides(const std::string &body) {
    return "    <page-overrides syntax=\"1setOf\">\n" + body + "    </page-overrides>\n";
}

// A job with every template, and what it must print.
const std::string everyKind =
    Values("Cover", {"0,1,front,plain,white,2100,2970", "1,0,both,Plain Paper"}) +
    Values("Insertion", {"1,3,2,blue,2100,2970,thick", "0,12,1,Tab Stock"}) +
    Values("Exception", {"1,1,1,2,9,two-sided-long-edge,coated,ivory,2160,2790",
                         "0,1,2,10,11,one-sided,Post Insert"});
const std::string everyKindDocument = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE kpif SYSTEM "kpif-v02030a.dtd">
<kpif version="1.0" cpss-version="2.01" xml:lang="en-US">
  <job-template-attributes>
    <cover-front syntax="collection">
        <cover-type syntax="keyword">front</cover-type>
        <media-col syntax="collection">
            <media-type syntax="keyword">plain</media-type>
            <media-color syntax="keyword">white</media-color>
            <media-size syntax="collection">
                <x-dimension syntax="integer">2100</x-dimension>
                <y-dimension syntax="integer">2970</y-dimension>
            </media-size>
        </media-col>
    </cover-front>
    <cover-back syntax="collection">
        <cover-type syntax="keyword">both</cover-type>
        <media-col syntax="collection">
            <media-type syntax="name">Plain Paper</media-type>
        </media-col>
    </cover-back>
    <insert-sheet syntax="1setOf">
        <value syntax="collection">
                <insert-after-page-number syntax="integer">3</insert-after-page-number>
                <insert-count syntax="integer">2</insert-count>
                <media-col syntax="collection">
                    <media-color syntax="keyword">blue</media-color>
                    <media-size syntax="collection">
                        <x-dimension syntax="integer">2100</x-dimension>
                        <y-dimension syntax="integer">2970</y-dimension>
                    </media-size>
                    <media-type syntax="keyword">thick</media-type>
                </media-col>
        </value>
        <value syntax="collection">
                <insert-after-page-number syntax="integer">12</insert-after-page-number>
                <insert-count syntax="integer">1</insert-count>
                <media-col syntax="collection">
                    <media-type syntax="name">Tab Stock</media-type>
                </media-col>
        </value>
    </insert-sheet>
    <page-overrides syntax="1setOf">
        <value syntax="collection">
            <input-documents syntax="1setOf">
                <value syntax="rangeOfInteger">
                    <lower-bound syntax="integer">1</lower-bound>
                    <upper-bound syntax="integer">1</upper-bound>
                </value>
            </input-documents>
            <pages syntax="1setOf">
                <value syntax="rangeOfInteger">
                    <lower-bound syntax="integer">2</lower-bound>
                    <upper-bound syntax="integer">9</upper-bound>
                </value>
            </pages>
            <sides syntax="keyword">two-sided-long-edge</sides>
            <media-col syntax="collection">
                <media-type syntax="name">coated</media-type>
                <media-color syntax="keyword">ivory</media-color>
                <media-size syntax="collection">
                    <x-dimension syntax="integer">2160</x-dimension>
                    <y-dimension syntax="integer">2790</y-dimension>
                </media-size>
            </media-col>
        </value>
        <value syntax="collection">
            <input-documents syntax="1setOf">
                <value syntax="rangeOfInteger">
                    <lower-bound syntax="integer">1</lower-bound>
                    <upper-bound syntax="integer">2</upper-bound>
                </value>
            </input-documents>
            <pages syntax="1setOf">
                <value syntax="rangeOfInteger">
                    <lower-bound syntax="integer">10</lower-bound>
                    <upper-bound syntax="integer">11</upper-bound>
                </value>
            </pages>
            <sides syntax="keyword">one-sided</sides>
            <media-col syntax="collection">
                <media-type syntax="name">Post Insert</media-type>
            </media-col>
        </value>
    </page-overrides>
  </job-template-attributes>
</kpif>
)";

}  // namespace

TEST(SpecialPageDocument, EveryTemplate) {
    EXPECT_EQ(Inject(everyKind), everyKindDocument);
}

TEST(SpecialPageDocument, IsTheFirstThingInTheJob) {
    FilterJob job;
    job.ppd = PpdWith();
    job.options = everyKind;
    const FilterResult result = RunFilter(job);
    const std::string start = everyKindDocument + "\x1b%-12345X@PJL JOB MODE=PRINTER\r\n";
    EXPECT_EQ(result.output.substr(0, start.size()), start);
    EXPECT_EQ(result.status, 0);

    FilterJob plain;
    plain.ppd = PpdWith();
    plain.options = Values("Cover", {}) + Option("KPIFCoverValueTicket_0", "0,0,front,A");
    EXPECT_EQ(RunFilter(plain).output.substr(0, 11), "\x1b%-12345X@P");
}

TEST(SpecialPageDocument, IsWellFormed) {
    const TempFolder folder;
    const std::string path = folder.Write("ticket.xml", Inject(everyKind));
    EXPECT_EQ(std::system(("xmllint --nonet --noout '" + path + "'").c_str()), 0);
}

TEST(SpecialPageDocument, NothingWithoutCounts) {
    const std::string values = Option("KPIFCoverValueTicket_0", "0,0,front,A") +
                               Option("KPIFInsertionValueTicket_0", "0,1,1,A") +
                               Option("KPIFExceptionValueTicket_0", "0,1,1,1,1,s,A");
    const char *const counts[][3] = {
        {"0", "0", "0"}, {"-1", "-5", "-2147483648"}, {"none", "", "0x5"}};
    EXPECT_EQ(Inject(values), "");
    for (const auto &count : counts) {
        EXPECT_EQ(Inject(values + Option("KPIFCoverCountTicket", count[0]) +
                         Option("KPIFInsertionCountTicket", count[1]) +
                         Option("KPIFExceptionCountTicket", count[2])),
                  "");
        EXPECT_EQ(psOptionSpecialPage.coverCount, 0);
        EXPECT_EQ(psOptionSpecialPage.insertionCount, 0);
        EXPECT_EQ(psOptionSpecialPage.exceptionCount, 0);
    }
}

TEST(SpecialPageDocument, NegativeCountsDoNotWeighAgainstOthers) {
    EXPECT_EQ(Inject(Values("Cover", {"0,0,front,A"}) + Option("KPIFInsertionCountTicket", "-9") +
                     Option("KPIFInsertionValueTicket_0", "0,1,1,A")),
              Document(NamedCover("front", "front", "A")));
    EXPECT_EQ(psOptionSpecialPage.coverCount, 1);
    EXPECT_EQ(psOptionSpecialPage.insertionCount, 0);
    EXPECT_EQ(psOptionSpecialPage.exceptionCount, 0);
}

TEST(SpecialPageDocument, OnlyTheBlocksThatAreCounted) {
    EXPECT_EQ(Inject(Values("Insertion", {"0,4,1,Tab"})),
              Document(InsertSheet(NamedInsertion("4", "1", "Tab"))));
    EXPECT_EQ(Inject(Values("Exception", {"2,1,1,1,1,s,A"})), Document(PageOverrides("")));
    EXPECT_EQ(Inject(Option("KPIFInsertionCountTicket", "2")), Document(InsertSheet("")));
    EXPECT_EQ(Inject(Option("KPIFExceptionCountTicket", "2")), Document(PageOverrides("")));
    EXPECT_EQ(Inject(Option("KPIFCoverCountTicket", "2")), Document(""));
}

TEST(SpecialPageDocument, UnknownSelectors) {
    const std::string front =
        "    <cover-front syntax=\"collection\">\n"
        "    </cover-front>\n";
    const std::string back =
        "    <cover-back syntax=\"collection\">\n"
        "    </cover-back>\n";
    const struct {
        const char *kind, *value;
        std::string body;
    } cases[] = {
        {"Cover", "0,2,front", front},
        {"Cover", "1,,front,A", back},
        {"Cover", "1, 0,front,A", back},
        {"Cover", "2,0,front,A", ""},
        {"Cover", "00,0,front,A", ""},
        {"Cover", ",0,front,A", ""},
        {"Cover", "", ""},
        {"Insertion", "2,1,1,A", InsertSheet("")},
        {"Insertion", "01,1,1,A", InsertSheet("")},
        {"Insertion", "", InsertSheet("")},
        {"Exception", "-1,1,1,1,1,s,A", PageOverrides("")},
        {"Exception", "", PageOverrides("")},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(std::string(row.kind) + " " + row.value);
        EXPECT_EQ(Inject(Values(row.kind, {row.value})), Document(row.body));
    }
}

TEST(SpecialPageDocument, AMissingFieldRepeatsTheLastOne) {
    EXPECT_EQ(Inject(Values("Cover", {"1,1,front,plain,white,2100"})),
              Document(R"(    <cover-back syntax="collection">
        <cover-type syntax="keyword">front</cover-type>
        <media-col syntax="collection">
            <media-type syntax="keyword">plain</media-type>
            <media-color syntax="keyword">white</media-color>
            <media-size syntax="collection">
                <x-dimension syntax="integer">2100</x-dimension>
                <y-dimension syntax="integer">2100</y-dimension>
            </media-size>
        </media-col>
    </cover-back>
)"));
    EXPECT_EQ(Inject(Values("Cover", {"0,0,front"})),
              Document(NamedCover("front", "front", "front")));
    // Without any comma every field is the same; an empty last field stays empty.
    EXPECT_EQ(Inject(Values("Cover", {"0"})), Document(NamedCover("front", "0", "0")));
    EXPECT_EQ(Inject(Values("Cover", {"0,0,"})), Document(NamedCover("front", "", "")));
    EXPECT_EQ(Inject(Values("Cover", {"0,0,,A,B,C"})), Document(NamedCover("front", "", "A")));
    EXPECT_EQ(Inject(Values("Insertion", {"0"})),
              Document(InsertSheet(NamedInsertion("0", "0", "0"))));
    EXPECT_EQ(Inject(Values("Exception", {"1"})),
              Document(PageOverrides(R"(        <value syntax="collection">
            <input-documents syntax="1setOf">
                <value syntax="rangeOfInteger">
                    <lower-bound syntax="integer">1</lower-bound>
                    <upper-bound syntax="integer">1</upper-bound>
                </value>
            </input-documents>
            <pages syntax="1setOf">
                <value syntax="rangeOfInteger">
                    <lower-bound syntax="integer">1</lower-bound>
                    <upper-bound syntax="integer">1</upper-bound>
                </value>
            </pages>
            <sides syntax="keyword">1</sides>
            <media-col syntax="collection">
                <media-type syntax="name">1</media-type>
                <media-color syntax="keyword">1</media-color>
                <media-size syntax="collection">
                    <x-dimension syntax="integer">1</x-dimension>
                    <y-dimension syntax="integer">1</y-dimension>
                </media-size>
            </media-col>
        </value>
)")));
}

TEST(SpecialPageDocument, MissingValuesAreSkipped) {
    EXPECT_EQ(Inject(Option("KPIFInsertionCountTicket", "5") +
                     Option("KPIFInsertionValueTicket_4", "0,4,1,D") +
                     Option("KPIFInsertionValueTicket_1", "0,1,1,B")),
              Document(InsertSheet(NamedInsertion("1", "1", "B") + NamedInsertion("4", "1", "D"))));
}

TEST(SpecialPageDocument, ValuesComeInTheOrderOfTheirNumbers) {
    std::vector<std::string> values;
    std::string body;
    for (int i = 0; i < 120; i++) {
        const std::string page = std::to_string(i);
        values.push_back("0," + page + ",1,A");
        if (i < 111) body += NamedInsertion(page, "1", "A");
    }
    EXPECT_EQ(Inject(Values("Insertion", values) + Option("KPIFInsertionCountTicket", "111")),
              Document(InsertSheet(body)));
}

TEST(SpecialPageDocument, OnlyTheNumberAsItIsWrittenMakesAKey) {
    EXPECT_EQ(
        Inject(Option("KPIFCoverCountTicket", "100") + Option("KPIFCoverValueTicket_", "0,0,no,A") +
               Option("KPIFCoverValueTicket_00", "0,0,no,A") +
               Option("KPIFCoverValueTicket_07", "0,0,no,A") +
               Option("KPIFCoverValueTicket_-1", "0,0,no,A") +
               Option("KPIFCoverValueTicket_+2", "0,0,no,A") +
               Option("KPIFCoverValueTicket_3x", "0,0,no,A") +
               Option("KPIFCoverValueTicket_x4", "0,0,no,A") +
               Option("KPIFCoverValueTicket_100", "0,0,no,A") +
               Option("KPIFCoverValueTicket_4294967296", "0,0,no,A") +
               Option("KPIFCoverValueTicket_99999999999999999999", "0,0,no,A") +
               Option("KPIFInsertionValueTicket_5", "0,0,no,A") + "number-up=2 6=7 8 " +
               Option("KPIFCoverValueTicket_7", "0,0,yes,A") +
               // Names of options are compared without regard to case.
               Option("kpifcovervalueTICKET_99", "1,0,yes,B")),
        Document(NamedCover("front", "yes", "A") + NamedCover("back", "yes", "B")));
}

TEST(SpecialPageDocument, HugeCountsEndSoon) {
    std::string options;
    for (const char *kind : {"Cover", "Insertion", "Exception"}) {
        options += Option(std::string("KPIF") + kind + "CountTicket", "2147483647");
    }
    EXPECT_EQ(Inject(options), Document(InsertSheet("") + PageOverrides("")));
    EXPECT_EQ(Inject(options + Option("KPIFInsertionValueTicket_2147483646", "0,9,1,Z") +
                     Option("KPIFInsertionValueTicket_2147483647", "0,9,1,no") +
                     Option("KPIFInsertionValueTicket_3", "0,3,1,A") +
                     Option("KPIFCoverValueTicket_1000000000", "1,0,back,B")),
              Document(NamedCover("back", "back", "B") +
                       InsertSheet(NamedInsertion("3", "1", "A") + NamedInsertion("9", "1", "Z")) +
                       PageOverrides("")));
}

TEST(SpecialPageDocument, LongFieldsAreCutTo49Characters) {
    const std::string cut(49, 'x');
    for (const std::size_t length : {49U, 50U, 51U, 200U}) {
        SCOPED_TRACE(length);
        const std::string field(length, 'x');
        EXPECT_EQ(Inject(Values("Cover", {"0,0," + field + ",A"})),
                  Document(NamedCover("front", cut, "A")));
        EXPECT_EQ(Inject(Values("Insertion", {"0,7," + field + ",A"})),
                  Document(InsertSheet(NamedInsertion("7", cut, "A"))));
    }
    EXPECT_EQ(Inject(Values("Cover", {"0,0,front," + std::string(300, 'x')})),
              Document(NamedCover("front", "front", cut)));
    // The comma after such a field is beyond the end of the value, so it is the last field.
    EXPECT_EQ(Inject(Values("Cover", {"0,0," + std::string(300, 'x') + ",A"})),
              Document(NamedCover("front", cut, cut)));
    EXPECT_EQ(Inject(Values("Cover", {std::string(300, '0')})), Document(""));
}

TEST(SpecialPageDocument, LongValuesAreCutTo255Characters) {
    const std::string value = "0," + std::string(200, 'x') + "," + std::string(47, 'y') + ",";
    ASSERT_EQ(value.size(), 251U);
    EXPECT_EQ(
        Inject(Values("Insertion", {value + "abcdefgh"})),
        Document(InsertSheet(NamedInsertion(std::string(49, 'x'), std::string(47, 'y'), "abcd"))));
}

TEST(SpecialPageDocument, TheLongestBodyComesOutWhole) {
    std::string value = "1";
    for (int i = 0; i < 9; i++) value += "," + std::string(27, static_cast<char>('a' + i));
    ASSERT_LE(value.size(), 255U);
    const std::string output = Inject(Values("Exception", {value}));
    EXPECT_NE(output.find("<y-dimension syntax=\"integer\">" + std::string(27, 'i') +
                          "</y-dimension>\n                </media-size>\n"
                          "            </media-col>\n        </value>\n    </page-overrides>\n"),
              std::string::npos);
}

TEST(SpecialPageDocument, ValuesGoInAsTheyAre) {
    const struct {
        std::string value, type, name;
    } cases[] = {
        {"0,0,100%,%s%n%%d", "100%", "%s%n%%d"},
        {"0,0,<a>,&amp;\"", "<a>", "&amp;\""},
        {"/48/44/48/44/65/66/44/39/32/39", "AB", "' '"},
        {"/48/44/48/44/65/0/44/66", "A", "A"},
        {"0,0,/65/66,B", "/65/66", "B"},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.value);
        EXPECT_EQ(Inject(Values("Cover", {row.value})),
                  Document(NamedCover("front", row.type, row.name)));
    }
}

// The document calls itself UTF-8 all the same.
TEST(SpecialPageDocument, ValuesAreInThePrintersEncoding) {
    EXPECT_EQ(Inject(Values("Cover", {"0,0,Karton wei\xC3\x9F,caf\xC3\xA9"})),
              Document(NamedCover("front", "Karton wei\xDF", "caf\xE9")));
}

TEST(GetOneValue, ReturnsTheWayToTheNextField) {
    const struct {
        std::string source, field;
        int next;
    } cases[] = {
        {"a,b", "a", 2},
        {"front,A", "front", 6},
        {"front", "front", 0},
        {",b", "", 1},
        {"", "", 0},
        {",", "", 1},
        {std::string(49, 'x') + ",b", std::string(49, 'x'), 50},
        {std::string(50, 'x') + ",b", std::string(49, 'x'), 51},
        {std::string(300, 'x') + ",b", std::string(49, 'x'), 301},
        {std::string(49, 'x'), std::string(49, 'x'), 0},
        {std::string(300, 'x'), std::string(49, 'x'), 0},
    };
    for (const auto &row : cases) {
        SCOPED_TRACE(row.source);
        char field[50] = "";
        EXPECT_EQ(getOneValue(row.source.c_str(), field), row.next);
        EXPECT_EQ(field, row.field);
    }
}

TEST(GetOneValue, CopiesWithoutATerminator) {
    char field[50] = "------";
    EXPECT_EQ(getOneValue("ab,c", field), 3);
    EXPECT_STREQ(field, "ab----");
}

TEST(GetOneValue, RefusesNullPointers) {
    char field[50] = "kept";
    EXPECT_EQ(getOneValue(nullptr, field), -1);
    EXPECT_EQ(getOneValue("a,b", nullptr), -1);
    EXPECT_EQ(getOneValue(nullptr, nullptr), -1);
    EXPECT_STREQ(field, "kept");
}
