#include "unit/preview/WindowFixture.h"

namespace preview {
namespace {

namespace key = forms::key;

TEST_F(WindowTest, ScrollingMovesSheetAndShadow) {
    Start(1);
    ASSERT_EQ(Window().lScrollSpanY, 8558);
    EXPECT_TRUE(Window().VScroll.UserScroll(33));
    // 67% of 8558 is 5733.86, which rounds to 5734: a shift of 2824.
    EXPECT_EQ(Window().pictPageContainer.Top(), 1020 - 2824);
    EXPECT_EQ(Window().pictShadow.Top(), 1050 - 2824);
    EXPECT_TRUE(Window().VScroll.UserScroll(100));
    EXPECT_EQ(Window().pictPageContainer.Top(), 1020 - 8558);
    EXPECT_TRUE(Window().VScroll.UserScroll(0));
    EXPECT_EQ(Window().pictPageContainer.Top(), 1020);
    EXPECT_EQ(Window().pictShadow.Top(), 1050);
}

TEST_F(WindowTest, AHalfTwipGoesToTheEvenNumber) {
    Start(1);
    Window().lScrollSpanY = 6; // 75% is 4.5, which rounds to 4: a shift of 2
    Window().VScroll.SetValue(25);
    EXPECT_EQ(Window().pictPageContainer.Top(), 1018);
    Window().lScrollSpanY = 10; // 75% is 7.5, which rounds to 8: a shift of 2
    Window().VScroll.SetValue(0);
    Window().VScroll.SetValue(25);
    EXPECT_EQ(Window().pictPageContainer.Top(), 1018);
}

TEST_F(WindowTest, ACentredPageJumpsToTheLeftWithTheFirstHorizontalStep) {
    Start(1);
    const double centred = Window().pictPageContainer.Left();
    EXPECT_NE(centred, 1020);
    Key(key::Left);
    EXPECT_EQ(Window().pictPageContainer.Left(), centred) << "0 stays 0: nothing has changed";
    Key(key::Right);
    EXPECT_EQ(Window().pictPageContainer.Left(), 1020 - 706) << "90% of 7056 is 6350.4: a shift of 706";
    EXPECT_EQ(Window().pictShadow.Left(), 1050 - 706);
    Key(key::Left);
    EXPECT_EQ(Window().pictPageContainer.Left(), 1020);
}

TEST_F(WindowTest, AThumbThatIsLetGoWhereItWasMovesNothing) {
    Start(1);
    Window().pictPageContainer.SetTop(5);
    EXPECT_TRUE(Window().VScroll.UserScroll(0));
    EXPECT_EQ(Window().pictPageContainer.Top(), 5);
}

TEST_F(WindowTest, TheBarsStepAsTheyWereMade) {
    Start(1);
    for (const forms::ScrollBar* bar : {&Window().VScroll, &Window().HScroll}) {
        EXPECT_EQ(bar->Min(), 0);
        EXPECT_EQ(bar->Max(), 100);
        EXPECT_EQ(bar->SmallChange(), 15);
        EXPECT_EQ(bar->LargeChange(), 50);
    }
}

TEST_F(WindowTest, SevenNotchesOfTheWheelGoFromTopToBottom) {
    Start(2);
    for (const int expected : {15, 30, 45, 60, 75, 90, 100, 100}) {
        Wheel(-120);
        EXPECT_EQ(V(), expected);
    }
    for (const int expected : {85, 70, 55, 40, 25, 10, 0, 0}) {
        Wheel(120);
        EXPECT_EQ(V(), expected);
    }
    EXPECT_EQ(Window().iCurrentPage, 1) << "the wheel turns no page";
}

TEST_F(WindowTest, OnlyTheSignOfTheWheelCounts) {
    Start(1);
    GoTo(50, 0);
    Wheel(-1);
    EXPECT_EQ(V(), 65);
    Wheel(-32768);
    EXPECT_EQ(V(), 80);
    Wheel(1);
    EXPECT_EQ(V(), 65);
    Wheel(0);
    EXPECT_EQ(V(), 50) << "0 counts as away from the user";
}

TEST_F(WindowTest, TheLowWordOfTheWheelDoesNotCount) {
    Start(1);
    GoTo(50, 0);
    memory.desktop.Windows().Send(Window().hWnd(), 522, 0xFFFF, 0);
    EXPECT_EQ(V(), 35);
    memory.desktop.Windows().Send(Window().hWnd(), 523, 0, 0);
    EXPECT_EQ(V(), 35) << "another message";
}

TEST_F(WindowTest, TheWheelGoesOnToTheWindow) {
    Start(1);
    std::int32_t uMsg = 522;
    std::intptr_t wParam = 0;
    std::intptr_t lParam = 0;
    std::intptr_t retVal = 0;
    Window().Msg_Before(uMsg, wParam, lParam, retVal);
    EXPECT_EQ(uMsg, 522);
}

// The picture of the page cannot be drawn again: the page has moved all the same, and nobody is told.
TEST_F(WindowTest, AFailingRefreshCostsNothing) {
    Start(1);
    int refreshed = 0;
    memory.desktop.OnControlChanged = [&](const forms::Control& control, forms::Aspect aspect) {
        if (&control == &Window().pictCurrentPage && aspect == forms::Aspect::Picture) {
            ++refreshed;
            throw base::OutOfMemory();
        }
    };
    EXPECT_TRUE(Window().VScroll.UserScroll(100));
    EXPECT_EQ(Window().pictPageContainer.Top(), 1020 - 8558);
    Key(forms::key::Right);
    EXPECT_EQ(Window().pictPageContainer.Left(), 1020 - 706);
    EXPECT_EQ(refreshed, 2);
    EXPECT_THAT(Kinds(), testing::Not(testing::Contains("error")));
    memory.desktop.OnControlChanged = nullptr;
}

TEST_F(WindowTest, ResizingPlacesTheBars) {
    Start(1);
    Window().UserResize(15000, 12000);
    EXPECT_EQ(Window().Line1.X2(), 15000);
    EXPECT_EQ(Window().Line2.X2(), 15000);
    EXPECT_EQ(Window().ToolbarContainer.Width(), 15000);
    const double bar = Window().StatusBar.Height();
    EXPECT_EQ(Window().pictVScroll.Width(), 270);
    EXPECT_EQ(Window().pictVScroll.Left(), 15000 - 270 - 115);
    EXPECT_EQ(Window().pictVScroll.Top(), 675);
    EXPECT_EQ(Window().pictVScroll.Height(), 12000 - 675 - 675 - bar - 90);
    EXPECT_EQ(Window().pictHScroll.Left(), 0);
    EXPECT_EQ(Window().pictHScroll.Width(), 15000 - 270 - 135);
    EXPECT_EQ(Window().pictHScroll.Top(), 12000 - 675 - bar - 255 - 90);
    EXPECT_EQ(Window().HScroll.Width(), Window().pictHScroll.Width());
    EXPECT_EQ(Window().VScroll.Top(), 0);
    EXPECT_EQ(Window().VScroll.Height(), Window().pictVScroll.Height() - 240 - 240 - 45);
    EXPECT_EQ(Window().cmdUp.Top(), Window().VScroll.Height() + 15);
    EXPECT_EQ(Window().cmdDown.Top(), Window().cmdUp.Top() + 240 + 30);
    EXPECT_EQ(Window().Line5.Y1(), Window().cmdDown.Top() + 240 + 675 + 15);
    EXPECT_EQ(Window().Line5.Y2(), Window().Line5.Y1());
    EXPECT_EQ(Window().Line5.X2(), 15000);
    EXPECT_EQ(Window().StatusBar.FormEnd(), Window().Line5.Y1());
}

TEST_F(WindowTest, ResizingLeavesTravelAndPageAsTheyWere) {
    Start(1);
    Window().VScroll.SetValue(50);
    const double top = Window().pictPageContainer.Top();
    Window().UserResize(9000, 5000);
    EXPECT_EQ(Window().lScrollSpanY, 8558);
    EXPECT_EQ(Window().lScrollSpanX, 7056);
    EXPECT_EQ(Window().pictPageContainer.Top(), top);
    EXPECT_FALSE(Window().blnHScroll);
}

TEST_F(WindowTest, ThePanelsHaveTheWidthsOfTheLastStep) {
    Start(1);
    EXPECT_EQ(Window().StatusBar.Panel(1).Width, 3000);
    EXPECT_EQ(Window().StatusBar.Panel(2).Width, 19200);
}

TEST_F(WindowTest, ATinyWindowKeepsTheSizesThatItCannotTake) {
    Start(1);
    const double height = Window().pictVScroll.Height();
    const double barHeight = Window().VScroll.Height();
    Window().UserResize(100, 100);
    EXPECT_EQ(Window().ToolbarContainer.Width(), 100);
    EXPECT_EQ(Window().pictVScroll.Height(), height);
    EXPECT_EQ(Window().VScroll.Height(), barHeight);
    EXPECT_EQ(Window().pictHScroll.Width(), 19200 - 270 - 135) << "refused: it would be below 0";
    EXPECT_EQ(Window().pictVScroll.Left(), 100 - 270 - 115) << "a place may be anywhere";
}

} // namespace
} // namespace preview
