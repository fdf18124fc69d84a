// SPDX-License-Identifier: Apache-2.0
//
// The reference in docs/options.md is what the modules' ticket tables say.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "docs/MadePage.h"

namespace {

constexpr char kBegin[] = "<!-- Made from the ticket tables; OptionsPageTest says how. -->\n";
constexpr char kEnd[] = "<!-- End of what is made from the ticket tables. -->\n";

// The printer's own keys stand without what they all begin with, in italics.
std::string Named(std::string key) {
    const std::string own = KV_TICKET;
    if (!key.starts_with(own)) return "`" + key + "`";
    return "*`" + key.substr(own.size()) + "`*";
}

// Where a key has several rows in a table, the last one says what it is for.
std::string SectionRows(const TicketTable &table) {
    std::string text;
    for (auto row = table.rows.begin(); row != table.rows.end(); ++row) {
        const bool again = std::any_of(row + 1, table.rows.end(), [&](const ticketData &later) {
            return std::string(later.key) == row->key;
        });
        if (again) continue;
        text += "| " + Named(row->key) + " | " + row->values + " | " + row->meaning + " |\n";
    }
    return text;
}

std::string Reference() {
    std::vector<std::string> titles;
    for (const TicketTable &table : TicketTables()) {
        if (std::find(titles.begin(), titles.end(), table.title) == titles.end()) {
            titles.push_back(table.title);
        }
    }
    std::string text;
    for (const std::string &title : titles) {
        text += "\n### " + title + "\n\n| option | value | what it is |\n|---|---|---|\n";
        for (const TicketTable &table : TicketTables()) {
            if (table.title == title) text += SectionRows(table);
        }
    }
    return text + "\n";
}

}  // namespace

TEST(OptionsPage, TheReferenceIsWhatTheTablesSay) {
    ExpectMadePart("options.md", kBegin, kEnd, Reference());
}
