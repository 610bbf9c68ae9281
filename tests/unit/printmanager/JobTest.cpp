#include "ManagerFixture.h"

namespace printmanager {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr const char* NoCopies = "U kunt geen 0 afdrukken maken.";

std::string UnknownError(const std::string& error) {
    return "Een onbekende fout is opgetreden !\r\nMocht u deze fout kunnen reproduceren neem dan contact op "
           "met "
           "Ondor BV.\r\n\r\nSluit dit onderdeel af en herstart het weer.\r\n\r\nError: " +
           error;
}

class JobTest : public ManagerTest {
  protected:
    JobTest() {
        InstallTwo();
        AddCaller("frmCaller");
    }
};

TEST_F(JobTest, CommandsWaitForAChoice) {
    Open();
    EXPECT_FALSE(manager->cmdPrint.Enabled());
    EXPECT_FALSE(manager->cmdPrintVoorbeeld.Enabled());
    session.HourglassOn();
    manager->lstAfdrukken.UserPick(1);
    EXPECT_TRUE(manager->cmdPrint.Enabled());
    EXPECT_TRUE(manager->cmdPrintVoorbeeld.Enabled());
    EXPECT_FALSE(manager->cmdSetup.Enabled());
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
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
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
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

struct OrientationRow {
    int Selected;
    const char* DocumentTitle;
    int Orientation;
    int LeftMargin;
    int After;
};

class OrientationTest : public JobTest, public testing::WithParamInterface<OrientationRow> {};

TEST_P(OrientationTest, SetsOrientationAndMargin) {
    const OrientationRow& row = GetParam();
    state.DocumentTitle[1] = row.DocumentTitle;
    OpenAndPick();
    manager->cboPrinterSelect(3).SetListIndex(row.Selected);
    manager->cmdPrint.UserClick();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].Orientation, row.Orientation);
    EXPECT_EQ(calls[0].LeftMargin, row.LeftMargin);
    EXPECT_EQ(state.PrinterOrientation, row.After);
}

INSTANTIATE_TEST_SUITE_P(Choices, OrientationTest,
                         testing::Values(OrientationRow{0, "Lijst", 1, 450, 1},
                                         OrientationRow{1, "Lijst", 2, 175, 2},
                                         OrientationRow{-1, "Lijst", 0, 100, 0},
                                         OrientationRow{0, "Een Landscape lijst", 2, 175, 1},
                                         OrientationRow{-1, "Landscape", 2, 175, 0},
                                         OrientationRow{0, "landscape", 1, 450, 1}));

struct CopiesRow {
    const char* Text;
    int Copies;
};

class CopiesTest : public JobTest, public testing::WithParamInterface<CopiesRow> {};

TEST_P(CopiesTest, TextBecomesANumber) {
    OpenAndPick();
    manager->UserText(0).SetText(GetParam().Text);
    manager->cmdPrint.UserClick();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_EQ(calls[0].Copies, GetParam().Copies);
}

INSTANTIATE_TEST_SUITE_P(Texts, CopiesTest,
                         testing::Values(CopiesRow{"1", 1}, CopiesRow{"1,5", 1}, CopiesRow{"2.5", 2},
                                         CopiesRow{"3.5", 4}, CopiesRow{"-3", -3}, CopiesRow{"250", 250},
                                         CopiesRow{" 7x", 7}, CopiesRow{"32767", 32767}));

class NoCopiesTest : public JobTest, public testing::WithParamInterface<const char*> {};

TEST_P(NoCopiesTest, AreRefusedAfterThePreparation) {
    for (const bool preview : {false, true}) {
        OpenAndPick();
        manager->cboPrinterSelect(1).SetListIndex(1);
        manager->cboPrinterSelect(3).SetListIndex(1);
        manager->UserText(0).SetText(GetParam());
        (preview ? manager->cmdPrintVoorbeeld : manager->cmdPrint).UserClick();
        EXPECT_THAT(calls, IsEmpty());
        EXPECT_EQ(memory.printers.Find("Laser")->Defaults.PaperSize, 5);
        EXPECT_EQ(memory.printer.Orientation(), 2);
        EXPECT_EQ(memory.desktop.Messages().back(),
                  (platform::ShownMessage{NoCopies, platform::MessageIcon::Exclamation, Title}));
        EXPECT_TRUE(manager->Visible());
        EXPECT_FALSE(manager->blnBusy);
        EXPECT_TRUE(manager->blnRestorePending);
        EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerHourglass);
        EXPECT_EQ(state.PrinterOrientation, 2);
        // The next command finds nothing in its way, and takes the orientation anew.
        manager->cboPrinterSelect(3).SetListIndex(0);
        manager->UserText(0).SetText("1");
        manager->cmdPrintVoorbeeld.UserClick();
        ASSERT_EQ(calls.size(), 1U);
        EXPECT_EQ(calls[0].Orientation, 1);
        EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
        calls.clear();
        EXPECT_TRUE(manager->UserClose());
        Set("CurrentPrinter", "");
        state.CallerFormName = "frmCaller";
    }
}

TEST_F(JobTest, BusyUntilTheUserHasReadThatThereAreNoCopies) {
    OpenAndPick();
    manager->UserText(0).SetText("0");
    int busy = -1;
    memory.recorder.Sink = [&](const platform::Event& event) {
        if (event.Kind == "message") {
            busy = manager->blnBusy ? 1 : 0;
        }
    };
    manager->cmdPrint.UserClick();
    EXPECT_EQ(busy, 1);
    EXPECT_FALSE(manager->blnBusy);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoCopiesTest, testing::Values("0", "abc", "", "0,9", "0.5", "-"));

TEST_F(JobTest, TooManyCopiesAreAnUnknownErrorOfThePrint) {
    OpenAndPick();
    manager->UserText(0).SetText("32768");
    manager->cmdPrint.UserClick();
    EXPECT_THAT(calls, IsEmpty());
    ASSERT_EQ(memory.desktop.Messages().size(), 1U);
    EXPECT_EQ(memory.desktop.Messages()[0].Text, UnknownError("6 - Overflow"));
    EXPECT_EQ(memory.desktop.Messages()[0].Icon, platform::MessageIcon::Critical);
    EXPECT_EQ(memory.desktop.Messages()[0].Title, Title);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->Visible());
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
}

TEST_F(JobTest, TooManyCopiesAreNotTrappedInThePreviewAndTheFormStillCloses) {
    OpenAndPick();
    manager->UserText(0).SetText("99999999999999999999");
    manager->cboPrinterSelect(3).SetListIndex(1);
    EXPECT_EQ(TraceOf([&] { manager->cmdPrintVoorbeeld.UserClick(); }).back(), "error 6");
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
    // Nothing is cleared up but what would keep the form open for ever.
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->IsPrintPreview());
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerHourglass);
    EXPECT_EQ(state.PrinterOrientation, 2);
    EXPECT_EQ(state.LeftMargin, 175);
    EXPECT_TRUE(manager->blnRestorePending);
    EXPECT_TRUE(manager->UserClose());
}

TEST_F(JobTest, FailureOfTheRunIsReportedAndTheOrientationPutBack) {
    state.DocumentTitle[1] = "Landscape";
    OpenAndPick();
    OnCall = [](bool) { throw platform::RuntimeError(482, "Printer error"); };
    manager->cmdPrint.UserClick();
    EXPECT_THAT(Messages(), ElementsAre(UnknownError("482 - Printer error")));
    EXPECT_EQ(memory.desktop.Messages()[0].Icon, platform::MessageIcon::Critical);
    EXPECT_EQ(memory.desktop.Messages()[0].Title, Title);
    EXPECT_EQ(state.PrinterOrientation, 1);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->Visible());
    // The hourglass has gone before the message comes.
    EXPECT_EQ(Joined({{events[events.size() - 2].Kind}, {events.back().Kind}}),
              (std::vector<std::string>{"mouse", "message"}));
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
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

TEST_F(JobTest, PreviewCallsOnceAndStaysOpen) {
    OpenAndPick();
    manager->blnUserChanged = true;
    manager->cmdPrintVoorbeeld.UserClick();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_TRUE(calls[0].Preview);
    EXPECT_TRUE(calls[0].IsPrintPreview);
    EXPECT_TRUE(calls[0].Busy);
    EXPECT_EQ(calls[0].DocumentTitle, ""); // nothing goes to a queue
    EXPECT_TRUE(manager->Visible());
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_FALSE(manager->blnUserChanged);
    EXPECT_TRUE(manager->blnRestorePending);
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 2U);
    EXPECT_FALSE(calls[1].IsPrintPreview);
    EXPECT_FALSE(manager->Loaded());
}

TEST_F(JobTest, PrintFromThePreviewCallsAgainAndStaysOpen) {
    state.DocumentTitle[1] = "Landscape lijst";
    OpenAndPick();
    OnCall = [this](bool) { state.PrintAfterPreview = true; };
    manager->cmdPrintVoorbeeld.UserClick();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_TRUE(calls[0].Preview);
    EXPECT_FALSE(calls[1].Preview);
    EXPECT_FALSE(calls[1].IsPrintPreview);
    EXPECT_EQ(calls[1].Orientation, 2);
    EXPECT_EQ(calls[1].DocumentTitle, "Landscape lijst");
    EXPECT_TRUE(manager->Visible());
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->blnRestorePending);
    EXPECT_EQ(state.PrinterOrientation, 1);
    EXPECT_TRUE(manager->UserClose());
    EXPECT_FALSE(manager->blnRestorePending);
}

TEST_F(JobTest, FailureOfThePreviewGoesToTheDesktopAndTheFormCloses) {
    OpenAndPick();
    OnCall = [](bool) { throw platform::RuntimeError(482, "Printer error"); };
    EXPECT_THAT(TraceOf([&] { manager->cmdPrintVoorbeeld.UserClick(); }), testing::Contains("error 482"));
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->UserClose());
}

TEST_F(JobTest, FailureOfThePrintAfterAPreviewGoesToTheDesktopToo) {
    OpenAndPick();
    OnCall = [this](bool preview) {
        state.PrintAfterPreview = true;
        if (!preview) {
            throw platform::RuntimeError(482, "Printer error");
        }
    };
    EXPECT_EQ(TraceOf([&] { manager->cmdPrintVoorbeeld.UserClick(); }).back(), "error 482");
    EXPECT_EQ(calls.size(), 2U);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->UserClose());
}

TEST_F(JobTest, StepsOfAPreviewStandInOrder) {
    state.PrinterInit = 1;
    OpenAndPick();
    OnCall = [this](bool) { memory.recorder.Record({"call", {}}); };
    std::vector<std::string> lines = TraceOf([&] { manager->cmdPrintVoorbeeld.UserClick(); });
    EXPECT_EQ(lines.front(), "mouse 11");
    const auto refresh = std::find(lines.begin() + 2, lines.end(), "Printer=Laser");
    EXPECT_THAT(
        std::vector<std::string>(refresh, lines.end()),
        ElementsAre("Printer=Laser", "yield*2", "Orientation=1", "progress 0", "yield*1", "call", "mouse 0"));
}

TEST_F(JobTest, PrinterWithoutOrientationOfTheUsersKeepsItsOwn) {
    OpenAndPick();
    manager->cboPrinterSelect(3).SetListIndex(-1);
    EXPECT_THAT(TraceOf([&] { manager->cmdPrint.UserClick(); }, "set"),
                testing::Each(testing::Not(testing::StartsWith("Orientation="))));
}

// The yield behind the preparation comes before the flag is up: a click that lands there is taken.

TEST_F(JobTest, SecondPrintInTheYieldBehindThePreparationPrintsOnceAndCloses) {
    state.PrinterInit = 0;
    Set("CurrentPrinter", "Laser"); // no lists: the preparation itself does not yield
    OpenAndPick();
    memory.desktop.OnYield = [this] {
        memory.desktop.OnYield = nullptr;
        EXPECT_FALSE(manager->blnBusy);
        EXPECT_TRUE(manager->blnRestorePending);
        manager->cmdPrint.Press();
        EXPECT_FALSE(manager->Loaded());
    };
    manager->cmdPrint.UserClick();
    // The second click prints and closes; the first then finds no caller any more.
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_FALSE(manager->Loaded());
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_FALSE(state.PrintManagerOpen);
    EXPECT_EQ(memory.desktop.MousePointer(), platform::PointerDefault);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(JobTest, PreviewInTheYieldBehindThePreparationOfAPrintComesFirst) {
    state.PrinterInit = 0;
    Set("CurrentPrinter", "Laser");
    OpenAndPick();
    memory.desktop.OnYield = [this] {
        memory.desktop.OnYield = nullptr;
        manager->cmdPrintVoorbeeld.Press();
        EXPECT_FALSE(manager->blnBusy);
        EXPECT_TRUE(manager->Visible());
    };
    manager->cmdPrint.UserClick();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_TRUE(calls[0].Preview);
    EXPECT_FALSE(calls[1].Preview);
    EXPECT_FALSE(calls[1].IsPrintPreview);
    EXPECT_FALSE(manager->Loaded());
}

TEST_F(JobTest, PrintInTheYieldBehindThePreparationOfAPreviewEndsIt) {
    state.PrinterInit = 0;
    Set("CurrentPrinter", "Laser");
    OpenAndPick();
    memory.desktop.OnYield = [this] {
        memory.desktop.OnYield = nullptr;
        manager->cmdPrint.Press();
    };
    manager->cmdPrintVoorbeeld.UserClick();
    ASSERT_EQ(calls.size(), 1U);
    EXPECT_FALSE(calls[0].Preview);
    EXPECT_FALSE(manager->Loaded());
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(JobTest, DetailsThatLoadDuringARunTakeTheFlagDownAndTheFormMayClose) {
    Set("CurrentPrinter", "Laser");
    OpenAndPick();
    OnCall = [this](bool) {
        manager->cmdDetails.Press();
        EXPECT_TRUE(manager->blnDetailsOpen);
        EXPECT_FALSE(manager->blnBusy);
        EXPECT_TRUE(manager->UserClose());
    };
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 1U);
    EXPECT_FALSE(manager->Loaded());
    // The walk over the forms misses the one that has closed.
    EXPECT_THAT(Messages(), ElementsAre(UnknownError("9 - Subscript out of range")));
    EXPECT_FALSE(manager->blnBusy);
}

TEST_F(JobTest, CloseInTheYieldBehindThePreparationEndsWithoutACall) {
    state.PrinterInit = 0;
    Set("CurrentPrinter", "Laser"); // no lists: the preparation itself does not yield
    OpenAndPick();
    memory.desktop.OnYield = [this] {
        memory.desktop.OnYield = nullptr;
        manager->UserClose();
    };
    manager->cmdPrint.UserClick();
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_FALSE(manager->Loaded());
    EXPECT_THAT(Messages(), IsEmpty());
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
    EXPECT_THROW(manager->UpdatePercentage(-1), platform::RuntimeError);
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
    memory.desktop.PressKey(platform::key::Tab);
    manager->MoveFocus(manager->UserText(0));
    EXPECT_EQ(manager->UserText(0).SelLength(), 2);
    memory.desktop.ReleaseKey(platform::key::Tab);
    manager->MoveFocus(manager->lstAfdrukken);
    manager->MoveFocus(manager->UserText(0));
    EXPECT_EQ(manager->UserText(0).SelLength(), 0);
}

} // namespace
} // namespace printmanager
