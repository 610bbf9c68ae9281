#include <gmock/gmock.h>

#include "forms/CommandButton.h"
#include "forms/ControlArray.h"
#include "forms/Label.h"
#include "forms/PictureBox.h"
#include "forms/TextBox.h"
#include "unit/forms/TestForm.h"

namespace {

using namespace forms;
using forms::key::Tab;
using testing::ElementsAre;

class FocusTest : public testing::Test, protected FormsFixture {
  protected:
    FocusTest() {
        first.SetTabIndex(0);
        second.SetTabIndex(1);
        third.SetTabIndex(2);
        for (TextBox* box : {&first, &second, &third}) {
            box->OnGotFocus = Log("+" + box->Name());
            box->OnLostFocus = Log("-" + box->Name());
        }
    }

    TestForm form{session};
    // Made in another order than that of the tabs.
    TextBox third{form, "third"};
    TextBox first{form, "first"};
    Label label{form, "label"};
    PictureBox panel{form, "panel"};
    TextBox second{form, "second", Control::NoIndex, &panel};
};

TEST_F(FocusTest, TheFirstInTabOrderHasItWhenTheFormShows) {
    EXPECT_EQ(form.ActiveControl(), nullptr);
    form.Show();
    EXPECT_EQ(form.ActiveControl(), &first);
    EXPECT_THAT(log, ElementsAre("+first"));
}

TEST_F(FocusTest, AFormThatSetItsFocusItselfKeepsIt) {
    form.onActivate = [this] { second.SetFocus(); };
    form.Show();
    EXPECT_EQ(form.ActiveControl(), &second);
    EXPECT_THAT(log, ElementsAre("+second"));
}

TEST_F(FocusTest, NothingMovesBeforeTheFormShows) {
    form.Load();
    second.SetFocus();
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(FocusTest, TabGoesRoundByTabIndexAndBack) {
    form.Show();
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), &second);
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), &third);
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), &first);
    form.UserKey(Tab, true);
    EXPECT_EQ(form.ActiveControl(), &third);
    EXPECT_THAT(log, ElementsAre("+first", "-first", "+second", "-second", "+third", "-third", "+first",
                                 "-first", "+third"));
}

TEST_F(FocusTest, TabSkipsWhatCannotHaveTheFocus) {
    second.SetEnabled(false);
    form.Show();
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), &third);
    second.SetEnabled(true);
    panel.SetVisible(false);
    form.UserKey(Tab, true);
    EXPECT_EQ(form.ActiveControl(), &first);
}

TEST_F(FocusTest, AloneTabStaysWhereItIs) {
    form.Show();
    second.SetVisible(false);
    third.SetEnabled(false);
    log.clear();
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), &first);
    EXPECT_THAT(log, ElementsAre());
}

TEST_F(FocusTest, SetFocusOfWhatCannotHaveItDoesNothing) {
    form.Show();
    label.SetFocus();
    EXPECT_EQ(form.ActiveControl(), &first);
    panel.SetEnabled(false);
    second.SetFocus();
    EXPECT_EQ(form.ActiveControl(), &first);
    EXPECT_FALSE(second.UserClick());
    EXPECT_FALSE(label.UserClick());
}

TEST_F(FocusTest, OneThatTakesItBackKeepsIt) {
    form.Show();
    first.OnLostFocus = [this] {
        log.push_back("-first");
        first.SetFocus();
    };
    log.clear();
    second.UserClick();
    EXPECT_EQ(form.ActiveControl(), &first);
    EXPECT_EQ(log.back(), "+first");
    EXPECT_THAT(log, testing::Not(testing::Contains("+second")));
}

TEST_F(FocusTest, AClickIsLostWhereTheFocusDoesNotStay) {
    CommandButton button(form, "button");
    button.OnClick = Log("click");
    form.Show();
    bool refuse = true;
    first.OnLostFocus = [&] {
        if (refuse) {
            refuse = false;
            first.SetFocus();
        }
    };
    EXPECT_TRUE(button.UserClick());
    EXPECT_THAT(log, testing::Not(testing::Contains("click")));
    EXPECT_TRUE(button.UserClick());
    EXPECT_EQ(log.back(), "click");
    EXPECT_EQ(form.ActiveControl(), &button);
}

TEST_F(FocusTest, HiddenOrDisabledItGoesOn) {
    form.Show();
    first.SetEnabled(false);
    EXPECT_EQ(form.ActiveControl(), &second);
    panel.SetVisible(false);
    EXPECT_EQ(form.ActiveControl(), &third);
    EXPECT_THAT(log, ElementsAre("+first", "-first", "+second", "-second", "+third"));
}

TEST_F(FocusTest, WithNowhereToGoItIsGone) {
    form.Show();
    second.SetEnabled(false);
    third.SetEnabled(false);
    first.SetVisible(false);
    EXPECT_EQ(form.ActiveControl(), nullptr);
    EXPECT_EQ(log.back(), "-first");
    form.UserCharacter(U'a');
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), nullptr);
    third.SetEnabled(true);
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), &third);
}

TEST_F(FocusTest, ControlsWithoutATabIndexComeLastInTheOrderOfTheirMaking) {
    TextBox late(form, "late");
    TextBox later(form, "later");
    form.Show();
    third.SetFocus();
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), &late);
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), &later);
    form.UserKey(Tab);
    EXPECT_EQ(form.ActiveControl(), &first);
}

TEST(ControlArrayTest, KnowsItsNumbersAlone) {
    FormsFixture fixture;
    TestForm form(fixture.session);
    const ControlArray<TextBox> boxes(form, "UserText", {0, 70, 74});
    EXPECT_EQ(boxes(70).Index(), 70);
    EXPECT_EQ(boxes(70).Name(), "UserText");
    EXPECT_EQ(form.Controls().size(), 3U);
    EXPECT_THROW(boxes(1), base::RuntimeError);
}

} // namespace
