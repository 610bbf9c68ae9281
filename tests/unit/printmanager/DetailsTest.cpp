#include "ManagerFixture.h"

namespace printmanager {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class DetailsTest : public ManagerTest {};

TEST_F(DetailsTest, PanelOpensAndClosesWithItsMeasures) {
    InstallTwo();
    Open();
    EXPECT_EQ(manager->Height(), 4650);
    EXPECT_EQ(manager->cmdDetails.Caption(), "De&tails >>");
    EXPECT_FALSE(manager->pictDetails.Visible());
    EXPECT_FALSE(manager->pictDetails.Enabled());

    manager->cmdDetails.UserClick();
    EXPECT_TRUE(manager->blnDetailsOpen);
    EXPECT_EQ(manager->cmdDetails.Caption(), "De&tails <<");
    EXPECT_TRUE(manager->pictDetails.Visible());
    EXPECT_TRUE(manager->pictDetails.Enabled());
    EXPECT_EQ(manager->Height(), 7980);
    EXPECT_EQ(manager->Line1.Y2(), 7440);
    EXPECT_EQ(manager->Line2.Y2(), 7440);
    EXPECT_EQ(manager->pictPrinter.Top(), 6600);

    manager->cmdDetails.UserClick();
    EXPECT_FALSE(manager->blnDetailsOpen);
    EXPECT_EQ(manager->cmdDetails.Caption(), "De&tails >>");
    EXPECT_FALSE(manager->pictDetails.Visible());
    EXPECT_EQ(manager->Height(), 4650);
    EXPECT_EQ(manager->Line1.Y2(), 4035);
    EXPECT_EQ(manager->Line2.Y2(), 4035);
    EXPECT_EQ(manager->pictPrinter.Top(), 3120);
}

TEST_F(DetailsTest, HelpIsTheHandbooksSectionOfTheManager) {
    InstallTwo();
    Open();
    manager->UserHelp();
    EXPECT_THAT(memory.desktop.HandbookSections(), ElementsAre("afdrukken-met-afdrukbeheer"));
}

TEST_F(DetailsTest, FirstOpeningPlacesTheFormAThirdFromTheTop) {
    InstallTwo();
    memory.desktop.SetWorkArea(19200, 10801);
    Open();
    EXPECT_TRUE(manager->blnCenterPending);
    manager->cmdDetails.UserClick();
    EXPECT_EQ(manager->Left(), (19200 - manager->Width()) / 2);
    EXPECT_EQ(manager->Top(), 940); // a third of 2821
    EXPECT_FALSE(manager->blnCenterPending);
    manager->Move(1, 2);
    manager->cmdDetails.UserClick();
    manager->cmdDetails.UserClick();
    EXPECT_EQ(manager->Left(), 1);
    EXPECT_EQ(manager->Top(), 2);
}

TEST_F(DetailsTest, StoredPrinterIsLoadedByTheButton) {
    InstallTwo();
    Set("CurrentPrinter", "Inkt");
    Open();
    EXPECT_EQ(manager->cboPrinterSelect(1).ListCount(), 0);
    manager->cmdDetails.UserClick();
    EXPECT_TRUE(manager->blnDetailsOpen);
    EXPECT_THAT(Entries(manager->cboPrinterSelect(1)), ElementsAre("A4", "Legal"));
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Inkt");
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "Ready");
    EXPECT_FALSE(manager->blnNoConnection);
    EXPECT_EQ(manager->FirstPrinterState.Printer, "Inkt");
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST_F(DetailsTest, PrefixFollowsThePrinterThatARunHasMadeTheCurrentOne) {
    InstallTwo();
    AddCaller("frmCaller");
    Set("CurrentPrinter", "Inkt");
    OpenAndPick();
    manager->cmdPrintVoorbeeld.UserClick();
    manager->cmdDetails.UserClick();
    EXPECT_EQ(manager->lblPrinterSelect(5).Caption(), "Standaard printer; Ready");
}

TEST_F(DetailsTest, PrinterThatIsBackShowsItsDetailsAndHidesTheMark) {
    Install("Laser").Reachable = false;
    Open();
    EXPECT_TRUE(manager->pictError.Visible());
    memory.printers.Find("Laser")->Reachable = true;
    EXPECT_THAT(TraceOf([&] { manager->cmdDetails.UserClick(); }),
                ElementsAre("mouse 11", "caps 16", "caps 2", "caps 16", "caps 3", "caps 6", "caps 6",
                            "caps 12", "open Laser", "size", "fetch", "close Laser", "open Laser", "size",
                            "fetch", "close Laser", "open Laser", "size", "fetch", "close Laser",
                            "open Laser", "info size", "info", "mouse 0"));
    EXPECT_FALSE(manager->pictError.Visible());
    EXPECT_TRUE(manager->blnDetailsOpen);
}

TEST_F(DetailsTest, PanelStaysOpenWhenThePrinterFailsMeanwhile) {
    InstallTwo();
    Open();
    manager->cmdDetails.UserClick();
    memory.printers.Find("Inkt")->Reachable = false;
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_TRUE(manager->blnDetailsOpen);
    manager->cmdDetails.UserClick();
    EXPECT_TRUE(manager->blnDetailsOpen); // without papers the button neither opens nor closes
}

TEST_F(DetailsTest, LoadedPrinterIsNotAskedAgain) {
    InstallTwo();
    Open();
    EXPECT_THAT(TraceOf([&] { manager->cmdDetails.UserClick(); }), ElementsAre("mouse 11", "mouse 0"));
}

TEST_F(DetailsTest, WithoutAPrinterEverythingIsUnknownAndThePanelStaysClosed) {
    Open();
    manager->cmdDetails.UserClick();
    EXPECT_TRUE(manager->pictError.Visible());
    for (const int index : {5, 6, 7, 8}) {
        EXPECT_EQ(manager->lblPrinterSelect(index).Caption(), "Onbekend");
    }
    EXPECT_FALSE(manager->blnDetailsOpen);
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST_F(DetailsTest, PrinterThatStillFailsKeepsItsLabelsAndStaysClosed) {
    Install("Laser").Reachable = false;
    Open();
    EXPECT_THAT(TraceOf([&] { manager->cmdDetails.UserClick(); }),
                ElementsAre("mouse 11", "caps 16", "open Laser", "mouse 0"));
    EXPECT_FALSE(manager->blnDetailsOpen);
    EXPECT_EQ(manager->lblPrinterSelect(6).Caption(), "Geen verbinding mogelijk");
    EXPECT_TRUE(manager->blnNoConnection);
}

TEST_F(DetailsTest, NothingHappensWhileClosing) {
    InstallTwo();
    Open();
    manager->blnClosing = true;
    EXPECT_THAT(TraceOf([&] { manager->cmdDetails.UserClick(); }), IsEmpty());
    EXPECT_FALSE(manager->blnDetailsOpen);
}

TEST_F(DetailsTest, TimerShowsThePapersCodeOnAHiddenLabelOnceThereAreBins) {
    InstallTwo();
    Set("CurrentPrinter", "Laser");
    Open();
    manager->tmrSetPaperSize.Tick();
    EXPECT_EQ(manager->lblPaperSize.Caption(), "");
    manager->cmdDetails.UserClick();
    memory.printer.SetPaperSize(5);
    manager->tmrSetPaperSize.Tick();
    EXPECT_EQ(manager->lblPaperSize.Caption(), "5");
    EXPECT_EQ(manager->lblPaperBin.Caption(), "");
    EXPECT_FALSE(manager->lblPaperSize.Visible());
    EXPECT_FALSE(manager->lblPaperBin.Visible());
    EXPECT_EQ(manager->tmrSetPaperSize.Interval(), 100);
}

} // namespace
} // namespace printmanager
