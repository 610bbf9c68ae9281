// A control that the form holds back until it has something to tell.
#include <vector>

#include <gtest/gtest.h>

#include "forms/CommandButton.h"
#include "forms/PictureBox.h"
#include "unit/forms/TestForm.h"

namespace {

class WithholdTest : public testing::Test, protected FormsFixture {
  protected:
    WithholdTest() {
        memory.desktop.OnControlChanged = [this](const forms::Control& control, forms::Aspect aspect) {
            told.emplace_back(&control, aspect);
        };
        button.Withhold();
        form.Show();
        told.clear();
    }

    std::vector<std::pair<const forms::Control*, forms::Aspect>> told;
    TestForm form{session};
    forms::CommandButton button{form, "cmd"};
};

TEST_F(WithholdTest, TheWindowKnowsNothingOfItUntilItIsShown) {
    EXPECT_FALSE(button.Visible());
    EXPECT_FALSE(button.IsMirrored());
    button.SetCaption("Twee punten");
    button.SetToolTipText("meer");
    button.SetVisible(false);
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(form.MoveFocus(button));
}

TEST_F(WithholdTest, ShownItIsAControlLikeAnyOther) {
    button.SetVisible(true);
    EXPECT_TRUE(button.IsMirrored());
    ASSERT_EQ(told.size(), 1U);
    EXPECT_EQ(told.front(), std::pair(static_cast<const forms::Control*>(&button), forms::Aspect::Visible));
    EXPECT_TRUE(form.MoveFocus(button));
}

TEST_F(WithholdTest, HiddenAgainItKeepsItsWindow) {
    button.SetVisible(true);
    button.SetVisible(false);
    EXPECT_TRUE(button.IsMirrored());
}

} // namespace
