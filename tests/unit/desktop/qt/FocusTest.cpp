// The form decides where the focus goes; the toolkit follows, and a refused change loses the click that
// caused it.
#include <QAbstractButton>
#include <QApplication>
#include <QLineEdit>
#include <QPushButton>

#include "unit/desktop/qt/SampleTest.h"

namespace {

using testing::ElementsAre;

using FocusTest = SampleTest;

TEST_F(FocusTest, TheFirstInTheTabOrderHasItAtTheStart) {
    ExpectFocus(form.Name);
}

TEST_F(FocusTest, TabGoesAlongTheTabOrderAndAround) {
    const forms::Control* const order[] = {&form.Account, &form.Count, &form.Matrix, &form.First,
                                           &form.Second,  &form.Third, &form.List,   &form.Combo,
                                           &form.Ok,      &form.Other, &form.Close,  &form.Name};
    for (const forms::Control* control : order) {
        window::Key(Qt::Key_Tab);
        ExpectFocus(*control);
    }
}

TEST_F(FocusTest, ShiftTabGoesBack) {
    window::Key(Qt::Key_Backtab, Qt::ShiftModifier);
    ExpectFocus(form.Close);
    window::Key(Qt::Key_Backtab, Qt::ShiftModifier);
    ExpectFocus(form.Other);
}

TEST_F(FocusTest, TheProgramMovesIt) {
    form.Combo.SetFocus();
    ExpectFocus(form.Combo);
}

TEST_F(FocusTest, AClickMovesIt) {
    window::Click(Widget("Account"));
    ExpectFocus(form.Account);
    EXPECT_THAT(form.Log, ElementsAre("rekening"));
    window::Click(Widget("Ok"));
    ExpectFocus(form.Ok);
    EXPECT_THAT(form.Log, ElementsAre("rekening", "rekening verlaten", "goed"));
}

TEST_F(FocusTest, ARefusedTextLosesTheClickOnAButton) {
    window::Click(Widget("Account"));
    window::Type("fout");
    form.Log.clear();
    window::Click(Widget("Ok"));
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Text, "Niet juist.");
    EXPECT_EQ(boxes.All()[0].Title, "Proef");
    EXPECT_EQ(form.Account.Text(), "");
    EXPECT_THAT(form.Log, testing::Not(testing::Contains("goed")));
    EXPECT_FALSE(Widget<QPushButton>("Ok")->isDown());
    ExpectFocus(form.Account);

    form.Log.clear();
    window::Click(Widget("Ok"));
    EXPECT_THAT(form.Log, ElementsAre("rekening verlaten", "goed"));
    EXPECT_EQ(boxes.All().size(), 1U);
}

TEST_F(FocusTest, ARefusedTextLosesTheClickOnEachKindOfControl) {
    for (const char* control : {"Matrix", "First", "Second", "Close", "Name", "List", "Combo", "Arrows.Up"}) {
        const std::size_t before = boxes.All().size();
        form.Account.SetFocus();
        form.Account.SetText("fout");
        form.Log.clear();
        window::Click(Widget(control));
        EXPECT_EQ(boxes.All().size(), before + 1) << control;
        EXPECT_THAT(form.Log, testing::Each(testing::StartsWith("rekening"))) << control;
        EXPECT_TRUE(form.Visible());
        EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << control;
        ExpectFocus(form.Account);
    }
    EXPECT_FALSE(form.Matrix.Value());
    EXPECT_FALSE(Widget<QAbstractButton>("Matrix")->isChecked());
    EXPECT_FALSE(Widget<QAbstractButton>("First")->isChecked());
    EXPECT_EQ(form.List.ListIndex(), -1);
    EXPECT_EQ(form.Count.Text(), "");
}

TEST_F(FocusTest, ARefusedTextLosesTheAccessKey) {
    form.Account.SetFocus();
    form.Account.SetText("fout");
    form.Log.clear();
    window::Key(Qt::Key_G, Qt::AltModifier);
    EXPECT_EQ(boxes.All().size(), 1U);
    EXPECT_THAT(form.Log, testing::Each(testing::StartsWith("rekening")));
    ExpectFocus(form.Account);
}

TEST_F(FocusTest, ARefusedTextKeepsTheTabKey) {
    form.Account.SetFocus();
    form.Account.SetText("fout");
    window::Key(Qt::Key_Tab);
    EXPECT_EQ(boxes.All().size(), 1U);
    ExpectFocus(form.Account);
    window::Key(Qt::Key_Tab);
    EXPECT_EQ(boxes.All().size(), 1U);
    ExpectFocus(form.Count);
}

TEST_F(FocusTest, WhatTheToolkitMovesByItselfReachesTheForm) {
    Widget("Combo")->setFocus(Qt::OtherFocusReason);
    ExpectFocus(form.Combo);
}

TEST_F(FocusTest, WhatTheToolkitMovesByItselfCanBeRefused) {
    form.Account.SetFocus();
    form.Account.SetText("fout");
    Widget("Combo")->setFocus(Qt::OtherFocusReason);
    window::Settle();
    EXPECT_EQ(boxes.All().size(), 1U);
    ExpectFocus(form.Account);
}

TEST_F(FocusTest, AControlThatIsDisabledPassesItOn) {
    form.Ok.SetFocus();
    form.Ok.SetEnabled(false);
    ExpectFocus(form.Other);
    form.Other.SetVisible(false);
    ExpectFocus(form.Close);
}

TEST_F(FocusTest, NothingIsToldTwice) {
    form.Account.SetFocus();
    form.Ok.SetFocus();
    window::Settle();
    EXPECT_THAT(form.Log, ElementsAre("rekening", "rekening verlaten"));
}

TEST_F(FocusTest, TabIsDownWhileItIsHeld) {
    std::int16_t during = 0;
    form.Account.OnGotFocus = [&] { during = desktop.GetKeyState(forms::key::Tab); };
    window::Key(Qt::Key_Tab);
    EXPECT_LT(during, 0);
    EXPECT_EQ(desktop.GetKeyState(forms::key::Tab), 0);
    window::Click(Widget("Ok"));
    window::Click(Widget("Account"));
    EXPECT_EQ(during, 0);
}

} // namespace
