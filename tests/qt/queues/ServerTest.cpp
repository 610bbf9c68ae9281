// A print server that is down, hangs, refuses or changes under the program's hands.
#include "qt/queues/QueuesFixture.h"

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* Unreachable =
    "De printer kon niet worden gevonden of de initialisatie van de printer is op dit "
    "moment niet mogelijk.\r\nRegel: 6";
constexpr const char* NoAnswer = "De afdrukserver geeft geen antwoord. Het document is niet afgedrukt.";
constexpr const char* Refused = "De printer Kantoor heeft het document niet aangenomen.\n";

class ServerTest : public QueuesTest {
  protected:
    void OpenFirst(const std::function<void()>& inside) {
        StartProgram();
        Program->OpenManager([&] {
            Program->OpenDetails();
            Program->Pick(2, FormsTray);
            inside();
        });
    }

    /// Opens the manager again, prints, and expects the document as job `number`.
    void ExpectUsable(int number) {
        const std::size_t before = Boxes.All().size();
        Program->OpenManager([&] {
            Program->OpenDetails();
            Program->Pick(0, "Kantoor");
            Program->Pick(2, FormsTray);
            Program->Print(NameList);
        });
        const std::optional<ArrivedJob> job = Server.Job(number);
        ASSERT_TRUE(job);
        EXPECT_EQ(job->Options["InputSlot"], "Tray3");
        EXPECT_EQ(Boxes.All().size(), before);
    }
};

TEST_F(ServerTest, DownAtTheStartLeavesThePdfPrinterUntilItIsUp) {
    Server.Stop();
    StartProgram();
    Program->OpenManager([&] {
        EXPECT_THAT(Entries(0), ElementsAre("PDF-bestand"));
        EXPECT_EQ(Program->Manager().cboPrinterSelect(0).Text(), "PDF-bestand");
        EXPECT_THAT(Entries(1), Contains("A4"));
        Program->CloseManager();
    });
    Server.Start();
    Program->OpenManager([&] {
        EXPECT_THAT(Entries(0), ElementsAre("Driverloos", "Kantoor", "Leeg", "PDF-bestand"));
        Program->CloseManager();
    });
    ExpectUsable(1);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ServerTest, DownBetweenLoadAndPrintIsToldByTheRun) {
    OpenFirst([&] {
        Server.Stop();
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), ElementsAre(Unreachable, NoAnswer));
    EXPECT_EQ(UserFile(), "");
    Server.Start();
    ExpectUsable(1);
}

TEST_F(ServerTest, DownBetweenPrintAndRestoreLeavesTheChoiceUntilTheProgramEnds) {
    OpenFirst([&] {
        Program->PickDocument(NameList);
        window::WhenShown("frmPrintPreview", [] { window::Key(Qt::Key_Escape); });
        Program->Click("cmdPrintVoorbeeld");
        Server.Stop();
        Program->CloseManager();
    });
    EXPECT_THAT(UserFile().toStdString(), testing::HasSubstr("InputSlot=Tray3"));
    EXPECT_THAT(Messages(), IsEmpty());
    Server.Start();
    ExpectUsable(1);
    Program.reset();
    EXPECT_FALSE(HasUserFile());
}

TEST_F(ServerTest, DownShowsNoConnectionUntilTheDetailsAreAskedAgain) {
    OpenFirst([&] {
        Server.Stop();
        Program->Pick(0, "Driverloos");
        EXPECT_EQ(Label(6), "Geen verbinding mogelijk");
        EXPECT_EQ(Label(5), "n/a");
        EXPECT_TRUE(Program->Manager().pictError.Visible());
        EXPECT_THAT(Entries(1), IsEmpty());
        Program->Click("cmdDetails");
        EXPECT_TRUE(Program->Manager().blnNoConnection);
        Server.Start();
        Program->Click("cmdDetails");
        EXPECT_FALSE(Program->Manager().blnNoConnection);
        EXPECT_EQ(Label(6), "Driverloos");
        EXPECT_FALSE(Program->Manager().pictError.Visible());
        Program->CloseManager();
    });
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ServerTest, AQueueThatRejectsDocumentsIsTold) {
    OpenFirst([&] {
        ASSERT_TRUE(Server.Run("cupsreject", {"Kantoor"}));
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), ElementsAre(StartsWith(Refused)));
    EXPECT_EQ(UserFile(), "");
    ASSERT_TRUE(Server.Run("cupsaccept", {"Kantoor"}));
    ExpectUsable(1);
}

TEST_F(ServerTest, APolicyThatDeniesIsToldAndNobodyIsAskedForAPassword) {
    OpenFirst([&] {
        ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Kantoor", "-o", "printer-op-policy=wachtwoord"}));
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), ElementsAre(StartsWith(Refused)));
    ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Kantoor", "-o", "printer-op-policy=default"}));
    ExpectUsable(1);
}

TEST_F(ServerTest, APausedQueueTakesTheDocumentAndKeepsIt) {
    ASSERT_TRUE(Server.Run("cupsdisable", {"Kantoor"}));
    OpenFirst([&] {
        EXPECT_EQ(Label(5), "Standaard printer; "); // the status line has no name for it
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_FALSE(Server.HasJob(1));
    ASSERT_TRUE(Server.Run("cupsenable", {"Kantoor"}));
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Options["InputSlot"], "Tray3");
}

TEST_F(ServerTest, APrinterWithoutPaperShowsNoStatusAndPrintsWhenThereIsPaper) {
    constexpr std::uint32_t PaperOut = 16;
    constexpr std::uint32_t Offline = 128;
    OpenFirst([&] {
        Program->Pick(0, "Leeg");
        EXPECT_EQ(Label(5), "Ready");
        Program->Print(NameList);
    });
    const auto status = [&] { return Program->Printers.Find("Leeg")->Status(); };
    EXPECT_TRUE(window::WaitFor([&] { return (status() & PaperOut) != 0; }));
    EXPECT_EQ(status() & Offline, Offline);
    Program->OpenManager([&] {
        Program->OpenDetails();
        Program->Pick(0, "Leeg");
        EXPECT_EQ(Label(6), "Leeg");
        EXPECT_EQ(Label(5), "");
        Program->CloseManager();
    });
    EXPECT_FALSE(Server.HasJob(1));
    Server.PutPaperIn();
    EXPECT_TRUE(Server.Job(1));
    EXPECT_TRUE(window::WaitFor([&] { return status() == 0; }));
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ServerTest, AQueueThatVanishesIsToldByTheRunAndIsGoneFromTheNextList) {
    OpenFirst([&] {
        ASSERT_TRUE(Server.Run("lpadmin", {"-x", "Kantoor"}));
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), ElementsAre(Unreachable, StartsWith(Refused)));
    Program->OpenManager([&] {
        EXPECT_THAT(Entries(0), ElementsAre("Driverloos", "Leeg", "PDF-bestand"));
        EXPECT_TRUE(Program->Manager().blnNoConnection);
        Program->CloseManager();
    });
}

TEST_F(ServerTest, PapersThatChangeMeanwhileDoNotBecomeOthers) {
    QByteArray ppd = Server.Read("kantoor.ppd");
    ppd.replace("Acceptgiro", "Kaart").replace("3 op 1", "klein").replace("Tray3", "Groot");
    Server.Write("nieuw.ppd", ppd);
    OpenFirst([&] {
        Program->Pick(1, "Acceptgiro 3 op 1");
        ASSERT_TRUE(Server.Run("lpadmin", {"-p", "Kantoor", "-P", Server.Folder() + "/nieuw.ppd"}));
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), IsEmpty());
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Options["PageSize"], "A4"); // the queue's own
    EXPECT_EQ(job->Options["InputSlot"], "Upper");
    EXPECT_EQ(UserFile(), "");
    Program->OpenManager([&] {
        Program->OpenDetails();
        EXPECT_THAT(Entries(1), Contains("Kaart klein"));
        EXPECT_THAT(Entries(1), Not(Contains("Acceptgiro 3 op 1")));
        Program->CloseManager();
    });
}

/// A server that takes every request and answers after ten seconds.
class Silence {
  public:
    explicit Silence(PrintServer& server) : server_(server) {
        server_.Freeze();
        thread_ = std::thread([this] {
            std::unique_lock lock(mutex_);
            over_ = !ended_.wait_for(lock, std::chrono::seconds(10), [this] { return isEnded_; });
            server_.Thaw();
        });
    }
    ~Silence() { End(); }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

    /// Has the server answered, so that someone may have waited for it?
    bool HasAnswered() const { return over_; }

    void End() {
        {
            const std::lock_guard lock(mutex_);
            isEnded_ = true;
        }
        ended_.notify_all();
        if (thread_.joinable()) {
            thread_.join();
        }
    }

  private:
    PrintServer& server_;
    std::mutex mutex_;
    std::condition_variable ended_;
    bool isEnded_ = false;
    std::atomic<bool> over_ = false;
    std::thread thread_;
};

class SilentServerTest : public ServerTest {
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
        Program->OpenManager([&] {
            EXPECT_THAT(Entries(0), ElementsAre("PDF-bestand"));
            Program->CloseManager();
        });
        EXPECT_FALSE(silence.HasAnswered());
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
            EXPECT_THAT(Entries(0), Contains("Kantoor"));
            Program->Click("cmdDetails");
            EXPECT_TRUE(Program->Manager().blnNoConnection);
            EXPECT_FALSE(Program->Manager().blnDetailsOpen);
            Program->CloseManager();
        });
        EXPECT_FALSE(silence.HasAnswered());
    }
    WaitUntilAsked();
    ExpectUsable(1);
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
        Program->Click("cmdDetails");
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
    EXPECT_THAT(Messages(), ElementsAre(NoAnswer));
    WaitUntilAsked();
}

TEST_F(SilentServerTest, BetweenPrintAndRestore) {
    OpenFirst([&] {
        Program->PickDocument(NameList);
        window::WhenShown("frmPrintPreview", [] { window::Key(Qt::Key_Escape); });
        Program->Click("cmdPrintVoorbeeld");
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
