#include "forms/AccessKeys.h"

#include <gtest/gtest.h>

#include "forms/AccessibleNames.h"
#include "forms/CheckBox.h"
#include "forms/CommandButton.h"
#include "forms/Label.h"
#include "forms/OptionButton.h"
#include "forms/ProgressBar.h"
#include "forms/TextBox.h"
#include "forms/UpDown.h"
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

TEST_F(AccessKeysTest, TurnsABoxOrAnOptionThatMarksTheKey) {
    forms::CheckBox check(form, "check");
    check.SetCaption("&Matrix");
    forms::OptionButton option(form, "option");
    option.SetCaption("&Kort");
    EXPECT_TRUE(forms::PressAccessKey(form, U'm'));
    EXPECT_TRUE(check.Value());
    EXPECT_TRUE(forms::PressAccessKey(form, U'k'));
    EXPECT_TRUE(option.Value());
}

TEST_F(AccessKeysTest, ALabelLeadsNowhereWithoutAMarkOrAControlBehindIt) {
    label.SetUseMnemonic(false);
    EXPECT_EQ(forms::AccessKeyTarget(label), nullptr);
    forms::Label last(form, "last");
    last.SetCaption("&Zoek");
    EXPECT_EQ(forms::AccessKeyTarget(last), nullptr);
    EXPECT_FALSE(forms::PressAccessKey(form, U'z'));
}

TEST_F(AccessKeysTest, ALabelInTheTabOrderLeadsToTheNextOfThatOrder) {
    label.SetTabIndex(5);
    other.SetTabIndex(6);
    EXPECT_EQ(forms::AccessKeyTarget(label), &other);
}

class AccessibleNamesTest : public testing::Test, protected FormsFixture {
  protected:
    TestForm form{session};
    forms::Label left{form, "left"};
    forms::Label above{form, "above"};
    forms::TextBox box{form, "box"};

    AccessibleNamesTest() {
        box.Move(2000, 1000, 3000, 300);
        left.Move(500, 1000, 1400, 300);
        left.SetCaption("&Naam :");
        above.Move(2000, 650, 1400, 300);
        above.SetCaption("Incassant");
    }
};

TEST_F(AccessibleNamesTest, ALabelAtTheLeftGoesBeforeOneAbove) {
    EXPECT_EQ(forms::AccessibleNameOf(box), "Naam");
    left.Move(6000, 1000, 1400, 300); // at the right
    EXPECT_EQ(forms::AccessibleNameOf(box), "Incassant");
    EXPECT_EQ(forms::NearestLabel(box), &above);
}

TEST_F(AccessibleNamesTest, ALabelElsewhereNamesNothing) {
    left.Move(500, 3000, 1400, 300);
    above.Move(2000, 100, 1400, 300); // too far up
    EXPECT_EQ(forms::NearestLabel(box), nullptr);
    EXPECT_EQ(forms::AccessibleNameOf(box), "") << "what the program calls it means nothing to a user";
    box.SetToolTipText("De naam");
    EXPECT_EQ(forms::AccessibleNameOf(box), "De naam");
    box.SetAccessibleName("Naam van de incassant");
    EXPECT_EQ(forms::AccessibleNameOf(box), "Naam van de incassant");
}

TEST_F(AccessibleNamesTest, WhatHasATextIsCalledByItWithoutTheMark) {
    forms::CommandButton button(form, "button");
    forms::CheckBox check(form, "check");
    forms::OptionButton option(form, "option");
    button.SetCaption("&Verder && klaar");
    check.SetCaption("Matri&x");
    option.SetCaption("&Kort");
    EXPECT_EQ(forms::AccessibleNameOf(button), "Verder & klaar");
    EXPECT_EQ(forms::AccessibleNameOf(check), "Matrix");
    EXPECT_EQ(forms::AccessibleNameOf(option), "Kort");
    EXPECT_EQ(forms::AccessibleNameOf(left), "Naam :");
    left.SetUseMnemonic(false);
    EXPECT_EQ(forms::AccessibleNameOf(left), "&Naam :");
}

TEST_F(AccessibleNamesTest, ProgressIsCalledByItsLabelToo) {
    forms::ProgressBar progress(form, "progress");
    progress.Move(2000, 1000, 3000, 300);
    EXPECT_EQ(forms::AccessibleNameOf(progress), "Naam");
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
