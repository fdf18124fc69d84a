// SPDX-License-Identifier: Apache-2.0
//
// What others may learn of a job while it runs and afterwards: no name and no password, in no
// message, file name or file.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>

#include "support/DecompositionJob.h"
#include "support/FilterProcess.h"
#include "support/TicketOption.h"

namespace {

constexpr char kUser[] = "whistleblower", kTitle[] = "Dismissals", kPassword[] = "4711";
const std::string kLongKeys = TicketOption("PrintTypeTicketKey", "2") +
                              TicketOption("PrintTypeProductTypeTicketKey", "3") +
                              TicketOption("PrintTypeUserNameTicketKey", kUser) +
                              TicketOption("PrintTypePasswordTicketKey", kPassword);
const std::string kShortOptions =
    "KVPrintMode=Secure KVOwner=" + std::string(kUser) + " KVPassword=" + kPassword;

void ExpectNothingOfTheJobIn(const std::string &text) {
    for (const char *secret : {kUser, kTitle, kPassword}) {
        EXPECT_EQ(text.find(secret), text.npos) << text;
    }
}

// Runs the job as far as its first page, looks at its files, and lets it end.
void ExpectPrivacy(const std::string &lines, const std::string &options, bool leavesAFile) {
    const TempFolder folder, files;
    const std::string ppd = folder.Write("queue.ppd", PpdWith("*KVPSDecompMode: \"1\"\n" + lines));
    setenv("TMPDIR", files.Path().c_str(), 1);
    FilterProcess filter({"17", kUser, kTitle, "1", options}, FilterProcess::kPipe, ppd);
    unsetenv("TMPDIR");
    filter.Write("%!PS\n(secret) show\nep\n");
    usleep(300'000);  // the job is at its document
    const auto found = Files(files);
    EXPECT_EQ(found.size(), leavesAFile ? 1U : 0U);
    for (const auto &path : found) {
        ExpectNothingOfTheJobIn(path.filename());
        struct stat status;
        ASSERT_EQ(stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0600U);
    }
    filter.Write("\x04");
    filter.CloseInput();
    const std::string output = filter.ReadToEnd();
    ExpectNothingOfTheJobIn(filter.ReadErrorsToEnd());
    EXPECT_EQ(filter.Wait(), 0);
    EXPECT_NE(output.find("(secret) show"), output.npos);
    EXPECT_NE(output.find(kUser), output.npos) << "the printer is told";
    EXPECT_NE(output.find(kPassword), output.npos);
    EXPECT_TRUE(Files(files).empty());
}

TEST(Privacy, OfAJobFromTheDialog) {
    ExpectPrivacy("", kLongKeys, true);
}

TEST(Privacy, OfAJobOfPlainCUPS) {
    ExpectPrivacy("*KVFrontEnd: \"CUPS\"\n", kShortOptions, false);
}

}  // namespace
