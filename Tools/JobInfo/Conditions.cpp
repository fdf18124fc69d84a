// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/Conditions.h"

#include <algorithm>
#include <cctype>
#include <cstring>
#include <set>
#include <span>

#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "Tools/JobInfo/PJLLine.h"
#include "Tools/JobInfo/Text.h"

namespace {

constexpr std::int32_t kAbsent = -1;  // an integer that the ticket lacks

// What a condition asks of a text by another one.
struct TextRule {
    CompareFunc function;
    const char *words;
};
constexpr TextRule textRules[] = {
    {StrEqualCampareFunc, " and must be"},
    {StrContainCampareFunc, " and must contain"},
    {StrNotContainCampareFunc, " and must not contain"},
};

// The row of its ticket; one without a key for what is no ticket's.
const ticketData &RowOf(const CommandValue &value) {
    static constexpr ticketData none{"", nullptr, 0, nullptr};
    for (const TicketTable &table : TicketTables()) {  // GCOVR_EXCL_BR_LINE: as below
        for (const ticketData &row : table.rows) {
            if (row.destination == value.pointer) return row;
        }
    }
    return none;  // GCOVR_EXCL_LINE: nothing fails by anything but the ticket
}

// "ticket.documentNameType" is "document name type".
std::string WordsOf(const CommandValue &value) {
    const std::size_t start = std::string_view(value.name).rfind('.') + 1;  // 0 if there is no dot
    std::string words;
    for (const char *letter = value.name + start; *letter != '\0'; letter++) {
        const auto next = static_cast<unsigned char>(letter[1]);
        const bool isUpper = std::isupper(static_cast<unsigned char>(*letter));
        const bool startsWord =
            isUpper && !words.empty() &&
            (!std::isupper(static_cast<unsigned char>(letter[-1])) || std::islower(next));
        if (startsWord) words += ' ';
        const bool isShort = isUpper && (std::isupper(next) || next == '\0');
        words += isShort ? *letter
                         : static_cast<char>(std::tolower(static_cast<unsigned char>(*letter)));
    }
    return words;
}

std::string WordsOfNumber(const ticketData &row, std::int32_t number) {
    const std::string digits = std::to_string(number);
    const std::string words = WordsOfChoice(row.values, digits);
    return words.empty() ? digits : words;
}

bool Is(const ComparationItem &item, CompareFunc function) {
    return item.compareFunc == function;
}

bool IsInteger(const ComparationItem &item) {
    return Is(item, IntCampareFunc) || Is(item, IntNoEqualCampareFunc);
}

std::int32_t IntegerOf(const CommandValue &value) {
    return *static_cast<const std::int32_t *>(value.pointer);
}

// A condition that holds, as a clause.
std::string Holding(const ComparationItem &item) {
    const std::string subject = "the " + WordsOf(item.value);
    if (IsInteger(item)) {
        return subject + " is " + WordsOfNumber(RowOf(item.value), IntegerOf(item.value));
    }
    return subject + " is given";
}

// A condition that does not hold, as a clause.
std::string Failing(const ComparationItem &item) {
    const std::string subject = "the " + WordsOf(item.value);
    const ticketData &row = RowOf(item.value);
    if (IsInteger(item)) {
        const std::int32_t number = IntegerOf(item.value);
        const std::string is =
            number == kAbsent ? " is not given" : " is " + WordsOfNumber(row, number);
        if (Is(item, IntNoEqualCampareFunc)) return subject + is;
        return subject + is + " and must be " + WordsOfNumber(row, IntegerOf(item.reference));
    }
    const std::string text = static_cast<const char *>(item.value.pointer);
    const std::string is = text.empty() ? " is empty" : " is \"" + text + "\"";
    for (const TextRule &rule : textRules) {
        if (!Is(item, rule.function)) continue;
        const char *reference = *static_cast<const char *const *>(item.reference.pointer);
        return subject + is + rule.words + " \"" + reference + "\"";
    }
    // Beside each command for what is empty stands one for what is given, which is written then.
    return subject + (text.empty() ? is : " is given");  // GCOVR_EXCL_BR_LINE: as said
}

// Whether the ticket has the value that the condition asks of, so that its user meant something.
bool IsAskedFor(const ComparationItem &item, const TicketOptions &ticket) {
    return cupsGetOption(RowOf(item.value).key, ticket.count, ticket.list);
}

// The name and, where it is fixed, the value of what the row writes: "HOLD=STORE", "JOAU".
std::string CommandOf(const PrtFmtEntry &row) {
    std::string line = row.prtfmtStr;
    for (std::size_t place; (place = line.find("%c")) != line.npos;) line.replace(place, 2, "\"");
    line.resize(std::min(line.size(), line.find_first_of("\r\n")));
    const PJLLine parsed = ParsePJL(line);
    std::string value(parsed.value.substr(0, parsed.value.find('"')));
    if (value.empty() || value.find('%') != value.npos) return std::string(parsed.name);
    return std::string(parsed.name) + "=" + value;
}

std::set<std::string> NamesIn(const std::vector<Effect> &effects) {
    std::set<std::string> names;
    for (const Effect &effect : effects) names.emplace(ParsePJL(effect.line).name);
    return names;
}

bool IsText(const char *format, std::size_t value) {
    for (; value > 0; value--) format = GetNextCtrlSym(format) + 1;
    return std::strncmp(GetNextCtrlSym(format), CtrlSym_String, 2) == 0;
}

// Whether the command would say that there is nothing, or has nothing to say: nobody misses it.
bool SaysNothing(const PrtFmtEntry &row) {
    for (std::uint32_t i = 0; i < row.comparationPara->num; i++) {
        const ComparationItem &item = row.comparationPara->items[i];
        if (Is(item, StrIsNULLCampareFunc) && item.compareFunc(item.value.pointer, nullptr) == 1) {
            return true;
        }
    }
    for (std::uint32_t i = 0; row.symPara && i < row.symPara->num; i++) {
        const void *value = row.symPara->cmdParaList[i].pointer;
        if (IsText(row.prtfmtStr, i) && StrIsNULLCampareFunc(value, nullptr) == 1) return true;
    }
    return false;
}

// Why the row was not written, or empty if that is not for one value's sake.
std::string ReasonOf(const PrtFmtEntry &row, const TicketOptions &ticket) {
    const std::span conditions(row.comparationPara->items, row.comparationPara->num);
    const void *value = nullptr;
    std::string failing;
    for (const ComparationItem &item : conditions) {
        if (item.compareFunc(item.value.pointer, item.reference.pointer) == 1) continue;
        if (value && value != item.value.pointer) return "";
        if (!value) failing = Failing(item);
        value = item.value.pointer;
    }
    for (const ComparationItem &item : conditions) {
        const bool holds = item.value.pointer != value;
        if (holds && IsAskedFor(item, ticket)) return Holding(item) + ", but " + failing;
    }
    return "";
}

}  // namespace

std::string WordsOfChoice(std::string_view values, std::string_view value) {
    const std::string list = ", " + std::string(values) + ",";
    const std::string choice = ", " + std::string(value) + " = ";
    const std::size_t place = list.find(choice);
    if (place == list.npos) return "";
    const std::size_t start = place + choice.size();
    return list.substr(start, list.find(',', start) - start);
}

std::vector<NearMiss> NearMisses(const TicketOptions &ticket, const std::vector<Effect> &effects) {
    const std::set<std::string> written = NamesIn(effects);
    std::vector<NearMiss> misses;
    for (const CommandTable &table : CommandTables()) {
        for (const PrtFmtEntry &row : table) {
            if (!row.comparationPara || SaysNothing(row)) continue;
            const std::string command = CommandOf(row);
            if (written.contains(command.substr(0, command.find('=')))) continue;
            const std::string reason = ReasonOf(row, ticket);
            if (!reason.empty()) misses.push_back({command, row.meaning, reason});
        }
    }
    return misses;
}
