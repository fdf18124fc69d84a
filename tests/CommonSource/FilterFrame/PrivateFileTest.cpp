// SPDX-License-Identifier: Apache-2.0
#include "CommonSource/FilterFrame/Source/PrivateFile.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <regex>

#include "support/TempFolder.h"

namespace {

constexpr char kFormat[] = "/private/tmp/kv%s.job";

class PrivateFileTest : public testing::Test {
  protected:
    void SetUp() override {
        if (std::filesystem::is_directory("/private/tmp")) {
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

TEST_F(PrivateFileTest, IsNamedAfterTheTimeAndPrivate) {
    std::FILE *file = CreatePrivateFile(kFormat, path_);
    ASSERT_NE(file, nullptr);
    std::fputs("text", file);
    std::fclose(file);
    EXPECT_TRUE(std::regex_match(path_, std::regex(folder_.Path().string() + "/kv\\d{14}\\.job")));
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
    EXPECT_TRUE(std::regex_match(
        secondPath, std::regex(folder_.Path().string() + "/kv\\d{14}(-" + pid + ")?\\.job")));
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

TEST_F(PrivateFileTest, OverwritesNothing) {
    PlantAround(folder_.Path(), [](const auto &path) { std::ofstream(path) << "mine"; });
    EXPECT_EQ(CreatePrivateFile(kFormat, path_), nullptr);
    for (const std::string &name : Files()) EXPECT_EQ(folder_.Read(name), "mine");
}

TEST_F(PrivateFileTest, FollowsNoLink) {
    const std::string target = folder_.Path() / "target";
    PlantAround(folder_.Path(),
                [&](const auto &path) { std::filesystem::create_symlink(target, path); });
    EXPECT_EQ(CreatePrivateFile(kFormat, path_), nullptr);
    EXPECT_FALSE(std::filesystem::exists(target));
}

TEST_F(PrivateFileTest, FailsWhereThereIsNoFolder) {
    setenv("TMPDIR", "/nonexistent", 1);
    EXPECT_EQ(CreatePrivateFile(kFormat, path_), nullptr);
    setenv("TMPDIR", ("/" + std::string(300, 'x')).c_str(), 1);
    EXPECT_EQ(CreatePrivateFile(kFormat, path_), nullptr);
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
// Returns the path of the file that the child makes there, with TMPDIR set to "/other".
std::string PathInside(const TempFolder &system) {
    std::filesystem::create_directory(system.Path() / "other");
    system.Write("path", "");
    const pid_t child = fork();
    if (child == 0) {
        char path[kPrivatePathSize] = "";
        if (chroot(system.Path().c_str()) != 0 || chdir("/") != 0) _exit(1);
        setenv("TMPDIR", "/other", 1);
        std::FILE *file = CreatePrivateFile(kFormat, path);
        if (!file) _exit(1);
        std::fclose(file);
        if (access(path, F_OK) != 0) _exit(1);
        std::ofstream("/path") << path;
        _exit(0);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    return system.Read("path");
}

TEST(PrivateFile, IsMadeInPrivateTmpWhereThatIsAFolder) {
    if (geteuid() != 0) GTEST_SKIP() << "only root can change its root";
    const TempFolder with, without, otherwise;
    std::filesystem::create_directories(with.Path() / "private/tmp");
    EXPECT_TRUE(PathInside(with).starts_with("/private/tmp/kv"));
    EXPECT_TRUE(PathInside(without).starts_with("/other/kv"));
    std::filesystem::create_directory(otherwise.Path() / "private");
    otherwise.Write("private/tmp", "no folder");
    EXPECT_TRUE(PathInside(otherwise).starts_with("/other/kv"));
}

}  // namespace
