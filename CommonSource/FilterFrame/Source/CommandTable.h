// SPDX-License-Identifier: Apache-2.0
//
// The command table engine. A table's row holds a format string, the values that fill its control
// symbols and the conditions under which it is written; the engine knows nothing of PJL.
//
// All records are static storage. Values and conditions point at ticket fields, so the parameter
// and condition sets start empty and are bound to their lists by InializeDescriptionTable, once,
// before any table is written. Every value carries the name of its variable, so that a tool can
// tell a person which condition kept a command out.
#pragma once

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
#define KV_VALUE(variable) NamedValue(variable, #variable)

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
    const char *name;  // the <Command> of the row's arrays
};

// The row of a command whose arrays are named by the convention: with values, and with conditions
// only. A row whose values are not as many as its format's control symbols does not compile.
#define KV_ROW(command)                                                                      \
    CommandRow(prtfmtStr##command, symPara##command, cmdPara##command, comparation##command, \
               #command)
#define KV_ROW_WITHOUT_VALUES(command) \
    CommandRow(prtfmtStr##command, comparation##command, #command)

void FormatDisagreesWithValues();  // defined nowhere, and named in the compiler's message

template <std::size_t count>
consteval PrtFmtEntry CommandRow(const char *format, const SymParaTable &values,
                                 const CommandValue (&)[count], const ComparationTable &conditions,
                                 const char *name) {
    if (CountCtrlSyms(format) != count) FormatDisagreesWithValues();
    return {format, &values, &conditions, name};
}
consteval PrtFmtEntry CommandRow(const char *format, const ComparationTable &conditions,
                                 const char *name) {
    if (CountCtrlSyms(format) != 0) FormatDisagreesWithValues();
    return {format, nullptr, &conditions, name};
}

// Bind a set to its list.
void InitializeCmdParaTable(SymParaTable *set, std::uint32_t num, const CommandValue *list);
void InitializeComparationTable(ComparationTable *set, std::uint32_t num,
                                const ComparationItem *items);

// The same for a list whose length the compiler knows.
template <std::uint32_t num>
void InitializeCmdParaTable(SymParaTable &set, const CommandValue (&list)[num]) {
    InitializeCmdParaTable(&set, num, list);
}
template <std::uint32_t num>
void InitializeComparationTable(ComparationTable &set, const ComparationItem (&items)[num]) {
    InitializeComparationTable(&set, num, items);
}

// The same for a command whose arrays are named by the convention.
#define KV_BIND_VALUES(command) InitializeCmdParaTable(symPara##command, cmdPara##command)
#define KV_BIND_CONDITIONS(command) \
    InitializeComparationTable(comparation##command, comparationItem##command)

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
