// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/CommandTable.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobHeader.h"
#include "support/CaptureOutput.h"

namespace {

constexpr std::size_t kLength = kCommandSize - 1;  // of the longest command

// What a format makes of its values.
std::string Expand(const std::string &format, const std::vector<CommandValue> &values = {}) {
    const SymParaTable set = {static_cast<std::uint32_t>(values.size()), values.data()};
    char output[kCommandSize];
    BuildPrintComand(format.c_str(), &set, output, sizeof output);
    return output;
}

CommandValue Text(const std::string &text) {
    return {text.c_str(), "text"};
}

// ---- Names and sets

constexpr char kWord[] = "word";
constexpr std::int32_t kNumber = 5;
std::int32_t ticketNumber = 5;
char ticketText[10] = "";

TEST(CommandTable, ValuesKnowTheirNames) {
    constexpr CommandValue value = KV_VALUE(ticketNumber);
    EXPECT_EQ(value.pointer, &ticketNumber);
    EXPECT_STREQ(value.name, "ticketNumber");
#define NUMBER ticketNumber
    EXPECT_STREQ(KV_VALUE(NUMBER).name, "ticketNumber");
#undef NUMBER
    constexpr CommandValue again = KV_VALUE(value);
    EXPECT_EQ(again.pointer, &ticketNumber);
    EXPECT_STREQ(again.name, "ticketNumber");
    EXPECT_STREQ(kQuote.name, "CTRLSym_DOUBLE");
    EXPECT_EQ(kQuote.pointer, &CTRLSym_DOUBLE);
    EXPECT_EQ(kCR.pointer, &CTRLSym_CR);
    EXPECT_EQ(kLF.pointer, &CTRLSym_LF);
}

TEST(CommandTable, ConditionsKnowWhatTheyAsk) {
    constexpr const char *kReference = "Coil";
    // clang-format off
    const struct { ComparationItem item; CompareFunc compareFunc; const char *reference; } cases[] = {
        {KV_IS(ticketNumber, kNumber),           IntCampareFunc,           "kNumber"},
        {KV_IS_NOT(ticketNumber, kNumber),       IntNoEqualCampareFunc,    "kNumber"},
        {KV_TEXT_IS(ticketNumber, kReference),    StrEqualCampareFunc,      "kReference"},
        {KV_TEXT_HAS(ticketNumber, kReference),   StrContainCampareFunc,    "kReference"},
        {KV_TEXT_LACKS(ticketNumber, kReference), StrNotContainCampareFunc, "kReference"},
        {KV_GIVEN(ticketNumber),                 StrNoNULLCampareFunc,     "OptionNULLStr"},
        {KV_EMPTY(ticketNumber),                 StrIsNULLCampareFunc,     "OptionNULLStr"},
    };
    // clang-format on
    for (const auto &[item, compareFunc, reference] : cases) {
        EXPECT_EQ(item.value.pointer, &ticketNumber);
        EXPECT_STREQ(item.value.name, "ticketNumber");
        EXPECT_STREQ(item.reference.name, reference);
        EXPECT_EQ(item.compareFunc, compareFunc);
    }
}

#define KV_COMMAND KV_COMMAND_ARRAYS
#include "CommandTableTestRows.def"

constexpr PrtFmtEntry kRows[] = {
#define KV_COMMAND KV_COMMAND_ROW
#include "CommandTableTestRows.def"
};
static_assert(std::size(kRows) == 3);
constexpr const PrtFmtEntry &kWordRow = kRows[0];
constexpr const PrtFmtEntry &kFixedRow = kRows[1];
constexpr const PrtFmtEntry &kEveryRow = kRows[2];

void BindRows(){
#define KV_COMMAND KV_COMMAND_BIND_VALUES
#include "CommandTableTestRows.def"
#define KV_COMMAND KV_COMMAND_BIND_CONDITIONS
#include "CommandTableTestRows.def"
}

TEST(CommandTable, ARowTakesTheArraysOfItsCommand) {
    EXPECT_STREQ(kWordRow.name, "Word");
    EXPECT_STREQ(kWordRow.meaning, "a word");
    EXPECT_STREQ(kWordRow.prtfmtStr, "<%s>");
    EXPECT_EQ(kWordRow.prtfmtStr, prtfmtStrWord);
    EXPECT_EQ(kWordRow.symPara, &symParaWord);
    EXPECT_EQ(kWordRow.comparationPara, &comparationWord);
    EXPECT_STREQ(kFixedRow.name, "Fixed");
    EXPECT_EQ(kFixedRow.symPara, nullptr);
    EXPECT_EQ(kFixedRow.comparationPara, &comparationFixed);
    EXPECT_EQ(cmdParaFixed.size(), 2u);
    EXPECT_STREQ(kEveryRow.name, "Every");
    EXPECT_EQ(kEveryRow.symPara, nullptr);
    EXPECT_EQ(kEveryRow.comparationPara, &comparationEvery);
}

TEST(CommandTable, SetsAreBoundToTheirLists) {
    symParaWord = {};
    comparationWord = {};
    BindRows();
    EXPECT_EQ(symParaWord.num, 1u);
    EXPECT_EQ(symParaWord.cmdParaList, cmdParaWord.data());
    EXPECT_STREQ(symParaWord.cmdParaList[0].name, "kWord");
    EXPECT_EQ(comparationWord.num, 2u);
    EXPECT_EQ(comparationWord.items, comparationItemWord.data());
    EXPECT_EQ(comparationWord.items[1].compareFunc, StrNoNULLCampareFunc);
    EXPECT_EQ(symParaFixed.num, 2u);
    EXPECT_EQ(comparationFixed.num, 1u);
    EXPECT_EQ(symParaEvery.num, 0u);
    EXPECT_EQ(comparationEvery.num, 0u);
    InitializeCmdParaTable(&symParaWord, 0, nullptr);
    InitializeComparationTable(&comparationWord, 1, comparationItemFixed.data());
    EXPECT_EQ(symParaWord.num, 0u);
    EXPECT_EQ(symParaWord.cmdParaList, nullptr);
    EXPECT_EQ(comparationWord.num, 1u);
    EXPECT_EQ(comparationWord.items, comparationItemFixed.data());
}

// The set of the trailer offers more than its format takes; no other table does.
TEST(CommandTable, HeaderTablesHaveAValueForEachSymbol) {
    InializeDescriptionTable();
    const std::pair<const PrtFmtEntry *, std::uint32_t> tables[] = {
        {prtFmtTableKPJLHead, 0},
        {prtFmtTableKPJLJobMode, 0},
        {prtFmtTableEnterPS, 0},
        {prtFmtTableKPJLTrailer, 2},
    };
    for (const auto &[table, surplus] : tables) {
        const std::uint32_t values = table->symPara ? table->symPara->num : 0;
        EXPECT_EQ(CountCtrlSyms(table->prtfmtStr) + surplus, values) << table->name;
    }
}

// ---- Conditions

std::vector<int> asked;  // the integers that Ask was called with, in order

// Answers with the value itself.
int Ask(const void *value, const void *) {
    asked.push_back(*static_cast<const std::int32_t *>(value));
    return asked.back();
}

int CompareAll(const std::vector<std::int32_t> &answers) {
    std::vector<ComparationItem> items;
    for (const std::int32_t &answer : answers) {
        items.push_back({{&answer, "answer"}, {nullptr, "none"}, Ask});
    }
    const ComparationTable set = {static_cast<std::uint32_t>(items.size()), items.data()};
    asked.clear();
    return ConditionCompare(&set);
}

TEST(CommandTable, AnEmptyConditionSetHolds) {
    const ComparationTable set = {0, nullptr};
    EXPECT_EQ(ConditionCompare(&set), 1);
}

TEST(CommandTable, ConditionsAreAskedFromTheLeftUpToTheFirstThatFails) {
    EXPECT_EQ(CompareAll({1}), 1);
    EXPECT_EQ(CompareAll({0}), 0);
    EXPECT_EQ(CompareAll({1, 1, 1}), 1);
    EXPECT_EQ(asked, (std::vector<int>{1, 1, 1}));
    EXPECT_EQ(CompareAll({1, 1, 0}), 0);
    EXPECT_EQ(CompareAll({1, 0, 1}), 0);
    EXPECT_EQ(asked, (std::vector<int>{1, 0}));
    EXPECT_EQ(CompareAll({0, 1, 1}), 0);
    EXPECT_EQ(asked, (std::vector<int>{0}));
}

TEST(CommandTable, TheSetCountsAndNotItsList) {
    const std::int32_t yes = 1, no = 0;
    const ComparationItem items[] = {{{&yes, ""}, {nullptr, ""}, Ask},
                                     {{&no, ""}, {nullptr, ""}, Ask}};
    const ComparationTable set = {1, items};
    EXPECT_EQ(ConditionCompare(&set), 1);
}

// ---- Control symbols

TEST(CommandTable, IsCtrlSym) {
    for (const char *symbol : {"%d", "%c", "%s", "%sx"}) EXPECT_EQ(IsCtrlSym(symbol), 1) << symbol;
    for (const char *symbol : {"%D", "%x", "%%", "%-", "%", "", "d%", "s", "%5d"}) {
        EXPECT_EQ(IsCtrlSym(symbol), 0) << symbol;
    }
}

TEST(CommandTable, GetNextCtrlSymPassesOverOtherPerCentSigns) {
    const struct {
        const char *format;
        int offset;  // -1 for none
    } cases[] = {{"", -1},        {"text", -1},  {"%", -1},    {"%%", -1}, {"%-12345X", -1},
                 {"a%x%", -1},    {"%d", 0},     {"a%c", 1},   {"%%s", 1}, {"%-%c", 2},
                 {"100%, %d", 6}, {"%%%%%s", 4}, {"%5d %s", 4}};
    for (const auto &[format, offset] : cases) {
        EXPECT_EQ(GetNextCtrlSym(format), offset < 0 ? nullptr : format + offset) << format;
    }
}

std::string Format(const char *symbol, const void *value, std::size_t size = kCommandSize) {
    char buffer[kCommandSize] = "";
    const int length = getCtrlSym(symbol, value, buffer, size);
    EXPECT_EQ(static_cast<std::size_t>(length), std::string(buffer).size());
    return buffer;
}

TEST(CommandTable, GetCtrlSymFormatsAValue) {
    for (const std::int32_t number : {0, 7, -1, std::numeric_limits<std::int32_t>::min(),
                                      std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(Format("%d", &number), std::to_string(number));
    }
    EXPECT_EQ(Format("%c", "\"rest"), "\"");
    EXPECT_EQ(Format("%c", "\x1B"), "\x1B");
    EXPECT_EQ(Format("%c", "\xE9"), "\xE9");
    EXPECT_EQ(Format("%c", ""), "");  // the NUL byte
    EXPECT_EQ(Format("%s", "a \"%s\" b"), "a \"%s\" b");
    EXPECT_EQ(Format("%s", ""), "");
}

TEST(CommandTable, GetCtrlSymStaysInItsBuffer) {
    const std::int32_t number = 12345;
    EXPECT_EQ(Format("%s", "abcdef", 4), "abc");
    EXPECT_EQ(Format("%d", &number, 4), "123");
    EXPECT_EQ(Format("%c", "a", 1), "");
}

TEST(CommandTable, GetCtrlSymKnowsNoOtherSymbol) {
    for (const char *symbol : {"%x", "%%", "%-", "s", ""}) {
        char buffer[8] = "before";
        EXPECT_EQ(getCtrlSym(symbol, "value", buffer, sizeof buffer), 0);
        EXPECT_STREQ(buffer, "before");
    }
}

// ---- Expansion

TEST(CommandTable, ExpandsFormats) {
    const std::int32_t number = -12;
    const CommandValue dec = {&number, "number"};
    const CommandValue name = {"bob", "name"};
    EXPECT_EQ(Expand(""), "");
    EXPECT_EQ(Expand("@PJL SET HOLD=STORE\n"), "@PJL SET HOLD=STORE\n");
    EXPECT_EQ(Expand("@PJL SET USERNAME=%c%s%c%c%c", {kQuote, name, kQuote, kCR, kLF}),
              "@PJL SET USERNAME=\"bob\"\r\n");
    EXPECT_EQ(Expand("%c%c-12345X", {KV_VALUE(CTRLSym_ESC), KV_VALUE(CTRLSym_PERCENTAGE)}),
              "\x1B%-12345X");
    EXPECT_EQ(Expand("%s first", {name}), "bob first");
    EXPECT_EQ(Expand("last %d", {dec}), "last -12");
    EXPECT_EQ(Expand("%d%s%d", {dec, name, dec}), "-12bob-12");
    EXPECT_EQ(Expand("100%% %-5x %s %", {name}), "100%% %-5x bob %");
}

TEST(CommandTable, ValuesAreNotFormatsThemselves) {
    EXPECT_EQ(Expand("%s,%s", {Text("%s%d"), Text("b")}), "%s%d,b");
    EXPECT_EQ(Expand("%c%s", {KV_VALUE(CTRLSym_PERCENTAGE), Text("s")}), "%s");
}

TEST(CommandTable, TakesNoMoreValuesThanTheFormatAsksFor) {
    EXPECT_EQ(Expand("%c%c-12345X@PJL EOJ\n",
                     {KV_VALUE(CTRLSym_ESC), KV_VALUE(CTRLSym_PERCENTAGE), kCR, kLF}),
              "\x1B%-12345X@PJL EOJ\n");
    // The count of the set is not looked at.
    const CommandValue list[] = {{"a", ""}, {"b", ""}};
    const SymParaTable set = {0, list};
    char output[kCommandSize];
    BuildPrintComand("%s-%s", &set, output, sizeof output);
    EXPECT_STREQ(output, "a-b");
}

TEST(CommandTable, AnEmptyValueEndsTheExpansion) {
    EXPECT_EQ(Expand("@PJL SET USERNAME=%c%s%c%c%c", {kQuote, Text(""), kQuote, kCR, kLF}),
              "@PJL SET USERNAME=\"");
    EXPECT_EQ(Expand("@PJL SET BOXNUMBER=%s%c%c", {Text(""), kCR, kLF}), "");
    EXPECT_EQ(Expand("%c a %c b %c", {kQuote, Text(""), kQuote}), "\"");  // a NUL byte
    EXPECT_EQ(Expand("a%s", {Text("")}), "");
}

TEST(CommandTable, ReturnsTheLengthOfTheLastValue) {
    char output[kCommandSize];
    const CommandValue list[] = {{"abc", ""}, {"de", ""}, {"", ""}};
    const SymParaTable set = {3, list};
    EXPECT_EQ(BuildPrintComand("none", &set, output, sizeof output), 0);
    EXPECT_EQ(BuildPrintComand("%s", &set, output, sizeof output), 3);
    EXPECT_EQ(BuildPrintComand("%s%s rest", &set, output, sizeof output), 2);
    EXPECT_EQ(BuildPrintComand("%s%s%s", &set, output, sizeof output), 0);
}

TEST(CommandTable, ALineIsCutAt229Characters) {
    for (const std::size_t length : {228U, 229U, 230U, 1000U}) {
        const std::string text(length, 'x');
        const std::string kept = text.substr(0, kLength);
        EXPECT_EQ(Expand(text), kept);
        EXPECT_EQ(Expand("%s", {Text(text)}), kept);
        EXPECT_EQ(Expand("%s\n", {Text(text)}), (kept + "\n").substr(0, kLength));
        EXPECT_EQ(Expand("ab%scd", {Text(text)}), ("ab" + kept + "cd").substr(0, kLength));
        EXPECT_EQ(Expand("%s%s%s", {Text("a"), Text(text), Text("b")}),
                  ("a" + kept + "b").substr(0, kLength));
    }
}

TEST(CommandTable, AFormatIsCutAt229CharactersToo) {
    for (const std::size_t front : {226U, 227U, 228U, 229U}) {
        const std::string before(front, 'x');
        const std::string format = (before + "%s!").substr(0, kLength);
        std::string expected = format;
        const std::size_t symbol = format.find("%s");
        if (symbol != std::string::npos) expected.replace(symbol, 2, "v");
        EXPECT_EQ(Expand(before + "%s!", {Text("v")}), expected) << front;
    }
}

TEST(CommandTable, ExpandsIntoSmallerBuffers) {
    const CommandValue list[] = {{"value", ""}};
    const SymParaTable set = {1, list};
    for (std::size_t size = 1; size < 10; size++) {
        char output[16];
        std::memset(output, '#', sizeof output);
        BuildPrintComand("a%sb", &set, output, size);
        EXPECT_EQ(output, std::string("avalueb").substr(0, size - 1));
        EXPECT_EQ(output[size], '#');
    }
}

TEST(CommandTable, ClearsTheOutputFirst) {
    char output[kCommandSize];
    std::memset(output, '#', sizeof output);
    BuildPrintComand("a", nullptr, output, sizeof output);
    EXPECT_EQ(std::string(output, sizeof output), "a" + std::string(kCommandSize - 1, '\0'));
}

// ---- Tables

std::string Write(const std::vector<PrtFmtEntry> &table) {
    return CaptureOutput([&] {
        OutputKPJLCommandFromArray(nullptr, table.data(), static_cast<std::int32_t>(table.size()));
    });
}

TEST(CommandTable, WritesRowsWithoutConditionsInOrder) {
    const CommandValue list[] = {{"2", ""}};
    const SymParaTable set = {1, list};
    EXPECT_EQ(Write({{"1\n", nullptr, nullptr, ""},
                     {"%s\r\n", &set, nullptr, ""},
                     {"3", nullptr, nullptr, ""},
                     {"4", nullptr, nullptr, ""}}),
              "1\n2\r\n34");
    EXPECT_EQ(Write({}), "");
}

TEST(CommandTable, WritesTheRowsWhoseConditionsHold) {
    BindRows();
    const std::vector<PrtFmtEntry> table = {kWordRow, kFixedRow, kEveryRow, kWordRow};
    ticketNumber = 5;
    ticketText[0] = '\0';
    EXPECT_EQ(Write(table), "fixedevery");
    ticketText[0] = 'x';
    EXPECT_EQ(Write(table), "<word>every<word>");
    ticketNumber = 4;
    EXPECT_EQ(Write(table), "every");
}

TEST(CommandTable, OnlyTheAnswer1WritesARow) {
    for (const std::int32_t answer : {0, 1, 2, -1}) {
        const ComparationItem items[] = {{{&answer, ""}, {nullptr, ""}, Ask}};
        const ComparationTable set = {1, items};
        EXPECT_EQ(Write({{"row", nullptr, &set, ""}}), answer == 1 ? "row" : "");
    }
}

TEST(CommandTable, WritesWhatIsLeftOfARowWithAnEmptyValue) {
    const CommandValue list[] = {kQuote, {"", ""}, kQuote};
    const SymParaTable set = {3, list};
    EXPECT_EQ(Write({{"a=%c%s%c\n", &set, nullptr, ""}, {"b\n", nullptr, nullptr, ""}}), "a=\"b\n");
}

}  // namespace
