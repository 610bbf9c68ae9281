// A print server that takes requests and does not answer.
#include <chrono>

#include <gmock/gmock.h>

#include "desktop/cups/CupsServer.h"
#include "print/queues/QueuesFixture.h"
#include "print/queues/SlowServer.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

using desktop::cups::CupsServer;

/// A server that takes every request and answers long after the program has lost its patience.
class Silence : public SlowServer {
  public:
    explicit Silence(const PrintServer& server)
        : SlowServer(server.Folder() + "/cups.sock", CupsServer::Patience + BusyMachine) {}

    /// Nobody has waited for an answer, nor asked again before the server had its rest. A machine that is
    /// busy makes all of it later, and brings no two questions together.
    void ExpectLeftAlone() const {
        EXPECT_FALSE(HasAnswered());
        const auto asked = Asked();
        for (std::size_t i = 1; i < asked.size(); ++i) {
            EXPECT_GT(asked[i] - asked[i - 1], CupsServer::Patience);
        }
    }

  private:
    static constexpr std::chrono::seconds BusyMachine{15};
};

class SilentServerTest : public QueuesTest {
  protected:
    /// The server is asked again a while after it answered again.
    void WaitUntilAsked() {
        EXPECT_TRUE(window::WaitFor([&] { return Program->Printers.Find("Kantoor")->Reachable(); }));
    }
};

TEST_F(SilentServerTest, AtTheStart) {
    {
        const Silence silence(Server);
        StartProgram();
        silence.ExpectLeftAlone();
        Program->OpenManager([&] {
            EXPECT_THAT(Entries(0), ElementsAre("PDF-bestand"));
            Program->CloseManager();
        });
    }
    EXPECT_TRUE(window::WaitFor([&] {
        Program->Printers.Refresh();
        return Program->Printers.Count() == 4;
    }));
    ExpectUsable(1);
}

TEST_F(SilentServerTest, WhenTheManagerOpens) {
    OpenFirst([&] { Program->CloseManager(); });
    {
        const Silence silence(Server);
        Program->OpenManager([&] {
            silence.ExpectLeftAlone();
            EXPECT_THAT(Entries(0), Contains("Kantoor"));
            Program->Play("click frmPrintManager.cmdDetails");
            EXPECT_TRUE(Program->Manager().blnNoConnection);
            EXPECT_FALSE(Program->Manager().blnDetailsOpen);
            Program->CloseManager();
        });
    }
    WaitUntilAsked();
    ExpectUsable(1);
}

TEST_F(SilentServerTest, WhenTheDetailsAreOpened) {
    StartProgram();
    Program->OpenManager([&] { // a printer that is known from the last time
        Program->CloseManager();
    });
    Program->OpenManager([&] {
        {
            const Silence silence(Server);
            Program->Play("click frmPrintManager.cmdDetails");
            silence.ExpectLeftAlone();
        }
        EXPECT_TRUE(Program->Manager().blnNoConnection);
        EXPECT_EQ(Label(6), "Geen verbinding mogelijk");
        WaitUntilAsked();
        Program->OpenDetails();
        Program->CloseManager();
    });
}

TEST_F(SilentServerTest, WhenAnotherPrinterIsChosen) {
    OpenFirst([&] {
        {
            const Silence silence(Server);
            Program->Pick(0, "Driverloos");
            silence.ExpectLeftAlone();
        }
        EXPECT_EQ(Label(6), "Geen verbinding mogelijk");
        EXPECT_FALSE(Program->Manager().blnBusy);
        WaitUntilAsked();
        Program->Play("click frmPrintManager.cmdDetails");
        EXPECT_FALSE(Program->Manager().blnNoConnection);
        EXPECT_EQ(Label(6), "Driverloos");
        Program->CloseManager();
    });
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(SilentServerTest, BetweenLoadAndPrint) {
    OpenFirst([&] {
        const Silence silence(Server);
        Program->Print(NameList);
        silence.ExpectLeftAlone();
    });
    EXPECT_THAT(Messages(), ElementsAre(Unreachable, NoAnswer));
    WaitUntilAsked();
    ExpectUsable(1);
}

TEST_F(SilentServerTest, WhenTheDocumentIsSent) {
    std::unique_ptr<Silence> silence;
    OpenFirst([&] {
        Program->Printer.OnFirstText = [&] { silence = std::make_unique<Silence>(Server); };
        Program->Print(NameList);
        silence->ExpectLeftAlone();
    });
    silence.reset();
    EXPECT_THAT(Messages(), ElementsAre(PerhapsPrinted)); // the server has it, or will have
    WaitUntilAsked();
}

TEST_F(SilentServerTest, BetweenPrintAndRestore) {
    OpenFirst([&] {
        Program->PickDocument(NameList);
        Program->OpenPreview([&] { Program->Play("key frmPrintPreview 27"); });
        const Silence silence(Server);
        Program->CloseManager();
        silence.ExpectLeftAlone();
    });
    EXPECT_THAT(Messages(), IsEmpty());
    WaitUntilAsked();
    ExpectUsable(1);
    Program.reset();
    EXPECT_FALSE(HasUserFile());
}

} // namespace
