// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/CommandTable.h"

#include <algorithm>
#include <cstdio>
#include <cstring>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"

namespace {

constexpr std::size_t kSymbolLength = 2;

const CtrlSymEntry *FindCtrlSym(const char *symbol) {
    for (const CtrlSymEntry &entry : ctrlSymTalbe) {
        if (std::strncmp(entry.sym, symbol, kSymbolLength) == 0) return &entry;
    }
    return nullptr;
}

// A command line under construction: text is appended and cut at the buffer's end.
struct Line {
    char *text;
    std::size_t size;
    std::size_t length;

    void Append(const char *more, std::size_t moreLength) {
        moreLength = std::min(moreLength, size - 1 - length);
        std::memcpy(text + length, more, moreLength);
        length += moreLength;
        text[length] = '\0';
    }
};

}  // namespace

void InitializeCmdParaTable(SymParaTable *set, std::uint32_t num, const CommandValue *list) {
    *set = {num, list};
}

void InitializeComparationTable(ComparationTable *set, std::uint32_t num,
                                const ComparationItem *items) {
    *set = {num, items};
}

int ConditionCompare(const ComparationTable *set) {
    int result = 1;
    for (std::uint32_t i = 0; result != 0 && i < set->num; i++) {
        const ComparationItem &item = set->items[i];
        result = item.compareFunc(item.value.pointer, item.reference.pointer);
    }
    return result;
}

int IsCtrlSym(const char *symbol) {
    return FindCtrlSym(symbol) != nullptr;
}

int getCtrlSym(const char *symbol, const void *value, char *buffer, std::size_t size) {
    const CtrlSymEntry *entry = FindCtrlSym(symbol);
    if (!entry) return 0;
    switch (entry->type) {  // GCOVR_EXCL_BR_LINE: all types are below
        case kCtrlSymTypeDec:
            std::snprintf(buffer, size, "%d", *static_cast<const std::int32_t *>(value));
            break;
        case kCtrlSymTypeChar:
            std::snprintf(buffer, size, "%c", *static_cast<const char *>(value));
            break;
        case kCtrlSymTypeString:
            std::snprintf(buffer, size, "%s", static_cast<const char *>(value));
            break;
    }
    return static_cast<int>(std::strlen(buffer));
}

const char *GetNextCtrlSym(const char *position) {
    const char *sign = std::strchr(position, '%');
    while (sign && !IsCtrlSym(sign)) sign = std::strchr(sign + 1, '%');
    return sign;
}

int BuildPrintComand(const char *format, const SymParaTable *parameters, char *output,
                     std::size_t size) {
    char copy[kCommandSize];
    CopyBounded(copy, format);
    Line line{output, std::min(size, kCommandSize), 0};
    std::memset(output, 0, line.size);

    const char *cursor = copy;
    int valueLength = 0;
    for (std::size_t k = 0; *cursor != '\0'; k++) {
        const char *symbol = GetNextCtrlSym(cursor);
        if (!symbol) {
            line.Append(cursor, std::strlen(cursor));
            break;
        }
        char value[kCommandSize] = "";
        valueLength = getCtrlSym(symbol, parameters->cmdParaList[k].pointer, value, sizeof value);
        if (valueLength <= 0) break;
        line.Append(cursor, static_cast<std::size_t>(symbol - cursor));
        line.Append(value, static_cast<std::size_t>(valueLength));
        cursor = symbol + kSymbolLength;
    }
    return valueLength;
}

void OutputKPJLCommandFromArray(char *const[], const PrtFmtEntry *table, std::int32_t count) {
    for (const PrtFmtEntry *row = table; row < table + count; row++) {
        if (row->comparationPara && ConditionCompare(row->comparationPara) != 1) continue;
        char command[kCommandSize];
        BuildPrintComand(row->prtfmtStr, row->symPara, command, sizeof command);
        KVfputs(command, stdout);
    }
}
