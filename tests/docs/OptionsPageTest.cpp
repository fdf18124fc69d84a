// SPDX-License-Identifier: Apache-2.0
//
// docs/options.md names every option that a module reads, and no other of the printer's own.
#include <gtest/gtest.h>

#include <fstream>
#include <regex>
#include <set>
#include <span>
#include <sstream>
#include <string>

#include "CommonSource/FilterFrame/Source/JobTicket.h"
#include "Modules/Comment/CommentTicket.h"
#include "Modules/Features/FeaturesTicket.h"
#include "Modules/JBA/JBATicket.h"
#include "Modules/PBind/PBindTicket.h"
#include "Modules/PrintType/PrintTypeTicket.h"
#include "Modules/SpecialPage/SpecialPageTicket.h"
#include "Modules/Watermark/WatermarkTicket.h"

namespace {

// As the page writes an option: the printer's own without what they all begin with, in italics,
// and the elements of a rectangle as one.
std::string OnPage(std::string key) {
    const std::string own = KV_TICKET;
    if (key.starts_with(own)) return "*`" + key.substr(own.size()) + "`*";
    return "`" + std::regex_replace(key, std::regex("\\.\\.a\\.[0-3]\\."), "..a.N.") + "`";
}

std::set<std::string> OptionsRead() {
    const std::span<const ticketData> tables[] = {
        {PrintTypeticketData, PrintTypeTicketDataNum},
        {JBAticketDataCommon, JBATicketDataNumCommon},
        {JBAticketDataAdmin, JBATicketDataNumAdmin},
        {FeaturesticketData, FeaturesTicketDataNum},
        {WatermarkticketData, WatermarkTicketDataNum},
        {PBindticketData, PBindTicketDataNum},
        {CommentticketData, CommentTicketDataNum},
        {SpecialPageTicketData, SpecialPageTicketDataNum},
    };
    std::set<std::string> options;
    for (const auto &table : tables) {
        for (const ticketData &row : table) options.insert(OnPage(row.key));
    }
    for (const char *key : {kSPKPCoverValueKey, kSPKPInsertionValueKey, kSPKPExceptionValueKey}) {
        options.insert(OnPage(key));
    }
    options.insert("*`PrintTypeProductTypeTicketKey`*");
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
