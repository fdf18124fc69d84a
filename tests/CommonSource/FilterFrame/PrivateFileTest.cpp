// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PrivateFile.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include "support/Matches.h"
#include "support/TempFolder.h"

namespace {

bool clockIsMad = false;

}  // namespace

// In the place of the C library's.
extern "C" std::time_t time(std::time_t *result) noexcept {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    const std::time_t seconds = clockIsMad ? std::time_t{1} << 60 : now.tv_sec;
    if (result) *result = seconds;
    return seconds;
}

namespace {

constexpr char kFormat[] = "/private/tmp/kv%s.job";

class PrivateFileTest : public testing::Test {
  protected:
    void SetUp() override {
        if (access("/private/tmp", W_OK) == 0) {
            GTEST_SKIP() << "/private/tmp takes the place of $TMPDIR here";
        }
        setenv("TMPDIR", folder_.Path().c_str(), 1);
    }

    void TearDown() override { unsetenv("TMPDIR"); }

    // Names of the files made, in the test's folder.
    std::vector<std::string> Files() const {
        std::vector<std::string> names;
        for (const auto &entry : std::filesystem::directory_iterator(folder_.Path())) {
            names.push_back(entry.path().filename());
        }
        return names;
    }

    TempFolder folder_;
    char path_[kPrivatePathSize];
};

TEST_F(PrivateFileTest, AFormatThatIsNoneMakesNoFile) {
    for (const char *format : {"/private/tmp/kv.job", "/tmp/kv%s.job", "kv%s.job", ""}) {
        errno = 0;
        EXPECT_EQ(CreatePrivateFile(format, path_), nullptr) << format;
        EXPECT_EQ(errno, EINVAL) << format;
    }
    EXPECT_TRUE(Files().empty());
}

TEST_F(PrivateFileTest, IsNamedAfterTheTimeAndPrivate) {
    std::FILE *file = CreatePrivateFile(kFormat, path_);
    ASSERT_NE(file, nullptr);
    std::fputs("text", file);
    std::fclose(file);
    EXPECT_TRUE(Matches(path_, folder_.Path().string() + "/kv\\d{14}\\.job"));
    struct stat status;
    ASSERT_EQ(stat(path_, &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
    EXPECT_EQ(status.st_size, 4);
}

TEST_F(PrivateFileTest, TakesTheProcessIdWhenTheNameIsTaken) {
    // Two files in one second: the third try must be in the second of one of the first two, or
    // make a name of its own.
    std::FILE *first = CreatePrivateFile(kFormat, path_);
    const std::string firstPath = path_;
    std::FILE *second = CreatePrivateFile(kFormat, path_);
    const std::string secondPath = path_;
    ASSERT_NE(first, nullptr);
    ASSERT_NE(second, nullptr);
    EXPECT_NE(firstPath, secondPath);
    const std::string pid = std::to_string(getpid());
    EXPECT_TRUE(Matches(secondPath, folder_.Path().string() + "/kv\\d{14}(-" + pid + ")?\\.job"));
    if (firstPath.substr(0, firstPath.size() - 4) == secondPath.substr(0, firstPath.size() - 4)) {
        EXPECT_EQ(secondPath, firstPath.substr(0, firstPath.size() - 4) + "-" + pid + ".job");
    }
    std::fclose(first);
    std::fclose(second);
    EXPECT_EQ(Files().size(), 2U);
}

// Makes `at` for every name that may come up in the next seconds, with and without the process id.
template <class Make>
void PlantAround(const std::filesystem::path &folder, Make make) {
    const std::time_t now = std::time(nullptr);
    for (std::time_t time = now; time < now + 30; time++) {
        char name[64];
        std::strftime(name, sizeof name, "kv%Y%m%d%H%M%S", std::localtime(&time));
        make(folder / (std::string(name) + ".job"));
        make(folder / (std::string(name) + "-" + std::to_string(getpid()) + ".job"));
    }
}

// A name that nobody could foretell.
bool IsRandomName(const std::string &path, const TempFolder &folder) {
    return Matches(path, folder.Path().string() + "/kv\\d{14}-[A-Za-z0-9]{6}\\.job");
}

TEST_F(PrivateFileTest, OverwritesNothing) {
    PlantAround(folder_.Path(), [](const auto &path) { std::ofstream(path) << "mine"; });
    const std::vector<std::string> planted = Files();
    std::FILE *file = CreatePrivateFile(kFormat, path_);
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(IsRandomName(path_, folder_)) << path_;
    EXPECT_EQ(fcntl(fileno(file), F_GETFD), FD_CLOEXEC);
    std::fclose(file);
    for (const std::string &name : planted) EXPECT_EQ(folder_.Read(name), "mine");
    struct stat status;
    ASSERT_EQ(stat(path_, &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
}

TEST_F(PrivateFileTest, FollowsNoLink) {
    const std::string target = folder_.Path() / "target";
    PlantAround(folder_.Path(),
                [&](const auto &path) { std::filesystem::create_symlink(target, path); });
    std::FILE *file = CreatePrivateFile(kFormat, path_);
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(IsRandomName(path_, folder_)) << path_;
    std::fclose(file);
    EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(PrivateFileTest, CanBeReadBack) {
    std::FILE *file = CreatePrivateFile(kFormat, path_);
    ASSERT_NE(file, nullptr);
    std::fputs("text", file);
    std::rewind(file);
    char text[8] = "";
    EXPECT_STREQ(std::fgets(text, sizeof text, file), "text");
    std::fclose(file);
}

TEST_F(PrivateFileTest, NamelessFilesHaveNoName) {
    std::FILE *file = CreateNamelessFile(kFormat, path_);
    ASSERT_NE(file, nullptr);
    struct stat status;
    ASSERT_EQ(fstat(fileno(file), &status), 0);
    EXPECT_EQ(status.st_nlink, 0U);
    EXPECT_TRUE(Files().empty());
    std::fclose(file);
    sigset_t mask;
    sigprocmask(SIG_SETMASK, nullptr, &mask);
    EXPECT_EQ(sigismember(&mask, SIGTERM), 0) << "signals are held back no longer";
}

TEST_F(PrivateFileTest, KnowsWhetherAPathIsStillItsOwn) {
    std::FILE *file = CreatePrivateFile(kFormat, path_);
    ASSERT_NE(file, nullptr);
    EXPECT_TRUE(IsNameOf(path_, file));
    const std::string moved = folder_.Path() / "moved";
    std::filesystem::rename(path_, moved);
    EXPECT_FALSE(IsNameOf(path_, file));
    std::filesystem::create_symlink(moved, path_);
    EXPECT_FALSE(IsNameOf(path_, file)) << "a link to it is another's";
    std::filesystem::remove(path_);
    EXPECT_FALSE(IsNameOf(path_, file)) << "it has no name any more";
    std::ofstream(path_) << "another's";
    EXPECT_FALSE(IsNameOf(path_, file));
    EXPECT_FALSE(IsNameOf("/proc/self/stat", file)) << "on another file system";
    std::fclose(file);
}

TEST_F(PrivateFileTest, FailsWhereThePathWouldBeTooLong) {
    setenv("TMPDIR", (folder_.Path().string() + std::string(kPrivatePathSize, '/')).c_str(), 1);
    EXPECT_EQ(CreatePrivateFile(kFormat, path_), nullptr);
    EXPECT_EQ(errno, ENAMETOOLONG);
    EXPECT_TRUE(Files().empty());
}

TEST_F(PrivateFileTest, FailsWhereThereIsNoFolder) {
    setenv("TMPDIR", "/nonexistent", 1);
    EXPECT_EQ(CreatePrivateFile(kFormat, path_), nullptr);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(CreateNamelessFile(kFormat, path_), nullptr);
    EXPECT_EQ(errno, ENOENT);
    setenv("TMPDIR", ("/" + std::string(300, 'x')).c_str(), 1);
    EXPECT_EQ(CreatePrivateFile(kFormat, path_), nullptr);
    EXPECT_EQ(errno, ENAMETOOLONG);
}

TEST_F(PrivateFileTest, FallsBackToTmp) {
    for (const bool set : {true, false}) {
        if (set) {
            setenv("TMPDIR", "", 1);
        } else {
            unsetenv("TMPDIR");
        }
        std::FILE *file = CreatePrivateFile(kFormat, path_);
        ASSERT_NE(file, nullptr);
        std::fclose(file);
        EXPECT_TRUE(std::string(path_).starts_with("/tmp/kv"));
        std::filesystem::remove(path_);
    }
}

// A system of its own for a child process, which is the only way to have a /private/tmp here.
// Returns the path of the file that the child makes there as the user `user`, with TMPDIR set to
// "/other".
std::string PathInside(const TempFolder &system, uid_t user = 0) {
    std::filesystem::create_directory(system.Path() / "other");
    system.Write("path", "");
    const pid_t child = fork();
    if (child == 0) {
        char path[kPrivatePathSize] = "";
        if (chroot(system.Path().c_str()) != 0 || chdir("/") != 0) _exit(1);
        const int answer = open("/path", O_WRONLY);
        if (setuid(user) != 0) _exit(1);
        setenv("TMPDIR", "/other", 1);
        std::FILE *file = CreatePrivateFile(kFormat, path);
        if (!file) _exit(1);
        std::fclose(file);
        if (access(path, F_OK) != 0) _exit(1);
        _exit(write(answer, path, std::strlen(path)) < 0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    return system.Read("path");
}

TEST(PrivateFile, IsMadeInPrivateTmpWhereThatIsAFolder) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can change its root";
    const TempFolder with, without, otherwise, forbidden;
    std::filesystem::create_directories(with.Path() / "private/tmp");
    EXPECT_TRUE(PathInside(with).starts_with("/private/tmp/kv"));
    EXPECT_TRUE(PathInside(without).starts_with("/other/kv"));
    std::filesystem::create_directory(otherwise.Path() / "private");
    otherwise.Write("private/tmp", "no folder");
    EXPECT_TRUE(PathInside(otherwise).starts_with("/other/kv"));

    // What is there but may not be written is no folder for the scheduler's user.
    std::filesystem::create_directories(forbidden.Path() / "private/tmp");
    std::filesystem::create_directory(forbidden.Path() / "other");
    std::filesystem::permissions(forbidden.Path(), std::filesystem::perms(0755));
    std::filesystem::permissions(forbidden.Path() / "other", std::filesystem::perms(0777));
    constexpr uid_t kNobody = 65534;
    EXPECT_TRUE(PathInside(forbidden, kNobody).starts_with("/other/kv"));
    EXPECT_TRUE(PathInside(forbidden).starts_with("/private/tmp/kv"));
}

// Whatever the clock says: beyond the year 2^31 there is no local time.
TEST(PrivateFile, IsMadeUnderAClockThatNoCalendarKnows) {
    setenv("TMPDIR", "/tmp", 1);
    char path[kPrivatePathSize] = "";
    clockIsMad = true;
    std::FILE *file = CreatePrivateFile(kFormat, path);
    clockIsMad = false;
    ASSERT_NE(file, nullptr);
    std::fclose(file);
    EXPECT_STREQ(path, "/tmp/kv00000000000000.job");
    std::filesystem::remove(path);
}

}  // namespace
