// A print server that is down, refuses or changes under the program's hands.
#include <cups/cups.h>
#include <gmock/gmock.h>

#include "desktop/cups/PaperTable.h"
#include "print/pdf/PdfReader.h"
#include "print/queues/DrawAgain.h"
#include "print/queues/QueuesFixture.h"

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char* Refused = "De printer Kantoor heeft het document niet aangenomen.\n";

/// So many are still refused.
int refusedConnections = 0;

class ServerTest : public QueuesTest {};

} // namespace

// NOLINTBEGIN(bugprone-reserved-identifier,readability-identifier-naming): the linker's names (--wrap)
extern "C" {

http_t* __real_httpConnect2(const char* host, int port, http_addrlist_t* addresses, int family,
                            http_encryption_t encryption, int blocking, int milliseconds, int* cancel);
http_t* __wrap_httpConnect2(const char* host, int port, http_addrlist_t* addresses, int family,
                            http_encryption_t encryption, int blocking, int milliseconds, int* cancel) {
    if (refusedConnections > 0) {
        --refusedConnections;
        return nullptr;
    }
    return __real_httpConnect2(host, port, addresses, family, encryption, blocking, milliseconds, cancel);
}

} // extern "C"
// NOLINTEND(bugprone-reserved-identifier,readability-identifier-naming)

namespace {

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

// Else the document's printer would be forgotten for this start and, once the manager closes, for the next.
TEST_F(ServerTest, OneQuestionThatIsLostAtTheStartCostsNoPrinter) {
    refusedConnections = 1;
    StartProgram();
    EXPECT_EQ(refusedConnections, 0);
    Program->OpenManager([&] {
        EXPECT_EQ(Program->Manager().cboPrinterSelect(0).Text(), "Kantoor");
        Program->CloseManager();
    });
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(ServerTest, DownBetweenLoadAndPrintIsToldByTheRun) {
    OpenFirst([&] {
        Server.Stop();
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), ElementsAre(Unreachable, NoAnswer));
    Server.Start();
    ExpectUsable(1);
    Program.reset();
    EXPECT_FALSE(HasUserFile());
}

TEST_F(ServerTest, DownBetweenPrintAndRestorePutsTheDefaultsBackAllTheSame) {
    OpenFirst([&] {
        Program->PickDocument(NameList);
        Program->OpenPreview([&] { Program->Play("key frmPrintPreview 27"); });
        Server.Stop();
        EXPECT_FALSE(Program->Printers.Find("Kantoor")->ReachableNow());
        EXPECT_EQ(Program->Printers.Find("Kantoor")->ReadSettings().BinId, 257);
        Program->CloseManager();
    });
    EXPECT_EQ(Program->Printers.Find("Kantoor")->ReadSettings().BinId, 1);
    EXPECT_THAT(Messages(), IsEmpty());
    Server.Start();
    ExpectUsable(1);
    Program.reset();
    EXPECT_FALSE(HasUserFile());
}

TEST_F(ServerTest, DownWhenTheDetailsAreAskedAndBackForThePrintGivesTheDriversDefaults) {
    OpenFirst([&] { Program->CloseManager(); });
    Program->OpenManager([&] { // the printer of the last time, without its lists
        Server.Stop();
        Program->Play("click frmPrintManager.cmdDetails");
        EXPECT_TRUE(Program->Manager().blnNoConnection);
        Server.Start();
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), IsEmpty());
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Options["PageSize"], "A4");
    EXPECT_EQ(job->Options["InputSlot"], "Upper");
}

TEST_F(ServerTest, OneFailedOpenBehindTheListsCostsNeitherTheDocumentNorTheChoice) {
    OpenFirst([&] {
        Server.Stop();
        machine::PrinterHandle handle = 0;
        EXPECT_FALSE(Program->Printers.Find("Kantoor")->ReachableNow());
        EXPECT_FALSE(Program->Spooler.OpenPrinterA("Kantoor", handle, {}));
        Server.Start();
        Program->Print(NameList);
    });
    EXPECT_THAT(Messages(), IsEmpty());
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Options["InputSlot"], "Tray3");
}

TEST_F(ServerTest, DownShowsNoConnectionUntilTheDetailsAreAskedAgain) {
    OpenFirst([&] {
        Server.Stop();
        Program->Pick(0, "Driverloos");
        EXPECT_EQ(Label(6), "Geen verbinding mogelijk");
        EXPECT_EQ(Label(5), "n/a");
        EXPECT_TRUE(Program->Manager().pictError.Visible());
        EXPECT_THAT(Entries(1), IsEmpty());
        Program->Play("click frmPrintManager.cmdDetails");
        EXPECT_TRUE(Program->Manager().blnNoConnection);
        Server.Start();
        Program->Play("click frmPrintManager.cmdDetails");
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
    constexpr std::uint32_t paperOut = 16;
    constexpr std::uint32_t offline = 128;
    OpenFirst([&] {
        Program->Pick(0, "Leeg");
        EXPECT_EQ(Label(5), "Ready");
        Program->Print(NameList);
    });
    const auto status = [&] {
        desktop::cups::PrintQueue* queue = Program->Printers.Find("Leeg");
        EXPECT_TRUE(queue->ReachableNow());
        return queue->Status();
    };
    EXPECT_TRUE(window::WaitFor([&] { return (status() & paperOut) != 0; }));
    EXPECT_EQ(status() & offline, offline);
    Program->OpenManager([&] {
        Program->OpenDetails();
        Program->Pick(0, "Leeg");
        EXPECT_EQ(Label(6), "Leeg");
        EXPECT_EQ(Label(5), "");
        Program->CloseManager();
    });
    EXPECT_FALSE(Server.HasJob(1));
    Server.PutPaperIn();
    const std::optional<ArrivedJob> job = Server.Job(1);
    ASSERT_TRUE(job);
    EXPECT_EQ(job->Queue, "Leeg");
    EXPECT_EQ(job->Title, "Namenlijst");
    EXPECT_EQ(job->Options["InputSlot"], "Upper");
    const QString drawn = Server.Folder() + "/drawn.pdf";
    DrawAgain(Program->Printer.LastDocument(), desktop::cups::PaperA4, drawn);
    EXPECT_EQ(pdf::Text(job->File), pdf::Text(drawn));
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

} // namespace
