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

/// A server that takes every request and answers a second after the program has lost its patience: an action
/// that ends before the first answer has not waited longer than it may.
class Silence : public SlowServer {
  public:
    explicit Silence(const PrintServer& server)
        : SlowServer(server.Folder() + "/cups.sock",
                     desktop::cups::CupsServer::Patience + std::chrono::seconds(1)) {}
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
        EXPECT_FALSE(silence.HasAnswered());
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
            EXPECT_FALSE(silence.HasAnswered());
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
            EXPECT_FALSE(silence.HasAnswered());
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
            EXPECT_FALSE(silence.HasAnswered());
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
        EXPECT_FALSE(silence.HasAnswered());
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
        EXPECT_FALSE(silence->HasAnswered());
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
        EXPECT_FALSE(silence.HasAnswered());
    });
    EXPECT_THAT(Messages(), IsEmpty());
    WaitUntilAsked();
    ExpectUsable(1);
    Program.reset();
    EXPECT_FALSE(HasUserFile());
}

} // namespace
