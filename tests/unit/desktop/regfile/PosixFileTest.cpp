#include "desktop/regfile/PosixFile.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <gtest/gtest.h>

#include "desktop/regfile/FileReplacement.h"

namespace {

using namespace desktop::regfile;
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
    FileContent content;
    ASSERT_EQ(ReadWholeFile(path, 100, content), 0);
    EXPECT_EQ(content.Bytes, "een");
    EXPECT_EQ(ReplaceFile(path, ".merk-", "twee", content.Stamp), 0);
    EXPECT_EQ(Bytes(), "twee");
    EXPECT_EQ(Files(), 1);
}

// Another program is putting its own settings there: they are not taken away from it.
TEST_F(PosixFileTest, LeavesAStateThatWasNotRead) {
    FileContent content;
    ASSERT_EQ(ReadWholeFile(path, 100, content), 0);
    Put("van een ander");
    EXPECT_EQ(ReplaceFile(path, ".merk-", "twee", content.Stamp), EAGAIN);
    EXPECT_EQ(Bytes(), "van een ander");
    EXPECT_EQ(Files(), 1) << "the temporary file stays";
}

TEST_F(PosixFileTest, ReadsNothingBeyondTheLimit) {
    FileContent content;
    EXPECT_EQ(ReadWholeFile(path, 3, content), 0);
    EXPECT_EQ(ReadWholeFile(path, 2, content), EFBIG);
}

TEST_F(PosixFileTest, TellsAnAbsentFileFromOneThatCannotBeRead) {
    FileContent content;
    EXPECT_TRUE(IsAbsence(ReadWholeFile((folder / "niets").string(), 100, content)));
    EXPECT_TRUE(IsAbsence(ReadWholeFile(path + "/niets", 100, content)));
    EXPECT_EQ(ReadWholeFile(folder.string(), 100, content), EINVAL);
    EXPECT_FALSE(IsAbsence(EINVAL));
    EXPECT_FALSE(IsAbsence(EACCES));
}

} // namespace
