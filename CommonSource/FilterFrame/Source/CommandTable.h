// SPDX-License-Identifier: Apache-2.0
//
// The command table engine. A table's row holds a format string, the values that fill its control
// symbols and the conditions under which it is written; the engine knows nothing of PJL.
//
// A table is a row file, Modules/<Module>/<Module>Rows.def. Nothing about a command stands
// elsewhere; an entry is the command's name, what it tells the printer, its format, the value of
// each control symbol and the conditions, all of which must hold:
//
//     KV_COMMAND(SecurePrintPassword, "the password that releases the job",
//                "@PJL SET HOLDENCRYPTKEY=%c%s%c%c%c",
//                KV_VALUES(kQuote, KV_VALUE(ticket.password), kQuote, kCR, kLF),
//                KV_IS(ticket.printType, OptionSecurePrint), KV_GIVEN(ticket.password))
//
// The module includes its file once for each thing that is made of it, with KV_COMMAND defined as
// one of these; the file's last line undefines it:
//     KV_COMMAND_ARRAYS           prtfmtStr<Command>, cmdPara<Command>, symPara<Command>,
//                                 comparationItem<Command> and comparation<Command>
//     KV_COMMAND_ROW              the row of the table
//     KV_COMMAND_BIND_VALUES      binds symPara<Command> to cmdPara<Command>
//     KV_COMMAND_BIND_CONDITIONS  binds comparation<Command> to comparationItem<Command>
//
// All records are static storage. Values and conditions point at ticket fields, so the parameter
// and condition sets start empty and are bound to their lists by InializeDescriptionTable, once,
// before any table is written. Every value carries the name of its variable, so that a tool can
// tell a person which condition kept a command out.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "Tables/CompareFunctions.h"
#include "Tables/ControlSymbols.h"

// Bytes of a command line, its NUL included; what is longer is cut.
constexpr std::size_t kCommandSize = 230;

// A variable that a table refers to: what it designates, and its name.
struct CommandValue {
    const void *pointer;
    const char *name;
};
#define KV_VALUE(variable) KV_VALUE_NAMED(variable)  // after what `variable` expands to
#define KV_VALUE_NAMED(variable) NamedValue(variable, #variable)

template <class Variable>
constexpr CommandValue NamedValue(const Variable &variable, const char *name) {
    return {&variable, name};
}
template <class Variable>
void NamedValue(const Variable &&, const char *) = delete;  // a table needs a variable that stays
// What has a name already keeps it.
constexpr CommandValue NamedValue(const CommandValue &value, const char *) {
    return value;
}

// The control characters of a command line.
inline constexpr CommandValue kQuote = KV_VALUE(CTRLSym_DOUBLE);
inline constexpr CommandValue kCR = KV_VALUE(CTRLSym_CR);
inline constexpr CommandValue kLF = KV_VALUE(CTRLSym_LF);

// The parameter set of a row: value k fills control symbol k of the format, from the left.
struct SymParaTable {
    std::uint32_t num;
    const CommandValue *cmdParaList;
};

// One condition on the job ticket.
struct ComparationItem {
    CommandValue value;
    CommandValue reference;
    CompareFunc compareFunc;
};

// The reference of a condition that needs none.
inline constexpr std::int32_t OptionNULLStr = 0;

#define KV_CONDITION(value, reference, compareFunc)       \
    ComparationItem {                                     \
        KV_VALUE(value), KV_VALUE(reference), compareFunc \
    }
// What a condition can ask of an integer,
#define KV_IS(value, constant) KV_CONDITION(value, constant, IntCampareFunc)
#define KV_IS_NOT(value, constant) KV_CONDITION(value, constant, IntNoEqualCampareFunc)
// of a text and a constant that points to one,
#define KV_TEXT_IS(value, constant) KV_CONDITION(value, constant, StrEqualCampareFunc)
#define KV_TEXT_HAS(value, constant) KV_CONDITION(value, constant, StrContainCampareFunc)
#define KV_TEXT_LACKS(value, constant) KV_CONDITION(value, constant, StrNotContainCampareFunc)
// and of a text alone.
#define KV_GIVEN(value) KV_CONDITION(value, OptionNULLStr, StrNoNULLCampareFunc)
#define KV_EMPTY(value) KV_CONDITION(value, OptionNULLStr, StrIsNULLCampareFunc)

// The condition set of a row: all must hold; an empty set holds.
struct ComparationTable {
    std::uint32_t num;
    const ComparationItem *items;
};

// One row. `symPara` is null when the format has no control symbol, `comparationPara` when the row
// is always written.
struct PrtFmtEntry {
    const char *prtfmtStr;
    const SymParaTable *symPara;
    const ComparationTable *comparationPara;
    const char *name;          // the <Command> of the row's arrays
    const char *meaning = "";  // what the line tells the printer, in words
};

// Bind a set to its list.
void InitializeCmdParaTable(SymParaTable *set, std::uint32_t num, const CommandValue *list);
void InitializeComparationTable(ComparationTable *set, std::uint32_t num,
                                const ComparationItem *items);

// What a row file is expanded with; the conditions are the arguments after the values.
// clang-format off
#define KV_VALUES(...) ListOf<CommandValue>(__VA_ARGS__)

#define KV_COMMAND_ARRAYS(command, meaning, format, values, ...)                    \
    constexpr char prtfmtStr##command[] = format;                                   \
    constexpr auto cmdPara##command = values;                                       \
    SymParaTable symPara##command;                                                  \
    constexpr auto comparationItem##command = ListOf<ComparationItem>(__VA_ARGS__); \
    ComparationTable comparation##command;

#define KV_COMMAND_ROW(command, meaning, ...) KV_COMMAND_ROW_IN(, command, meaning)
// The same for arrays in a namespace; `scope` is its name and "::".
#define KV_COMMAND_ROW_IN(scope, command, meaning)                                       \
    CommandRow(scope prtfmtStr##command, scope symPara##command, scope cmdPara##command, \
               scope comparation##command, #command, meaning),

#define KV_COMMAND_BIND_VALUES(command, ...) \
    InitializeCmdParaTable(&symPara##command, Count(cmdPara##command), cmdPara##command.data());
#define KV_COMMAND_BIND_CONDITIONS(command, ...)                                           \
    InitializeComparationTable(&comparation##command, Count(comparationItem##command), \
                               comparationItem##command.data());
// clang-format on

template <class Item, class... Items>
constexpr std::array<Item, sizeof...(Items)> ListOf(const Items &...items) {
    return {items...};
}

template <class Item, std::size_t count>
constexpr std::uint32_t Count(const std::array<Item, count> &) {
    return count;
}

void FormatDisagreesWithValues();  // defined nowhere, and named in the compiler's message

// A format without control symbols leaves its values; any other that has not as many as there are
// values does not compile.
template <std::size_t count>
consteval PrtFmtEntry CommandRow(const char *format, const SymParaTable &set,
                                 const std::array<CommandValue, count> &,
                                 const ComparationTable &conditions, const char *name,
                                 const char *meaning) {
    const std::size_t symbols = CountCtrlSyms(format);
    if (symbols != 0 && symbols != count) FormatDisagreesWithValues();
    return {format, symbols != 0 ? &set : nullptr, &conditions, name, meaning};
}

// 1 if every condition of the set holds, else 0; stops at the first that does not.
int ConditionCompare(const ComparationTable *set);

// 1 if `symbol`, two characters, is a control symbol, else 0.
int IsCtrlSym(const char *symbol);

// Formats one value into `buffer` of `size` bytes; returns the length written, 0 for an unknown
// symbol.
int getCtrlSym(const char *symbol, const void *value, char *buffer, std::size_t size);

// The per-cent sign of the next control symbol at or after `position`, or null.
const char *GetNextCtrlSym(const char *position);

// Expands `format` into `output` of `size` bytes, at most kCommandSize. A value without text ends
// the expansion: the output keeps what stands before the format's text in front of that symbol.
// Returns the length of the last value.
int BuildPrintComand(const char *format, const SymParaTable *parameters, char *output,
                     std::size_t size);

// Writes to standard output every row of the table whose conditions hold, in order. `context` is
// not looked at.
void OutputKPJLCommandFromArray(char *const context[], const PrtFmtEntry *table,
                                std::int32_t count);
