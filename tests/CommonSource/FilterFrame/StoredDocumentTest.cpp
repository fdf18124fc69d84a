// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/StoredDocument.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

#include "CommonSource/FilterFrame/Source/JobBuffers.h"
#include "CommonSource/FilterFrame/Source/OutputWriter.h"
#include "FrontEnd/Cancel.h"
#include "FrontEnd/FrontEnd.h"
#include "support/CaptureOutput.h"
#include "support/TempFolder.h"

namespace {

constexpr int kRoom = 8192;  // of the list

// The pages at which the ends stand that are kept of `count`.
std::vector<int> Kept(int count) {
    PageEnds ends;
    for (int page = 1; page <= count; page++) ends.Add({off_t{10} * page, page, 1});
    std::vector<int> pages;
    for (const PageEnd &end : ends) {
        EXPECT_EQ(end.offset, off_t{10} * end.pages);
        pages.push_back(end.pages);
    }
    return pages;
}

TEST(PageEnds, AreAllKeptAsLongAsThereIsRoom) {
    const std::vector<int> pages = Kept(kRoom);
    ASSERT_EQ(pages.size(), std::size_t{kRoom});
    for (int i = 0; i < kRoom; i++) EXPECT_EQ(pages[static_cast<std::size_t>(i)], i + 1);
}

TEST(PageEnds, AreKeptAtEqualDistancesWhereThereIsNot) {
    const struct {
        int count, distance;
    } kLists[] = {{kRoom + 1, 2},     {2 * kRoom, 2},     {2 * kRoom + 1, 2}, {2 * kRoom + 2, 4},
                  {4 * kRoom + 3, 4}, {4 * kRoom + 4, 8}, {100 * kRoom, 128}};
    for (const auto &[count, distance] : kLists) {
        const std::vector<int> pages = Kept(count);
        ASSERT_EQ(pages.size(), static_cast<std::size_t>(count / distance)) << count;
        for (std::size_t i = 0; i < pages.size(); i++) {
            ASSERT_EQ(pages[i], static_cast<int>(i + 1) * distance) << count;
        }
    }
}

TEST(PageEnds, LeaveOutAPlaceThatIsNotKnown) {
    PageEnds ends;
    ends.Add({-1, 1, 1});
    EXPECT_EQ(ends.begin(), ends.end());
}

class SendStoredTest : public testing::Test {
  protected:
    SendStoredTest() {
        for (char &byte : document_)
            byte = static_cast<char>('a' + (&byte - document_.data()) % 23);
        file_ = open(folder_.Write("stored", document_).c_str(), O_RDONLY);
    }
    ~SendStoredTest() override { close(file_); }

    // What reaches a file that was opened with `flags`, behind a text that is still in the stream.
    std::string SentToAFile(int flags, off_t from, off_t to) {
        const std::string path = folder_.Write("output", "");
        std::FILE *const saved = stdout;
        stdout = fdopen(open(path.c_str(), O_WRONLY | flags), "w");
        std::fputs("before ", stdout);
        errno =
            EINTR;  // as an earlier call may have left it: the end of the file is no interruption
        EXPECT_EQ(SendStored(file_, from, to), 0);
        std::fclose(stdout);
        stdout = saved;
        return folder_.Read("output");
    }

    TempFolder folder_;
    std::string document_ = std::string(300001, ' ');
    int file_;
};

TEST_F(SendStoredTest, SendsWhatItIsAskedFor) {
    EXPECT_EQ(SentToAFile(0, 7, 200007), "before " + document_.substr(7, 200000));
    EXPECT_EQ(SentToAFile(0, 300000, 400000), "before " + document_.substr(300000))
        << "the document ends before";
    EXPECT_EQ(SentToAFile(0, 7, 7), "before ");
}

// Nothing is sent within the kernel to a file that is appended to, nor to memory.
TEST_F(SendStoredTest, CopiesWhereTheSystemRefuses) {
    EXPECT_EQ(SentToAFile(O_APPEND, 7, 200007), "before " + document_.substr(7, 200000));
    EXPECT_EQ(CaptureOutput([this] { SendStored(file_, 7, 200007); }), document_.substr(7, 200000));
}

TEST_F(SendStoredTest, LeavesTheJobCopyAlone) {
    gJobFilefp = std::fopen((folder_.Path() / "copy").c_str(), "w");
    EXPECT_EQ(CaptureOutput([this] { SendStored(file_, 0, 1000); }), document_.substr(0, 1000));
    std::fclose(gJobFilefp);
    gJobFilefp = nullptr;
    EXPECT_EQ(folder_.Read("copy"), "");
}

TEST_F(SendStoredTest, TellsWhyItCannotRead) {
    const int file = open((folder_.Path() / "stored").c_str(), O_WRONLY);
    EXPECT_EQ(CaptureOutput([file] { EXPECT_EQ(SendStored(file, 0, 1000), EBADF); }), "");
    close(file);
}

TEST_F(SendStoredTest, EndsWhenACancelledJobIsOverdue) {
    char options[] = "KVFrontEnd=CUPS";
    FindFrontEnd(options);
    const auto grace = cancelGrace;
    cancelGrace = std::chrono::milliseconds(0);
    CancelJob = 1;
    EXPECT_EQ(CaptureOutput([this] { EXPECT_EQ(SendStored(file_, 0, 1000), ECANCELED); }), "");
    CancelJob = 0;
    EXPECT_FALSE(CancelIsOverdue());
    cancelGrace = grace;
}

}  // namespace
