#include "forms/Label.h"

#include <gtest/gtest.h>

#include "forms/AccessibleNames.h"
#include "forms/OptionButton.h"
#include "forms/TextBox.h"
#include "forms/UpDown.h"
#include "unit/forms/TestForm.h"

namespace {

class LabelTest : public testing::Test, protected FormsFixture {
  protected:
    TestForm form{session};
    forms::Label label{form, "label"};
};

TEST_F(LabelTest, AMarkThatLeadsNowhereIsNotShown) {
    label.SetCaption("&Naam && adres:");
    EXPECT_EQ(label.ShownCaption(), "Naam & adres:");
    const forms::TextBox box(form, "box");
    EXPECT_EQ(label.ShownCaption(), "&Naam && adres:") << "it leads to the box";
}

TEST_F(LabelTest, KnowsWhatItStandsInLineWithAndKeepsThePlaceOfTheDesign) {
    const forms::OptionButton option(form, "option");
    forms::Label before(form, "before");
    label.Move(600, 100, 900, 240);
    EXPECT_EQ(label.Below(), nullptr);
    EXPECT_EQ(label.Behind(), nullptr);
    label.SetBelow(option);
    EXPECT_EQ(label.Below(), &option);
    label.SetBehind(before);
    EXPECT_EQ(label.Behind(), &before);
    EXPECT_TRUE(before.IsContinued());
    EXPECT_FALSE(label.IsContinued());
    EXPECT_EQ(label.Left(), 600);
}

TEST_F(LabelTest, WithoutMnemonicsACaptionIsShownAndReadAsItIs) {
    label.SetUseMnemonic(false);
    label.SetCaption("Straat & huisnummer");
    EXPECT_EQ(label.ShownCaption(), "Straat & huisnummer");
    EXPECT_EQ(label.SpokenText(), "Straat & huisnummer");
}

TEST_F(LabelTest, TheFirstLineIsAsHighAsTheLabelWhereThatHasNoRoomForTwo) {
    label.SetHeight(400);
    EXPECT_TRUE(label.HasOneLine());
    EXPECT_EQ(label.FirstLineHeight(), 400);
    label.SetHeight(480);
    EXPECT_FALSE(label.HasOneLine());
    EXPECT_EQ(label.FirstLineHeight(), 240);
}

TEST_F(LabelTest, BelongsToTheBoxAndNotToTheArrowsBesideIt) {
    forms::TextBox box(form, "box");
    forms::UpDown arrows(form, "arrows", box, 1, 9);
    label.Move(500, 1000, 1400, 300);
    box.Move(2000, 1000, 500, 300);
    arrows.Move(2500, 1000, 250, 300);
    EXPECT_EQ(forms::OwnLabel(box), &label);
    EXPECT_EQ(forms::NearestLabel(arrows), &label);
    EXPECT_EQ(forms::OwnLabel(arrows), nullptr);
    EXPECT_EQ(forms::OwnLabel(label), nullptr);
}

} // namespace
