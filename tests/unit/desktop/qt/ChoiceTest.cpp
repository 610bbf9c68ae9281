#include <QAbstractItemView>
#include <QComboBox>
#include <QListWidget>
#include <QPainter>
#include <QProgressBar>
#include <QTest>
#include <QWheelEvent>

#include "unit/desktop/qt/SampleTest.h"

namespace {

using testing::ElementsAre;

class ChoiceTest : public SampleTest {
  protected:
    QComboBox* Combo() { return Widget<QComboBox>("Combo"); }
    QListWidget* List() { return Widget<QListWidget>("List"); }
    void ClickRow(int row) {
        const QRect area = List()->visualItemRect(List()->item(row));
        QTest::mouseClick(List()->viewport(), Qt::LeftButton, {}, area.center());
        window::Settle();
    }
    void Roll() {
        QWheelEvent wheel(QPointF(5, 5), Combo()->mapToGlobal(QPointF(5, 5)), {}, QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(Combo(), &wheel);
    }
};

TEST_F(ChoiceTest, EntriesAreShown) {
    EXPECT_EQ(Combo()->count(), 3);
    EXPECT_EQ(List()->count(), 3);
    EXPECT_EQ(Combo()->currentIndex(), -1);
    form.Combo.Clear();
    EXPECT_EQ(Combo()->count(), 0);
    form.Combo.AddItem("vier");
    EXPECT_EQ(Combo()->itemText(0), "vier");
}

TEST_F(ChoiceTest, TheProgramSelectsAndNothingComesBack) {
    form.Combo.SetListIndex(1);
    form.List.SetListIndex(2);
    EXPECT_EQ(Combo()->currentIndex(), 1);
    EXPECT_EQ(List()->currentRow(), 2);
    EXPECT_THAT(form.Log, ElementsAre("keuze 1", "lijst 2"));
}

TEST_F(ChoiceTest, TheUserPicksFromTheListThatDropsDown) {
    window::Click(Combo());
    ASSERT_TRUE(window::WaitFor([&] { return Combo()->view()->isVisible(); }));
    QTest::keyClick(Combo()->view(), Qt::Key_Down);
    QTest::keyClick(Combo()->view(), Qt::Key_Return);
    window::Settle();
    EXPECT_THAT(form.Log, testing::SizeIs(1));
    EXPECT_EQ(form.Combo.ListIndex(), Combo()->currentIndex());
    EXPECT_GE(form.Combo.ListIndex(), 0);
    ExpectFocus(form.Combo);
}

TEST_F(ChoiceTest, TheUserPicksWithTheKeys) {
    form.Combo.SetListIndex(0);
    form.Combo.SetFocus();
    form.Log.clear();
    window::Key(Qt::Key_Down);
    EXPECT_EQ(form.Combo.ListIndex(), 1);
    EXPECT_THAT(form.Log, ElementsAre("keuze 1"));
}

TEST_F(ChoiceTest, RollingOverABoxWithoutTheFocusChoosesNothing) {
    form.Combo.SetListIndex(0);
    form.Log.clear();
    Roll();
    EXPECT_EQ(form.Combo.ListIndex(), 0);
    form.Combo.SetFocus();
    Roll();
    EXPECT_EQ(form.Combo.ListIndex(), 1);
}

TEST_F(ChoiceTest, AClickInTheListPicksOnce) {
    ClickRow(1);
    EXPECT_THAT(form.Log, ElementsAre("lijst 1"));
    EXPECT_EQ(form.List.ListIndex(), 1);
    ExpectFocus(form.List);
    ClickRow(1);
    EXPECT_THAT(form.Log, ElementsAre("lijst 1", "lijst 1"));
    window::Key(Qt::Key_Down);
    EXPECT_EQ(form.List.ListIndex(), 2);
}

TEST_F(ChoiceTest, AnEntryThatTheHandlerTakesBackIsNotShown) {
    form.List.OnClick = [this] { form.List.SetListIndex(-1); };
    ClickRow(0);
    EXPECT_EQ(List()->currentRow(), -1);
    EXPECT_TRUE(List()->selectedItems().isEmpty());
}

TEST_F(ChoiceTest, ProgressIsShown) {
    form.Bar.SetValue(40);
    EXPECT_EQ(Widget<QProgressBar>("Bar")->value(), 40);
}

TEST_F(ChoiceTest, ATimerTicksWhileItIsOn) {
    form.Ticker.SetEnabled(true);
    EXPECT_TRUE(window::WaitFor([&] { return !form.Log.empty(); }));
    window::Settle();
    EXPECT_THAT(form.Log, ElementsAre("tik"));
}

} // namespace
