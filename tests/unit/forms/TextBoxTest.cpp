#include "forms/TextBox.h"

#include <gmock/gmock.h>

#include "unit/forms/TestForm.h"

namespace {

using namespace forms;
using forms::key::Backspace;

class TextBoxTest : public testing::Test, protected FormsFixture {
  protected:
    TextBoxTest() { form.Show(); }

    void Type(std::u32string_view text) {
        for (const char32_t character : text) {
            box.TypeKey(character);
        }
    }

    TestForm form{session};
    TextBox box{form, "box"};
};

TEST_F(TextBoxTest, TypesAtTheCaret) {
    Type(U"Jan");
    EXPECT_EQ(box.Text(), "Jan");
    EXPECT_EQ(box.SelStart(), 3);
    box.SetSelStart(0);
    Type(U"é");
    EXPECT_EQ(box.Text(), "éJan");
    EXPECT_EQ(box.SelStart(), 1);
}

TEST_F(TextBoxTest, TypingReplacesTheSelection) {
    box.SetText("Groningen");
    box.Select(1, 7);
    Type(U"X");
    EXPECT_EQ(box.Text(), "GXn");
    EXPECT_EQ(box.SelStart(), 2);
    EXPECT_EQ(box.SelLength(), 0);
    box.SelectAll();
    Type(U"5");
    EXPECT_EQ(box.Text(), "5");
}

TEST_F(TextBoxTest, BackspaceTakesTheSelectionOrTheCharacterBefore) {
    box.SetText("één");
    box.SetSelStart(2);
    box.TypeKey(Backspace);
    EXPECT_EQ(box.Text(), "én");
    EXPECT_EQ(box.SelStart(), 1);
    box.SelectAll();
    box.TypeKey(Backspace);
    EXPECT_EQ(box.Text(), "");
    box.TypeKey(Backspace);
    EXPECT_EQ(box.Text(), "");
    box.SetText("ab");
    box.TypeKey(Backspace);
    EXPECT_EQ(box.Text(), "ab") << "nothing stands before the caret";
}

TEST_F(TextBoxTest, TypingStopsAtTheMaximumLength) {
    box.SetMaxLength(4);
    Type(U"12345");
    EXPECT_EQ(box.Text(), "1234");
    box.Select(0, 2);
    Type(U"98");
    EXPECT_EQ(box.Text(), "9834") << "the selection makes room";
    box.TypeKey(Backspace);
    Type(U"77");
    EXPECT_EQ(box.Text(), "9734");
}

TEST_F(TextBoxTest, ATextOfTheProgramIsCutToTheMaximumLength) {
    box.SetMaxLength(4);
    box.SetText("één voor");
    EXPECT_EQ(box.Text(), "één ");
    Type(U"9");
    EXPECT_EQ(box.Text(), "één ");
    box.TypeKey(Backspace);
    EXPECT_EQ(box.SelStart(), 0) << "the caret stands in front of a text that the program sets";
    box.SelectAll();
    box.SetText("één te lang");
    EXPECT_EQ(box.SelLength(), 4) << "nothing has changed";
}

TEST_F(TextBoxTest, AMaximumLengthHoldsFromTheNextTextOn) {
    box.SetText("30001");
    box.SetMaxLength(4);
    EXPECT_EQ(box.Text(), "30001");
    Type(U"9");
    EXPECT_EQ(box.Text(), "30001");
}

TEST_F(TextBoxTest, EveryChangeOfItsTextIsTold) {
    int changes = 0;
    box.OnChange = [&] { ++changes; };
    box.SetText("12");
    box.SetText("12");
    EXPECT_EQ(changes, 1) << "nothing has changed the second time";
    box.Select(2, 0);
    Type(U"3");
    box.TypeKey(Backspace);
    EXPECT_EQ(changes, 3);
    box.UserEdit("12", 0, 2);
    EXPECT_EQ(changes, 3) << "only the selection is another one";
    box.UserEdit("7", 1, 0);
    EXPECT_EQ(changes, 4);
}

TEST_F(TextBoxTest, AKeyPassesTheHandlerFirst) {
    std::vector<int> keys;
    box.OnKeyPress = [&](std::int16_t& key) {
        keys.push_back(key);
        if (key == ',') {
            key = '.';
        } else if (key == 'x') {
            key = 0;
        }
    };
    Type(U"1,x5é€字");
    box.TypeKey(Backspace);
    EXPECT_THAT(keys, testing::ElementsAre('1', ',', 'x', '5', 0xE9, 0x80, '?', 8));
    EXPECT_EQ(box.Text(), "1.5é€");
}

TEST_F(TextBoxTest, AHandlerCanSwallowBackspace) {
    box.SetText("ab");
    box.SetSelStart(2);
    box.OnKeyPress = [](std::int16_t& key) { key = 0; };
    box.TypeKey(Backspace);
    EXPECT_EQ(box.Text(), "ab");
}

TEST_F(TextBoxTest, ALockedBoxKeepsItsText) {
    box.SetText("vast");
    box.SetLocked(true);
    Type(U"x");
    box.TypeKey(Backspace);
    EXPECT_EQ(box.Text(), "vast");
}

TEST_F(TextBoxTest, ControlCharactersAreNoText) {
    EXPECT_FALSE(box.TypeKey(U'\r'));
    EXPECT_FALSE(box.TypeKey(U'\x01'));
    EXPECT_EQ(box.Text(), "");
}

TEST_F(TextBoxTest, KeysOfTheFormReachTheBoxWithTheFocus) {
    form.UserKey('7');
    form.UserKey('A');
    form.UserKey('A', true);
    form.UserKey(' ');
    form.UserKey(forms::key::Left);
    form.UserCharacter(U'é');
    form.UserKey(Backspace);
    EXPECT_EQ(box.Text(), "7aA ");
}

TEST_F(TextBoxTest, TheNumberPadTypesDigits) {
    box.SetFocus();
    constexpr int numericPad0 = 0x60;
    form.UserKey(numericPad0);
    form.UserKey(numericPad0 + 9);
    form.UserKey(numericPad0 + 10); // the sign beside them
    EXPECT_EQ(box.Text(), "09");
}

TEST_F(TextBoxTest, ASelectionStaysWithinTheText) {
    box.SetText("één");
    box.Select(-3, 99);
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(box.SelLength(), 3);
    box.Select(2, 5);
    EXPECT_EQ(box.SelLength(), 1);
    box.Select(9, 1);
    EXPECT_EQ(box.SelStart(), 3);
    EXPECT_EQ(box.SelLength(), 0);
    box.Select(1, 2);
    box.SetSelStart(0);
    EXPECT_EQ(box.SelLength(), 0);
    box.SetSelLength(2);
    EXPECT_EQ(box.SelLength(), 2);
    box.UserSelect(2, 9);
    EXPECT_EQ(box.SelStart(), 2);
    EXPECT_EQ(box.SelLength(), 1);
}

TEST_F(TextBoxTest, ANewTextPutsTheCaretInFrontAndTheSameTextLeavesIt) {
    box.SetText("abc");
    box.SelectAll();
    box.SetText("abc");
    EXPECT_EQ(box.SelLength(), 3);
    box.SetText("abd");
    EXPECT_EQ(box.SelStart(), 0);
    EXPECT_EQ(box.SelLength(), 0);
}

TEST_F(TextBoxTest, AnEditOfTheToolkitIsCutToTheMaximumLength) {
    box.SetMaxLength(4);
    EXPECT_TRUE(box.UserEdit("1234", 4, 0));
    EXPECT_FALSE(box.UserEdit("12é345", 6, 0));
    EXPECT_EQ(box.Text(), "12é3");
    EXPECT_EQ(box.SelStart(), 4);
}

TEST_F(TextBoxTest, AnEditWithoutALimitIsTakenWhole) {
    EXPECT_TRUE(box.UserEdit(std::string(5000, 'x'), 7000, 9));
    EXPECT_EQ(box.SelStart(), 5000);
    EXPECT_EQ(box.SelLength(), 0);
}

} // namespace
