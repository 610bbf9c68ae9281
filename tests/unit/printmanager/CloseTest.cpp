#include "ManagerFixture.h"

namespace printmanager {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class CloseTest : public ManagerTest {
  protected:
    CloseTest() { InstallTwo(); }
};

TEST_F(CloseTest, StoresThePrinterSeenFirst) {
    Open();
    manager->cboPrinterSelect(0).UserPick(1);
    EXPECT_EQ(manager->strCurrentPrinter, "Inkt");
    EXPECT_TRUE(manager->cmdAnnuleren.UserClick());
    EXPECT_EQ(Stored("CurrentPrinter"), "Laser");
    EXPECT_EQ(manager->strCurrentPrinter, "Laser");
}

TEST_F(CloseTest, StoredPrinterStays) {
    Set("CurrentPrinter", "Inkt");
    Open();
    manager->cboPrinterSelect(0).UserPick(0);
    manager->Unload();
    EXPECT_EQ(Stored("CurrentPrinter"), "Inkt");
}

TEST_F(CloseTest, WithoutARememberedPrinterTheSelectedOneIsStored) {
    Open();
    manager->RestoreState = {};
    manager->cboPrinterSelect(0).UserPick(1);
    manager->RestoreState = {};
    manager->Unload();
    EXPECT_EQ(Stored("CurrentPrinter"), "Inkt");
}

TEST_F(CloseTest, WithoutAnyPrinterNothingIsStored) {
    Open();
    manager->RestoreState = {};
    manager->cboPrinterSelect(0).SetListIndex(-1);
    manager->Unload();
    EXPECT_EQ(Stored("CurrentPrinter"), "(missing)");
}

TEST_F(CloseTest, LeavesTheStateForTheNextOpening) {
    Open();
    manager->Unload();
    EXPECT_FALSE(state.PrintManagerOpen);
    EXPECT_EQ(state.CallerFormName, "");
    EXPECT_FALSE(manager->blnClosing);
    EXPECT_FALSE(manager->tmrSetPaperSize.Enabled());
    EXPECT_EQ(memory.desktop.LockedWindow(), 0U);
    Open();
    EXPECT_EQ(manager->cboPrinterSelect(1).ListCount(), 0); // known from now on, so not loaded
}

TEST_F(CloseTest, IsRefusedWhileBusy) {
    Open();
    manager->blnBusy = true;
    EXPECT_FALSE(manager->UserClose());
    manager->cmdAnnuleren.UserClick();
    EXPECT_TRUE(manager->Visible());
    EXPECT_FALSE(manager->blnClosing);
    EXPECT_TRUE(manager->tmrSetPaperSize.Enabled());
    EXPECT_TRUE(state.PrintManagerOpen);
}

TEST_F(CloseTest, TheDefaultsGoBackWhenTheUserLogsOffInTheMiddleOfARun) {
    AddCaller("frmCaller");
    OpenAndPick();
    memory::PrintQueue& laser = *memory.printers.Find("Laser");
    const std::int16_t paper = laser.Defaults.PaperSize;
    manager->cboPrinterSelect(1).SetListIndex(1);
    OnCall = [&](bool /*preview*/) {
        EXPECT_NE(laser.Defaults.PaperSize, paper);
        EXPECT_FALSE(session.MayEnd());
        session.End();
        EXPECT_EQ(laser.Defaults.PaperSize, paper);
    };
    manager->cmdPrintVoorbeeld.UserClick();
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_TRUE(session.MayEnd());
    session.End();
    EXPECT_FALSE(manager->Loaded());
    EXPECT_EQ(laser.Defaults.PaperSize, paper);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(CloseTest, EscapeCloses) {
    Open();
    manager->UserKey(forms::key::Escape);
    EXPECT_FALSE(manager->Loaded());
}

TEST_F(CloseTest, NothingElseWorksWhileItRestores) {
    AddCaller("frmCaller");
    OpenAndPick();
    manager->cmdPrintVoorbeeld.UserClick();
    calls.clear();
    bool closing = true;
    memory.desktop.OnYield = [&] {
        closing = closing && manager->blnClosing;
        manager->cmdPrint.Press();
        manager->cmdDetails.Press();
        manager->cmdAnnuleren.Press();
        manager->cboPrinterSelect(0).SetListIndex(1);
    };
    EXPECT_TRUE(manager->UserClose());
    EXPECT_TRUE(closing);
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_EQ(manager->objPrinter.DeviceName, "Laser");
}

TEST_F(CloseTest, FailureSkipsTheRestWithoutAMessageAndTheFormCloses) {
    AddCaller("frmCaller");
    OpenAndPick();
    manager->cmdPrintVoorbeeld.UserClick();
    memory.recorder.Fail("PaperSize");
    events.clear();
    EXPECT_TRUE(manager->UserClose());
    EXPECT_FALSE(manager->Loaded());
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_THAT(Trace(), testing::Not(testing::Contains("error 380")));
    EXPECT_THAT(Trace(), testing::Not(testing::Contains("store CurrentPrinter=Laser")));
    EXPECT_EQ(memory.desktop.LockedWindow(), 0U);
    // What the check did not come to stays as it was.
    EXPECT_TRUE(manager->blnRestorePending);
    EXPECT_EQ(state.CallerFormName, "frmCaller");
    EXPECT_TRUE(state.PrintManagerOpen);
    EXPECT_FALSE(manager->tmrSetPaperSize.Enabled());
}

TEST_F(CloseTest, ACloseThatBreaksOffCanBeTriedAgain) {
    Open();
    memory.desktop.OnControlChanged = [this](const forms::Control& control, forms::Aspect) {
        if (&control == &manager->tmrSetPaperSize) {
            throw std::bad_alloc();
        }
    };
    EXPECT_THROW(manager->UserClose(), std::bad_alloc);
    EXPECT_TRUE(manager->Visible());
    EXPECT_FALSE(manager->blnClosing);
    memory.desktop.OnControlChanged = nullptr;
    EXPECT_TRUE(manager->UserClose());
    EXPECT_FALSE(manager->Loaded());
    EXPECT_FALSE(state.PrintManagerOpen);
}

TEST_F(CloseTest, ALogOffThatFailsInTheMiddleOfARunLeavesItsCommandsUsable) {
    AddCaller("frmCaller");
    OpenAndPick();
    OnCall = [this](bool /*preview*/) {
        memory.recorder.Fail("PaperSize");
        session.End();
    };
    manager->cmdPrintVoorbeeld.UserClick();
    ASSERT_TRUE(manager->Visible());
    EXPECT_FALSE(manager->blnClosing);
    OnCall = nullptr;
    manager->cmdPrintVoorbeeld.UserClick();
    EXPECT_EQ(calls.size(), 2U);
}

TEST_F(CloseTest, DetailsAreLockedWhileItRestores) {
    AddCaller("frmCaller");
    OpenAndPick();
    manager->cmdPrintVoorbeeld.UserClick();
    const std::uintptr_t details = manager->pictDetails.hWnd();
    ASSERT_NE(details, 0U);
    bool locked = true;
    memory.desktop.OnYield = [&] { locked = locked && memory.desktop.LockedWindow() == details; };
    const int before = memory.desktop.Yields();
    EXPECT_TRUE(manager->UserClose());
    EXPECT_EQ(memory.desktop.Yields() - before, 40);
    EXPECT_TRUE(locked);
    EXPECT_EQ(memory.desktop.LockedWindow(), 0U);
}

TEST_F(CloseTest, WithoutARunThePrinterIsLeftAlone) {
    Open();
    EXPECT_THAT(TraceOf([&] { manager->UserClose(); }),
                ElementsAre("store CurrentPrinter=Laser", "unload frmPrintManager"));
}

TEST_F(CloseTest, OpeningAfterABrokenOffCloseWorks) {
    AddCaller("frmCaller");
    OpenAndPick();
    manager->cmdPrintVoorbeeld.UserClick();
    memory.recorder.Fail("PaperSize");
    EXPECT_TRUE(manager->UserClose());
    OpenAndPick();
    EXPECT_FALSE(manager->blnClosing);
    EXPECT_FALSE(manager->blnRestorePending);
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 2U);
    EXPECT_FALSE(state.PrintManagerOpen);
}

TEST_F(CloseTest, SettingsThatCannotBeWrittenDoNotHoldIt) {
    memory.registry.RemoveKey(SettingsPath);
    Open();
    EXPECT_TRUE(manager->UserClose());
    EXPECT_FALSE(state.PrintManagerOpen);
}

TEST_F(CloseTest, ModalShowEndsWithIt) {
    manager = std::make_unique<frmPrintManager>(session, memory.Services(), state);
    events.clear();
    manager->ShowModal();
    EXPECT_THAT(Traced({events.back()}), ElementsAre("unload frmPrintManager"));
    EXPECT_FALSE(manager->Loaded());
}

} // namespace
} // namespace printmanager
