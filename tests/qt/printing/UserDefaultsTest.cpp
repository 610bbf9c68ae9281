#include "platform/qt/UserDefaults.h"
#include "platform/qt/OptionLine.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace platform::qt {
namespace {

const CupsOptions Tray = {{"InputSlot", "Tray3"}, {"media-source", "tray-3"}};

std::string Changed(const QByteArray& line, const CupsOptions& changes) {
    return WithOptions(line, "Kantoor", changes).toStdString();
}

TEST(OptionLine, ChangesWhatIsNamedAndNothingElse) {
    EXPECT_EQ(Changed("Dest Kantoor  a=1 InputSlot=Upper  b='x y' \n", Tray),
              "Dest Kantoor  a=1 InputSlot=Tray3  b='x y' media-source=tray-3 \n");
    EXPECT_EQ(Changed("Default Kantoor", Tray), "Default Kantoor InputSlot=Tray3 media-source=tray-3");
    EXPECT_EQ(Changed("", Tray), "Dest Kantoor InputSlot=Tray3 media-source=tray-3\n");
    EXPECT_EQ(Changed("Dest Kantoor x=InputSlot InputSlot\n", {{"InputSlot", ""}}),
              "Dest Kantoor x=InputSlot\n");
}

TEST(OptionLine, KeepsOneOfAnOptionThatIsThereTwice) {
    EXPECT_EQ(Changed("Dest Kantoor media=a x=1 media=b\n", {{"media", "c"}}), "Dest Kantoor x=1 media=c\n");
    EXPECT_EQ(Changed("Dest Kantoor media=a x=1 media=b\n", {{"media", ""}}), "Dest Kantoor x=1\n");
}

TEST(OptionLine, TakesAQuotedValueAsOneWord) {
    EXPECT_EQ(Changed("Dest Kantoor media=\"a \\\" b\" x=1\n", {{"media", "c"}}),
              "Dest Kantoor media=c x=1\n");
    EXPECT_EQ(Changed("Dest Kantoor x='open media=a\n", {{"media", "c"}}),
              "Dest Kantoor x='open media=a media=c\n");
}

TEST(OptionLine, FindsTheQueueItself) {
    const QByteArray text =
        "# Dest Kantoor a=1\nDest Kantoor/concept a=2\nDest Kantoor2 a=3\ndest\tKantoor a=4\n";
    EXPECT_EQ(OptionLine(text, "Kantoor").Line(), "dest\tKantoor a=4\n");
    EXPECT_EQ(OptionLine(text, "KANTOOR").Line(), "dest\tKantoor a=4\n"); // as the server finds it
    EXPECT_FALSE(OptionLine("Dest", "Dest").Exists());
    EXPECT_FALSE(OptionLine("", "").Exists());
    EXPECT_EQ(OptionLine("Dest A x\nDest B y", "B").Replaced("Dest B z").toStdString(), "Dest A x\nDest B z");
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
    std::string Text() {
        QFile file(User);
        return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : "no file";
    }

    QTemporaryDir Folder;
    QString User = Folder.filePath("home/.cups/lpoptions");
    QString Machine = Folder.filePath("machine");
    UserDefaults Defaults{User, Machine};
};

TEST_F(UserDefaultsTest, LeaveNoTraceWhereNothingWas) {
    ASSERT_TRUE(Defaults.Change("Kantoor", Tray));
    EXPECT_EQ(Text(), "Dest Kantoor InputSlot=Tray3 media-source=tray-3\n");
    ASSERT_TRUE(Defaults.PutBack("Kantoor"));
    EXPECT_FALSE(QFile::exists(Folder.filePath("home/.cups")));
    EXPECT_FALSE(Defaults.Before("Kantoor"));
}

TEST_F(UserDefaultsTest, KeepTheStateBeforeTheFirstOfSeveralChanges) {
    Write(Machine, "Dest Kantoor sides=one-sided\n");
    ASSERT_TRUE(Defaults.Change("Kantoor", {{"PageSize", "Legal"}}));
    ASSERT_TRUE(Defaults.Change("Kantoor", Tray));
    EXPECT_EQ(Defaults.Before("Kantoor"), (CupsOptions{{"sides", "one-sided"}}));
    EXPECT_EQ(Defaults.Options("Kantoor").at("PageSize"), "Legal");
    ASSERT_TRUE(Defaults.Change("Archief", Tray));
    ASSERT_TRUE(Defaults.PutBack("Kantoor"));
    EXPECT_EQ(Text(), "Dest Archief InputSlot=Tray3 media-source=tray-3\n");
}

TEST_F(UserDefaultsTest, TheUsersGoBeforeTheMachines) {
    Write(Machine, "Dest Kantoor InputSlot=Manual sides=one-sided\n");
    EXPECT_EQ(Defaults.Options("Kantoor").at("InputSlot"), "Manual");
    ASSERT_TRUE(Defaults.Change("Kantoor", Tray));
    EXPECT_EQ(Defaults.Options("Kantoor").at("InputSlot"), "Tray3");
    EXPECT_EQ(Defaults.Options("Kantoor").at("sides"), "one-sided");
}

TEST_F(UserDefaultsTest, RefuseWhatWouldNotStayInItsPlace) {
    for (const char* value : {"a b", "a\nDest Archief x=1", "a\"", "a'", "a\\", "{a}"}) {
        EXPECT_FALSE(Defaults.Change("Kantoor", {{"media", value}})) << value;
    }
    EXPECT_FALSE(Defaults.Change("Kan toor", Tray));
    EXPECT_EQ(Text(), "no file");
}

TEST_F(UserDefaultsTest, TellThatTheFileCannotBeWritten) {
    QDir().mkpath(Folder.filePath("home"));
    Write(Folder.filePath("home/.cups"), "a file where the folder should be");
    EXPECT_FALSE(Defaults.Change("Kantoor", Tray));
    EXPECT_FALSE(Defaults.Before("Kantoor"));
}

TEST_F(UserDefaultsTest, AFileThatSomeoneRemovedMeanwhileStaysAway) {
    ASSERT_TRUE(Defaults.Change("Kantoor", Tray));
    QFile::remove(User);
    EXPECT_TRUE(Defaults.PutBack("Kantoor"));
    EXPECT_EQ(Text(), "no file");
}

} // namespace
} // namespace platform::qt
