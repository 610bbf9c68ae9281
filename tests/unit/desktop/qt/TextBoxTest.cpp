#include <QApplication>
#include <QClipboard>
#include <QInputMethodEvent>
#include <QLineEdit>
#include <QToolButton>

#include "unit/desktop/qt/SampleTest.h"

namespace {

class TextBoxTest : public SampleTest {
  protected:
    QLineEdit* Edit(const char* name) { return Widget<QLineEdit>(name); }
    void Paste(const QString& text) {
        QApplication::clipboard()->setText(text);
        window::Key(Qt::Key_V, Qt::ControlModifier);
    }
};

TEST_F(TextBoxTest, TypingGoesThroughTheForm) {
    window::Type("Jan");
    EXPECT_EQ(form.Name.Text(), "Jan");
    EXPECT_EQ(Edit("Name")->text(), "Jan");
    EXPECT_EQ(form.Name.SelStart(), 3);
    EXPECT_EQ(Edit("Name")->cursorPosition(), 3);
}

TEST_F(TextBoxTest, TypedTextCanBeUndone) {
    window::Type("Jan");
    window::Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(form.Name.Text(), "Jan");
    EXPECT_EQ(form.Name.Text(), Edit("Name")->text().toStdString());
}

TEST_F(TextBoxTest, ACharacterOutsideTheBasicPlaneCountsOnce) {
    QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QStringLiteral("\U0001F600"));
    QApplication::sendEvent(Edit("Name"), &press);
    window::Type(QStringLiteral("\u00E9"));
    EXPECT_EQ(form.Name.Text(), "\U0001F600\u00E9");
    EXPECT_EQ(form.Name.SelStart(), 2);
    window::Key(Qt::Key_Left);
    EXPECT_EQ(form.Name.SelStart(), 1);
    EXPECT_EQ(Edit("Name")->cursorPosition(), 2);
}

TEST_F(TextBoxTest, AKeyFilterSwallowsLetters) {
    form.Count.SetFocus();
    window::Type("1a-2");
    EXPECT_EQ(form.Count.Text(), "12");
    EXPECT_EQ(Edit("Count")->text(), "12");
}

TEST_F(TextBoxTest, TheLengthLimitHoldsForTypingAndPasting) {
    form.Count.SetFocus();
    window::Type("12345");
    EXPECT_EQ(Edit("Count")->text(), "1234");
    window::Key(Qt::Key_A, Qt::ControlModifier);
    Paste("987654");
    EXPECT_EQ(form.Count.Text(), "9876");
    EXPECT_EQ(Edit("Count")->text(), "9876");
}

TEST_F(TextBoxTest, PastingTakesNoKeyFilter) {
    form.Count.SetFocus();
    Paste("a1");
    EXPECT_EQ(form.Count.Text(), "a1");
}

TEST_F(TextBoxTest, BackspaceAndDeleteWork) {
    window::Type("Piet");
    window::Key(Qt::Key_Backspace);
    EXPECT_EQ(form.Name.Text(), "Pie");
    window::Key(Qt::Key_Home);
    window::Key(Qt::Key_Delete);
    EXPECT_EQ(form.Name.Text(), "ie");
    EXPECT_EQ(Edit("Name")->text(), "ie");
    EXPECT_EQ(form.Name.SelStart(), 0);
}

TEST_F(TextBoxTest, TheUsersSelectionIsTheFormsSelection) {
    form.Name.SetText("Janssen");
    window::Key(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(form.Name.SelStart(), 0);
    EXPECT_EQ(form.Name.SelLength(), 7);
    window::Type("x");
    EXPECT_EQ(form.Name.Text(), "x");
}

TEST_F(TextBoxTest, TheFormsSelectionIsShown) {
    form.Name.SetText("Janssen");
    form.Name.Select(1, 3);
    EXPECT_EQ(Edit("Name")->selectedText(), "ans");
    form.Name.SetSelLength(0);
    EXPECT_FALSE(Edit("Name")->hasSelectedText());
}

TEST_F(TextBoxTest, TheSelectionComesBackWithTheFocus) {
    form.Name.SetText("Janssen");
    form.Name.SelectAll();
    form.Ok.SetFocus();
    EXPECT_EQ(form.Name.SelLength(), 7);
    form.Name.SetFocus();
    EXPECT_EQ(Edit("Name")->selectedText(), "Janssen");
}

TEST_F(TextBoxTest, ALockedBoxKeepsItsText) {
    form.Name.SetText("vast");
    form.Name.SetLocked(true);
    window::Type("x");
    window::Key(Qt::Key_Backspace);
    Paste("y");
    EXPECT_EQ(form.Name.Text(), "vast");
    EXPECT_EQ(Edit("Name")->text(), "vast");
}

TEST_F(TextBoxTest, WhatAnInputMethodCommitsIsTyped) {
    form.Count.SetFocus();
    QInputMethodEvent commit;
    commit.setCommitString("7x");
    QApplication::sendEvent(Edit("Count"), &commit);
    EXPECT_EQ(form.Count.Text(), "7");
    EXPECT_EQ(Edit("Count")->text(), "7");
}

TEST_F(TextBoxTest, AClickPutsTheCaretWhereItIs) {
    form.Name.SetText("Janssen en zonen");
    form.Ok.SetFocus();
    window::Click(Edit("Name"));
    EXPECT_GT(form.Name.SelStart(), 0);
    EXPECT_EQ(form.Name.SelLength(), 0);
}

TEST_F(TextBoxTest, ArrowsStepTheNumber) {
    form.Count.SetText("98");
    window::Click(Widget("Arrows.Up"));
    EXPECT_EQ(Edit("Count")->text(), "99");
    ExpectFocus(form.Count);
    window::Click(Widget("Arrows.Up"));
    EXPECT_EQ(form.Count.Text(), "99");
    window::Key(Qt::Key_Down);
    EXPECT_EQ(Edit("Count")->text(), "98");
    EXPECT_EQ(Edit("Count")->selectedText(), "98");
}

} // namespace
