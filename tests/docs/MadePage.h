// SPDX-License-Identifier: Apache-2.0
//
// Pages of docs/ of which a part is made from tables.
#pragma once

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>
#include <string>

// Expects `made` in the page docs/`name` between the lines `begin` and `end`. Else leaves the page
// as it should be in the build folder.
inline void ExpectMadePart(const std::string &name, const std::string &begin,
                           const std::string &end, const std::string &made) {
    const std::string path = KVFILTER_SOURCE_DIR "/docs/" + name;
    const std::string newPath = KVFILTER_PPD_DIR "/../" + name;
    std::ostringstream text;
    text << std::ifstream(path).rdbuf();
    const std::string page = text.str();
    const std::size_t start = page.find(begin);
    const std::size_t stop = page.find(end);
    ASSERT_NE(start, std::string::npos);
    ASSERT_NE(stop, std::string::npos);
    const std::string before = page.substr(0, start + begin.size());
    if (page.substr(before.size(), stop - before.size()) == made) return;
    std::ofstream(newPath) << before << made << page.substr(stop);
    ADD_FAILURE() << "A table has changed. Take over what it says now:\ncp " << newPath << " "
                  << path;
}
