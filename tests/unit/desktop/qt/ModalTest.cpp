// Windows that wait: modal forms, message boxes, the close box, and what runs inside them.
#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QTest>
#include <QTimer>

#include "base/RuntimeError.h"
#include "unit/desktop/qt/SampleTest.h"

namespace {

using testing::ElementsAre;

class ModalTest : public SampleTest {
  protected:
    /// Runs `step` inside the message loop that comes next.
    void Later(const std::function<void()>& step) { QTimer::singleShot(0, qApp, step); }
};

TEST_F(ModalTest, AModalFormReturnsWhenItIsClosed) {
    SampleForm second(session, "Tweede");
    Later([&] {
        EXPECT_TRUE(second.Visible());
        EXPECT_EQ(session.ModalForm(), &second);
        EXPECT_EQ(QApplication::activeModalWidget(), window::Of("Tweede"));
        window::Key(Qt::Key_Escape);
    });
    second.ShowModal();
    EXPECT_FALSE(second.Visible());
    EXPECT_TRUE(form.Visible());
    EXPECT_EQ(session.ModalForm(), nullptr);
    window::Settle();
    EXPECT_EQ(QApplication::activeWindow(), window::Of("Sample"));
}

TEST_F(ModalTest, ModalFormsNest) {
    SampleForm second(session, "Tweede");
    SampleForm third(session, "Derde");
    std::vector<std::string> order;
    second.Ok.OnClick = [&] {
        Later([&] { window::Of("Derde")->close(); });
        third.ShowModal();
        order.push_back("derde");
        second.Unload();
    };
    Later([&] { window::Click(window::Find("Tweede", "Ok")); });
    second.ShowModal();
    order.push_back("tweede");
    EXPECT_THAT(order, ElementsAre("derde", "tweede"));
}

TEST_F(ModalTest, AFormBehindAModalOneTakesNoClick) {
    SampleForm second(session, "Tweede");
    Later([&] {
        window::Click(window::Find("Sample", "Ok"));
        window::Of("Tweede")->close();
    });
    second.ShowModal();
    EXPECT_TRUE(form.Log.empty());
}

TEST_F(ModalTest, AMessageBoxInsideAModalForm) {
    SampleForm second(session, "Tweede");
    second.Ok.OnClick = [&] {
        desktop.MsgBox("Let op", forms::MessageIcon::Exclamation, "Titel");
        second.Unload();
    };
    Later([&] { window::Key(Qt::Key_Return); });
    second.ShowModal();
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Icon, QMessageBox::Warning);
}

TEST_F(ModalTest, ABoxShowsPlainTextAndOneButton) {
    desktop.MsgBox("a < b & <b>c</b>", forms::MessageIcon::Information, "Titel");
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Text, "a < b & <b>c</b>");
    EXPECT_EQ(boxes.All()[0].Icon, QMessageBox::Information);
    EXPECT_EQ(QString(boxes.All()[0].Button).remove(QChar(u'&')), "OK");
}

TEST_F(ModalTest, AFailureThatNobodyTrapsIsTold) {
    form.Ok.OnClick = [] { throw base::RuntimeError(base::ErrorOverflow, "Overflow"); };
    window::Click(Widget("Ok"));
    ASSERT_EQ(boxes.All().size(), 1U);
    EXPECT_EQ(boxes.All()[0].Icon, QMessageBox::Critical);
    EXPECT_TRUE(boxes.All()[0].Text.contains("6"));
    EXPECT_TRUE(boxes.All()[0].Text.contains("Overflow"));
    EXPECT_TRUE(form.Visible());
}

TEST_F(ModalTest, AFormMayRefuseToClose) {
    form.Refuses = true;
    EXPECT_FALSE(window::Of("Sample")->close());
    EXPECT_TRUE(form.Visible());
    form.Refuses = false;
    EXPECT_TRUE(window::Of("Sample")->close());
    EXPECT_FALSE(form.Loaded());
}

TEST_F(ModalTest, TheLoopEndsWithTheLastForm) {
    Later([&] { window::Of("Sample")->close(); });
    desktop.Run();
    EXPECT_FALSE(form.Visible());
}

TEST_F(ModalTest, AYieldHandlesWhatWaits) {
    bool ran = false;
    Later([&] { ran = true; });
    desktop.Yield();
    EXPECT_TRUE(ran);
}

TEST_F(ModalTest, TheHourglassDoesNotNest) {
    session.Desktop().HourglassOn();
    session.Desktop().HourglassOn();
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
    session.Desktop().HourglassOff();
    EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(ModalTest, ALockedWindowDrawsAgainAfterZero) {
    desktop.LockWindowUpdate(form.hWnd());
    EXPECT_FALSE(window::Of("Sample")->updatesEnabled());
    desktop.LockWindowUpdate(0);
    EXPECT_TRUE(window::Of("Sample")->updatesEnabled());
}

TEST_F(ModalTest, ALockedControlLeavesTheRestOfTheWindowDrawing) {
    const QWidget* panel = window::Find("Sample", "Panel");
    const QWidget* within = window::Find("Sample", "First");
    desktop.LockWindowUpdate(form.Panel.hWnd());
    EXPECT_FALSE(panel->updatesEnabled());
    EXPECT_FALSE(within->updatesEnabled());
    EXPECT_TRUE(window::Of("Sample")->updatesEnabled());
    desktop.LockWindowUpdate(0);
    EXPECT_TRUE(panel->updatesEnabled());
    EXPECT_TRUE(within->updatesEnabled());
}

TEST_F(ModalTest, AHandleOfNothingLocksNothing) {
    desktop.LockWindowUpdate(reinterpret_cast<std::uintptr_t>(&desktop));
    EXPECT_TRUE(window::Of("Sample")->updatesEnabled());
    desktop.LockWindowUpdate(0);
}

TEST_F(ModalTest, AFormStandsInTheMiddleUntilItIsPlaced) {
    const forms::ScreenArea area = desktop.WorkArea();
    const QWidget* window = window::Of("Sample");
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect inside = window->geometry();
    if (inside.width() < screen.width() && inside.height() < screen.height()) {
        EXPECT_NEAR(inside.center().x(), screen.center().x(), 1);
        EXPECT_NEAR(inside.center().y(), screen.center().y(), 1);
    } else { // as much of it as the screen has room for
        EXPECT_GE(window->x(), screen.x());
        EXPECT_GE(window->y(), screen.y());
    }
    form.Move(area.Left + 150, area.Top + 300);
    const QPoint placed = window->pos();
    form.Move(area.Left + 300, area.Top + 300);
    EXPECT_GT(window->pos().x(), placed.x());
    EXPECT_EQ(window->pos().y(), placed.y());
}

} // namespace
