// SPDX-License-Identifier: Apache-2.0
//
// Option strings for the fuzz targets: every key that the filter reads, from the rows themselves,
// with values that the rows speak of, the PPD's choices, numbers, and any text.
#pragma once

#include <cctype>
#include <string>
#include <string_view>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "FrontEnd/ShortOptions.h"
#include "fuzz/Fuzz.h"

// The words and numbers that a row's description of its values holds: "1 = off, 2 = on".
inline std::vector<std::string> WordsOf(std::string_view text) {
    std::vector<std::string> words;
    std::string word;
    for (const char letter : std::string(text) + ' ') {
        if (std::isalnum(static_cast<unsigned char>(letter)) || letter == '.' || letter == '-') {
            word += letter;
        } else if (!word.empty()) {
            words.push_back(word);
            word.clear();
        }
    }
    return words;
}

struct FuzzKey {
    std::string name;
    std::vector<std::string> values;
};

// The keys of the ticket tables with this title, or of all.
inline std::vector<FuzzKey> TicketKeys(std::string_view title = "") {
    std::vector<FuzzKey> keys;
    for (const TicketTable &table : TicketTables()) {
        if (!title.empty() && title != table.title) continue;
        for (const ticketData &row : table.rows) keys.push_back({row.key, WordsOf(row.values)});
    }
    return keys;
}

inline void AddShortOptionKeys(std::vector<FuzzKey> &keys) {
    for (std::size_t i = 0; i < kShortOptionCount; i++) {
        keys.push_back({kShortOptions[i].name, WordsOf(kShortOptions[i].choices)});
        keys.back().values.push_back(
            std::string(kShortOptions[i].example).substr(keys.back().name.size() + 1));
    }
}

// Adds the choices that the job's PPD has for options of these names.
inline void AddPpdChoices(std::vector<FuzzKey> &keys) {
    for (FuzzKey &key : keys) {
        const ppd_option_t *option = ppdFindOption(JobPPD(), key.name.c_str());
        for (int i = 0; option && i < option->num_choices; i++) {
            key.values.emplace_back(option->choices[i].choice);
        }
    }
}

// A text in quotes that cupsParseOptions takes apart as one value; `more` is any text.
inline std::string Quoted(std::string_view value) {
    std::string text = "'";
    for (const char letter : value) {
        if (letter == '\'' || letter == '\\') text += '\\';
        text += letter;
    }
    return text + "' ";
}

inline std::string FuzzValue(FuzzInput &input, const std::vector<std::string> &values) {
    const unsigned kind = input.Byte();
    if (kind < 128 && !values.empty()) return values[kind % values.size()];
    if (kind < 160) return std::to_string(static_cast<int>(kind) - 130);
    if (kind < 176) return std::string(input.Below(3000), static_cast<char>('A' + kind % 26));
    if (kind < 180) return std::to_string(static_cast<long long>(kind - 178) * 0x7FFFFFFF);
    if (kind < 184) return "a\"\n@PJL EOJ\r\x1b%-12345X";  // would break out of a line
    return input.Text();
}

// Up to sixty options with keys of `keys`.
inline std::string FuzzOptions(FuzzInput &input, const std::vector<FuzzKey> &keys) {
    std::string options;
    for (int i = 0; i < 60 && !input.Empty(); i++) {
        const FuzzKey &key = keys[input.Below(keys.size())];
        const std::string value = FuzzValue(input, key.values);
        options += key.name + '=' + Quoted(value.c_str());
    }
    return options;
}
