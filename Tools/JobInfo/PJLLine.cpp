// SPDX-License-Identifier: Apache-2.0
#include "Tools/JobInfo/PJLLine.h"

#include <algorithm>
#include <cctype>

namespace {

constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kMask = "********";

// In names of other makers.
constexpr std::string_view kSecretWords[] = {"KEY", "PASS", "PIN", "SECRET"};

void SkipBlanks(std::string_view &text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
}

std::string Upper(std::string_view text) {
    std::string upper(text);
    for (char &byte : upper)
        byte = static_cast<char>(std::toupper(static_cast<unsigned char>(byte)));
    return upper;
}

// Takes the word that `text` begins with, up to a blank or one of `ends`.
std::string_view TakeWord(std::string_view &text, std::string_view ends) {
    SkipBlanks(text);
    std::size_t length = 0;
    while (length < text.size() && kBlanks.find(text[length]) == kBlanks.npos &&
           ends.find(text[length]) == ends.npos) {
        length++;
    }
    const std::string_view word = text.substr(0, length);
    text.remove_prefix(length);
    return word;
}

// Takes "=" and the value after it, without quotation marks around it.
std::string_view TakeValue(std::string_view text) {
    SkipBlanks(text);
    if (!text.starts_with('=')) return {};
    text.remove_prefix(1);
    SkipBlanks(text);
    if (text.starts_with('"')) {
        text.remove_prefix(1);
        if (text.ends_with('"')) text.remove_suffix(1);
    }
    return text;
}

PJLLine ParseSet(std::string_view text) {
    PJLLine line{kPJLVariable, TakeWord(text, "="), {}, nullptr};
    line.value = TakeValue(text);
    if (Upper(line.name) != "JOBATTR") return line;
    std::string_view attribute = line.value;
    SkipBlanks(attribute);
    if (!attribute.starts_with('@')) return line;
    attribute.remove_prefix(1);
    line = {kPJLAttribute, TakeWord(attribute, "="), {}, nullptr};
    SkipBlanks(attribute);
    if (attribute.starts_with('=')) attribute.remove_prefix(1);
    line.value = attribute;
    return line;
}

PJLLine ParseComment(std::string_view text) {
    std::string_view rest = text;
    SkipBlanks(text);
    if (TakeWord(rest, "") != "KVJOBINFO") return {kPJLCommand, "COMMENT", text, nullptr};
    PJLLine line{kPJLComment, TakeWord(rest, "="), {}, nullptr};
    line.value = TakeValue(rest);
    return line;
}

}  // namespace

PJLLine ParsePJL(std::string_view line) {
    if (line.starts_with(kExitLanguage)) line.remove_prefix(kExitLanguage.size());
    if (!line.starts_with(kPJL)) return {};
    line.remove_prefix(kPJL.size());
    const std::string_view command = TakeWord(line, "");
    const std::string upper = Upper(command);
    PJLLine parsed{kPJLCommand, command, line, nullptr};
    SkipBlanks(parsed.value);
    if (upper == "SET" || upper == "DEFAULT") parsed = ParseSet(line);
    if (upper == "COMMENT") parsed = ParseComment(line);
    parsed.row = FindPJLName(parsed.kind, Upper(parsed.name));
    return parsed;
}

std::string MeaningOf(const PJLLine &line) {
    if (line.name.empty()) return "no PJL";
    if (!line.row) return "not known to this filter";
    const char *value = MeaningOfPJLValue(*line.row, line.value);
    return line.row->meaning + (value ? std::string(": ") + value : "");
}

bool IsSecret(const PJLLine &line) {
    if (line.row) return line.row->secrecy == kSecret;
    const std::string name = Upper(line.name);
    return std::any_of(std::begin(kSecretWords), std::end(kSecretWords),
                       [&](std::string_view word) { return name.find(word) != name.npos; });
}

std::string MaskSecret(std::string_view line) {
    const PJLLine parsed = ParsePJL(line);
    if (parsed.name.empty() || parsed.value.empty() || !IsSecret(parsed)) return std::string(line);
    const auto start = static_cast<std::size_t>(parsed.value.data() - line.data());
    return std::string(line.substr(0, start)) + std::string(kMask) +
           std::string(line.substr(start + parsed.value.size()));
}
