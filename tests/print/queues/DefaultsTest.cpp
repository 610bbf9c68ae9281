// The user's own defaults of the queues, which a run reads and never writes.
#include <csignal>
#include <cstring>

#include <QCoreApplication>
#include <QFileInfo>
#include <QProcess>
#include <gmock/gmock.h>

#include "print/queues/QueuesFixture.h"

namespace {

using testing::HasSubstr;
using testing::Not;

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

TEST_P(DefaultsTest, HoldTheChoiceInTheProgramAlone) {
    StartProgram();
    const auto bin = [&] { return Program->Printers.Find("Kantoor")->ReadSettings().BinId; };
    std::int16_t first = 0;
    Program->OpenManager([&] {
        Program->OpenDetails();
        first = bin();
        Program->Pick(2, FormsTray);
        Program->PickDocument(NameList);
        Program->OpenPreview([&] {
            EXPECT_NE(bin(), first);
            ExpectAsBefore();
            Program->Play("key frmPrintPreview 27");
        });
        EXPECT_NE(bin(), first);
        Program->CloseManager();
    });
    EXPECT_EQ(bin(), first); // put back through the spooler
    ExpectAsBefore();
}

TEST_P(DefaultsTest, OfAnotherPrinterThanTheFirstStayChangedUntilTheProgramEnds) {
    StartProgram();
    const auto printFromTray3 = [&](bool pick) {
        Program->OpenManager([&] {
            Program->OpenDetails();
            Program->Pick(0, "Driverloos");
            if (pick) {
                Program->Pick(2, "Lade 3");
            }
            EXPECT_EQ(Program->Manager().cboPrinterSelect(2).Text(), "Lade 3");
            Program->Print(NameList);
        });
    };
    printFromTray3(true);
    printFromTray3(false); // the manager goes back to its first printer, and leaves what it set on another
    ASSERT_TRUE(Server.Job(2));
    ExpectAsBefore();
    Program.reset();
    ExpectAsBefore();
    StartProgram();
    Program->OpenManager([&] {
        Program->OpenDetails();
        Program->Pick(0, "Driverloos");
        EXPECT_NE(Program->Manager().cboPrinterSelect(2).Text(), "Lade 3");
        Program->CloseManager();
    });
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
    const std::string set = UserFile().toStdString();
    EXPECT_THAT(set, HasSubstr("x-nieuw=7"));
    EXPECT_THAT(set, Not(HasSubstr("tray-3")));
    Program.reset();
    EXPECT_EQ(UserFile().toStdString(), set);
}

INSTANTIATE_TEST_SUITE_P(, DefaultsTest, testing::Bool(),
                         [](const auto& each) { return each.param ? "WithAFile" : "WithoutAFile"; });

/// What becomes of the user's file where a run ends between print and restore, however it ends.
class EndedTest : public QueuesTest, public testing::WithParamInterface<int> {};

TEST_P(EndedTest, ByASignalTheRunLeavesTheUsersFileAsItIs) {
    constexpr const char* found = "Dest  Kantoor x-afdeling=4";
    WriteUserFile(found);
    QProcess run;
    run.start(QCoreApplication::applicationFilePath(), {"--print-and-wait"});
    ASSERT_TRUE(Server.Job(1)); // the document is out, the manager still open
    EXPECT_EQ(Server.Job(1)->Options["InputSlot"], "Tray3");
    EXPECT_EQ(UserFile().toStdString(), found);
    EXPECT_EQ(kill(static_cast<pid_t>(run.processId()), GetParam()), 0);
    ASSERT_TRUE(run.waitForFinished());
    EXPECT_EQ(run.exitStatus(),
              GetParam() == SIGKILL || GetParam() == SIGQUIT ? QProcess::CrashExit : QProcess::NormalExit);
    EXPECT_EQ(UserFile().toStdString(), found);
}

INSTANTIATE_TEST_SUITE_P(, EndedTest, testing::Values(SIGTERM, SIGINT, SIGHUP, SIGKILL, SIGQUIT),
                         [](const auto& each) { return std::string(sigabbrev_np(each.param)); });

/// What of the user's file cannot be read or written.
class UnusableFileTest : public QueuesTest {};

TEST_F(UnusableFileTest, AFolderInItsPlaceIsToldAndLosesNoChoice) {
    QDir().mkpath(Server.Folder() + "/.cups/lpoptions");
    OpenFirst([&] {
        EXPECT_EQ(Label(5), "Standaard printer; lpoptions is niet te lezen");
        Program->Pick(1, LegalPaper);
        Program->Print(NameList);
    });
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Options["InputSlot"], "Tray3");
    EXPECT_EQ(job->Options["PageSize"], "Legal");
    EXPECT_THAT(Messages(), testing::IsEmpty());
    EXPECT_TRUE(QFileInfo(Server.Folder() + "/.cups/lpoptions").isDir());
}

} // namespace
