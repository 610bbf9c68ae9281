#include "ManagerFixture.h"
#include "StubSpooler.h"

namespace printmanager {

using testing::ElementsAre;

namespace {

const std::vector<std::string> LoadsInkt = {"caps 16",    "caps 2",    "caps 16",   "caps 3",    "caps 6",
                                            "caps 6",     "caps 12",   "open Inkt", "size",      "fetch",
                                            "close Inkt", "open Inkt", "size",      "fetch",     "close Inkt",
                                            "open Inkt",  "size",      "fetch",     "close Inkt"};
const std::vector<std::string> AsksInfo = {"yield*1", "open Inkt", "info size", "info"};

class PrinterChoiceTest : public ManagerTest {
  protected:
    PrinterChoiceTest() { InstallTwo(); }
    memory::PrintQueue& Inkt() { return *memory.printers.Find("Inkt"); }
};

TEST_F(PrinterChoiceTest, ChangeLoadsTheListsAndAsksTheSpooler) {
    Open();
    Inkt().Comment = "kamer 3";
    EXPECT_EQ(TraceOf([&] { manager->cboPrinterSelect(0).UserPick(1); }), Joined({LoadsInkt, AsksInfo}));
    EXPECT_EQ(manager->objPrinter.DeviceName, "Inkt");
    EXPECT_EQ(manager->strCurrentPrinter, "Inkt");
    EXPECT_TRUE(manager->blnUserChanged);
    EXPECT_FALSE(manager->blnBusy);
    // The prefix follows the current printer, which a choice does not change.
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "Ready");
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Inkt");
    EXPECT_EQ(manager->lblPrinterSelect(7).Caption(), "Inkt:");
    EXPECT_EQ(manager->lblPrinterSelect(8).Caption(), "kamer 3");
    EXPECT_EQ(manager->RestoreState.Printer, "Laser");
}

TEST_F(PrinterChoiceTest, CurrentIdentifierThatIsNotInItsListSelectsTheFirst) {
    Inkt().Defaults = {.Orientation = 0, .PaperSize = 77, .DefaultSource = 78, .Copies = 1};
    Open();
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(manager->cboPrinterSelect(1).ListIndex(), 0);
    EXPECT_EQ(manager->cboPrinterSelect(2).ListIndex(), 0);
    EXPECT_EQ(manager->cboPrinterSelect(3).Text(), "Staand");
}

TEST_F(PrinterChoiceTest, LaterMatchOverridesAnEarlierOne) {
    Inkt().Papers = {{9, 1, 1, "A4"}, {9, 1, 1, "A4 klein"}, {5, 1, 1, "Legal"}};
    Open();
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(manager->cboPrinterSelect(1).Text(), "A4 klein");
}

TEST_F(PrinterChoiceTest, OrientationTwoAloneIsLandscape) {
    Open();
    for (const int orientation : {0, 1, 2, 3}) {
        Inkt().Defaults.Orientation = static_cast<std::int16_t>(orientation);
        manager->cboPrinterSelect(0).UserPick(1);
        EXPECT_EQ(manager->cboPrinterSelect(3).Text(), orientation == 2 ? "Liggend" : "Staand")
            << orientation;
    }
}

TEST_F(PrinterChoiceTest, OtherCombosAreOnlyNoted) {
    Open();
    for (const int combo : {1, 2, 3}) {
        manager->blnUserChanged = false;
        EXPECT_TRUE(TraceOf([&] { manager->cboPrinterSelect(combo).SetListIndex(1); }).empty());
        EXPECT_TRUE(manager->blnUserChanged);
    }
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrinterChoiceTest, NothingHappensWhileBusyOrClosing) {
    Open();
    for (base::Boolean frmPrintManager::*flag : {&frmPrintManager::blnBusy, &frmPrintManager::blnClosing}) {
        manager.get()->*flag = true;
        EXPECT_TRUE(TraceOf([&] { manager->cboPrinterSelect(0).SetListIndex(1); }).empty());
        EXPECT_FALSE(manager->blnUserChanged);
        manager.get()->*flag = false;
    }
    EXPECT_EQ(manager->strCurrentPrinter, "Laser");
}

TEST_F(PrinterChoiceTest, PrinterThatDoesNotAnswerShowsNoConnection) {
    Open();
    Inkt().Reachable = false;
    EXPECT_THAT(TraceOf([&] { manager->cboPrinterSelect(0).UserPick(1); }),
                ElementsAre("caps 16", "yield*1", "open Inkt"));
    EXPECT_TRUE(manager->blnNoConnection);
    EXPECT_TRUE(manager->pictError.Visible());
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "n/a");
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Geen verbinding mogelijk");
    EXPECT_EQ(manager->lblPrinterSelect(7).Caption(), "");
    EXPECT_EQ(manager->lblPrinterSelect(8).Caption(), "");
    EXPECT_EQ(manager->cboPrinterSelect(1).ListCount(), 0);
    EXPECT_EQ(manager->cboPrinterSelect(2).ListCount(), 0);
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrinterChoiceTest, AfterAFailingPrinterOnlyTheDetailsButtonHelps) {
    Inkt().Reachable = false;
    Open();
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_TRUE(TraceOf([&] { manager->cboPrinterSelect(0).UserPick(0); }).empty());
    EXPECT_EQ(manager->strCurrentPrinter, "Laser");
    EXPECT_EQ(manager->objPrinter.DeviceName, "Inkt");
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Geen verbinding mogelijk");
    // It asks the printer that was loaded last, not the one in the combo.
    manager->cmdDetails.UserClick();
    EXPECT_FALSE(manager->blnDetailsOpen);
    Inkt().Reachable = true;
    manager->cmdDetails.UserClick();
    EXPECT_TRUE(manager->blnDetailsOpen);
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Inkt");
    EXPECT_FALSE(manager->blnNoConnection);
    manager->cboPrinterSelect(0).UserPick(1);
    manager->cboPrinterSelect(0).UserPick(0);
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Laser");
}

TEST_F(PrinterChoiceTest, FailureDuringTheClickShowsNoConnection) {
    Open();
    memory.recorder.Fail("DeviceName");
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Geen verbinding mogelijk");
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "n/a");
    EXPECT_TRUE(manager->pictError.Visible());
    EXPECT_EQ(manager->cboPrinterSelect(1).ListCount(), 0);
    EXPECT_EQ(manager->cboPrinterSelect(2).ListCount(), 0);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(memory.desktop.Messages().empty());
    // Only a click that comes to its end finds out that the lists are empty, so the next choice still loads.
    EXPECT_FALSE(manager->blnNoConnection);
    manager->cboPrinterSelect(0).UserPick(0);
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Laser");
    EXPECT_EQ(manager->cboPrinterSelect(1).ListCount(), 2);
}

TEST_F(PrinterChoiceTest, RefusedListsLeaveTheCombosAsTheyWere) {
    Open();
    memory.recorder.Fail("DeviceCapabilitiesA");
    bool failed = false;
    manager->LoadPrinterLists("Inkt", failed);
    EXPECT_TRUE(failed);
    EXPECT_EQ(manager->cboPrinterSelect(1).ListCount(), 2);
    EXPECT_EQ(manager->iPaperIds.size(), 2U);
}

// The lists clear the flag on their way out, so the yield behind them is open to a second click.
TEST_F(PrinterChoiceTest, ClickInTheYieldBehindTheListsChangesThePrinterAgain) {
    Open();
    memory.desktop.OnYield = [this] {
        memory.desktop.OnYield = nullptr;
        EXPECT_FALSE(manager->blnBusy);
        manager->cboPrinterSelect(0).UserPick(0);
        EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Laser");
    };
    manager->cboPrinterSelect(0).UserPick(1);
    // The first click goes on with the printer of the second.
    EXPECT_EQ(manager->cboPrinterSelect(0).Text(), "Laser");
    EXPECT_EQ(manager->objPrinter.DeviceName, "Laser");
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Laser");
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_FALSE(manager->blnNoConnection);
}

TEST_F(PrinterChoiceTest, CloseInTheYieldBehindTheListsIsTaken) {
    Open();
    memory.desktop.OnYield = [this] {
        memory.desktop.OnYield = nullptr;
        EXPECT_TRUE(manager->UserClose());
    };
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_FALSE(manager->Loaded());
    EXPECT_EQ(Stored("CurrentPrinter"), "Laser");
}

TEST_F(PrinterChoiceTest, PrinterWhoseListsFailButWhichAnswersKeepsTheOldLists) {
    Open();
    memory.recorder.Fail("DeviceCapabilitiesA");
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Inkt");
    EXPECT_FALSE(manager->pictError.Visible());
    EXPECT_EQ(manager->cboPrinterSelect(1).ListCount(), 2);
    EXPECT_FALSE(manager->blnNoConnection);
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(PrinterChoiceTest, LoadedListsClearTheBusyFlagOfTheCaller) {
    Open();
    manager->blnBusy = true;
    bool failed = false;
    manager->LoadPrinterLists("Inkt", failed);
    EXPECT_FALSE(failed);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_THAT(manager->iPaperIds, ElementsAre(9, 5));
    EXPECT_THAT(manager->iBinIds, ElementsAre(15, 1));
    EXPECT_EQ(manager->ptPaperSizes[0].Height, 2970);
}

TEST_F(PrinterChoiceTest, StatusBitsLeaveThePrefixAlone) {
    Open();
    memory.printers.Find("Laser")->Status = 1;
    Inkt().Status = 1;
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "");
    manager->cboPrinterSelect(0).UserPick(0);
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "Standaard printer; ");
}

TEST_F(PrinterChoiceTest, EmptyNameOfTheSpoolerFallsBackOnTheDevicesName) {
    Open();
    memory.recorder.Fail("GetPrinterA", 1); // the spooler then has no data
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Inkt");
    EXPECT_EQ(manager->lblPrinterSelect(7).Caption(), "");
}

TEST_F(PrinterChoiceTest, SpoolersEmptyNameFallsBackWhileTheRestIsShown) {
    StubSpooler stub;
    machine::Platform services = WithSpooler(memory.Services(), stub);
    char port[] = "USB001";
    stub.Capabilities = {{machine::DC_PAPERNAMES, {1, 1, std::string(64, '\0')}},
                         {machine::DC_PAPERS, {1, 1, std::string(2, '\1')}},
                         {machine::DC_PAPERSIZE, {1, 1, std::string(8, '\1')}},
                         {machine::DC_BINS, {1, 1, std::string(2, '\1')}},
                         {machine::DC_BINNAMES, {1, 1, std::string(24, '\0')}}};
    stub.PortText = port;
    manager = std::make_unique<frmPrintManager>(session, services, state);
    manager->Show();
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Laser");
    EXPECT_EQ(manager->lblPrinterSelect(7).Caption(), "USB001");
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "Standaard printer; Ready");
    manager->Unload();
    manager.reset();
}

} // namespace
} // namespace printmanager
