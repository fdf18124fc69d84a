// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/OutputWriter.h"

#include <gtest/gtest.h>

#include <string>

#include "CommonSource/FilterFrame/Source/SystemVersion.h"

namespace {

// A stream in memory that counts the writes that reach it.
struct CountingStream {
    std::string text;
    int writes = 0;
    std::FILE *stream;

    CountingStream() {
        stream = fopencookie(this, "w",
                             {nullptr,
                              [](void *self, const char *data, std::size_t size) {
                                  auto *counting = static_cast<CountingStream *>(self);
                                  counting->text.append(data, size);
                                  counting->writes++;
                                  return static_cast<ssize_t>(size);
                              },
                              nullptr, nullptr});
        setvbuf(stream, nullptr, _IONBF, 0);
    }
    ~CountingStream() { std::fclose(stream); }
};

TEST(OutputWriter, WritesOnceWithoutAJobCopy) {
    CountingStream out;
    EXPECT_EQ(KVfwrite("abcdef", 2, 3, out.stream), 3U);
    EXPECT_EQ(out.writes, 1);
    EXPECT_GE(KVfputs("text\n", out.stream), 0);
    EXPECT_EQ(out.writes, 2);
    EXPECT_EQ(KVfputc('c', out.stream), 'c');
    EXPECT_EQ(out.writes, 3);
    EXPECT_EQ(KVfprintf(out.stream, "line\n"), 5);
    EXPECT_EQ(out.writes, 4);
    EXPECT_EQ(out.text, "abcdeftext\ncline\n");
}

TEST(OutputWriter, WritesTheSameBytesToTheJobCopy) {
    CountingStream out, copy;
    gJobFilefp = copy.stream;
    KVfwrite("a\0b", 1, 3, out.stream);
    KVfputs("text\n", out.stream);
    KVfputc(4, out.stream);
    KVfprintf(out.stream, "50%%\n");
    gJobFilefp = nullptr;
    KVfputs("not copied", out.stream);
    using namespace std::string_literals;
    EXPECT_EQ(copy.text, "a\0btext\n\x04"s + "50%\n");
    EXPECT_EQ(out.text, copy.text + "not copied");
}

TEST(OutputWriter, FailuresOfTheCopyAreIgnored) {
    CountingStream out;
    gJobFilefp = std::fopen("/dev/null", "r");  // cannot be written
    EXPECT_EQ(KVfwrite("abc", 1, 3, out.stream), 3U);
    EXPECT_GE(KVfputs("text", out.stream), 0);
    EXPECT_EQ(KVfputc('c', out.stream), 'c');
    EXPECT_EQ(KVfprintf(out.stream, "line"), 4);
    std::fclose(gJobFilefp);
    gJobFilefp = nullptr;
    EXPECT_EQ(out.text, "abctextcline");
}

TEST(OutputWriter, ReturnsWhatTheDestinationReturns) {
    std::FILE *full = std::fopen("/dev/full", "w");
    setvbuf(full, nullptr, _IONBF, 0);
    EXPECT_EQ(KVfwrite("abc", 1, 3, full), 0U);
    EXPECT_EQ(KVfputs("abc", full), EOF);
    EXPECT_EQ(KVfputc('a', full), EOF);
    EXPECT_LT(KVfprintf(full, "abc"), 0);
    std::fclose(full);
}

TEST(OutputWriter, StopsAtAFailedWriteWhereAsked) {
    std::FILE *full = std::fopen("/dev/full", "w");
    setvbuf(full, nullptr, _IONBF, 0);
    CountingStream copy;
    EXPECT_EQ(KVfputs("a", full), EOF);
    gJobFilefp = copy.stream;
    stopsAtFailedWrite = true;
    EXPECT_EQ(KVfwrite("b", 1, 1, full), 0U);
    EXPECT_EQ(WriteUncopied("b", 1, full), 0U);
    EXPECT_EQ(KVfputs("b", full), EOF);
    EXPECT_EQ(KVfputc('b', full), EOF);
    EXPECT_EQ(KVfprintf(full, "b"), EOF);
    EXPECT_EQ(KVfflush(full), EOF);
    stopsAtFailedWrite = false;
    EXPECT_EQ(copy.text, "") << "the copy ends where the job does";
    EXPECT_EQ(KVfwrite("c", 1, 1, full), 0U);
    EXPECT_EQ(copy.text, "c");
    gJobFilefp = nullptr;
    writeError = 0;
    std::fclose(full);
}

// What writeError and jobCopyError are after `write` on a full disk and on one with room.
template <class Write>
void ExpectTheFirstCauseIsKept(Write write) {
    writeError = jobCopyError = 0;
    std::FILE *full = std::fopen("/dev/full", "wb"), *room = std::fopen("/dev/null", "wb");
    std::setvbuf(full, nullptr, _IONBF, 0);
    write(room);
    EXPECT_EQ(writeError, 0);
    write(full);
    EXPECT_EQ(writeError, ENOSPC);
    writeError = EIO;
    write(full);
    EXPECT_EQ(writeError, EIO) << "the first one";

    writeError = 0;
    gJobFilefp = full;
    write(room);
    EXPECT_EQ(writeError, 0);
    EXPECT_EQ(jobCopyError, ENOSPC);
    gJobFilefp = nullptr;
    std::fclose(full);
    std::fclose(room);
    writeError = jobCopyError = 0;
}

TEST(OutputWriter, RemembersWhyTheFirstWriteFailed) {
    ExpectTheFirstCauseIsKept([](std::FILE *stream) { KVfwrite("text", 1, 4, stream); });
    ExpectTheFirstCauseIsKept([](std::FILE *stream) { KVfputs("text", stream); });
    ExpectTheFirstCauseIsKept([](std::FILE *stream) { KVfputc('t', stream); });
    ExpectTheFirstCauseIsKept([](std::FILE *stream) { KVfprintf(stream, "text"); });
}

TEST(OutputWriter, FlushesAndRemembersThatToo) {
    std::FILE *full = std::fopen("/dev/full", "wb");
    KVfputs("text", full);
    EXPECT_EQ(writeError, 0) << "buffered";
    EXPECT_EQ(KVfflush(full), EOF);
    EXPECT_EQ(writeError, ENOSPC);
    std::fclose(full);
    writeError = 0;
}

TEST(OutputWriter, NothingToWriteIsNoFailure) {
    CountingStream out;
    EXPECT_EQ(KVfputc(0, out.stream), 0);
    EXPECT_GE(KVfputs("", out.stream), 0);
    EXPECT_EQ(KVfprintf(out.stream, ""), 0);
    EXPECT_EQ(KVfwrite("", 1, 0, out.stream), 0U);
    EXPECT_EQ(writeError, 0);
}

TEST(OutputWriter, FormatsWithoutArguments) {
    const std::pair<const char *, const char *> cases[] = {
        {"", ""},
        {"%%", "%"},
        {"%%%%BeginNonPPDFeatures\n", "%%BeginNonPPDFeatures\n"},
        {"%%%", "%%"},
        {"100%", "100%"},
        {"%n%s%d%999999999d%c", "%n%s%d%999999999d%c"},
        {"a%%b%c%%", "a%b%c%"},
    };
    for (const auto &[text, expected] : cases) {
        CountingStream out;
        EXPECT_EQ(KVfprintf(out.stream, text), static_cast<int>(std::string(expected).size()));
        EXPECT_EQ(out.text, expected);
    }
}

// The page log of a system with the given version word.
std::string PageLog(std::uint32_t version) {
    std::string words[] = {"kvfilter", "1", "user", "title", "3", ""};
    char *argv[7] = {};
    for (int i = 0; i < 6; i++) argv[i] = words[i].data();
    osVersion = version;
    CountingStream copy;
    gJobFilefp = copy.stream;
    testing::internal::CaptureStderr();
    OutputPageLogCommand(12, argv);
    gJobFilefp = nullptr;
    EXPECT_EQ(copy.text, "");
    return testing::internal::GetCapturedStderr();
}

TEST(OutputWriter, LogsPagesFromVersion1070On) {
    EXPECT_EQ(PageLog(0x1070), "PAGE:12 3\n");
    EXPECT_EQ(PageLog(0x10F4), "PAGE:12 3\n");
    EXPECT_EQ(PageLog(0x106F), "");
    EXPECT_EQ(PageLog(0x1000), "");
    EXPECT_EQ(PageLog(VersionFromKernelRelease("10.8.0")), "");
    EXPECT_EQ(PageLog(VersionFromKernelRelease("11.0.0")), "PAGE:12 3\n");
}

}  // namespace
