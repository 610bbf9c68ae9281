#include "desktop/cups/UserDefaults.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include "desktop/cups/OptionLine.h"
#include "desktop/cups/StoredChoice.h"

namespace desktop::cups {
namespace {

TEST(OptionLine, FindsTheQueueItself) {
    const QByteArray text =
        "# Dest Kantoor a=1\nDest Kantoor/concept a=2\nDest Kantoor2 a=3\ndest\tKantoor a=4\n";
    EXPECT_EQ(LineOf(text, "Kantoor"), "dest\tKantoor a=4");
    EXPECT_EQ(LineOf(text, "KANTOOR"), "dest\tKantoor a=4"); // as the server finds it
    EXPECT_EQ(LineOf("Dest A x=1\nDest A x=2", "A"), "Dest A x=2");
    EXPECT_EQ(LineOf("Dest Büro x=1\n", "Büro"), "Dest Büro x=1");
    EXPECT_EQ(LineOf("Dest", "Dest"), "");
    EXPECT_EQ(LineOf("", ""), "");
}

TEST(OptionLine, ReadsOptionsAsTheServersToolsDo) {
    const CupsOptions options = OptionsOf("Dest Kantoor a=1 b=\"x y\" c noc2=7\n");
    EXPECT_EQ(options.at("a"), "1");
    EXPECT_EQ(options.at("b"), "x y");
    EXPECT_EQ(options.at("c"), "true");
    EXPECT_TRUE(OptionsOf("Dest Kantoor\n").empty());
    EXPECT_TRUE(OptionsOf("").empty());
}

TEST(OptionLine, FindsThePreferredQueue) {
    EXPECT_EQ(PreferredIn("Dest A x=1\ndefault B/concept x=1\nDefault C\n"), "B");
    EXPECT_EQ(PreferredIn("Dest Default x\nDefault\n"), "");
    EXPECT_EQ(PreferredIn(""), "");
}

class UserDefaultsTest : public testing::Test {
  protected:
    void Write(const QString& name, const QByteArray& text) {
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QTemporaryDir Folder;
    QString User = Folder.filePath("lpoptions");
    QString Machine = Folder.filePath("machine");
    UserDefaults Defaults{User, Machine};
};

TEST_F(UserDefaultsTest, TheUsersGoBeforeTheMachines) {
    Write(Machine, "Default Kantoor a=1 b=1\n");
    EXPECT_EQ(Defaults.PreferredQueue(), "Kantoor");
    Write(User, "Default Archief\nDest Kantoor b=2 c=2\n");
    EXPECT_EQ(Defaults.Options("Kantoor"), (CupsOptions{{"a", "1"}, {"b", "2"}, {"c", "2"}}));
    EXPECT_EQ(Defaults.PreferredQueue(), "Archief");
}

TEST_F(UserDefaultsTest, AreReadAnewAtEachQuestion) {
    EXPECT_TRUE(Defaults.Options("Kantoor").empty());
    Write(User, "Dest Kantoor a=1\n");
    EXPECT_EQ(Defaults.Options("Kantoor"), (CupsOptions{{"a", "1"}}));
}

TEST_F(UserDefaultsTest, NoFileIsNoTrouble) {
    EXPECT_EQ(Defaults.Trouble(), "");
    Write(User, "");
    EXPECT_EQ(Defaults.Trouble(), "");
    EXPECT_EQ(UserDefaults(User, {}).Trouble(), "");
    EXPECT_EQ(QDir(Folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{"lpoptions"});
}

TEST_F(UserDefaultsTest, WhateverElseCannotBeReadIsToldByItsName) {
    ASSERT_TRUE(QDir().mkdir(Machine));
    EXPECT_EQ(Defaults.Trouble(), "machine is niet te lezen");
    ASSERT_TRUE(QDir().mkdir(User));
    EXPECT_EQ(Defaults.Trouble(), "lpoptions is niet te lezen");
    EXPECT_TRUE(Defaults.Options("Kantoor").empty());
    ASSERT_TRUE(QDir().rmdir(User));
    ASSERT_EQ(symlink("lpoptions", User.toLocal8Bit().constData()), 0); // a loop
    EXPECT_EQ(Defaults.Trouble(), "lpoptions is niet te lezen");
    ASSERT_TRUE(QFile::remove(User));
    ASSERT_EQ(mkfifo(User.toLocal8Bit().constData(), 0600), 0); // nobody is waited for
    EXPECT_EQ(Defaults.Trouble(), "lpoptions is niet te lezen");
    EXPECT_EQ(Defaults.PreferredQueue(), "");
}

TEST_F(UserDefaultsTest, AFileThatTheUserMayNotReadIsTold) {
    constexpr uid_t nobody = 65534;
    Write(User, "Dest Kantoor a=1\n");
    ASSERT_TRUE(QFile::setPermissions(User, {}));
    const uid_t before = geteuid();
    if (before == 0) { // nothing is closed to root
        ASSERT_EQ(seteuid(nobody), 0);
    }
    EXPECT_EQ(Defaults.Trouble(), "lpoptions is niet te lezen");
    EXPECT_TRUE(Defaults.Options("Kantoor").empty());
    ASSERT_EQ(seteuid(before), 0);
}

TEST(StoredChoice, OfWhatTheQueueNoLongerOffersGivesWayUntilItIsBack) {
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
