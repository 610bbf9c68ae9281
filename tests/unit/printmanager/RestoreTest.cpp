#include "ManagerFixture.h"

namespace printmanager {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class RestoreTest : public ManagerTest {
  protected:
    RestoreTest() { InstallTwo(); }

    /// The user has printed on Laser with its second paper and bin.
    void PrintOnLaser() {
        OpenAndPick();
        manager->cboPrinterSelect(1).SetListIndex(1);
        manager->cboPrinterSelect(2).SetListIndex(1);
        manager->PreparePrinter("Laser");
        manager->blnRestorePending = true;
    }

    memory::PrintQueue& Laser() { return *memory.printers.Find("Laser"); }
    memory::PrintQueue& Inkt() { return *memory.printers.Find("Inkt"); }
};

TEST_F(RestoreTest, PutsPaperAndBinBackInOrder) {
    PrintOnLaser();
    const std::vector<std::string> reload = {
        "Printer=Laser", "caps 16",     "caps 2",     "caps 16", "caps 3",      "caps 6",     "caps 6",
        "caps 12",       "open Laser",  "size",       "fetch",   "close Laser", "open Laser", "size",
        "fetch",         "close Laser", "open Laser", "size",    "fetch",       "close Laser"};
    EXPECT_EQ(TraceOf([&] { manager->RestorePrinterState(); }),
              Joined({reload,
                      {"Printer=Laser", "open Laser", "size", "fetch", "merge paper=9 bin=1", "info size",
                       "info", "set paper=9 bin=1", "close Laser", "yield*20", "PaperSize=9"},
                      {"open Laser", "size", "fetch", "merge paper=9 bin=15", "info size", "info",
                       "set paper=9 bin=15", "close Laser", "yield*20", "PaperBin=15"},
                      reload}));
    EXPECT_FALSE(manager->blnRestorePending);
    EXPECT_EQ(Laser().Defaults.PaperSize, 9);
    EXPECT_EQ(Laser().Defaults.DefaultSource, 15);
}

TEST_F(RestoreTest, RememberedStateIsTheFirstOne) {
    Open();
    manager->cboPrinterSelect(1).SetListIndex(1);
    manager->RememberPrinterState(true);
    EXPECT_EQ(manager->RestoreState.Paper, "0");
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(manager->RestoreState.Printer, "Laser");
}

TEST_F(RestoreTest, RememberingWithoutTheFlagKeepsTheStateToGoBackTo) {
    Open();
    manager->RestoreState = {};
    manager->RememberPrinterState(false);
    EXPECT_EQ(manager->RestoreState.Printer, "");
}

TEST_F(RestoreTest, StopsEarlyAndStaysPending) {
    struct Row {
        const char* Name;
        std::function<void(frmPrintManager&)> Spoil;
    };
    const Row rows[] = {
        {"filling", [](auto& m) { m.blnFillingPrinters = true; }},
        {"no connection", [](auto& m) { m.blnNoConnection = true; }},
        {"no bins", [](auto& m) { m.cboPrinterSelect(2).Clear(); }},
        {"no first printer", [](auto& m) { m.FirstPrinterState.Printer.clear(); }},
        {"no printer", [](auto& m) { m.RestoreState.Printer.clear(); }},
        {"no paper", [](auto& m) { m.RestoreState.Paper = "-1"; }},
        {"no bin", [](auto& m) { m.RestoreState.Bin = "-1"; }},
        {"no orientation", [](auto& m) { m.RestoreState.Orientation = "-1"; }},
    };
    for (const Row& row : rows) {
        PrintOnLaser();
        row.Spoil(*manager);
        EXPECT_THAT(TraceOf([&] { manager->RestorePrinterState(); }), IsEmpty()) << row.Name;
        EXPECT_TRUE(manager->blnRestorePending) << row.Name;
        manager->blnRestorePending = false;
        CloseAndForget();
        Laser().Defaults = {};
    }
}

TEST_F(RestoreTest, ChoiceOfAnotherPrinterRestoresFirst) {
    PrintOnLaser();
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(Laser().Defaults.PaperSize, 9);
    EXPECT_FALSE(manager->blnRestorePending);
    EXPECT_EQ(manager->objPrinter.DeviceName, "Inkt");
    EXPECT_EQ(memory.desktop.LockedWindow(), 0U);
    EXPECT_EQ(memory.printer.DeviceName(), "Laser");
}

TEST_F(RestoreTest, DrawingIsLockedWhileItWorksAndUnlockedAfterAFailure) {
    PrintOnLaser();
    std::uintptr_t locked = 0;
    memory.desktop.OnYield = [&] { locked = memory.desktop.LockedWindow(); };
    memory.recorder.Fail("PaperBin");
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(locked, manager->pictDetails.hWnd());
    EXPECT_NE(locked, 0U);
    EXPECT_EQ(memory.desktop.LockedWindow(), 0U);
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Geen verbinding mogelijk");
}

TEST_F(RestoreTest, CloseRestoresTheFirstPrinterAlsoAfterARunOnAnother) {
    Open();
    manager->cboPrinterSelect(0).UserPick(1);
    manager->cboPrinterSelect(1).SetListIndex(1);
    manager->cboPrinterSelect(2).SetListIndex(1);
    manager->PreparePrinter("Inkt");
    manager->blnRestorePending = true;
    Laser().Defaults.PaperSize = 5;
    EXPECT_TRUE(manager->UserClose());
    EXPECT_EQ(Laser().Defaults.PaperSize, 9);
    // What the run wrote elsewhere stays.
    EXPECT_EQ(Inkt().Defaults.PaperSize, 5);
    EXPECT_EQ(Inkt().Defaults.DefaultSource, 1);
    EXPECT_EQ(Stored("CurrentPrinter"), "Laser");
}

TEST_F(RestoreTest, PrinterThatIsGoneLeavesItsDefaults) {
    PrintOnLaser();
    manager->RestoreState.Printer = "Weg";
    EXPECT_THAT(TraceOf([&] { manager->RestorePrinterState(); }),
                ElementsAre("open Weg", "PaperSize=9", "open Weg", "PaperBin=15"));
}

} // namespace
} // namespace printmanager
