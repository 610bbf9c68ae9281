#include <QAbstractButton>
#include <QPushButton>

#include "unit/desktop/qt/SampleTest.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using KeysTest = SampleTest;

TEST_F(KeysTest, EnterPressesTheDefaultButton) {
    window::Key(Qt::Key_Return);
    EXPECT_THAT(form.Log, ElementsAre("goed"));
    ExpectFocus(form.Name);
}

TEST_F(KeysTest, EnterOnTheKeypadDoesTheSame) {
    window::Key(Qt::Key_Enter, Qt::KeypadModifier);
    EXPECT_THAT(form.Log, ElementsAre("goed"));
}

TEST_F(KeysTest, EnterPressesTheButtonThatHasTheFocus) {
    form.Other.SetFocus();
    window::Key(Qt::Key_Return);
    EXPECT_THAT(form.Log, ElementsAre("ander"));
}

TEST_F(KeysTest, EnterDoesNothingWhileTheDefaultButtonIsDisabled) {
    form.Ok.SetEnabled(false);
    window::Key(Qt::Key_Return);
    EXPECT_THAT(form.Log, IsEmpty());
}

TEST_F(KeysTest, EscapePressesTheCancelButton) {
    window::Key(Qt::Key_Escape);
    EXPECT_FALSE(form.Visible());
    EXPECT_EQ(window::Of("Sample"), nullptr);
}

TEST_F(KeysTest, SpacePressesTheButtonWithTheFocus) {
    form.Other.SetFocus();
    window::Key(Qt::Key_Space);
    EXPECT_THAT(form.Log, ElementsAre("ander"));
}

TEST_F(KeysTest, SpaceTurnsACheckBoxAndAnOption) {
    form.Matrix.SetFocus();
    window::Key(Qt::Key_Space);
    EXPECT_TRUE(form.Matrix.Value());
    EXPECT_TRUE(Widget<QAbstractButton>("Matrix")->isChecked());
    window::Key(Qt::Key_Space);
    EXPECT_FALSE(form.Matrix.Value());
    form.First.SetFocus();
    window::Key(Qt::Key_Space);
    EXPECT_TRUE(form.First.Value());
    EXPECT_TRUE(Widget<QAbstractButton>("First")->isChecked());
}

TEST_F(KeysTest, ArrowsGoThroughTheOptionsOfAGroup) {
    form.First.SetFocus();
    window::Key(Qt::Key_Down);
    ExpectFocus(form.Second);
    EXPECT_TRUE(form.Second.Value());
    window::Key(Qt::Key_Right);
    ExpectFocus(form.Third);
    window::Key(Qt::Key_Down);
    ExpectFocus(form.First);
    EXPECT_TRUE(form.First.Value());
    EXPECT_FALSE(Widget<QAbstractButton>("Third")->isChecked());
    window::Key(Qt::Key_Up);
    ExpectFocus(form.Third);
    EXPECT_THAT(form.Log, ElementsAre("tweede", "derde", "eerste", "derde"));
}

TEST_F(KeysTest, ArrowsPassADisabledOption) {
    form.Second.SetEnabled(false);
    form.First.SetFocus();
    window::Key(Qt::Key_Down);
    ExpectFocus(form.Third);
}

TEST_F(KeysTest, ArrowsStayOnAButton) {
    form.Ok.SetFocus();
    window::Key(Qt::Key_Right);
    window::Key(Qt::Key_Down);
    ExpectFocus(form.Ok);
}

TEST_F(KeysTest, AccessKeysClick) {
    window::Key(Qt::Key_A, Qt::AltModifier);
    EXPECT_THAT(form.Log, ElementsAre("ander"));
    ExpectFocus(form.Other);
    window::Key(Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(form.Second.Value());
    window::Key(Qt::Key_M, Qt::AltModifier);
    EXPECT_TRUE(form.Matrix.Value());
}

TEST_F(KeysTest, TheAccessKeyOfALabelGoesToTheControlBehindIt) {
    form.Ok.SetFocus();
    window::Key(Qt::Key_N, Qt::AltModifier);
    ExpectFocus(form.Name);
}

TEST_F(KeysTest, AHiddenOrDisabledButtonHasNoAccessKey) {
    form.Other.SetVisible(false);
    window::Key(Qt::Key_A, Qt::AltModifier);
    form.Ok.SetEnabled(false);
    window::Key(Qt::Key_G, Qt::AltModifier);
    EXPECT_THAT(form.Log, IsEmpty());
}

TEST_F(KeysTest, TheFormSeesAKeyFirstAndMayKeepIt) {
    form.Keeps = forms::key::Escape;
    window::Key(Qt::Key_Escape);
    window::Key(Qt::Key_PageDown);
    EXPECT_TRUE(form.Visible());
    EXPECT_THAT(form.Keys, ElementsAre(forms::key::Escape, forms::key::PageDown));
}

TEST_F(KeysTest, AKeyReachesTheFormOnceAlsoWhereTheWidgetHasNoUseForIt) {
    form.Keys.clear();
    for (const forms::Control* control :
         {static_cast<forms::Control*>(&form.Ok), static_cast<forms::Control*>(&form.Name),
          static_cast<forms::Control*>(&form.List)}) {
        form.MoveFocus(const_cast<forms::Control&>(*control));
        window::Key(Qt::Key_PageUp);
    }
    EXPECT_EQ(form.Keys.size(), 3U);
}

} // namespace
