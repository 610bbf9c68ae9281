// The user's own defaults of the queues, which a run borrows and gives back.
#include "qt/queues/QueuesFixture.h"

#include <QProcess>

#include <gmock/gmock.h>

#include <csignal>
#include <cstring>

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr const char* Preview = "frmPrintPreview";

// As a hand may have left it: no line end at the end, a queue that is gone, an instance, blanks.
constexpr const char* OddFile =
    "# van mij\n"
    "Default Archief sides=one-sided\n"
    "Dest  Weg InputSlot=Manual\n"
    "Dest Kantoor/concept PageSize=Legal\n"
    "dest Kantoor   x-nota=\"a b\"  media=iso_a4_210x297mm InputSlot=Upper x-afdeling=4 \n"
    "Dest Driverloos media-source=top";

/// With the odd file or without one.
class DefaultsTest : public QueuesTest, public testing::WithParamInterface<bool> {
  protected:
    DefaultsTest() {
        if (GetParam()) {
            WriteUserFile(OddFile);
        }
    }
    void ExpectAsBefore() {
        EXPECT_EQ(HasUserFile(), GetParam());
        EXPECT_EQ(UserFile().toStdString(), GetParam() ? OddFile : "");
    }
};

TEST_P(DefaultsTest, AreAsBeforeWhenTheManagerHasClosed) {
    StartProgram();
    Program->OpenManager([&] {
        Program->OpenDetails();
        Program->Pick(1, LegalPaper);
        Program->Pick(2, FormsTray);
        Program->Print(NameList);
    });
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Options["InputSlot"], "Tray3");
    ExpectAsBefore();
}

TEST_P(DefaultsTest, HoldTheChoiceFromThePreparationToTheClosing) {
    StartProgram();
    Program->OpenManager([&] {
        Program->OpenDetails();
        Program->Pick(2, FormsTray);
        Program->PickDocument(NameList);
        window::WhenShown(Preview, [&] {
            EXPECT_THAT(UserFile().toStdString(), HasSubstr("InputSlot=Tray3"));
            EXPECT_THAT(UserFile().toStdString(), HasSubstr("media-source=tray-3"));
            window::Key(Qt::Key_Escape);
        });
        Program->Click("cmdPrintVoorbeeld");
        EXPECT_THAT(UserFile().toStdString(), HasSubstr("InputSlot=Tray3"));
        Program->CloseManager();
    });
    ExpectAsBefore();
}

TEST_P(DefaultsTest, OfAnotherPrinterThanTheFirstAreAsBeforeWhenTheProgramHasEnded) {
    StartProgram();
    Program->OpenManager([&] {
        Program->OpenDetails();
        Program->Pick(0, "Driverloos");
        Program->Pick(2, "Lade 3");
        Program->Print(NameList);
    });
    ASSERT_TRUE(Server.Job(1));
    // The manager goes back to its first printer, and leaves what it set on another.
    EXPECT_THAT(UserFile().toStdString(), HasSubstr("media-source=tray-3"));
    EXPECT_THAT(UserFile().toStdString(), Not(HasSubstr("Tray3")));
    Program.reset();
    ExpectAsBefore();
}

TEST_P(DefaultsTest, KeepWhatSomeoneElseSetsMeanwhile) {
    StartProgram();
    Program->OpenManager([&] {
        Program->OpenDetails();
        Program->Pick(0, "Driverloos");
        Program->Pick(2, "Lade 3");
        Program->Print(NameList);
    });
    ASSERT_TRUE(Server.Run("lpoptions", {"-p", "Driverloos", "-o", "x-nieuw=7"}));
    Program.reset();
    const std::string left = UserFile().toStdString();
    EXPECT_THAT(left, HasSubstr("x-nieuw=7"));
    EXPECT_THAT(left, Not(HasSubstr("tray-3")));
    EXPECT_EQ(left.find("media-source=top") != std::string::npos, GetParam());
}

INSTANTIATE_TEST_SUITE_P(, DefaultsTest, testing::Bool(),
                         [](const auto& each) { return each.param ? "WithAFile" : "WithoutAFile"; });

class KilledTest : public QueuesTest {};

TEST_F(KilledTest, BetweenPrintAndRestoreTheTrayStaysAndTheNextRunWorksWithIt) {
    WriteUserFile("Dest Kantoor x-afdeling=4\n");
    QProcess run;
    run.start(QCoreApplication::applicationFilePath(), {"--print-and-wait"});
    ASSERT_TRUE(Server.Job(1)); // the document is out, the manager still open
    EXPECT_EQ(Server.Job(1)->Options["InputSlot"], "Tray3");
    run.kill();
    ASSERT_TRUE(run.waitForFinished());
    EXPECT_EQ(run.exitStatus(), QProcess::CrashExit);
    const std::string found = UserFile().toStdString();
    EXPECT_THAT(found, HasSubstr("InputSlot=Tray3"));

    StartProgram();
    Program->OpenManager([&] {
        Program->OpenDetails();
        EXPECT_EQ(Program->Manager().cboPrinterSelect(2).Text(), FormsTray);
        Program->Print(NameList);
    });
    const std::optional<ArrivedJob> job = Server.Job(2);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Options["InputSlot"], "Tray3");
    EXPECT_EQ(job->Options["x-afdeling"], "4");
    EXPECT_EQ(UserFile().toStdString(), found);
    EXPECT_THAT(Messages(), testing::IsEmpty());
}

class EndedTest : public QueuesTest, public testing::WithParamInterface<int> {};

TEST_P(EndedTest, ByASignalTheProgramPutsBackWhatItBorrowed) {
    constexpr const char* Found = "Dest  Kantoor x-afdeling=4";
    WriteUserFile(Found);
    QProcess run;
    run.start(QCoreApplication::applicationFilePath(), {"--print-and-wait"});
    ASSERT_TRUE(Server.Job(1));
    EXPECT_THAT(UserFile().toStdString(), HasSubstr("InputSlot=Tray3"));
    EXPECT_EQ(kill(static_cast<pid_t>(run.processId()), GetParam()), 0);
    ASSERT_TRUE(run.waitForFinished());
    EXPECT_EQ(run.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(UserFile().toStdString(), Found);
}

INSTANTIATE_TEST_SUITE_P(, EndedTest, testing::Values(SIGTERM, SIGINT, SIGHUP),
                         [](const auto& each) { return std::string(sigabbrev_np(each.param)); });

} // namespace
