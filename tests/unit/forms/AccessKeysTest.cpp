#include <gtest/gtest.h>

#include "platform/forms/AccessKeys.h"
#include "platform/forms/AccessibleNames.h"
#include "platform/forms/CommandButton.h"
#include "platform/forms/Label.h"
#include "platform/forms/OptionButton.h"
#include "platform/forms/TextBox.h"
#include "platform/forms/UpDown.h"
#include "unit/forms/TestForm.h"

namespace {

using forms::MarkedKey;

TEST(MarkedKeyTest, IsTheCharacterBehindTheMark) {
    EXPECT_EQ(MarkedKey("&Sluiten"), "S");
    EXPECT_EQ(MarkedKey("Op&slaan"), "S");
    EXPECT_EQ(MarkedKey("&één"), "É");
    EXPECT_EQ(MarkedKey("Sluiten"), "");
    EXPECT_EQ(MarkedKey("Sluiten&"), "");
    EXPECT_EQ(MarkedKey(""), "");
}

TEST(MarkedKeyTest, TwoMarksAreAPlainOne) {
    EXPECT_EQ(MarkedKey("Q && A"), "");
    EXPECT_EQ(MarkedKey("Q && &A"), "A");
    EXPECT_EQ(MarkedKey("&&&A"), "A");
    EXPECT_EQ(MarkedKey("&&"), "");
}

class AccessKeysTest : public testing::Test, protected FormsFixture {
  protected:
    AccessKeysTest() {
        label.SetCaption("Plaats && &naam:");
        button.SetCaption("&Verder");
        button.OnClick = Log("button");
        form.Show();
    }

    TestForm form{session};
    forms::CommandButton button{form, "button"};
    forms::Label label{form, "label"};
    forms::TextBox box{form, "box"};
    forms::TextBox other{form, "other"};
    forms::UpDown arrows{form, "arrows", box, 1, 9};
};

TEST_F(AccessKeysTest, PressesTheButtonThatMarksTheKey) {
    EXPECT_TRUE(forms::PressAccessKey(form, U'v'));
    EXPECT_EQ(log, std::vector<std::string>{"button"});
}

TEST_F(AccessKeysTest, ALabelLeadsToTheControlBehindItAlsoIfAPlainMarkComesFirst) {
    EXPECT_EQ(forms::AccessKeyTarget(label), &box);
    EXPECT_TRUE(forms::PressAccessKey(form, U'n'));
    EXPECT_EQ(form.ActiveControl(), &box);
}

TEST_F(AccessKeysTest, NobodyTakesAnotherKeyOrOneThatIsOutOfReach) {
    EXPECT_FALSE(forms::PressAccessKey(form, U'x'));
    button.SetEnabled(false);
    EXPECT_FALSE(forms::PressAccessKey(form, U'v'));
    label.SetVisible(false);
    EXPECT_FALSE(forms::PressAccessKey(form, U'n'));
}

TEST_F(AccessKeysTest, ArrowsAreFoundByTheirBox) {
    EXPECT_EQ(forms::UpDown::Of(box), &arrows);
    EXPECT_EQ(forms::UpDown::Of(other), nullptr);
}

TEST_F(AccessKeysTest, TheNeighbourOfAnOptionIsTheNextThatCanBeChosen) {
    forms::OptionButton first(form, "first");
    forms::OptionButton second(form, "second");
    forms::OptionButton third(form, "third");
    EXPECT_EQ(first.Neighbour(false), &second);
    EXPECT_EQ(first.Neighbour(true), &third);
    EXPECT_EQ(third.Neighbour(false), &first);
    second.SetEnabled(false);
    EXPECT_EQ(first.Neighbour(false), &third);
    third.SetVisible(false);
    EXPECT_EQ(first.Neighbour(false), nullptr);
}

} // namespace
