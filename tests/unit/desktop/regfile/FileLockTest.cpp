#include "desktop/regfile/FileLock.h"

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>

#include <gtest/gtest.h>
#include <sys/file.h>

namespace {

/// Runs before each locking; what it returns is the call's errno, 0 for the call itself.
std::function<int()> beforeLocking;

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names (--wrap)
extern "C" {

int __real_flock(int descriptor, int operation);
int __wrap_flock(int descriptor, int operation) {
    if (const int error = beforeLocking ? beforeLocking() : 0; error != 0) {
        errno = error;
        return -1;
    }
    return __real_flock(descriptor, operation);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace {

using namespace desktop::regfile;
using namespace std::chrono_literals;
namespace fs = std::filesystem;

class FileLockTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "filelock-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
        path = (folder / "slot").string();
    }
    void TearDown() override {
        beforeLocking = nullptr;
        fs::remove_all(folder);
    }

    fs::path folder;
    std::string path;
};

TEST_F(FileLockTest, IsOnesOwnAndGoesWithItsFile) {
    {
        const FileLock lock(path, 0ms);
        EXPECT_FALSE(lock.IsHeldByAnother());
        EXPECT_TRUE(FileLock(path, 5ms).IsHeldByAnother());
        EXPECT_TRUE(fs::exists(path)) << "who does not have it leaves it";
    }
    EXPECT_FALSE(fs::exists(path));
}

// The one before lets go, and takes the name away, between the opening and the locking of this one.
TEST_F(FileLockTest, IsOnTheFileOfThatName) {
    bool isFirst = true;
    beforeLocking = [&] {
        if (isFirst) {
            fs::remove(path);
        }
        isFirst = false;
        return 0;
    };
    const FileLock lock(path, 1000ms);
    EXPECT_FALSE(lock.IsHeldByAnother());
    EXPECT_TRUE(FileLock(path, 0ms).IsHeldByAnother());
}

TEST_F(FileLockTest, WhereThereAreNoneNobodyHoldsItAndNothingStays) {
    for (const int error : {EOPNOTSUPP, ENOSYS, ENOLCK}) {
        beforeLocking = [error] { return error; };
        {
            const FileLock lock(path, 1000ms);
            EXPECT_FALSE(lock.IsHeldByAnother()) << error;
        }
        EXPECT_FALSE(fs::exists(path)) << error;
    }
}

TEST_F(FileLockTest, AFolderThatCannotBeWrittenHoldsNobodyUp) {
    const FileLock lock((folder / "weg" / "slot").string(), 1000ms);
    EXPECT_FALSE(lock.IsHeldByAnother());
}

} // namespace
