#include "forms/ControlVisitor.h"

#include <gtest/gtest.h>

#include "forms/CheckBox.h"
#include "forms/ChoiceControl.h"
#include "forms/CommandButton.h"
#include "forms/Label.h"
#include "forms/LineControl.h"
#include "forms/MenuBar.h"
#include "forms/MenuItem.h"
#include "forms/OptionButton.h"
#include "forms/PictureBox.h"
#include "forms/ProgressBar.h"
#include "forms/ScrollBar.h"
#include "forms/StatusBar.h"
#include "forms/TextBox.h"
#include "forms/Timer.h"
#include "forms/Toolbar.h"
#include "forms/UpDown.h"
#include "forms/cmdButtonXP.h"
#include "unit/forms/TestForm.h"

namespace {

using namespace forms;

/// Tells which of its members was called.
class Namer final : public ControlVisitor {
  public:
    std::string Kind;

    void Visit(CheckBox& /*control*/) override { Kind = "CheckBox"; }
    void Visit(ComboBox& /*control*/) override { Kind = "ComboBox"; }
    void Visit(CommandButton& /*control*/) override { Kind = "CommandButton"; }
    void Visit(Label& /*control*/) override { Kind = "Label"; }
    void Visit(LineControl& /*control*/) override { Kind = "LineControl"; }
    void Visit(ListBox& /*control*/) override { Kind = "ListBox"; }
    void Visit(MenuBar& /*control*/) override { Kind = "MenuBar"; }
    void Visit(MenuItem& /*control*/) override { Kind = "MenuItem"; }
    void Visit(OptionButton& /*control*/) override { Kind = "OptionButton"; }
    void Visit(PictureBox& /*control*/) override { Kind = "PictureBox"; }
    void Visit(ProgressBar& /*control*/) override { Kind = "ProgressBar"; }
    void Visit(ScrollBar& /*control*/) override { Kind = "ScrollBar"; }
    void Visit(StatusBar& /*control*/) override { Kind = "StatusBar"; }
    void Visit(TextBox& /*control*/) override { Kind = "TextBox"; }
    void Visit(Timer& /*control*/) override { Kind = "Timer"; }
    void Visit(Toolbar& /*control*/) override { Kind = "Toolbar"; }
    void Visit(UpDown& /*control*/) override { Kind = "UpDown"; }
    void Visit(cmdButtonXP& /*control*/) override { Kind = "cmdButtonXP"; }
};

/// A form with one of each kind, each by the name of its class.
class OfEachKind : public TestForm {
  public:
    using TestForm::TestForm;

    CheckBox check{*this, "CheckBox"};
    ComboBox combo{*this, "ComboBox"};
    CommandButton button{*this, "CommandButton"};
    Label label{*this, "Label"};
    LineControl line{*this, "LineControl"};
    ListBox list{*this, "ListBox"};
    MenuBar menus{*this, "MenuBar"};
    MenuItem item{*this, "MenuItem"};
    OptionButton option{*this, "OptionButton"};
    PictureBox picture{*this, "PictureBox"};
    ProgressBar progress{*this, "ProgressBar"};
    ScrollBar scroll{*this, "ScrollBar", ScrollBar::Direction::Vertical, 0, 1};
    StatusBar status{*this, "StatusBar", 1};
    TextBox box{*this, "TextBox"};
    Timer timer{*this, "Timer", 1};
    Toolbar toolbar{*this, "Toolbar"};
    UpDown arrows{*this, "UpDown", box, 0, 1};
};

class ControlVisitorTest : public testing::Test, protected FormsFixture {
  protected:
    OfEachKind form{session};
};

TEST_F(ControlVisitorTest, MeetsEachControlAsWhatItIs) {
    EXPECT_EQ(form.Controls().size(), 17U);
    for (Control* control : form.Controls()) {
        Namer namer;
        control->Accept(namer);
        EXPECT_EQ(namer.Kind, control->Name());
    }
    cmdButtonXP flat(form, "cmdButtonXP"); // comes with a timer of its own
    Namer namer;
    flat.Accept(namer);
    EXPECT_EQ(namer.Kind, "cmdButtonXP");
}

TEST_F(ControlVisitorTest, AFormKnowsItsControlsOfOneKind) {
    OptionButton second(form, "second");
    EXPECT_EQ(form.ControlsOf<OptionButton>(), (std::vector<OptionButton*>{&form.option, &second}));
    EXPECT_EQ(form.ControlsOf<ChoiceControl>().size(), 2U) << "what kinds have in common is one as well";
    EXPECT_TRUE(form.ControlsOf<cmdButtonXP>().empty());
}

TEST_F(ControlVisitorTest, OnlyAMenuItemHasNoWindow) {
    for (const Control* control : form.Controls()) {
        EXPECT_EQ(control->HasWindow(), control != &form.item) << control->Name();
    }
}

} // namespace
