// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PostScriptLines.h"

#include <gtest/gtest.h>

#include <string>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/ModuleDispatcher.h"
#include "support/CaptureOutput.h"

namespace {

struct Put {
    bool goesOn;
    std::string output, log;
};

// Puts a line that ends with a line feed, as a pass would in a job without options.
Put PutLine(const std::string &line, DocumentState &state) {
    std::string words[] = {"kvfilter", "1", "user", "title", "3", ""};
    char *argv[7] = {};
    for (int i = 0; i < 6; i++) argv[i] = words[i].data();
    GetTicketFromPDE(argv);
    Put put{};
    testing::internal::CaptureStderr();
    put.output = CaptureOutput([&] {
        put.goesOn = PutSpecialLine(*FindSpecialLine(line), line + "\n", state, argv, stdout);
    });
    put.log = testing::internal::GetCapturedStderr();
    return put;
}

TEST(PostScriptLines, CountPagesAtEpAndEndpOnly) {
    DocumentState state;
    for (const SpecialLine &special : specialLines) {
        const bool ends = special.text == "ep" || special.text == "endp";
        const int before = state.pageCounter;
        const Put put = PutLine(std::string(special.text), state);
        EXPECT_TRUE(put.goesOn);
        EXPECT_EQ(put.output, std::string(special.text) + "\n");
        EXPECT_EQ(put.log, special.text == "ep" ? "PAGE:1 3\n" : "");
        EXPECT_EQ(state.pageCounter, before + ends) << special.text;
    }
    EXPECT_EQ(state.pageCounter, 2);
}

TEST(PostScriptLines, EndACancelledJobInFrontOfAPageEnd) {
    for (const SpecialLine &special : specialLines) {
        const bool stops =
            special.text == "ep" || special.text == "endp" || special.text == "showpage";
        DocumentState state;
        CancelJob = 1;
        const Put put = PutLine(std::string(special.text), state);
        CancelJob = 0;
        EXPECT_EQ(put.goesOn, !stops) << special.text;
        EXPECT_EQ(put.output, stops ? "" : std::string(special.text) + "\n");
        EXPECT_EQ(put.log, "");
    }
}

}  // namespace
