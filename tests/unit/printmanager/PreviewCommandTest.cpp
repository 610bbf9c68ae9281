#include "JobFixture.h"

namespace printmanager {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class PreviewCommandTest : public JobTest {};

TEST_F(PreviewCommandTest, PreviewCallsOnceAndStaysOpen) {
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
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
    manager->cmdPrint.UserClick();
    EXPECT_EQ(calls.size(), 2U);
    EXPECT_FALSE(calls[1].IsPrintPreview);
    EXPECT_FALSE(manager->Loaded());
}

TEST_F(PreviewCommandTest, PrintFromThePreviewCallsAgainAndStaysOpen) {
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

TEST_F(PreviewCommandTest, WhatIsPrintedIsWhatWasPreviewedThoughTheListWasClicked) {
    OpenAndPick();
    manager->UserText(0).SetText("3");
    OnCall = [this](bool /*preview*/) {
        state.PrintAfterPreview = true;
        manager->lstAfdrukken.UserPick(1);
        manager->UserText(0).SetText("9");
        manager->iCopies = 9;
    };
    manager->cmdPrintVoorbeeld.UserClick();
    ASSERT_EQ(calls.size(), 2U);
    EXPECT_EQ(calls[0].Document, 1);
    EXPECT_EQ(calls[1].Document, 1);
    EXPECT_EQ(calls[1].DocumentTitle, "Acceptgiroformulieren");
    EXPECT_EQ(calls[0].Copies, 3);
    EXPECT_EQ(calls[1].Copies, 3);
    EXPECT_EQ(manager->lstAfdrukken.ListIndex(), 1) << "the list itself follows the user";
}

TEST_F(PreviewCommandTest, FailureOfThePreviewGoesToTheDesktopAndTheFormCloses) {
    OpenAndPick();
    OnCall = [](bool) { throw base::RuntimeError(482, "Printer error"); };
    EXPECT_THAT(TraceOf([&] { manager->cmdPrintVoorbeeld.UserClick(); }), testing::Contains("error 482"));
    EXPECT_THAT(Messages(), IsEmpty());
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->UserClose());
}

TEST_F(PreviewCommandTest, FailureOfThePrintAfterAPreviewGoesToTheDesktopToo) {
    OpenAndPick();
    OnCall = [this](bool preview) {
        state.PrintAfterPreview = true;
        if (!preview) {
            throw base::RuntimeError(482, "Printer error");
        }
    };
    EXPECT_EQ(TraceOf([&] { manager->cmdPrintVoorbeeld.UserClick(); }).back(), "error 482");
    EXPECT_EQ(calls.size(), 2U);
    EXPECT_FALSE(manager->blnBusy);
    EXPECT_TRUE(manager->UserClose());
}

TEST_F(PreviewCommandTest, StepsOfAPreviewStandInOrder) {
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

} // namespace
} // namespace printmanager
