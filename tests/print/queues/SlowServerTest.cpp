// A print server that works, but takes its time for each answer.
#include "print/queues/SlowServer.h"

#include <gmock/gmock.h>

#include "desktop/cups/CupsServer.h"
#include "print/queues/QueuesFixture.h"

namespace {

using std::chrono::milliseconds;
using testing::AnyOf;

/// The user's own tray is not the first of the list, which is selected where none is known.
class SlowServerTest : public QueuesTest, public testing::WithParamInterface<int> {
  protected:
    void SetUp() override {
        QueuesTest::SetUp();
        WriteUserFile("Dest Kantoor InputSlot=Tray3 PageSize=Legal\nDest Driverloos media-source=tray-3\n");
    }
    /// What a user is told whose document may have come.
    static constexpr const char* Unsure =
        "De afdrukserver heeft niet bevestigd dat het document is aangekomen.";

    QString Socket() const { return Server.Folder() + "/cups.sock"; }
    milliseconds Delay() const { return milliseconds(GetParam()); }

    void ExpectTrayOrNoConnection(const std::string& tray, const std::string& position) {
        printmanager::frmPrintManager& manager = Program->Manager();
        if (manager.cboPrinterSelect(2).ListCount() == 0) {
            EXPECT_TRUE(manager.blnNoConnection);
            EXPECT_EQ(Label(6), "Geen verbinding mogelijk");
        } else {
            EXPECT_EQ(manager.cboPrinterSelect(2).Text(), tray);
            EXPECT_THAT(manager.RestoreState.Bin, AnyOf(position, "-1"));
        }
    }
    /// The document is on the chosen tray, or has not gone out and the user knows it.
    void ExpectJobFromOrMessage(const QString& slot) {
        if (Messages().empty() || Server.HasJob(1)) {
            const std::optional<ArrivedJob> job = Server.Job(1);
            ASSERT_TRUE(job);
            EXPECT_EQ(job->Options["InputSlot"].toStdString(), slot.toStdString());
        }
        if (Server.HasJob(1)) {
            EXPECT_THAT(Messages(), testing::Each(testing::StartsWith(Unsure)));
        }
    }
};

TEST_P(SlowServerTest, AnOpeningShowsTheUsersTrayOrNone) {
    const SlowServer slow(Socket(), Delay());
    StartProgram();
    Program->OpenManager([&] {
        Program->Play("click frmPrintManager.cmdDetails");
        ExpectTrayOrNoConnection(FormsTray, "1");
        Program->CloseManager();
    });
    EXPECT_THAT(UserFile().toStdString(),
                testing::StartsWith("Dest Kantoor InputSlot=Tray3 PageSize=Legal\n"));
}

TEST_P(SlowServerTest, AnotherPrinterShowsItsTrayOrNone) {
    StartProgram();
    Program->OpenManager([&] {
        Program->OpenDetails();
        const SlowServer slow(Socket(), Delay());
        Program->Pick(0, "Driverloos");
        ExpectTrayOrNoConnection("Lade 3", "1");
        Program->CloseManager();
    });
}

TEST_P(SlowServerTest, ADocumentComesFromTheChosenTrayOrNotAtAll) {
    StartProgram();
    Program->OpenManager([&] {
        Program->OpenDetails();
        Program->Pick(2, "Handinvoer");
        const SlowServer slow(Socket(), Delay());
        Program->Print(NameList);
    });
    ExpectJobFromOrMessage("Manual");
    Program.reset();
    EXPECT_EQ(UserFile().toStdString(),
              "Dest Kantoor InputSlot=Tray3 PageSize=Legal\nDest Driverloos media-source=tray-3\n");
}

INSTANTIATE_TEST_SUITE_P(, SlowServerTest, testing::Values(100, 500, 900),
                         [](const auto& each) { return "By" + std::to_string(each.param) + "Milliseconds"; });

/// What an answer that keeps the user waiting is still good for.
TEST_F(QueuesTest, AnActionAsksASlowQueueOnce) {
    StartProgram();
    Program->OpenManager([&] {
        Program->OpenDetails();
        const SlowServer slow(Server.Folder() + "/cups.sock",
                              desktop::cups::CupsServer::Prompt + milliseconds(50));
        Program->Pick(0, "Driverloos");
        EXPECT_LE(slow.Answers(), 3); // leave to send, the attributes, and that there is no PPD
        EXPECT_EQ(Label(6), "Driverloos");
        Program->CloseManager();
    });
}

} // namespace
