#include "forms/KeyRouting.h"

#include <gmock/gmock.h>

#include "forms/CommandButton.h"
#include "forms/OptionButton.h"
#include "forms/TextBox.h"
#include "forms/UpDown.h"
#include "unit/forms/TestForm.h"

namespace {

using namespace forms;
using testing::ElementsAre;
using testing::IsEmpty;
using With = KeyPress::With;

class KeyRoutingTest : public testing::Test, protected FormsFixture, private KeyWindow {
  protected:
    KeyRoutingTest() {
        form.onKeyDown = [this](int& virtualKey) { log.push_back("form " + std::to_string(virtualKey)); };
        ok.SetDefault(true);
        ok.OnClick = Log("ok");
        cancel.SetCancel(true);
        cancel.OnClick = Log("cancel");
    }

    bool OnControl(const KeyPress& press, bool answer = false) {
        return RouteKey(form, press, *this, [this, answer] {
            log.emplace_back("control");
            return answer;
        });
    }
    bool OnWindow(const KeyPress& press) { return RouteKey(form, press, *this, {}); }

    /// No control of the form can have the focus.
    void LoseFocus() {
        for (Control* control : form.Controls()) {
            control->SetEnabled(false);
        }
        log.clear();
    }

    TestForm form{session};
    TextBox box{form, "box"};
    CommandButton ok{form, "ok"};
    CommandButton cancel{form, "cancel"};

  private:
    void SettleFocus() override { log.emplace_back("settle"); }
    void ShowFocus() override { log.emplace_back("show focus"); }
};

TEST_F(KeyRoutingTest, TabMovesTheFormsFocusAndShowsIt) {
    form.Show();
    EXPECT_TRUE(OnControl({.VirtualKey = key::Tab}));
    EXPECT_THAT(log, ElementsAre("settle", "show focus", "form 9"));
    EXPECT_EQ(form.ActiveControl(), &ok);
    EXPECT_TRUE(OnControl({.VirtualKey = key::Tab, .Shift = true}));
    EXPECT_EQ(form.ActiveControl(), &box);
}

TEST_F(KeyRoutingTest, EnterAndEscapePressTheFormsButtons) {
    form.Show();
    EXPECT_TRUE(OnControl({.VirtualKey = key::Enter}));
    EXPECT_TRUE(OnControl({.VirtualKey = key::Escape}));
    EXPECT_THAT(log, ElementsAre("settle", "form 13", "ok", "settle", "form 27", "cancel"));
}

TEST_F(KeyRoutingTest, HeldDownTheyDoSoOnceAndTabGoesOn) {
    form.Show();
    EXPECT_TRUE(OnControl({.VirtualKey = key::Enter, .Repeated = true}));
    EXPECT_TRUE(OnWindow({.VirtualKey = key::Escape, .Repeated = true}));
    EXPECT_THAT(log, ElementsAre("settle", "settle"));
    OnControl({.VirtualKey = key::Tab, .Repeated = true});
    EXPECT_EQ(form.ActiveControl(), &ok);
}

TEST_F(KeyRoutingTest, AnOpenListKeepsEnterAndEscape) {
    form.Show();
    EXPECT_FALSE(OnControl({.VirtualKey = key::Enter, .KeptByControl = true}));
    EXPECT_FALSE(OnControl({.VirtualKey = key::Escape, .KeptByControl = true}));
    EXPECT_TRUE(OnControl({.VirtualKey = key::Tab, .KeptByControl = true}));
    EXPECT_THAT(log, ElementsAre("settle", "settle", "settle", "show focus", "form 9"));
}

TEST_F(KeyRoutingTest, AnyOtherKeyIsForTheControlThatItHasReached) {
    form.Show();
    EXPECT_TRUE(OnControl({.VirtualKey = key::Left}, true));
    EXPECT_FALSE(OnControl({}, false));
    EXPECT_THAT(log, ElementsAre("settle", "control", "settle", "control"));
}

TEST_F(KeyRoutingTest, AFormWithoutAFocusGetsTheKeysOfItsWindow) {
    form.Show();
    EXPECT_FALSE(OnWindow({.VirtualKey = key::Down}));
    EXPECT_THAT(log, ElementsAre("settle")) << "the box has the focus";
    LoseFocus();
    EXPECT_FALSE(OnWindow({.VirtualKey = key::Down}));
    EXPECT_FALSE(OnWindow({})) << "a key that forms do not tell apart";
    EXPECT_THAT(log, ElementsAre("settle", "form 40", "settle"));
}

TEST_F(KeyRoutingTest, ItsKeysAreTheSameWithCtrl) {
    form.Show();
    LoseFocus();
    EXPECT_FALSE(OnWindow({.VirtualKey = key::PageDown, .Held = With::Ctrl}));
    EXPECT_THAT(log, ElementsAre("form 34"));
}

TEST_F(KeyRoutingTest, OtherwiseAKeyWithCtrlOrAltIsTheToolkits) {
    form.Show();
    EXPECT_FALSE(OnControl({.VirtualKey = key::Tab, .Held = With::Ctrl}));
    EXPECT_FALSE(OnWindow({.VirtualKey = key::PageDown, .Held = With::Ctrl}));
    LoseFocus();
    EXPECT_FALSE(OnWindow({.VirtualKey = key::PageDown, .Held = With::Other}));
    EXPECT_FALSE(OnWindow({.VirtualKey = key::Escape, .Held = With::Ctrl}));
    EXPECT_FALSE(OnControl({.VirtualKey = key::PageDown, .Held = With::Ctrl}));
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(KeyRoutingTest, F1OpensTheHandbookOnceAndNobodyElseSeesIt) {
    form.Show();
    form.handbookSection = "een-venster";
    EXPECT_TRUE(OnControl({.VirtualKey = key::F1}));
    EXPECT_TRUE(OnControl({.VirtualKey = key::F1, .Repeated = true}));
    LoseFocus();
    EXPECT_TRUE(OnWindow({.VirtualKey = key::F1}));
    EXPECT_FALSE(OnWindow({.VirtualKey = key::F1, .Held = With::Ctrl}));
    EXPECT_THAT(memory.desktop.HandbookSections(), ElementsAre("een-venster", "een-venster"));
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(KeyRoutingTest, AFormThatLeavesOpensNoHandbook) {
    form.onUnload = [this] { OnWindow({.VirtualKey = key::F1}); };
    form.Show();
    form.Unload();
    EXPECT_THAT(memory.desktop.HandbookSections(), IsEmpty());
}

class KeysOfControlsTest : public testing::Test, protected FormsFixture {
  protected:
    KeysOfControlsTest() {
        form.onKeyDown = [this](int& virtualKey) { log.push_back(std::to_string(virtualKey)); };
        form.Show();
    }

    TestForm form{session};
    OptionButton one{form, "one"};
    OptionButton two{form, "two"};
    TextBox count{form, "count"};
    TextBox name{form, "name"};
    UpDown arrows{form, "arrows", count, 1, 3};
};

TEST_F(KeysOfControlsTest, MostAreTheFormsAndTheToolkits) {
    EXPECT_FALSE(name.UserKey(key::Home, false));
    EXPECT_FALSE(name.UserKey(0, false)) << "a key that forms do not tell apart";
    EXPECT_THAT(log, ElementsAre("36"));
}

TEST_F(KeysOfControlsTest, TheArrowsChooseTheNextOption) {
    one.SetFocus();
    EXPECT_TRUE(one.UserKey(key::Down, false));
    EXPECT_EQ(form.ActiveControl(), &two);
    EXPECT_TRUE(two.Value());
    EXPECT_TRUE(two.UserKey(key::Left, false));
    EXPECT_TRUE(one.Value());
    EXPECT_FALSE(one.UserKey(key::PageUp, false));
    EXPECT_THAT(log, ElementsAre("40", "37", "33")) << "the form sees them first";
}

TEST_F(KeysOfControlsTest, AnOptionAloneKeepsTheArrowsAllTheSame) {
    two.SetEnabled(false);
    EXPECT_TRUE(one.UserKey(key::Up, false));
    EXPECT_FALSE(one.Value());
}

TEST_F(KeysOfControlsTest, UpAndDownStepANumberThatHasArrows) {
    count.SetText("2");
    EXPECT_TRUE(count.UserKey(key::Up, false));
    EXPECT_EQ(count.Text(), "3");
    EXPECT_TRUE(count.UserKey(key::Down, false));
    EXPECT_EQ(count.Text(), "2");
    EXPECT_THAT(log, IsEmpty()) << "the form does not see them";
    EXPECT_FALSE(name.UserKey(key::Up, false));
    EXPECT_THAT(log, ElementsAre("38"));
}

} // namespace
