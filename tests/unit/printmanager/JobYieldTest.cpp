#include "JobFixture.h"

namespace printmanager {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class JobYieldTest : public JobTest {};

// The yield behind the preparation comes before the flag is up: a click that lands there is taken.

TEST_F(JobYieldTest, SecondPrintInTheYieldBehindThePreparationPrintsOnceAndCloses) {
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
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    EXPECT_THAT(Messages(), IsEmpty());
}

TEST_F(JobYieldTest, PreviewInTheYieldBehindThePreparationOfAPrintComesFirst) {
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

TEST_F(JobYieldTest, PrintInTheYieldBehindThePreparationOfAPreviewEndsIt) {
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

TEST_F(JobYieldTest, DetailsThatLoadDuringARunTakeTheFlagDownAndTheFormMayClose) {
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

TEST_F(JobYieldTest, AClickOnTheListMeanwhileChangesNothing) {
    AddCaller("frmCaller"); // a second one of that name
    state.DocumentTitle[2] = "Landscape lijst";
    OpenAndPick();
    memory.desktop.OnYield = [this] { manager->lstAfdrukken.UserPick(1); };
    OnCall = [this](bool /*preview*/) { manager->lstAfdrukken.UserPick(1); };
    manager->cmdPrint.UserClick();
    ASSERT_EQ(calls.size(), 2U);
    for (const Call& call : calls) {
        EXPECT_EQ(call.Document, 1);
        EXPECT_EQ(call.DocumentTitle, "Acceptgiroformulieren");
        EXPECT_EQ(call.Orientation, 1);
    }
}

TEST_F(JobYieldTest, CloseInTheYieldBehindThePreparationEndsWithoutACall) {
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

} // namespace
} // namespace printmanager
