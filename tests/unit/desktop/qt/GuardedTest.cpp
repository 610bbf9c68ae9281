// Failures that no handler of the program knows. They end where the toolkit has called the program: the
// toolkit itself knows no exceptions.
#include <new>

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QTest>
#include <QToolButton>

#include "unit/desktop/qt/PreviewFixture.h"
#include "unit/desktop/qt/SampleTest.h"
#include "unit/forms/TestForm.h"

namespace {

constexpr const char* OutOfMemoryText = "Fout 7:\n\nOut of memory";

void Break() {
    throw std::bad_alloc();
}

class GuardedTest : public SampleTest {
  protected:
    /// What the user does leaves nothing but one message behind.
    void ExpectTold(const std::function<void()>& act) {
        const std::size_t before = boxes.All().size();
        EXPECT_NO_THROW({
            act();
            window::Settle();
        });
        ASSERT_EQ(boxes.All().size(), before + 1);
        EXPECT_EQ(boxes.All().back().Text, OutOfMemoryText);
    }
};

TEST_F(GuardedTest, AClickOfAnyKind) {
    form.Ok.OnClick = Break;
    ExpectTold([this] { window::Click(Widget("Ok")); });
    form.First.OnClick = Break;
    ExpectTold([this] { window::Click(Widget("First"), {10, Widget("First")->height() / 2}); });
    form.Matrix.OnClick = Break;
    ExpectTold([this] { window::Click(Widget("Matrix"), {10, Widget("Matrix")->height() / 2}); });
    EXPECT_EQ(Widget<QCheckBox>("Matrix")->isChecked(), form.Matrix.Value());
}

TEST_F(GuardedTest, AChoiceInAList) {
    form.List.OnClick = Break;
    auto* list = Widget<QListWidget>("List");
    ExpectTold([list] {
        QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(1)).center());
    });
    EXPECT_EQ(list->currentRow(), form.List.ListIndex());
    form.Combo.OnClick = Break;
    ExpectTold([this] { Q_EMIT Widget<QComboBox>("Combo")->activated(2); });
    EXPECT_EQ(Widget<QComboBox>("Combo")->currentIndex(), form.Combo.ListIndex());
}

TEST_F(GuardedTest, AKey) {
    form.Count.OnKeyPress = [](std::int16_t&) { Break(); };
    window::Click(Widget("Count"));
    ExpectTold([] { window::Type("5"); });
    form.Close.OnClick = Break;
    ExpectTold([] { window::Key(Qt::Key_Escape); });
    form.Ok.OnClick = Break;
    ExpectTold([] { window::Key(Qt::Key_Return); });
    EXPECT_TRUE(form.Visible());
}

TEST_F(GuardedTest, AnAccessKey) {
    form.Matrix.OnClick = Break;
    ExpectTold([this] {
        window::Key(Qt::Key_M, Qt::AltModifier);
        window::WaitFor([this] { return !boxes.All().empty(); });
    });
}

TEST_F(GuardedTest, ALossOfTheFocus) {
    form.Account.OnLostFocus = Break;
    window::Click(Widget("Account"));
    ExpectTold([this] { window::Click(Widget("Name")); });
    form.Account.SetFocus();
    ExpectTold([this] { Widget("Name")->setFocus(); }); // as a screen reader does
    form.Account.SetFocus();
    ExpectTold([this] { window::Click(Widget("Arrows.Up")); });
}

TEST_F(GuardedTest, AClosingWhichCanBeTriedAgain) {
    TestForm closing(session);
    closing.onQueryUnload = []() -> bool { throw std::bad_alloc(); };
    closing.Resize(3000, 3000);
    closing.Show();
    window::Settle();
    ExpectTold([] { window::Of("frmTest")->close(); });
    EXPECT_TRUE(closing.Visible());
    closing.onQueryUnload = nullptr;
    window::Of("frmTest")->close();
    EXPECT_FALSE(closing.Visible());
}

TEST_F(GuardedTest, AnotherSize) {
    TestForm sized(session);
    sized.SetResizable(true);
    sized.Resize(3000, 3000);
    sized.Show();
    window::Settle();
    sized.onResize = Break;
    ExpectTold([] { window::Of("frmTest")->resize(333, 222); });
    sized.onResize = nullptr;
}

TEST_F(GuardedTest, ATimer) {
    form.Ticker.OnTimer = [this] {
        form.Ticker.SetEnabled(false);
        Break();
    };
    ExpectTold([this] {
        form.Ticker.SetEnabled(true);
        window::WaitFor([this] { return !boxes.All().empty(); });
    });
}

TEST_F(GuardedTest, AFailureWhileAnotherIsToldIsNotToldOnTop) {
    int failures = 0;
    form.Combo.OnClick = [&failures] {
        ++failures;
        Break();
    };
    boxes.OnShow = [this] { EXPECT_NO_THROW(Q_EMIT Widget<QComboBox>("Combo")->activated(1)); };
    form.Ok.OnClick = Break;
    ExpectTold([this] { window::Click(Widget("Ok")); });
    EXPECT_EQ(failures, 1);
}

class GuardedPreviewTest : public PreviewTest {
  protected:
    void ExpectTold(const std::function<void()>& act) {
        const std::size_t before = boxes.All().size();
        EXPECT_NO_THROW({
            act();
            window::Settle();
        });
        ASSERT_EQ(boxes.All().size(), before + 1);
        EXPECT_EQ(boxes.All().back().Text, OutOfMemoryText);
    }

    window::MessageBoxes boxes;
};

TEST_F(GuardedPreviewTest, WhateverWorksThePreview) {
    Show(2, [this] {
        Form().VScroll.OnChange = Break;
        ExpectTold([this] { Wheel({0, -120}); });
        ExpectTold([this] { Bar()->setValue(90); });
        EXPECT_EQ(Bar()->value(), Form().VScroll.Value());
        ExpectTold([] { window::Key(Qt::Key_Home); });
        Form().VScroll.OnChange = nullptr;
        Form().Toolbar.OnButtonClick = [](int) { Break(); };
        ExpectTold([this] { window::Click(Widget("Toolbar(5)")); });
        Form().SSActiveToolBars.OnToolClick = [](const std::string&) { Break(); };
        ExpectTold([this] { Widget("SSActiveToolBars")->findChild<QAction*>("ID_Sluiten")->trigger(); });
        Form().cmdDown.Click = Break;
        ExpectTold([this] { window::Click(Widget("cmdDown")); });
        EXPECT_TRUE(Form().cmdDown.WindowEnabled());
    });
}

} // namespace
