// SPDX-License-Identifier: Apache-2.0
//
// The scheduler's own filter in front of this one, which puts several pages on a sheet.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

#include "support/Ppd.h"
#include "support/TempFolder.h"

// The line that it ends its set-up of a sheet of several pages with.
inline constexpr char kSeveralPagesLine[] = "userdict/setpagedevice{pop}bind put\n";

// What it makes of a document with `options` ("number-up=2") on a queue with the PPD `ppd`, a text.
inline std::string ThroughPsToPs(const std::string &document, const std::string &options,
                                 const std::string &ppd = PpdWith()) {
    const TempFolder folder;
    folder.Write("in.ps", document);
    folder.Write("queue.ppd", ppd);
    const std::string command = "cd '" + folder.Path().string() +
                                "' && PPD=queue.ppd \"$(cups-config --serverbin)/filter/pstops\" "
                                "17 alice Report 1 '" +
                                options + "' <in.ps >out.ps 2>messages";
    EXPECT_EQ(std::system(command.c_str()), 0) << folder.Read("messages");
    return folder.Read("out.ps");
}
