// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/Relay.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <random>

#include "CommonSource/FilterFrame/Source/PipeCapacity.h"
#include "support/TempFolder.h"

namespace {

// Standard output is a pipe while it lives; the document comes through another.
class RelayTest : public testing::Test {
  protected:
    RelayTest() {
        EXPECT_EQ(pipe(input_), 0);
        EXPECT_EQ(pipe(output_), 0);
        for (const int end : {input_[1], output_[1]}) WidenPipe(end);
        fcntl(output_[0], F_SETFL, O_NONBLOCK);
        stdout = fdopen(output_[1], "w");
        std::minstd_rand random(1);
        for (char &byte : document_) byte = static_cast<char>(random() >> 8);
    }
    ~RelayTest() override {
        StartRelay(-1);
        std::fclose(stdout);
        stdout = saved_;
        for (const int end : {input_[0], input_[1], output_[0]}) close(end);
    }

    // Puts `size` bytes of the document into the pipe, from `at` on.
    void Arrive(std::size_t at, std::size_t size) {
        ASSERT_EQ(write(input_[1], document_.data() + at, size), static_cast<ssize_t>(size));
    }

    std::string_view Read(int file) {
        const ssize_t count = RelayRead(file, block_, kReadSize);
        return {block_, count < 0 ? 0 : static_cast<std::size_t>(count)};
    }

    bool HasInput() const {
        pollfd input = {input_[0], POLLIN, 0};
        return poll(&input, 1, 0) == 1;
    }

    std::string Sent() const {
        std::string text(kReadSize, ' ');
        const ssize_t count = read(output_[0], text.data(), text.size());
        return text.substr(0, count < 0 ? 0 : static_cast<std::size_t>(count));
    }

    std::FILE *const saved_ = stdout;
    int input_[2] = {-1, -1}, output_[2] = {-1, -1};
    std::string document_ = std::string(200000, ' ');
    char memory_[kRelayRoom + kReadSize];
    char *const block_ = memory_ + kRelayRoom;
};

TEST_F(RelayTest, HoldsTheDocumentUntilItIsSent) {
    Arrive(0, 100000);
    StartRelay(input_[0]);
    const std::string_view text = Read(input_[0]);
    EXPECT_EQ(text, document_.substr(0, 100000));
    EXPECT_FALSE(HasInput());
    EXPECT_FALSE(RelayKeepsText());
    EXPECT_EQ(KeepForRelay(text.substr(0, 40000)), 40000U);
    EXPECT_EQ(KeepForRelay(text.substr(40000, 60000)), 60000U);
    EXPECT_TRUE(RelayKeepsText());
    EXPECT_EQ(Sent(), "");
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_FALSE(RelayKeepsText());
    EXPECT_EQ(Sent(), text);
}

TEST_F(RelayTest, LeavesOutWhatIsNotOffered) {
    Arrive(0, 100000);
    StartRelay(input_[0]);
    const std::string_view text = Read(input_[0]);
    EXPECT_EQ(KeepForRelay(text.substr(10000, 5000)), 5000U);
    EXPECT_EQ(KeepForRelay(text.substr(20000, 5000)), 0U);  // not before the first has been sent
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(KeepForRelay(text.substr(20000, 5000)), 5000U);
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(Sent(), document_.substr(10000, 5000) + document_.substr(20000, 5000));
    EXPECT_EQ(KeepForRelay(text.substr(20000, 5000)), 0U);  // it is gone
    SkipRelayed();
    Arrive(100000, 50000);
    EXPECT_EQ(Read(input_[0]), document_.substr(100000, 50000));
}

TEST_F(RelayTest, KeepsTheEndOfATextThatBeginsInFrontOfTheBlock) {
    Arrive(0, 100000);
    StartRelay(input_[0]);
    Read(input_[0]);
    EXPECT_EQ(KeepForRelay({block_ - 7, 1007}), 1000U);
    EXPECT_EQ(KeepForRelay({block_ - 7, 7}), 0U);
    EXPECT_EQ(KeepForRelay("elsewhere"), 0U);
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(Sent(), document_.substr(0, 1000));
}

TEST_F(RelayTest, ReadsSmallPiecesAsUsual) {
    Arrive(0, 32767);
    StartRelay(input_[0]);
    EXPECT_EQ(Read(input_[0]), document_.substr(0, 32767));
    EXPECT_EQ(KeepForRelay({block_, 100}), 0U);
    Arrive(0, 32768);
    EXPECT_EQ(Read(input_[0]), document_.substr(0, 32768));
    EXPECT_EQ(KeepForRelay({block_, 100}), 100U);
    EXPECT_EQ(SendRelayed(), "");
    Arrive(0, 10);  // which the room could hold what is left with; but it is not worth it
    EXPECT_EQ(Read(input_[0]), document_.substr(0, 10));
    EXPECT_EQ(KeepForRelay({block_, 10}), 0U);
}

TEST_F(RelayTest, ReadsAsUsualWhatItWasNotStartedFor) {
    Arrive(0, 100000);
    Read(input_[0]);
    EXPECT_FALSE(HasInput());
    EXPECT_EQ(KeepForRelay({block_, 100}), 0U);
    StartRelay(-1);
    EXPECT_EQ(RelayRead(-1, block_, 100), -1);
}

TEST_F(RelayTest, ReturnsWhatStandardOutputDoesNotTake) {
    signal(SIGPIPE, SIG_IGN);
    Arrive(0, 100000);
    StartRelay(input_[0]);
    const std::string_view text = Read(input_[0]);
    EXPECT_EQ(KeepForRelay(text), text.size());
    close(output_[0]);  // the printer goes away
    output_[0] = -1;
    const std::string_view rest = SendRelayed();
    EXPECT_EQ(rest.data(), text.data());
    EXPECT_EQ(rest.size(), text.size());
    EXPECT_FALSE(RelayKeepsText());
    SkipRelayed();
    Arrive(100000, 50000);
    EXPECT_EQ(Read(input_[0]), document_.substr(100000, 50000));
    EXPECT_FALSE(HasInput());  // read as usual from now on
    EXPECT_EQ(KeepForRelay({block_, 100}), 0U);
}

TEST_F(RelayTest, RelaysWhatIsLeftWithTheNextBlock) {
    Arrive(0, 100000);
    StartRelay(input_[0]);
    EXPECT_EQ(KeepForRelay(Read(input_[0]).substr(0, 100000 - kRelayRoom)), 100000 - kRelayRoom);
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(Sent().size(), 100000 - kRelayRoom);
    SkipRelayed();
    std::fill(memory_, block_, '-');
    Arrive(100000, 50000);
    EXPECT_EQ(Read(input_[0]), document_.substr(100000, 50000));
    const std::string_view both(memory_, kRelayRoom + 50000);
    EXPECT_EQ(both, document_.substr(100000 - kRelayRoom, both.size()));
    EXPECT_EQ(KeepForRelay(both.substr(0, both.size() - kRelayRoom - 1)), 50000U - 1);
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(Sent(), document_.substr(100000 - kRelayRoom, 50000 - 1));
    SkipRelayed();  // one byte more than there is room for
    Arrive(150000, 50000);
    EXPECT_EQ(Read(input_[0]), document_.substr(150000, 50000));
    EXPECT_EQ(KeepForRelay({block_ - 100, 300}), 200U);
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(Sent(), document_.substr(150000, 200));
}

// A pipe has a number of places, each for a page of memory or for as little as one byte.
TEST_F(RelayTest, ReadsAsUsualWhenItHoldsTooManyPieces) {
    constexpr std::size_t kPlaces = kPipeCapacity / 4096;
    int bytes[2];
    ASSERT_EQ(pipe(bytes), 0);
    ASSERT_EQ(write(bytes[1], "0123456789", 10), 10);
    const auto arriveSingly = [&](std::size_t count) {
        for (std::size_t i = 0; i < count; i++) ASSERT_EQ(tee(bytes[0], input_[1], 1, 0), 1);
    };
    StartRelay(input_[0]);
    Arrive(0, 32768);
    arriveSingly(kPlaces - 8);
    ASSERT_EQ(Read(input_[0]).size(), 32768 + kPlaces - 8);
    EXPECT_EQ(KeepForRelay({block_, 32768}), 32768U);
    EXPECT_EQ(SendRelayed(), "");
    SkipRelayed();
    arriveSingly(8);
    Arrive(0, 32768);
    ASSERT_EQ(Read(input_[0]), "00000000");
    SkipRelayed();
    ASSERT_EQ(Read(input_[0]), document_.substr(0, 32768));
    EXPECT_EQ(KeepForRelay({block_ - 8, 1008}), 0U);
    Arrive(0, 32768);
    ASSERT_EQ(Read(input_[0]), document_.substr(0, 32768));
    EXPECT_EQ(KeepForRelay({block_ - 8, 1008}), 1000U);  // as before
    EXPECT_EQ(SendRelayed(), "");
    for (const int end : bytes) close(end);
}

TEST_F(RelayTest, RelaysAFileFromItsPlaceOn) {
    const TempFolder folder;
    const int file = open(folder.Write("document", document_).c_str(), O_RDONLY);
    ASSERT_EQ(lseek(file, 100, SEEK_SET), 100);
    StartRelay(file);
    EXPECT_EQ(RelayRead(file, block_, 50000), 50000);
    EXPECT_EQ(KeepForRelay({block_ + 10, 49000}), 49000U);
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(Sent(), document_.substr(110, 49000));
    SkipRelayed();
    // The last 990 bytes stand in front of the next block and can still be relayed.
    EXPECT_EQ(RelayRead(file, block_, 50000), 50000);
    EXPECT_EQ(KeepForRelay({block_ - 990, 2000}), 2000U);
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(Sent(), document_.substr(49110, 2000));
    SkipRelayed();  // too much to stand there
    EXPECT_EQ(RelayRead(file, block_, 50000), 50000);
    EXPECT_EQ(KeepForRelay({block_ - 990, 2000}), 1010U);
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(Sent(), document_.substr(100100, 1010));
    EXPECT_EQ(lseek(file, 0, SEEK_CUR), 150100);
    close(file);
}

// What an int does not count.
TEST_F(RelayTest, RelaysAFileOfThreeGigabytes) {
    const TempFolder folder;
    const int file = open(folder.Write("document", "").c_str(), O_RDWR);
    ASSERT_EQ(ftruncate(file, off_t{3} << 30), 0);
    StartRelay(file);
    EXPECT_EQ(Read(file), std::string(kReadSize, '\0'));
    EXPECT_EQ(KeepForRelay({block_, 1000}), 1000U);
    EXPECT_EQ(SendRelayed(), "");
    EXPECT_EQ(Sent(), std::string(1000, '\0'));
    close(file);
}

TEST_F(RelayTest, RelaysNothingToAFile) {
    const TempFolder folder;
    std::FILE *const pipe = stdout;
    stdout = std::fopen((folder.Path() / "output").c_str(), "w");
    Arrive(0, 100000);
    StartRelay(input_[0]);
    EXPECT_EQ(Read(input_[0]).size(), 100000U);
    EXPECT_FALSE(HasInput());
    EXPECT_EQ(KeepForRelay({block_, 100}), 0U);
    std::fclose(stdout);
    stdout = pipe;
}

}  // namespace
