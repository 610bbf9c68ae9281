// A form that has agreed to close takes nothing more from the user, also where its last step lets waiting
// messages run.
#include <gmock/gmock.h>

#include "forms/CheckBox.h"
#include "forms/ChoiceControl.h"
#include "forms/CommandButton.h"
#include "forms/MenuBar.h"
#include "forms/OptionButton.h"
#include "forms/ScrollBar.h"
#include "forms/TextBox.h"
#include "forms/Timer.h"
#include "forms/Toolbar.h"
#include "forms/UpDown.h"
#include "forms/cmdButtonXP.h"
#include "unit/forms/TestForm.h"

namespace {

using namespace forms;
using testing::IsEmpty;

class LeavingTest : public testing::Test, protected FormsFixture {
  protected:
    LeavingTest() {
        button.OnClick = Log("button");
        button.SetCancel(true);
        check.OnClick = Log("check");
        option.OnClick = Log("option");
        list.AddItem("een");
        list.OnClick = Log("list");
        scroll.OnChange = Log("scroll");
        toolbar.AddButton({"one", "one-hot", "Een", "", false, true});
        toolbar.OnButtonClick = [this](int) { log.push_back("toolbar"); };
        menu.AddMenu({"ID_Menu", "&Menu", {{"ID_Een", "Een", false}}});
        menu.OnToolClick = [this](const std::string&) { log.push_back("menu"); };
        flat.Click = Log("flat");
        flat.DblClick = Log("flat twice");
        timer.SetEnabled(true);
        timer.OnTimer = Log("timer");
        box.SetText("1");
        form.onKeyDown = [this](int&) { log.push_back("key"); };
        form.onResize = Log("resize");
        form.Show();
        box.SetFocus();
        log.clear();
    }

    /// All that a user can do.
    void UseEverything() {
        button.UserClick();
        check.UserClick();
        option.UserClick();
        list.UserPick(0);
        scroll.UserScroll(50);
        toolbar.UserClickButton(1);
        menu.UserChoose("ID_Een");
        upDown.UserStep(1);
        flat.UserMouseMove();
        flat.UserMouseDown();
        flat.UserClick();
        flat.UserDblClick();
        timer.Tick();
        form.UserKey(forms::key::Escape);
        form.UserKey(forms::key::Tab);
        form.UserKey('7');
        form.UserCharacter(U'8');
        form.UserResize(5000, 4000);
    }

    TestForm form{session};
    TextBox box{form, "box"};
    CommandButton button{form, "button"};
    CheckBox check{form, "check"};
    OptionButton option{form, "option"};
    ListBox list{form, "list"};
    ScrollBar scroll{form, "scroll", ScrollBar::Direction::Vertical, 0, 100};
    Toolbar toolbar{form, "toolbar"};
    MenuBar menu{form, "menu"};
    UpDown upDown{form, "upDown", box, 1, 99};
    forms::cmdButtonXP flat{form, "flat"};
    Timer timer{form, "timer", 100};
};

TEST_F(LeavingTest, NothingArrivesInTheLastStep) {
    bool leaving = false;
    form.onUnload = [&] {
        leaving = form.Leaving();
        UseEverything();
    };
    EXPECT_TRUE(form.Unload());
    EXPECT_TRUE(leaving);
    EXPECT_THAT(log, IsEmpty());
    EXPECT_EQ(box.Text(), "1");
    EXPECT_EQ(scroll.Value(), 0);
    EXPECT_FALSE(flat.Timer.Enabled());
    EXPECT_FALSE(flat.blnMouseDown());
    EXPECT_FALSE(form.Leaving());
}

TEST_F(LeavingTest, TheCloseCheckIsNotTheLastStep) {
    form.onQueryUnload = [this] {
        EXPECT_FALSE(form.Leaving());
        button.UserClick();
        return true;
    };
    EXPECT_TRUE(form.Unload());
    EXPECT_THAT(log, testing::ElementsAre("button"));
}

TEST_F(LeavingTest, AFormThatHasRefusedIsUsedAsBefore) {
    form.onQueryUnload = [] { return false; };
    EXPECT_FALSE(form.Unload());
    UseEverything();
    EXPECT_THAT(log, testing::IsSupersetOf({"button", "check", "option", "list", "scroll", "toolbar", "menu",
                                            "flat", "flat twice", "timer", "key", "resize"}));
}

TEST_F(LeavingTest, AControlThatGoesInTheLastStepLeavesTheFocusAlone) {
    box.OnLostFocus = Log("lost");
    form.onUnload = [this] { box.SetEnabled(false); };
    EXPECT_TRUE(form.Unload());
    EXPECT_THAT(log, IsEmpty());
}

} // namespace
