#include "JobFixture.h"

namespace printmanager {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

TEST_F(JobTest, CommandsWaitForAChoice) {
    Open();
    EXPECT_FALSE(manager->cmdPrint.Enabled());
    EXPECT_FALSE(manager->cmdPrintVoorbeeld.Enabled());
    session.Desktop().HourglassOn();
    manager->lstAfdrukken.UserPick(1);
    EXPECT_TRUE(manager->cmdPrint.Enabled());
    EXPECT_TRUE(manager->cmdPrintVoorbeeld.Enabled());
    EXPECT_FALSE(manager->cmdSetup.Enabled());
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST_F(JobTest, PrintCallsTheCallerOnceAndCloses) {
    OpenAndPick(1);
    manager->UserText(0).SetText("3");
    manager->cmdPrint.UserClick();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].Document, 2);
    EXPECT_EQ(calls[0].Copies, 3);
    EXPECT_FALSE(calls[0].Preview);
    EXPECT_EQ(calls[0].Orientation, 1);
    EXPECT_EQ(calls[0].LeftMargin, 450);
    EXPECT_TRUE(calls[0].Busy);
    EXPECT_FALSE(calls[0].IsPrintPreview);
    EXPECT_EQ(calls[0].DocumentTitle, "Namenlijst");
    EXPECT_FALSE(manager->Loaded());
    EXPECT_FALSE(state.PrintManagerOpen);
    EXPECT_EQ(state.CallerFormName, "");
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(JobTest, StepsOfAPrintStandInOrder) {
    state.PrinterInit = 1;
    OpenAndPick();
    OnCall = [this](bool) { memory.recorder.Record({"call", {}}); };
    std::vector<std::string> lines = TraceOf([&] { manager->cmdPrint.UserClick(); });
    EXPECT_EQ(lines.front(), "mouse 11");
    EXPECT_EQ(lines[1], "Printer=Laser");
    const auto refresh = std::find(lines.begin() + 2, lines.end(), "Printer=Laser");
    const auto closing = std::find(refresh + 1, lines.end(), "Printer=Laser");
    // The wait behind the refresh, the yield behind the preparation, the printer's measures, the bar, the
    // run.
    EXPECT_THAT(std::vector<std::string>(refresh, closing),
                ElementsAre("Printer=Laser", "yield*2", "Orientation=1", "progress 0", "yield*1", "call",
                            "mouse 0", "yield*1"));
    EXPECT_EQ(lines[lines.size() - 2], "store CurrentPrinter=Laser");
    EXPECT_EQ(lines.back(), "unload frmPrintManager");
}

TEST_F(JobTest, EveryOpenFormOfThatNameIsCalledInOrderAndNoOther) {
    AddCaller("frmOther");
    Caller& second = AddCaller("frmCaller");
    OpenAndPick();
    int number = 0;
    second.OnAfdrukken = [&](std::int16_t, std::int16_t, bool) { number = static_cast<int>(calls.size()); };
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_EQ(number, 1);
}

TEST_F(JobTest, FormThatIsGoneDuringTheWalkIsAnUnknownError) {
    Caller& last = AddCaller("frmLast");
    OpenAndPick();
    OnCall = [&](bool) { last.Unload(); };
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_THAT(Messages(), ElementsAre(UnknownError("9 - Subscript out of range")));
}

TEST_F(JobTest, FormsThatOpenDuringTheWalkAreNotVisited) {
    OpenAndPick();
    OnCall = [&](bool) {
        if (calls.size() < 5) {
            AddCaller("frmCaller");
        }
    };
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 1U);
}

TEST_F(JobTest, NoFormOfThatNameMeansNoCallAndNoMessage) {
    state.CallerFormName = "frmWeg";
    OpenAndPick();
    manager->cmdPrint.UserClick();
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_FALSE(manager->Loaded());
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(JobTest, NothingHappensWhileBusyOrClosingOrWithoutALine) {
    Open();
    const auto press = [&] {
        manager->cmdPrint.SetEnabled(true);
        manager->cmdPrintVoorbeeld.SetEnabled(true);
        return Joined({TraceOf([&] { manager->cmdPrint.Press(); }),
                       TraceOf([&] { manager->cmdPrintVoorbeeld.Press(); })});
    };
    EXPECT_THAT(press(), IsEmpty());
    manager->lstAfdrukken.UserPick(0);
    manager->blnBusy = true;
    EXPECT_THAT(press(), IsEmpty());
    manager->blnBusy = false;
    manager->blnClosing = true;
    EXPECT_THAT(press(), IsEmpty());
}

TEST_F(JobTest, SecondClickAndCloseDuringARunDoNothing) {
    OpenAndPick();
    OnCall = [this](bool) {
        manager->cmdPrint.Press();
        manager->cmdPrintVoorbeeld.Press();
        manager->cmdAnnuleren.Press();
        EXPECT_FALSE(manager->UserClose());
        EXPECT_TRUE(manager->Visible());
    };
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_FALSE(manager->Loaded());
}

TEST_F(JobTest, FailureOfTheRunIsReportedAndTheOrientationPutBack) {
    state.DocumentTitle[1] = "Landscape";
    OpenAndPick();
    OnCall = [](bool) { throw base::RuntimeError(482, "Printer error"); };
    manager->cmdPrint.UserClick();
    EXPECT_THAT(Messages(), ElementsAre(UnknownError("482 - Printer error")));
    EXPECT_EQ(memory.desktop.Messages()[0].Icon, forms::MessageIcon::Critical);
    EXPECT_EQ(memory.desktop.Messages()[0].Title, Title);
    EXPECT_EQ(state.PrinterOrientation, 1);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->Visible());
    // The hourglass has gone before the message comes.
    EXPECT_EQ(Joined({{events[events.size() - 2].Kind}, {events.back().Kind}}),
              (std::vector<std::string>{"mouse", "message"}));
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    OnCall = nullptr;
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 2U);
}

TEST_F(JobTest, CallerWithoutDocumentsIsAnUnknownError) {
    forms::Form plain(session, "frmCaller");
    callers.clear();
    plain.Load();
    OpenAndPick();
    manager->cmdPrint.UserClick();
    EXPECT_THAT(Messages(),
                ElementsAre(UnknownError("438 - Object doesn't support this property or method")));
}

TEST_F(JobTest, FailureOfThePreparationIsSwallowed) {
    OpenAndPick();
    memory.recorder.Fail("PaperSize");
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(JobTest, StoredPrinterPrintsWithTheDriversDefaults) {
    Set("CurrentPrinter", "Inkt");
    OpenAndPick();
    manager->cmdPrint.UserClick();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].Orientation, 0);
    EXPECT_EQ(memory.printer.DeviceName(), "Inkt");
    EXPECT_EQ(memory.printers.Find("Inkt")->Defaults.PaperSize, 9);
}

TEST_F(JobTest, PrinterWithoutOrientationOfTheUsersKeepsItsOwn) {
    OpenAndPick();
    manager->cboPrinterSelect(3).SetListIndex(-1);
    EXPECT_THAT(TraceOf([&] { manager->cmdPrint.UserClick(); }, "set"),
                testing::Each(testing::Not(testing::StartsWith("Orientation="))));
}

TEST_F(JobTest, ProgressStopsAtItsMaximumAndYieldsOnce) {
    Open();
    for (const int percent : {0, 33, 100, 101, 150, 32767}) {
        EXPECT_THAT(TraceOf([&] { manager->UpdatePercentage(static_cast<std::int16_t>(percent)); }),
                    ElementsAre("progress " + std::to_string(std::min(percent, 100)), "yield*1"));
    }
    EXPECT_EQ(manager->ProgressBar.Value(), 100);
    manager->UpdatePercentageSort(150);
    EXPECT_EQ(manager->ProgressBarSort.Value(), 100);
    EXPECT_THROW(manager->UpdatePercentage(-1), base::RuntimeError);
}

TEST_F(JobTest, SortPanelShowsAndHides) {
    Open();
    EXPECT_FALSE(manager->pictFakeForm.Visible());
    manager->FakeFormVisible(true);
    EXPECT_TRUE(manager->pictFakeForm.Visible());
    manager->FakeFormVisible(false);
    EXPECT_FALSE(manager->pictFakeForm.Visible());
}

TEST_F(JobTest, CopiesStepBetweenOneAndNinetyNine) {
    Open();
    manager->UserText(0).SetText("98");
    manager->UpDown.UserStep(1);
    manager->UpDown.UserStep(1);
    EXPECT_EQ(manager->UserText(0).Text(), "99");
    manager->UserText(0).SetText("-4");
    manager->UpDown.UserStep(-1);
    EXPECT_EQ(manager->UserText(0).Text(), "1");
}

TEST_F(JobTest, CopiesAreSelectedByTheTabKeyAlone) {
    Open();
    manager->UserText(0).SetText("12");
    memory.desktop.PressKey(forms::key::Tab);
    manager->MoveFocus(manager->UserText(0));
    EXPECT_EQ(manager->UserText(0).SelLength(), 2);
    memory.desktop.ReleaseKey(forms::key::Tab);
    manager->MoveFocus(manager->lstAfdrukken);
    manager->MoveFocus(manager->UserText(0));
    EXPECT_EQ(manager->UserText(0).SelLength(), 0);
}

TEST_F(JobTest, ARunThatBreaksOffInAnyWayLeavesTheManagerUsable) {
    OpenAndPick();
    manager->cboPrinterSelect(3).SetListIndex(1);
    state.DocumentTitle[1] = "x";
    OnCall = [this](bool /*preview*/) {
        state.PrinterOrientation = 1;
        throw std::bad_alloc();
    };
    EXPECT_THROW(manager->cmdPrint.UserClick(), std::bad_alloc);
    EXPECT_EQ(state.PrinterOrientation, 2);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    OnCall = nullptr;
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 2U);
    EXPECT_FALSE(manager->Loaded());
}

TEST_F(JobTest, ListsThatCannotBeShownLeaveTheManagerUsable) {
    Set("CurrentPrinter", "Laser"); // known, so not loaded yet
    OpenAndPick();
    memory.desktop.OnControlChanged = [this](const forms::Control& control, forms::Aspect aspect) {
        if (&control == &manager->cboPrinterSelect(2) && aspect == forms::Aspect::Items) {
            memory.desktop.OnControlChanged = nullptr;
            throw base::OutOfMemory();
        }
    };
    manager->cmdDetails.UserClick();
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->UserClose());
}

} // namespace
} // namespace printmanager
