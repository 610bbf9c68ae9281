#include "desktop/cups/UserDefaults.h"

#include <filesystem>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "desktop/cups/OptionLine.h"
#include "desktop/cups/StoredChoice.h"
#include "support/TemporaryFolder.h"

namespace desktop::cups {
namespace {

namespace fs = std::filesystem;

TEST(OptionLineTest, FindsTheQueueItself) {
    const std::string text =
        "# Dest Kantoor a=1\nDest Kantoor/concept a=2\nDest Kantoor2 a=3\ndest\tKantoor a=4\n";
    EXPECT_EQ(LineOf(text, "Kantoor"), "dest\tKantoor a=4");
    EXPECT_EQ(LineOf(text, "KANTOOR"), "dest\tKantoor a=4"); // as the server finds it
    EXPECT_EQ(LineOf("Dest A x=1\nDest A x=2", "A"), "Dest A x=2");
    EXPECT_EQ(LineOf("Dest Büro x=1\n", "Büro"), "Dest Büro x=1");
    EXPECT_EQ(LineOf("Dest", "Dest"), "");
    EXPECT_EQ(LineOf("", ""), "");
}

TEST(OptionLineTest, ReadsOptionsAsTheServersToolsDo) {
    const CupsOptions options = OptionsOf("Dest Kantoor a=1 b=\"x y\" c noc2=7\n");
    EXPECT_EQ(options.at("a"), "1");
    EXPECT_EQ(options.at("b"), "x y");
    EXPECT_EQ(options.at("c"), "true");
    EXPECT_TRUE(OptionsOf("Dest Kantoor\n").empty());
    EXPECT_TRUE(OptionsOf("").empty());
}

TEST(OptionLineTest, ALineEndsWhereTheNextOneBegins) {
    EXPECT_EQ(LineOf("Dest A\n\nDest B x=1\r\nDest C", "B"), "Dest B x=1\r");
    EXPECT_EQ(LineOf("Dest A\n\nDest B x=1\r\nDest C", "C"), "Dest C");
    EXPECT_EQ(LineOf("\n\n", ""), "");
}

TEST(OptionLineTest, FindsThePreferredQueue) {
    EXPECT_EQ(PreferredIn("Dest A x=1\ndefault B/concept x=1\nDefault C\n"), "B");
    EXPECT_EQ(PreferredIn("Dest Default x\nDefault\n"), "");
    EXPECT_EQ(PreferredIn(""), "");
}

class UserDefaultsTest : public testing::Test {
  protected:
    TemporaryFolder Folder;
    std::string User = Folder.PathOf("lpoptions");
    std::string Machine = Folder.PathOf("machine");
    UserDefaults Defaults{User, Machine};
};

TEST_F(UserDefaultsTest, TheUsersGoBeforeTheMachines) {
    WriteFile(Machine, "Default Kantoor a=1 b=1\n");
    EXPECT_EQ(Defaults.PreferredQueue(), "Kantoor");
    WriteFile(User, "Default Archief\nDest Kantoor b=2 c=2\n");
    EXPECT_EQ(Defaults.Options("Kantoor"), (CupsOptions{{"a", "1"}, {"b", "2"}, {"c", "2"}}));
    EXPECT_EQ(Defaults.PreferredQueue(), "Archief");
}

TEST_F(UserDefaultsTest, AreReadAnewAtEachQuestion) {
    EXPECT_TRUE(Defaults.Options("Kantoor").empty());
    WriteFile(User, "Dest Kantoor a=1\n");
    EXPECT_EQ(Defaults.Options("Kantoor"), (CupsOptions{{"a", "1"}}));
}

TEST_F(UserDefaultsTest, NoFileIsNoTrouble) {
    EXPECT_EQ(Defaults.Trouble(), "");
    WriteFile(User, "");
    EXPECT_EQ(Defaults.Trouble(), "");
    EXPECT_EQ(UserDefaults(User, {}).Trouble(), "");
    EXPECT_THAT(Folder.Names(), testing::ElementsAre("lpoptions"));
}

TEST_F(UserDefaultsTest, WhateverElseCannotBeReadIsToldByItsName) {
    ASSERT_TRUE(fs::create_directory(Machine));
    EXPECT_EQ(Defaults.Trouble(), "machine is niet te lezen");
    ASSERT_TRUE(fs::create_directory(User));
    EXPECT_EQ(Defaults.Trouble(), "lpoptions is niet te lezen");
    EXPECT_TRUE(Defaults.Options("Kantoor").empty());
    ASSERT_TRUE(fs::remove(User));
    ASSERT_EQ(symlink("lpoptions", User.c_str()), 0); // a loop
    EXPECT_EQ(Defaults.Trouble(), "lpoptions is niet te lezen");
    ASSERT_TRUE(fs::remove(User));
    ASSERT_EQ(mkfifo(User.c_str(), 0600), 0); // nobody is waited for
    EXPECT_EQ(Defaults.Trouble(), "lpoptions is niet te lezen");
    EXPECT_EQ(Defaults.PreferredQueue(), "");
}

TEST_F(UserDefaultsTest, AFileThatTheUserMayNotReadIsTold) {
    constexpr uid_t nobody = 65534;
    WriteFile(User, "Dest Kantoor a=1\n");
    fs::permissions(User, fs::perms::none);
    const uid_t before = geteuid();
    if (before == 0) { // nothing is closed to root
        ASSERT_EQ(seteuid(nobody), 0);
    }
    EXPECT_EQ(Defaults.Trouble(), "lpoptions is niet te lezen");
    EXPECT_TRUE(Defaults.Options("Kantoor").empty());
    ASSERT_EQ(seteuid(before), 0);
}

TEST(StoredChoiceTest, OfWhatTheQueueNoLongerOffersGivesWayUntilItIsBack) {
    const QueueSettings byFiles{Portrait, 9, 1, 1};
    StoredChoice choice;
    choice.Write({Portrait, 5, 257, 1}, byFiles);
    Paper legal;
    legal.Id = 5;
    Bin third;
    third.Id = 257;
    EXPECT_EQ(choice.Over(byFiles, {legal}, {third}), (QueueSettings{Portrait, 5, 257, 1}));
    EXPECT_EQ(choice.Over(byFiles, {}, {third}), (QueueSettings{Portrait, 9, 257, 1}));
    EXPECT_EQ(choice.Over(byFiles, {legal}, {}), (QueueSettings{Portrait, 5, 1, 1}));
    EXPECT_EQ(choice.Over(byFiles, {legal}, {third}), (QueueSettings{Portrait, 5, 257, 1}));
}

} // namespace
} // namespace desktop::cups
