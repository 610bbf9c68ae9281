#include "desktop/cups/SpoolFile.h"

#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstring>
#include <string>

#include <QDir>
#include <QTemporaryDir>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "base/RuntimeError.h"

namespace {
bool onlyNames = false; // a file system whose files all have a name
}

// The linker sends all calls of open() here.
// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names (--wrap)
extern "C" int __real_open(const char* path, int flags, ...);
extern "C" int __wrap_open(const char* path, int flags, ...) {
    std::va_list arguments;
    va_start(arguments, flags);
    const mode_t mode = (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
    va_end(arguments);
    if (onlyNames && (flags & O_TMPFILE) == O_TMPFILE) {
        errno = EOPNOTSUPP;
        return -1;
    }
    return __real_open(path, flags, mode);
}
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace desktop::qt {
namespace {

constexpr mode_t PermissionBits = 07777;

class SpoolFileTest : public testing::TestWithParam<bool> {
  protected:
    SpoolFileTest() { onlyNames = GetParam(); }
    ~SpoolFileTest() override { onlyNames = false; }

    QStringList Names() const {
        return QDir(Path).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
    }

    static std::string ReadAll(int descriptor) {
        std::string text(100, '\0');
        const ssize_t count = read(descriptor, text.data(), text.size());
        text.resize(count < 0 ? 0 : static_cast<std::size_t>(count));
        return text;
    }

    QTemporaryDir Folder;
    QString Path = Folder.filePath("cache/spool");
};

TEST_P(SpoolFileTest, IsTheUsersAloneAndHasNoName) {
    const mode_t before = umask(0); // of a user who shares everything
    cups::SpoolFile file(Path.toStdString());
    umask(before);
    EXPECT_EQ(file.Write("document"), 0);
    file.Rewind();
    struct stat status {};
    ASSERT_EQ(fstat(file.Number(), &status), 0);
    EXPECT_EQ(status.st_mode & PermissionBits, 0600U);
    EXPECT_EQ(status.st_uid, geteuid());
    EXPECT_EQ(status.st_nlink, 0U);
    EXPECT_EQ(Names(), QStringList());
    ASSERT_EQ(stat(QFile::encodeName(Path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & PermissionBits, 0700U);
}

TEST_P(SpoolFileTest, IsReadFromItsBeginning) {
    cups::SpoolFile file(Path.toStdString());
    EXPECT_EQ(file.Write("eerste "), 0);
    EXPECT_EQ(file.Write("tweede"), 0);
    file.Rewind();
    EXPECT_EQ(ReadAll(file.Number()), "eerste tweede");
    file.Rewind();
    EXPECT_EQ(ReadAll(file.Number()), "eerste tweede");
}

TEST_P(SpoolFileTest, LeavesNothingWhenTheProgramIsKilled) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        cups::SpoolFile file(Path.toStdString());
        EXPECT_EQ(file.Write("document"), 0);
        file.Rewind();
        raise(SIGKILL);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_TRUE(QDir(Path).exists());
    EXPECT_EQ(Names(), QStringList());
}

TEST_P(SpoolFileTest, LeavesAnotherFolderAsItIs) {
    ASSERT_TRUE(QDir().mkpath(Path));
    ASSERT_EQ(chmod(QFile::encodeName(Path).constData(), 0755), 0);
    const cups::SpoolFile file(Path.toStdString());
    struct stat status {};
    ASSERT_EQ(stat(QFile::encodeName(Path).constData(), &status), 0);
    EXPECT_EQ(status.st_mode & PermissionBits, 0755U);
    ASSERT_EQ(fstat(file.Number(), &status), 0);
    EXPECT_EQ(status.st_mode & PermissionBits, 0600U);
}

TEST_P(SpoolFileTest, FailsWhereThereIsNoFolder) {
    QFile inTheWay(Folder.filePath("cache"));
    ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
    try {
        const cups::SpoolFile file(Path.toStdString());
        ADD_FAILURE() << "there is no folder";
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.Description(), "Het document kon niet worden klaargezet.\n" + Path.toStdString() +
                                           "\n" + std::strerror(ENOTDIR));
    }
    EXPECT_EQ(inTheWay.size(), 0);
}

TEST_P(SpoolFileTest, TellsThatTheFolderCannotBeMade) {
    Path = "/proc/drukkeuring/spool";
    try {
        const cups::SpoolFile file(Path.toStdString());
        ADD_FAILURE() << "there is no folder";
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.Description(), "Het document kon niet worden klaargezet.\n/proc/drukkeuring/spool\n" +
                                           std::string(std::strerror(ENOENT)));
    }
}

TEST_P(SpoolFileTest, GivesTheReasonInTheWordsOfWhoMakesIt) {
    std::string told;
    try {
        const cups::SpoolFile file("/proc/drukkeuring/spool",
                                   [](int error) { return "reden " + std::to_string(error); });
    } catch (const base::RuntimeError& error) {
        told = error.Description();
    }
    EXPECT_EQ(told, "Het document kon niet worden klaargezet.\n/proc/drukkeuring/spool\nreden " +
                        std::to_string(ENOENT));
}

TEST_P(SpoolFileTest, TellsThatTheLastBytesFoundNoPlace) {
    cups::SpoolFile file(Path.toStdString());
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {1000, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_EQ(file.Write(std::string(1500, 'x')), 0); // waits in memory
    std::string told;
    try {
        file.Rewind();
    } catch (const base::RuntimeError& error) {
        told = error.Description();
    }
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(told, "Het document kon niet worden klaargezet.\n" + Path.toStdString() + "\n" +
                        std::strerror(EFBIG));
}

TEST_P(SpoolFileTest, TellsAFullDiskEvenWhenThereIsRoomAgain) {
    cups::SpoolFile file(Path.toStdString());
    const auto ignore = std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small = {64 * 1024, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    int written = 0;
    for (int i = 0; i < 10; ++i) {
        written = file.Write(std::string(20'000, 'x'));
    }
    EXPECT_EQ(written, EFBIG);
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    std::signal(SIGXFSZ, ignore);
    EXPECT_EQ(file.Write("nog iets"), EFBIG);
    try {
        file.Rewind();
        FAIL() << "half a document would be printed";
    } catch (const base::RuntimeError& error) {
        EXPECT_EQ(error.Number(), base::ErrorPrinter);
        EXPECT_EQ(error.Description().rfind("Het document kon niet worden klaargezet.\n", 0), 0U);
    }
}

INSTANTIATE_TEST_SUITE_P(, SpoolFileTest, testing::Bool(), [](const auto& only) {
    return only.param ? "WhereFilesHaveNames" : "WhereTheyNeedNone";
});

} // namespace
} // namespace desktop::qt
