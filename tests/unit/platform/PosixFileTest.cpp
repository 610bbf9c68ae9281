#include "platform/PosixFile.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

using namespace platform;
namespace fs = std::filesystem;

class PosixFileTest : public testing::Test {
  protected:
    void SetUp() override {
        std::string name = (fs::temp_directory_path() / "posixfile-XXXXXX").string();
        ASSERT_NE(mkdtemp(name.data()), nullptr);
        folder = name;
        path = (folder / "settings.reg").string();
        Put("een");
    }
    void TearDown() override { fs::remove_all(folder); }

    void Put(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }
    std::string Bytes() const {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }
    std::ptrdiff_t Files() const {
        return std::distance(fs::directory_iterator(folder), fs::directory_iterator());
    }

    fs::path folder;
    std::string path;
};

TEST_F(PosixFileTest, ReplacesTheStateThatWasRead) {
    const auto content = ReadWholeFile(path, 100);
    ASSERT_TRUE(content);
    EXPECT_EQ(content->bytes, "een");
    EXPECT_EQ(ReplaceFile(path, "twee", content->stamp), 0);
    EXPECT_EQ(Bytes(), "twee");
    EXPECT_EQ(Files(), 1);
}

// Another program is putting its own settings there: they are not taken away from it.
TEST_F(PosixFileTest, LeavesAStateThatWasNotRead) {
    const auto content = ReadWholeFile(path, 100);
    ASSERT_TRUE(content);
    Put("van een ander");
    EXPECT_EQ(ReplaceFile(path, "twee", content->stamp), EAGAIN);
    EXPECT_EQ(Bytes(), "van een ander");
    EXPECT_EQ(Files(), 1) << "the temporary file stays";
}

TEST_F(PosixFileTest, ReadsNothingBeyondTheLimit) {
    EXPECT_TRUE(ReadWholeFile(path, 3));
    EXPECT_FALSE(ReadWholeFile(path, 2));
}

} // namespace
