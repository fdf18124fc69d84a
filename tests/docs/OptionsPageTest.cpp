// SPDX-License-Identifier: Apache-2.0
//
// docs/options.md names every option that a module reads, and no other of the printer's own.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"

namespace {

// As the page writes an option: the printer's own without what they all begin with, in italics,
// and the elements of a rectangle as one.
std::string OnPage(std::string key) {
    const std::string own = KV_TICKET;
    if (key.starts_with(own)) return "*`" + key.substr(own.size()) + "`*";
    return "`" + std::regex_replace(key, std::regex("\\.\\.a\\.[0-3]\\."), "..a.N.") + "`";
}

std::set<std::string> OptionsRead() {
    std::set<std::string> options;
    for (const TicketTable &table : TicketTables()) {
        for (const ticketData &row : table.rows) options.insert(OnPage(row.key));
    }
    return options;
}

std::string Page() {
    std::ostringstream text;
    text << std::ifstream(KVFILTER_SOURCE_DIR "/docs/options.md").rdbuf();
    return text.str();
}

}  // namespace

TEST(OptionsPage, NamesEveryOptionThatIsRead) {
    const std::string page = Page();
    for (const std::string &option : OptionsRead()) {
        EXPECT_NE(page.find(option), std::string::npos) << option;
    }
}

TEST(OptionsPage, NamesNoOptionOfThePrintersOwnThatIsNotRead) {
    const std::string page = Page();
    const std::set<std::string> options = OptionsRead();
    const std::regex named("\\*`[^`]+`\\*|`KV[A-Za-z]+`");
    for (std::sregex_iterator match(page.begin(), page.end(), named), end; match != end; ++match) {
        EXPECT_TRUE(options.contains(match->str())) << match->str();
    }
}
