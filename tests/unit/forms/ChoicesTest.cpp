#include <gmock/gmock.h>

#include "forms/ChoiceControl.h"
#include "forms/PictureBox.h"
#include "forms/ProgressBar.h"
#include "forms/Timer.h"
#include "forms/UpDown.h"
#include "unit/forms/TestForm.h"

namespace {

using namespace forms;
using testing::ElementsAre;
using testing::IsEmpty;

class ChoicesTest : public testing::Test, protected FormsFixture {
  protected:
    ChoicesTest() {
        combo.AddItem("Staand", 1);
        combo.AddItem("Liggend", 2);
        combo.OnClick = Log("click");
    }

    TestForm form{session};
    TextBox box{form, "box"};
    ComboBox combo{form, "combo"};
};

TEST_F(ChoicesTest, StartsWithoutASelection) {
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(combo.ListCount(), 2);
    EXPECT_EQ(combo.List(1), "Liggend");
    EXPECT_EQ(combo.ItemData(1), 2);
    EXPECT_THROW(combo.List(2), base::RuntimeError);
    EXPECT_THROW(combo.ItemData(-1), base::RuntimeError);
}

TEST_F(ChoicesTest, ASelectionByTheProgramActsAsAClick) {
    combo.SetListIndex(1);
    combo.SetListIndex(1);
    EXPECT_EQ(combo.Text(), "Liggend");
    EXPECT_THAT(log, ElementsAre("click", "click"));
    combo.SetListIndex(-1);
    EXPECT_EQ(combo.Text(), "");
    EXPECT_EQ(log.size(), 2U) << "selecting none is no click";
    EXPECT_THROW(combo.SetListIndex(2), base::RuntimeError);
    EXPECT_THROW(combo.SetListIndex(-2), base::RuntimeError);
    EXPECT_EQ(combo.ListIndex(), -1);
}

TEST_F(ChoicesTest, ClearTakesTheSelectionWithoutAClick) {
    combo.SetListIndex(0);
    combo.Clear();
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(combo.ListCount(), 0);
    EXPECT_THAT(log, ElementsAre("click"));
}

TEST_F(ChoicesTest, TheUserPicksWhatIsThere) {
    form.Show();
    EXPECT_TRUE(combo.UserPick(1));
    EXPECT_EQ(form.ActiveControl(), &combo);
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_FALSE(combo.UserPick(2));
    EXPECT_FALSE(combo.UserPick(-1));
    combo.SetEnabled(false);
    EXPECT_FALSE(combo.UserPick(0));
    EXPECT_EQ(combo.ListIndex(), 1);
    EXPECT_THAT(log, ElementsAre("click"));
}

TEST_F(ChoicesTest, AClickTakesTheFocusAndPicksNothing) {
    form.Show();
    EXPECT_TRUE(combo.UserClick());
    EXPECT_EQ(form.ActiveControl(), &combo);
    EXPECT_THAT(log, IsEmpty());
    combo.SetEnabled(false);
    EXPECT_FALSE(combo.UserClick());
}

TEST_F(ChoicesTest, APickIsLostWhereTheFocusDoesNotStay) {
    form.Show();
    box.OnLostFocus = [this] { box.SetFocus(); };
    EXPECT_TRUE(combo.UserPick(1));
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_THAT(log, IsEmpty());
}

TEST_F(ChoicesTest, AFailingHandlerIsToldToTheDesktop) {
    std::vector<memory::Event> events;
    memory.recorder.Sink = [&](const memory::Event& event) { events.push_back(event); };
    form.Show();
    combo.OnClick = [] { throw base::RuntimeError(base::ErrorOverflow, "Overflow"); };
    combo.UserPick(0);
    EXPECT_EQ(combo.ListIndex(), 0);
    EXPECT_EQ(events.back().Kind, "error");
    EXPECT_THROW(combo.SetListIndex(1), base::RuntimeError) << "the program's own caller may trap it";
}

class UpDownTest : public testing::Test, protected FormsFixture {
  protected:
    std::string Step(const std::string& from, int direction) {
        box.SetText(from);
        arrows.UserStep(direction);
        return box.Text();
    }

    TestForm form{session};
    TextBox box{form, "box"};
    UpDown arrows{form, "arrows", box, 1, 99};
};

TEST_F(UpDownTest, StepsBetweenItsLimits) {
    EXPECT_EQ(Step("5", 1), "6");
    EXPECT_EQ(Step("5", -1), "4");
    EXPECT_EQ(Step("99", 1), "99");
    EXPECT_EQ(Step("1", -1), "1");
    EXPECT_EQ(box.SelLength(), 1);
}

TEST_F(UpDownTest, FindsItsWayBackFromAnyText) {
    EXPECT_EQ(Step("", 1), "1");
    EXPECT_EQ(Step("abc", -1), "1");
    EXPECT_EQ(Step("5000", -1), "99");
    EXPECT_EQ(Step("-7", 1), "1");
    EXPECT_EQ(Step("4.9", 1), "5");
    EXPECT_EQ(Step(std::string(400, '9'), 1), "99");
}

TEST_F(UpDownTest, RestsWhereItCannotBeReached) {
    arrows.SetEnabled(false);
    EXPECT_EQ(Step("5", 1), "5");
}

class SmallControlsTest : public testing::Test, protected FormsFixture {
  protected:
    TestForm form{session};
};

TEST_F(SmallControlsTest, ATimerTicksWhileItIsOn) {
    Timer timer(form, "timer", 100);
    timer.OnTimer = Log("tick");
    timer.Tick();
    timer.SetEnabled(true);
    timer.Tick();
    timer.Tick();
    timer.SetEnabled(false);
    timer.Tick();
    EXPECT_EQ(timer.Interval(), 100);
    EXPECT_THAT(log, ElementsAre("tick", "tick"));
}

TEST_F(SmallControlsTest, AProgressBarKeepsToItsRange) {
    ProgressBar bar(form, "bar");
    bar.SetValue(100);
    EXPECT_THROW(bar.SetValue(101), base::RuntimeError);
    EXPECT_THROW(bar.SetValue(-1), base::RuntimeError);
    EXPECT_EQ(bar.Value(), 100);
}

TEST_F(SmallControlsTest, AControlIsShownAndUsableAsItsContainersAre) {
    PictureBox outer(form, "outer");
    PictureBox inner(form, "inner", Control::NoIndex, &outer);
    TextBox box(form, "box", Control::NoIndex, &inner);
    EXPECT_TRUE(box.IsShown());
    outer.SetVisible(false);
    EXPECT_FALSE(box.IsShown());
    EXPECT_TRUE(box.Visible());
    outer.SetVisible(true);
    inner.SetEnabled(false);
    EXPECT_FALSE(box.IsUsable());
    EXPECT_TRUE(box.Enabled());
}

} // namespace
