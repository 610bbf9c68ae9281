#include "JobFixture.h"

namespace printmanager {

using testing::IsEmpty;

namespace {

constexpr const char* NoCopies = "U kunt geen 0 afdrukken maken.";

class JobOptionsTest : public JobTest {};

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
                  (memory::ShownMessage{NoCopies, forms::MessageIcon::Exclamation, Title}));
        EXPECT_TRUE(manager->Visible());
        EXPECT_FALSE(manager->blnBusy);
        EXPECT_TRUE(manager->blnRestorePending);
        EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerHourglass);
        EXPECT_EQ(state.PrinterOrientation, 2);
        // The next command finds nothing in its way, and takes the orientation anew.
        manager->cboPrinterSelect(3).SetListIndex(0);
        manager->UserText(0).SetText("1");
        manager->cmdPrintVoorbeeld.UserClick();
        ASSERT_EQ(calls.size(), 1U);
        EXPECT_EQ(calls[0].Orientation, 1);
        EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
        calls.clear();
        EXPECT_TRUE(manager->UserClose());
        Set("CurrentPrinter", "");
        state.CallerFormName = "frmCaller";
    }
}

TEST_F(JobOptionsTest, BusyUntilTheUserHasReadThatThereAreNoCopies) {
    OpenAndPick();
    manager->UserText(0).SetText("0");
    int busy = -1;
    memory.recorder.Sink = [&](const memory::Event& event) {
        if (event.Kind == "message") {
            busy = manager->blnBusy ? 1 : 0;
        }
    };
    manager->cmdPrint.UserClick();
    EXPECT_EQ(busy, 1);
    EXPECT_FALSE(manager->blnBusy);
}

INSTANTIATE_TEST_SUITE_P(Texts, NoCopiesTest, testing::Values("0", "abc", "", "0,9", "0.5", "-"));

TEST_F(JobOptionsTest, TooManyCopiesAreAnUnknownErrorOfThePrint) {
    OpenAndPick();
    manager->UserText(0).SetText("32768");
    manager->cmdPrint.UserClick();
    EXPECT_THAT(calls, IsEmpty());
    ASSERT_EQ(memory.desktop.Messages().size(), 1U);
    EXPECT_EQ(memory.desktop.Messages()[0].Text, UnknownError("6 - Overflow"));
    EXPECT_EQ(memory.desktop.Messages()[0].Icon, forms::MessageIcon::Critical);
    EXPECT_EQ(memory.desktop.Messages()[0].Title, Title);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->Visible());
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST_F(JobOptionsTest, TooManyCopiesAreNotTrappedInThePreviewAndTheFormStillCloses) {
    OpenAndPick();
    manager->UserText(0).SetText("99999999999999999999");
    manager->cboPrinterSelect(3).SetListIndex(1);
    EXPECT_EQ(TraceOf([&] { manager->cmdPrintVoorbeeld.UserClick(); }).back(), "error 6");
    EXPECT_THAT(calls, IsEmpty());
    EXPECT_THAT(Messages(), IsEmpty());
    // Nothing is cleared up but what would keep the form open for ever.
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->IsPrintPreview());
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerHourglass);
    EXPECT_EQ(state.PrinterOrientation, 2);
    EXPECT_EQ(state.LeftMargin, 175);
    EXPECT_TRUE(manager->blnRestorePending);
    EXPECT_TRUE(manager->UserClose());
}

} // namespace
} // namespace printmanager
