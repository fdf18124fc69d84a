// SPDX-License-Identifier: Apache-2.0
//
// A locale that writes 12,5 for twelve and a half, made for a test: few machines have one.
#pragma once

#include <gtest/gtest.h>

#include <bit>
#include <clocale>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "support/TempFolder.h"

class GermanLocale {
  public:
    GermanLocale() {
        const std::string path = folder_.Path() / "de_DE.UTF-8";
        // In the byte order of the test, which an emulator may run.
        const std::string order = std::endian::native == std::endian::big ? " --big-endian" : "";
        const std::string command =
            "localedef -i de_DE -f UTF-8" + order + " '" + path + "' > /dev/null 2>&1";
        EXPECT_EQ(std::system(command.c_str()), 0) << command;
        EXPECT_TRUE(HasComma());
    }

    // What a process needs in its environment to be in this locale.
    std::vector<std::pair<std::string, std::string>> Environment() const {
        return {{"LOCPATH", folder_.Path().string()}, {"LC_ALL", "de_DE.UTF-8"}, {"LANG", ""}};
    }

  private:
    // Whether a process that asks for the locale gets it.
    bool HasComma() const {
        const std::string former = std::setlocale(LC_ALL, nullptr);
        setenv("LOCPATH", folder_.Path().c_str(), 1);
        const bool has = std::setlocale(LC_ALL, "de_DE.UTF-8") &&
                         std::string(std::localeconv()->decimal_point) == ",";
        std::setlocale(LC_ALL, former.c_str());
        unsetenv("LOCPATH");
        return has;
    }

    const TempFolder folder_;
};
