#include <gmock/gmock.h>

#include "forms/CheckBox.h"
#include "forms/CommandButton.h"
#include "forms/OptionButton.h"
#include "forms/PictureBox.h"
#include "forms/TextBox.h"
#include "unit/forms/TestForm.h"

namespace {

using namespace forms;
using forms::key::Enter;
using forms::key::Escape;
using testing::ElementsAre;
using testing::IsEmpty;

class ButtonsTest : public testing::Test, protected FormsFixture {
  protected:
    ButtonsTest() {
        ok.OnClick = Log("ok");
        cancel.OnClick = Log("cancel");
        ok.SetDefault(true);
        cancel.SetCancel(true);
    }

    TestForm form{session};
    TextBox box{form, "box"};
    CommandButton ok{form, "ok"};
    CommandButton cancel{form, "cancel"};
};

TEST_F(ButtonsTest, AClickMovesTheFocusAndRuns) {
    form.Show();
    EXPECT_TRUE(ok.UserClick());
    EXPECT_EQ(form.ActiveControl(), &ok);
    EXPECT_THAT(log, ElementsAre("ok"));
}

TEST_F(ButtonsTest, AHiddenOrDisabledButtonIsOutOfReach) {
    form.Show();
    ok.SetEnabled(false);
    cancel.SetVisible(false);
    EXPECT_FALSE(ok.UserClick());
    EXPECT_FALSE(cancel.UserClick());
    form.UserKey(Enter);
    form.UserKey(Escape);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ButtonsTest, EnterAndEscapePressWithoutTheFocus) {
    form.Show();
    form.UserKey(Enter);
    form.UserKey(Escape);
    EXPECT_EQ(form.ActiveControl(), &box);
    EXPECT_THAT(log, ElementsAre("ok", "cancel"));
}

TEST_F(ButtonsTest, AButtonKnowsThatEnterPressesItNow) {
    form.Show();
    EXPECT_TRUE(ok.IsPressedByEnter());
    EXPECT_FALSE(cancel.IsPressedByEnter());
    cancel.SetFocus();
    EXPECT_FALSE(ok.IsPressedByEnter());
    EXPECT_TRUE(cancel.IsPressedByEnter());
}

TEST_F(ButtonsTest, EnterPressesTheButtonThatHasTheFocus) {
    form.Show();
    cancel.SetFocus();
    form.UserKey(Enter);
    EXPECT_THAT(log, ElementsAre("cancel"));
}

TEST_F(ButtonsTest, TheFormSeesAKeyFirstAndMayKeepIt) {
    std::vector<int> keys;
    form.onKeyDown = [&](int& virtualKey) {
        keys.push_back(virtualKey);
        virtualKey = 0;
    };
    form.Show();
    form.UserKey(Escape);
    form.UserKey('A');
    EXPECT_THAT(keys, ElementsAre(27, 65));
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(box.Text(), "");
}

TEST_F(ButtonsTest, AFormClosedByItsKeyHandlesNoMore) {
    form.onKeyDown = [&](int&) { form.Unload(); };
    form.Show();
    form.UserKey(Enter);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ButtonsTest, TheSpaceBarPressesWhatHasTheFocus) {
    CheckBox check(form, "check");
    check.OnClick = Log("check");
    form.Show();
    ok.SetFocus();
    form.UserKey(' ');
    check.SetFocus();
    form.UserKey(' ');
    EXPECT_TRUE(check.Value());
    form.UserKey('A');
    EXPECT_TRUE(check.Value());
    EXPECT_THAT(log, ElementsAre("ok", "check"));
}

TEST_F(ButtonsTest, AnotherKeyPressesNothing) {
    OptionButton option(form, "option");
    form.Show();
    ok.SetFocus();
    form.UserKey('A');
    EXPECT_THAT(log, IsEmpty());
    form.MoveFocus(option);
    option.SetValue(false);
    form.UserKey('A');
    EXPECT_FALSE(option.Value());
    form.UserKey(' ');
    EXPECT_TRUE(option.Value());
}

TEST_F(ButtonsTest, ACheckBoxTurnsAtEachClickAndTellsChangesAlone) {
    CheckBox check(form, "check");
    check.OnClick = Log("check");
    form.Show();
    check.UserClick();
    EXPECT_TRUE(check.Value());
    check.SetValue(true);
    check.UserClick();
    EXPECT_FALSE(check.Value());
    EXPECT_THAT(log, ElementsAre("check", "check"));
    check.SetEnabled(false);
    EXPECT_FALSE(check.UserClick());
}

TEST_F(ButtonsTest, OptionsOfOneContainerExcludeEachOther) {
    PictureBox panel(form, "panel");
    OptionButton one(form, "opt", 0);
    OptionButton two(form, "opt", 1);
    OptionButton apart(form, "other", 0, &panel);
    one.OnClick = Log("one");
    two.OnClick = Log("two");
    form.Show();
    apart.SetValue(true);
    one.UserClick();
    two.UserClick();
    EXPECT_FALSE(one.Value());
    EXPECT_TRUE(two.Value());
    EXPECT_TRUE(apart.Value());
    EXPECT_THAT(log, ElementsAre("one", "two")) << "one that goes off is not clicked";
    one.SetFocus();
    form.UserKey(' ');
    EXPECT_TRUE(one.Value());
    EXPECT_FALSE(two.Value());
    panel.SetVisible(false);
    EXPECT_FALSE(apart.UserClick());
}

} // namespace
