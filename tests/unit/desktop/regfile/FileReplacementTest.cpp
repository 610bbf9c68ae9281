#include "desktop/regfile/FileReplacement.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace desktop::regfile;
namespace fs = std::filesystem;

/// What the file system cannot do, as errno; 0 for what it can.
struct Lacks {
    int NamelessFiles = 0;
    int SecondNames = 0;
    int Rights = 0;
};

Lacks lacks;

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names (--wrap)
extern "C" {

int __real_open(const char* path, int flags, ...);
int __wrap_open(const char* path, int flags, mode_t mode) {
    if (lacks.NamelessFiles != 0 && (flags & O_TMPFILE) == O_TMPFILE) {
        errno = lacks.NamelessFiles;
        return -1;
    }
    return __real_open(path, flags, mode);
}

int __real_link(const char* from, const char* to);
int __wrap_link(const char* from, const char* to) {
    if (lacks.SecondNames != 0) {
        errno = lacks.SecondNames;
        return -1;
    }
    return __real_link(from, to);
}

int __real_fchown(int descriptor, uid_t owner, gid_t group);
int __wrap_fchown(int descriptor, uid_t owner, gid_t group) {
    if (lacks.Rights != 0) {
        errno = lacks.Rights;
        return -1;
    }
    return __real_fchown(descriptor, owner, group);
}

int __real_fchmod(int descriptor, mode_t mode);
int __wrap_fchmod(int descriptor, mode_t mode) {
    if (lacks.Rights != 0) {
        errno = lacks.Rights;
        return -1;
    }
    return __real_fchmod(descriptor, mode);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace {

class FileReplacementTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "replacement-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
        path = (folder / "uit.pdf").string();
    }
    void TearDown() override {
        lacks = {};
        fs::remove_all(folder);
    }

    static void Put(const fs::path& file, const std::string& bytes) {
        std::ofstream(file, std::ios::binary) << bytes;
    }
    static std::string Bytes(const fs::path& file) {
        std::ifstream stream(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::ptrdiff_t Files() const {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }
    static mode_t Mode(const fs::path& file) {
        struct stat status {};
        EXPECT_EQ(stat(file.c_str(), &status), 0);
        return status.st_mode & 07777;
    }
    int Write(const std::string& bytes) const {
        FileReplacement file;
        file.Begin(path, ".merk-");
        file.Write(bytes);
        return file.Commit();
    }

    fs::path folder;
    std::string path;
};

TEST_F(FileReplacementTest, AFileAppearsWhenItIsComplete) {
    const mode_t mask = umask(027);
    FileReplacement file;
    ASSERT_EQ(file.Begin(path, ".merk-"), 0);
    EXPECT_EQ(file.Write("een "), 0);
    EXPECT_EQ(file.Write(std::string(200'000, 'x')), 0);
    EXPECT_EQ(Files(), 0);
    EXPECT_EQ(file.Commit(), 0);
    umask(mask);
    EXPECT_EQ(Bytes(path), "een " + std::string(200'000, 'x'));
    EXPECT_EQ(Mode(path), 0640U);
    EXPECT_EQ(Files(), 1);
}

TEST_F(FileReplacementTest, TheOldFileStaysUntilThen) {
    Put(path, "oud");
    ASSERT_EQ(chmod(path.c_str(), 0604), 0);
    {
        FileReplacement file;
        ASSERT_EQ(file.Begin(path, ".merk-"), 0);
        EXPECT_EQ(file.Write(std::string(200'000, 'x')), 0);
        EXPECT_EQ(Bytes(path), "oud");
    }
    EXPECT_EQ(Bytes(path), "oud");
    EXPECT_EQ(Write("nieuw"), 0);
    EXPECT_EQ(Bytes(path), "nieuw");
    EXPECT_EQ(Mode(path), 0604U);
    EXPECT_EQ(Files(), 1);
}

// Cut off in the last bytes, which wait in memory until the end.
TEST_F(FileReplacementTest, AWriteThatFailsLeavesTheOldFile) {
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    for (const std::size_t size : {std::size_t{100}, std::size_t{150'000}}) {
        Put(path, "oud");
        const rlimit small{static_cast<rlim_t>(size - 10), before.rlim_max};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
        const int error = Write(std::string(size, 'x'));
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        EXPECT_EQ(error, EFBIG);
        EXPECT_EQ(Bytes(path), "oud");
        EXPECT_EQ(Files(), 1);
    }
    std::signal(SIGXFSZ, handler);
}

TEST_F(FileReplacementTest, AKillLeavesNothing) {
    Put(path, "oud");
    for (const char* name : {"uit.pdf", "nieuw.pdf"}) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            FileReplacement file;
            file.Begin((folder / name).string(), ".merk-");
            file.Write(std::string(200'000, 'x'));
            raise(SIGKILL);
        }
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_TRUE(WIFSIGNALED(status));
    }
    EXPECT_EQ(Bytes(path), "oud");
    EXPECT_EQ(Files(), 1);
}

TEST_F(FileReplacementTest, ASymbolicLinkStays) {
    Put(folder / "doel.pdf", "oud");
    fs::create_symlink("doel.pdf", path);
    EXPECT_EQ(Write("nieuw"), 0);
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(Bytes(folder / "doel.pdf"), "nieuw");
    fs::remove(folder / "doel.pdf");
    EXPECT_EQ(Write("nieuw"), ENOENT);
    EXPECT_TRUE(fs::is_symlink(path));
}

TEST_F(FileReplacementTest, WhatAppearsMeanwhileIsSomebodys) {
    FileReplacement file;
    ASSERT_EQ(file.Begin(path, ".merk-"), 0);
    Put(path, "van een ander");
    EXPECT_EQ(file.Write("nieuw"), 0);
    EXPECT_EQ(file.Commit(), EEXIST);
    EXPECT_EQ(Bytes(path), "van een ander");
}

TEST_F(FileReplacementTest, RefusesWhatIsNoFileAndWhatIsNotThere) {
    fs::create_directory(path);
    EXPECT_EQ(Write("x"), EISDIR);
    FileReplacement file;
    EXPECT_EQ(file.Begin((folder / "weg" / "uit.pdf").string(), ".merk-"), ENOENT);
    EXPECT_EQ(file.Write("x"), ENOENT);
    EXPECT_EQ(file.Commit(), ENOENT);
}

// As on a network's file systems and on those of a stick: each file has one name, from its beginning.
TEST_F(FileReplacementTest, AFileSystemNeedKnowNoSecondNames) {
    lacks.NamelessFiles = EOPNOTSUPP;
    for (const int error : {0, EPERM, EOPNOTSUPP, ENOSYS}) {
        lacks.SecondNames = error;
        fs::remove(path);
        EXPECT_EQ(Write("nieuw"), 0) << error;
        EXPECT_EQ(Bytes(path), "nieuw") << error;
        FileReplacement file;
        ASSERT_EQ(file.Begin((folder / "ander.pdf").string()), 0);
        Put(folder / "ander.pdf", "van een ander");
        EXPECT_EQ(file.Commit(), EEXIST) << error;
        EXPECT_EQ(Bytes(folder / "ander.pdf"), "van een ander");
        fs::remove(folder / "ander.pdf");
    }
    lacks.SecondNames = EIO;
    fs::remove(path);
    EXPECT_EQ(Write("nieuw"), EIO);
    EXPECT_EQ(Files(), 0);
}

TEST_F(FileReplacementTest, AFileSystemNeedKnowNoRights) {
    Put(path, "oud");
    for (const int error : {EPERM, EINVAL, EOPNOTSUPP, ENOSYS}) {
        lacks.Rights = error;
        EXPECT_EQ(Write("nieuw " + std::to_string(error)), 0) << error;
        EXPECT_EQ(Bytes(path), "nieuw " + std::to_string(error));
    }
    lacks.Rights = EIO;
    EXPECT_EQ(Write("nieuwer"), EIO);
    EXPECT_EQ(Files(), 1);
}

} // namespace
