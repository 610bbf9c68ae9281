#include "WizardFixture.h"

namespace wizard {
namespace {

class EntryFieldsTest : public WizardTest {};

TEST_F(EntryFieldsTest, AnEmptyAccountPassesOnLeaving) {
    Start();
    form->MoveFocus(form->UserText(74));
    form->MoveFocus(form->UserText(70));
    EXPECT_TRUE(MessageTexts().empty());
    EXPECT_EQ(form->UserText(74).Text(), "");
}

TEST_F(EntryFieldsTest, TabbingShowsTheBareAccountSelectedAndItsScreenFormAfterwards) {
    Set("IncassantBankGiro", "123456789");
    Start();
    EXPECT_EQ(form->UserText(74).Text(), "12.34.56.789");
    for (int i = 0; i < 4; ++i) {
        Tab();
    }
    forms::TextBox& account = form->UserText(74);
    ASSERT_EQ(form->ActiveControl(), &account);
    EXPECT_EQ(account.Text(), "123456789");
    EXPECT_EQ(account.SelStart(), 0);
    EXPECT_EQ(account.SelLength(), 9);
    Tab();
    EXPECT_NE(form->ActiveControl(), &account);
    EXPECT_EQ(account.Text(), "12.34.56.789");
}

TEST_F(EntryFieldsTest, TheFirstFocusSelectsAndALaterClickDoesNot) {
    Set("IncassantBegunstigde", "Naam");
    Set("IncassantAdres", "Adres");
    Start();
    EXPECT_EQ(form->UserText(70).SelLength(), 4);
    EXPECT_FALSE(form->FirstFocus);
    form->UserText(71).UserClick();
    EXPECT_EQ(form->UserText(71).SelLength(), 0);
    form->UserText(70).UserClick();
    EXPECT_EQ(form->UserText(70).SelLength(), 0);
}

TEST_F(EntryFieldsTest, AClickLeavesTheCaretWhereItIs) {
    Set("IncassantAdres", "Adres 12");
    Start();
    form->UserText(71).Select(3, 4);
    form->UserText(71).UserClick();
    EXPECT_EQ(form->UserText(71).SelStart(), 3);
    EXPECT_EQ(form->UserText(71).SelLength(), 0);
}

TEST_F(EntryFieldsTest, TabbingInLeavesTheMarkOfTheFirstFocus) {
    memory.desktop.PressKey(forms::key::Tab);
    Start();
    memory.desktop.ReleaseKey(forms::key::Tab);
    EXPECT_TRUE(form->FirstFocus);
}

TEST_F(EntryFieldsTest, TheArrowsStepTheCountUpToAThousand) {
    Start();
    GoToPrinting();
    form->UpDown.UserStep(1);
    EXPECT_EQ(form->UserText(0).Text(), "101");
    form->UserText(0).SetText("1000");
    form->UpDown.UserStep(1);
    EXPECT_EQ(form->UserText(0).Text(), "1000");
    form->UserText(0).SetText("1");
    form->UpDown.UserStep(-1);
    EXPECT_EQ(form->UserText(0).Text(), "1");
}

TEST_F(EntryFieldsTest, CancelWithAWrongAccountBringsTheMessageAndIsLost) {
    Start();
    Type(74, "123456780");
    form->Cancel.UserClick();
    EXPECT_EQ(memory.desktop.Messages(), Information(WrongAccount));
    EXPECT_TRUE(form->Visible());
    EXPECT_EQ(form->UserText(74).Text(), "");
    EXPECT_EQ(form->ActiveControl(), &form->UserText(74));
    form->Cancel.UserClick();
    EXPECT_FALSE(form->Visible());
}

TEST_F(EntryFieldsTest, EscapeAndTheCloseBoxDoNotJudgeTheAccount) {
    for (const bool byKey : {true, false}) {
        Start();
        Type(74, "123456780");
        if (byKey) {
            form->UserKey(forms::key::Escape);
        } else {
            EXPECT_TRUE(form->UserClose());
        }
        EXPECT_FALSE(form->Loaded());
        EXPECT_TRUE(MessageTexts().empty());
    }
}

TEST_F(EntryFieldsTest, EnterWithAWrongAccountTellsItOnce) {
    Start();
    Type(74, "123456780");
    form->UserKey(forms::key::Enter);
    EXPECT_EQ(MessageTexts(), std::vector<std::string>{WrongAccount});
    EXPECT_EQ(form->UserText(74).Text(), "");
    EXPECT_EQ(form->ActiveControl(), &form->UserText(74));
}

TEST_F(EntryFieldsTest, VerderWithAWrongAccountTellsItOnce) {
    Start();
    Type(74, "123456780");
    form->Verder.UserClick();
    EXPECT_EQ(MessageTexts(), std::vector<std::string>{WrongAccount});
    EXPECT_EQ(form->Page, 0);
    form->Verder.UserClick();
    EXPECT_EQ(form->Page, 1);
}

TEST_F(EntryFieldsTest, AnAcceptedAccountIsShownInItsScreenForm) {
    Start();
    Type(74, "NL13abna0500000018");
    form->MoveFocus(form->UserText(70));
    EXPECT_EQ(form->UserText(74).Text(), "NL13 ABNA 0500 0000 18");
    form->MoveFocus(form->UserText(74));
    EXPECT_EQ(form->UserText(74).Text(), "NL13ABNA0500000018");
}

TEST_F(EntryFieldsTest, TheCountTakesFourDigits) {
    Start();
    GoToPrinting();
    Type(0, "a-1b23\b456x7");
    EXPECT_EQ(form->UserText(0).Text(), "1245");
}

TEST_F(EntryFieldsTest, TheCreditorsBoxesTakeEveryKeyUpToTheirLength) {
    Start();
    const std::pair<int, std::size_t> limits[] = {{70, 60}, {71, 60}, {72, 9}, {73, 60}, {74, 34}};
    for (const auto& [box, limit] : limits) {
        Type(box, std::string(100, '7'));
        EXPECT_EQ(form->UserText(box).Text(), std::string(limit, '7')) << box;
        form->UserText(box).SetText("");
    }
    form->MoveFocus(form->UserText(70));
    form->UserText(70).TypeKey(U'é');
    form->UserText(70).TypeKey(U'ł');
    form->UserText(70).TypeKey(U'-');
    EXPECT_EQ(form->UserText(70).Text(), "éł-");
}

TEST_F(EntryFieldsTest, AFilterChangesAKeyOnItsWayIntoTheBox) {
    Start();
    form->UserText(71).SetTag(" NumTeken");
    Type(71, "a1,5.x");
    EXPECT_EQ(form->UserText(71).Text(), "1.5.");
}

TEST_F(EntryFieldsTest, TheirLengthHoldsForTheSettingsToo) {
    const std::string name = std::string(59, 'N') + "éN";
    Set("IncassantBegunstigde", name);
    Set("IncassantAdres", std::string(61, 'A'));
    Set("IncassantPostCode", "1234567890");
    Set("IncassantWoonplaats", std::string(61, 'W'));
    Set("IncassantBankGiro", std::string(40, '1'));
    Start();
    EXPECT_EQ(form->UserText(70).Text(), std::string(59, 'N') + "é");
    EXPECT_EQ(form->UserText(71).Text(), std::string(60, 'A'));
    EXPECT_EQ(form->UserText(72).Text(), "123456789");
    EXPECT_EQ(form->UserText(73).Text(), std::string(60, 'W'));
    EXPECT_EQ(form->UserText(74).Text(), "1111 1111 1111 1111 1111 1111 1111");
    EXPECT_EQ(state.IncassantBegunstigde, name) << "on screen alone";
}

TEST_F(EntryFieldsTest, HaveTheirPlaceInTheTabOrder) {
    Start();
    const std::pair<int, int> order[] = {{70, 0}, {71, 1}, {72, 2}, {73, 3}, {74, 4}, {0, 40}};
    for (const auto& [box, index] : order) {
        EXPECT_EQ(form->UserText(box).TabIndex(), index) << box;
    }
    EXPECT_EQ(form->UserText(0).Tag(), "numeriek");
    EXPECT_EQ(form->UserText(74).Tag(), "");
}

} // namespace
} // namespace wizard
