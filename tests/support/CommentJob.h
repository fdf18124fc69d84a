// SPDX-License-Identifier: Apache-2.0
//
// A job as the writers of the Comment folder see it: their record, and the PPD of the queue.
#pragma once

#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "CommonSource/FilterFrame/Source/BoundedText.h"
#include "CommonSource/FilterFrame/Source/JobPPD.h"
#include "Modules/Comment/CommentTicket.h"
#include "support/Ppd.h"
#include "support/TempFolder.h"

// A PPD whose own feature code may decide the colour mode.
inline std::string PpdWithColorOption() {
    return PpdWith(
        "*OpenUI *KVColorMode/Color Mode: PickOne\n"
        "*DefaultKVColorMode: Auto\n"
        "*KVColorMode Auto/Auto: \"\"\n"
        "*KVColorMode Gray/Grey: \"\"\n"
        "*CloseUI: *KVColorMode\n");
}

// "@PJL COMMENT KVJOBINFO " and `text`, as a line.
inline std::string Info(const std::string &text) {
    return "@PJL COMMENT KVJOBINFO " + text + "\n";
}

// Each test starts with an empty record and without a PPD.
class CommentJob : public testing::Test {
  protected:
    CommentJob() {
        job = {};
        UsePpd("");
    }
    ~CommentJob() override { UsePpd(""); }

    // Makes a PPD of this text the job's; an empty one is no PPD at all.
    void UsePpd(const std::string &text) {
        CloseJobPPD();
        unsetenv("PPD");
        if (!text.empty()) setenv("PPD", folder_.Write("queue.ppd", text).c_str(), 1);
    }

    static void Set(CommentText &field, const std::string &text) {
        CopyBounded(field, text.c_str());
    }

    // Fills the record from an option string.
    static void ReadTicket(std::string options) {
        char *argv[] = {nullptr, nullptr, nullptr, nullptr, nullptr, options.data(), nullptr};
        ASSERT_EQ(CommentGetTicketFromPDE(argv), 1);
    }

    CommentOptions &job = psoptioncomment;

  private:
    TempFolder folder_;
};

// What `writer` returns when the printer takes nothing.
inline int ResultOfFailedWrite(int (*writer)()) {
    std::FILE *saved = stdout;
    stdout = std::fopen("/dev/full", "w");
    std::setvbuf(stdout, nullptr, _IONBF, 0);
    const int result = writer();
    std::fclose(stdout);
    stdout = saved;
    return result;
}
