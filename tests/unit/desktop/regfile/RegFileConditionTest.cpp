#include <cerrno>
#include <cstring>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>

#include "desktop/regfile/RegFileEncoding.h"
#include "unit/desktop/regfile/RegFileStoreFixture.h"

namespace {

using namespace desktop::regfile;
using machine::StoreTrouble;

class RegFileConditionTest : public RegFileStoreTest {
  protected:
    /// Long ago: nobody is writing it any more.
    void PutOld(const std::string& bytes) const {
        Put(bytes);
        const timespec times[2] = {{1000000000, 0}, {1000000000, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    }
    StoreTrouble TroubleOf(const std::string& bytes) const {
        PutOld(bytes);
        RegFileStore store(file);
        return store.Condition(SettingsPath).Trouble;
    }
};

TEST_F(RegFileConditionTest, OfSettingsThatAreThereTellsOnlyWhere) {
    PutOld(File("\"a\"=\"1\"\r\n"));
    RegFileStore store(file, {}, [](const std::string& text) { ADD_FAILURE() << text; });
    const machine::StoreCondition condition = store.Condition(SettingsPath);
    EXPECT_EQ(condition.Trouble, StoreTrouble::None);
    EXPECT_EQ(condition.Where, file);
    EXPECT_EQ(condition.Reason, "");
}

TEST_F(RegFileConditionTest, MissingIsTheFileOrTheKey) {
    RegFileStore none(file);
    EXPECT_EQ(none.Condition(SettingsPath).Trouble, StoreTrouble::Missing);
    EXPECT_EQ(none.Condition(SettingsPath).Where, file);
    EXPECT_EQ(none.Condition(SettingsPath).Reason, std::strerror(ENOENT));

    PutOld("REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Ander]\r\n\"a\"=\"1\"\r\n");
    RegFileStore other(file, SettingsBranch);
    EXPECT_EQ(other.Condition(SettingsPath).Trouble, StoreTrouble::NoKey);
    EXPECT_EQ(other.Condition(SettingsPath).Reason, "");
    EXPECT_EQ(other.Condition("Software\\Ander").Trouble, StoreTrouble::NoKey)
        << "it is no matter of this store";

    RegFileStore homeless("");
    EXPECT_EQ(homeless.Condition(SettingsPath).Trouble, StoreTrouble::Missing);
}

TEST_F(RegFileConditionTest, AFileThatComesIsSeen) {
    RegFileStore store(file);
    EXPECT_EQ(store.Condition(SettingsPath).Trouble, StoreTrouble::Missing);
    Put(File("\"a\"=\"1\"\r\n"));
    EXPECT_EQ(store.Condition(SettingsPath).Trouble, StoreTrouble::None);
    std::filesystem::remove(file);
    EXPECT_EQ(store.Condition(SettingsPath).Trouble, StoreTrouble::Missing);
}

TEST_F(RegFileConditionTest, UnreadableSaysWhyAndTellsNobody) {
    std::filesystem::create_directory(file);
    int told = 0;
    RegFileStore store(file, {}, [&told](const std::string&) { ++told; });
    const machine::StoreCondition condition = store.Condition(SettingsPath);
    EXPECT_EQ(condition.Trouble, StoreTrouble::Unreadable);
    EXPECT_EQ(condition.Where, file);
    EXPECT_EQ(condition.Reason, "Dit is geen bestand.");
    EXPECT_FALSE(condition.EarlierHolds);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(Read(store, "a"), "");
    EXPECT_EQ(told, 1) << "who needs the settings is told as ever";
}

TEST_F(RegFileConditionTest, UnknownIsAnEncodingThatNoMarkTells) {
    const std::string utf16 = ToUtf16("Windows Registry Editor Version 5.00\r\n\r\n[HKEY_CURRENT_USER\\" +
                                      SettingsPath + "]\r\n\"a\"=\"1\"\r\n");
    EXPECT_EQ(TroubleOf("\xFF\xFE" + utf16), StoreTrouble::None);
    EXPECT_EQ(TroubleOf(utf16), StoreTrouble::UnknownEncoding);
    EXPECT_EQ(TroubleOf(std::string("\xFE\xFF", 2) + '\0' + utf16), StoreTrouble::UnknownEncoding);
    EXPECT_EQ(TroubleOf(std::string("\xFF\xFE\0\0R\0\0\0E\0\0\0", 12)), StoreTrouble::UnknownEncoding);
}

TEST_F(RegFileConditionTest, UnknownIsAFileOfAnotherKind) {
    EXPECT_EQ(TroubleOf("<html><body>Niet gevonden</body></html>\n"), StoreTrouble::UnknownEncoding);
    EXPECT_EQ(TroubleOf("Beste beheerder,\r\n"), StoreTrouble::UnknownEncoding);
    EXPECT_EQ(TroubleOf(std::string("regf\0\0\0\0", 8)), StoreTrouble::UnknownEncoding);
    EXPECT_EQ(TroubleOf("REGEDIT4\r\n"), StoreTrouble::NoKey) << "it has no keys, and is no other kind";
    EXPECT_EQ(TroubleOf("[HKEY_CURRENT_USER\\" + SettingsPath + "]\r\n"), StoreTrouble::None);
}

TEST_F(RegFileConditionTest, CutOffIsAFileThatEndsInAValueOrAKey) {
    for (const std::string& end : {std::string("\"a\"=\"1,"), std::string("\"a\"="),
                                   std::string("[HKEY_CURR"), std::string("\"a\"=hex:01,\\\r\n  02,")}) {
        EXPECT_EQ(TroubleOf(File("\"b\"=\"2\"\r\n" + end)), StoreTrouble::CutOff) << end;
    }
    EXPECT_EQ(TroubleOf(""), StoreTrouble::CutOff);
    EXPECT_EQ(TroubleOf("\xFF\xFE" + ToUtf16(File("\"a\"=\"1\"\r\n")) + "["), StoreTrouble::CutOff);
    EXPECT_EQ(TroubleOf(File("\"a\"=\"1\"")), StoreTrouble::None) << "only the end of the line is missing";
}

TEST_F(RegFileConditionTest, CutOffIsAlsoAFileThatIsLeftHalfBehindAWholeOne) {
    const std::string whole = File("\"a\"=\"1\"\r\n\"b\"=\"2\"\r\n");
    Put(whole);
    RegFileStore store(file);
    EXPECT_EQ(Read(store, "b"), "2");
    PutOld(whole.substr(0, whole.size() - 5));
    const machine::StoreCondition condition = store.Condition(SettingsPath);
    EXPECT_EQ(condition.Trouble, StoreTrouble::CutOff);
    EXPECT_EQ(condition.Reason, "Het bestand is leeg of afgebroken.");
    EXPECT_TRUE(condition.EarlierHolds);
    EXPECT_EQ(Read(store, "b"), "2") << "what was read holds";
    std::filesystem::remove(file);
    std::filesystem::create_directory(file);
    EXPECT_EQ(store.Condition(SettingsPath).Trouble, StoreTrouble::Unreadable);
    EXPECT_TRUE(store.Condition(SettingsPath).EarlierHolds);
    EXPECT_EQ(Read(store, "b"), "2");
}

} // namespace
