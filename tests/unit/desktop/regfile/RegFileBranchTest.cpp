// One branch of a large registry, read without the rest of it.
#include <string>

#include <gtest/gtest.h>

#include "desktop/regfile/RegFile.h"

namespace {

using namespace desktop::regfile;

const std::string Branch = "HKEY_CURRENT_USER\\Software\\Ondor\\Tarvik";
const std::string Key = Branch + "\\CurrentVersion";

class RegFileBranchTest : public testing::TestWithParam<bool> {
  protected:
    static RegFile Read(const std::string& lines) {
        const std::string text = "Windows Registry Editor Version 5.00\r\n\r\n" + lines;
        return RegFile(GetParam() ? "\xFF\xFE" + desktop::regfile::ToUtf16(text) : text, Branch);
    }
    static std::string Text(const RegFile& file, const std::string& name = "a") {
        const std::optional<RegValue> value = file.Find(Key, name);
        return value ? value->Data.substr(0, value->Data.size() - 1) : "";
    }
};

TEST_P(RegFileBranchTest, KeysOfTheBranchAreReadAndNoOthers) {
    const RegFile file = Read("[HKEY_CURRENT_USER\\Software\\Ander]\r\n\"x\"=\"0\"\r\n[" + Key +
                              "]\r\n\"a\"=\"één\"\r\n\"h\"=hex(1):41,00,\\\r\n  42,00,00,00\r\n"
                              "[HKEY_CURRENT_USER\\Software\\Ondor\\Tarwe]\r\n\"x\"=\"0\"\r\n[" +
                              Key + "\\PrinterSetting]\r\n\"b\"=\"2\"\r\n");
    EXPECT_EQ(Text(file), "één");
    EXPECT_EQ(Text(file, "h"), "AB");
    EXPECT_TRUE(file.Find(Key + "\\PrinterSetting", "b"));
    EXPECT_TRUE(file.HasKey("HKEY_CURRENT_USER\\Software"));
    EXPECT_FALSE(file.HasKey("HKEY_CURRENT_USER\\Software\\Ander"));
    EXPECT_FALSE(file.HasKey("HKEY_CURRENT_USER\\Software\\Ondor\\Tarwe"));
}

TEST_P(RegFileBranchTest, AKeyIsOfTheBranchHoweverItIsSpelled) {
    for (const char* key : {"[hkey_current_user\\SOFTWARE\\ondor\\TarvIK\\CurrentVersion]",
                            "  ["
                            "HKEY_CURRENT_USER\\Software\\Ondor\\Tarvik\\CurrentVersion]",
                            "[\\HKEY_CURRENT_USER\\\\Software\\Ondor\\\\\\Tarvik\\\\CurrentVersion\\]"}) {
        EXPECT_EQ(Text(Read("[HKEY_USERS\\x]\r\n" + std::string(key) + "\r\n\"a\"=\"1\"\r\n")), "1") << key;
    }
}

TEST_P(RegFileBranchTest, AKeyAboveItThatIsTakenAwayTakesItAlong) {
    const std::string value = "[" + Key + "]\r\n\"a\"=\"1\"\r\n";
    EXPECT_EQ(Text(Read(value + "[-HKEY_CURRENT_USER\\Software\\Ondor]\r\n")), "");
    EXPECT_EQ(Text(Read(value + "[-HKEY_CURRENT_USER\\Software\\On]\r\n")), "1");
    EXPECT_EQ(Text(Read(value + "[-" + Branch + "\\]\r\n")), "");
}

TEST_P(RegFileBranchTest, ValuesBelowAnotherKeyAreNotTakenForItsOwn) {
    EXPECT_EQ(Text(Read("[" + Key + "]\r\n\"a\"=\"1\"\r\n[HKEY_USERS\\x]\r\n\"a\"=\"2\"\r\n")), "1");
    EXPECT_EQ(Text(Read("[" + Key + "]\r\n\"a\"=\"1\"\r\n\"[b\"=\"x\" [\r\n[damaged\r\n\"a\"=\"2\"\r\n")),
              "1");
}

TEST_P(RegFileBranchTest, AWriteGoesWhereItGoesInTheWholeFile) {
    const std::string text =
        "[HKEY_USERS\\x]\r\n\"a\"=\"0\"\r\n[" + Key + "]\r\n\"a\"=\"1\"\r\n[HKEY_USERS\\y]\r\n";
    const RegFile file = Read(text);
    for (const char* name : {"a", "nieuw"}) {
        const RegValue value{1, std::string("x\0", 2)};
        EXPECT_EQ(file.WithValue(Key, name, value), RegFile(file.Bytes()).WithValue(Key, name, value));
    }
}

INSTANTIATE_TEST_SUITE_P(, RegFileBranchTest, testing::Bool(),
                         [](const auto& each) { return each.param ? "Utf16" : "Utf8"; });

} // namespace
