#include "ManagerFixture.h"

namespace printmanager {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class LoadTest : public ManagerTest {};

TEST_F(LoadTest, OffersTheTitlesWithTheirNumbersAndSelectsNone) {
    InstallTwo();
    Open();
    EXPECT_THAT(Entries(manager->lstAfdrukken), ElementsAre("Acceptgiroformulieren", "Namenlijst"));
    EXPECT_EQ(manager->lstAfdrukken.ItemData(0), 1);
    EXPECT_EQ(manager->lstAfdrukken.ItemData(1), 2);
    EXPECT_EQ(manager->lstAfdrukken.ListIndex(), -1);
    EXPECT_TRUE(state.PrintManagerOpen);
    EXPECT_EQ(manager->iCopies, 1);
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    EXPECT_FALSE(manager->blnLoading);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_FALSE(manager->blnUserChanged);
    EXPECT_TRUE(manager->tmrSetPaperSize.Enabled());
}

TEST_F(LoadTest, FirstEmptyTitleEndsTheList) {
    InstallTwo();
    state.DocumentTitle = {};
    state.DocumentTitle[1] = "Een";
    state.DocumentTitle[3] = "Drie";
    Open();
    EXPECT_THAT(Entries(manager->lstAfdrukken), ElementsAre("Een"));
}

TEST_F(LoadTest, TenTitlesAreOfferedAndNumberZeroIsNot) {
    InstallTwo();
    state.DocumentTitle.fill("Titel");
    Open();
    EXPECT_EQ(manager->lstAfdrukken.ListCount(), 10);
    EXPECT_EQ(manager->lstAfdrukken.ItemData(9), 10);
}

TEST_F(LoadTest, WithoutTitlesTheCommandsStayDisabled) {
    InstallTwo();
    state.DocumentTitle = {};
    Open();
    EXPECT_THAT(Entries(manager->lstAfdrukken), IsEmpty());
    EXPECT_FALSE(manager->lstAfdrukken.UserPick(0));
    EXPECT_FALSE(manager->cmdPrint.Enabled());
    EXPECT_FALSE(manager->cmdPrintVoorbeeld.Enabled());
    EXPECT_FALSE(manager->cmdSetup.Enabled());
}

TEST_F(LoadTest, WithoutPrinterTheFormOpensAndCloses) {
    state.MatrixPrinter = true;
    Open();
    EXPECT_FALSE(manager->chkMatrixPrinter.Enabled());
    EXPECT_FALSE(manager->chkMatrixPrinter.Value());
    EXPECT_FALSE(manager->cboPrinterSelect(0).Enabled());
    EXPECT_EQ(manager->cboPrinterSelect(0).BackColor(), forms::colour::ButtonFace);
    EXPECT_EQ(manager->cboPrinterSelect(0).ListCount(), 0);
    EXPECT_EQ(manager->cboPrinterSelect(3).ListCount(), 0);
    EXPECT_TRUE(manager->blnNoConnection);
    EXPECT_FALSE(manager->pictError.Visible());
    EXPECT_FALSE(manager->blnPrinterFound);
    manager->lstAfdrukken.UserPick(0);
    EXPECT_FALSE(manager->cmdPrint.Enabled());
    EXPECT_FALSE(manager->cmdPrintVoorbeeld.Enabled());
    EXPECT_TRUE(manager->cmdAnnuleren.UserClick());
    EXPECT_FALSE(manager->Loaded());
    EXPECT_FALSE(state.PrintManagerOpen);
}

TEST_F(LoadTest, FirstOpeningSelectsAndLoadsTheCurrentPrinter) {
    InstallTwo();
    memory.printer.Assign(1);
    Open();
    EXPECT_THAT(Entries(manager->cboPrinterSelect(0)), ElementsAre("Laser", "Inkt"));
    EXPECT_EQ(manager->cboPrinterSelect(0).Text(), "Inkt");
    EXPECT_EQ(manager->cboPrinterSelect(0).BackColor(), forms::colour::WindowBackground);
    EXPECT_THAT(Entries(manager->cboPrinterSelect(1)), ElementsAre("A4", "Legal"));
    EXPECT_THAT(Entries(manager->cboPrinterSelect(2)), ElementsAre("Automatisch", "Lade 1"));
    EXPECT_THAT(Entries(manager->cboPrinterSelect(3)), ElementsAre("Staand", "Liggend"));
    EXPECT_TRUE(manager->cboPrinterSelect(3).Enabled());
    EXPECT_EQ(manager->cboPrinterSelect(3).BackColor(), forms::colour::WindowBackground);
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "Standaard printer; Ready");
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Inkt");
    EXPECT_EQ(manager->lblPrinterSelect(7).Caption(), "Inkt:");
    EXPECT_EQ(manager->objPrinter.DeviceName, "Inkt");
    EXPECT_EQ(manager->strCurrentPrinter, "Inkt");
    EXPECT_FALSE(manager->blnNoConnection);
    EXPECT_TRUE(manager->blnPrinterFound);
    EXPECT_EQ(manager->FirstPrinterState.Printer, "Inkt");
    EXPECT_EQ(manager->RestoreState.Printer, "Inkt");
    EXPECT_EQ(manager->RestoreState.Paper, "0");
    EXPECT_EQ(manager->RestoreState.Bin, "0");
    EXPECT_EQ(manager->RestoreState.Orientation, "0");
}

TEST_F(LoadTest, StoredPrinterIsSelectedWithoutAskingItsDriver) {
    InstallTwo();
    Set("CurrentPrinter", "Inkt");
    events.clear();
    manager = std::make_unique<frmPrintManager>(session, memory.Services(), state);
    manager->Load();
    EXPECT_TRUE(std::none_of(events.begin(), events.end(),
                             [](const memory::Event& event) { return event.Kind == "spooler"; }));
    EXPECT_EQ(manager->cboPrinterSelect(0).Text(), "Inkt");
    EXPECT_EQ(manager->cboPrinterSelect(1).ListCount(), 0);
    EXPECT_EQ(manager->cboPrinterSelect(2).ListCount(), 0);
    EXPECT_TRUE(manager->blnNoConnection);
    EXPECT_TRUE(manager->blnPrinterFound);
    EXPECT_EQ(manager->objPrinter.DeviceName, "Inkt");
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Geen verbinding mogelijk");
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "n/a");
    EXPECT_EQ(manager->RestoreState.Printer, "Inkt");
    EXPECT_EQ(manager->FirstPrinterState.Printer, "");
    EXPECT_FALSE(manager->pictError.Visible());
}

TEST_F(LoadTest, StoredPrinterThatIsGoneFallsBackOnTheCurrentOne) {
    InstallTwo();
    Set("CurrentPrinter", "Weg");
    Open();
    EXPECT_EQ(manager->cboPrinterSelect(0).Text(), "Laser");
    EXPECT_EQ(manager->cboPrinterSelect(1).ListCount(), 2);
}

TEST_F(LoadTest, StoredNameHasToMatchExactly) {
    InstallTwo();
    Set("CurrentPrinter", "inkt");
    Open();
    EXPECT_EQ(manager->cboPrinterSelect(0).Text(), "Laser");
}

TEST_F(LoadTest, CopiesComeFromThePrinter) {
    Install("Laser").Defaults.Copies = 4;
    memory.printer.Assign(0);
    Open();
    EXPECT_EQ(manager->UserText(0).Text(), "4");
}

TEST_F(LoadTest, CopiesOfZeroBecomeOne) {
    Install("Laser").Defaults.Copies = 0;
    memory.printer.Assign(0);
    Open();
    EXPECT_EQ(manager->UserText(0).Text(), "1");
}

TEST_F(LoadTest, SettingsAreRead) {
    InstallTwo();
    state.MatrixPrinter = true;
    Set("UseSpecificPrinterSettings", "1");
    Open();
    EXPECT_TRUE(manager->chkMatrixPrinter.Value());
    EXPECT_TRUE(manager->blnUseSpecific);
}

TEST_F(LoadTest, PictureFollowsTheOrientationAtLoadOnly) {
    Install("Laser").Defaults.Orientation = 2;
    Open();
    EXPECT_EQ(manager->pictMyOrientation.Picture(), "sheet-landscape");
    manager->cboPrinterSelect(3).UserPick(0);
    manager->cboPrinterSelect(3).SetListIndex(0);
    EXPECT_EQ(manager->pictMyOrientation.Picture(), "sheet-landscape");
}

TEST_F(LoadTest, UnreachablePrinterShowsThatThereIsNoConnection) {
    Install("Laser").Reachable = false;
    Open();
    EXPECT_TRUE(manager->blnNoConnection);
    EXPECT_TRUE(manager->pictError.Visible());
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Geen verbinding mogelijk");
    EXPECT_EQ(manager->pictMyOrientation.Picture(), "sheet-portrait");
}

TEST_F(LoadTest, FailureInTheLoadIsToldAndLeavesAFormThatCloses) {
    InstallTwo();
    memory.recorder.Fail("Copies");
    manager = std::make_unique<frmPrintManager>(session, memory.Services(), state);
    events.clear();
    manager->Show();
    EXPECT_THAT(Trace(), ElementsAre("mouse 11", "error 482", "mouse 0", "show frmPrintManager"));
    EXPECT_TRUE(manager->UserClose());
    EXPECT_FALSE(state.PrintManagerOpen);
}

TEST_F(LoadTest, FailureWhileTheComboIsFilledLeavesNoFlagBehind) {
    InstallTwo();
    memory.recorder.Fail("DeviceName");
    Open();
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_FALSE(manager->blnFillingPrinters);
    EXPECT_TRUE(manager->UserClose());
}

} // namespace
} // namespace printmanager
