// The user logs off or shuts the machine down.
#include <gmock/gmock.h>

#include "unit/forms/TestForm.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A form that refuses to close while it is busy, and then has something to put back.
class BusyForm : public TestForm {
  public:
    using TestForm::TestForm;

    bool Busy = false;
    std::function<void()> onSessionEnd;

    bool MayClose() const override { return !Busy; }

  protected:
    bool OnQueryUnload() override { return !Busy; }
    void OnSessionEnd() override { onSessionEnd(); }
};

class SessionEndTest : public testing::Test, protected FormsFixture {
  protected:
    SessionEndTest() {
        lower.onUnload = Log("lower closes");
        upper.onUnload = Log("upper closes");
        upper.onSessionEnd = Log("upper puts back");
        hidden.onUnload = Log("hidden closes");
        lower.Show();
        hidden.Load();
    }

    TestForm lower{session, "frmLower"};
    TestForm hidden{session, "frmHidden"};
    BusyForm upper{session, "frmUpper"};
};

TEST_F(SessionEndTest, TheFormsCloseFromTheTopDown) {
    upper.Show();
    EXPECT_TRUE(session.MayEnd());
    session.End();
    EXPECT_THAT(log, ElementsAre("upper closes", "lower closes"));
    EXPECT_THAT(session.OpenForms(), ElementsAre(&hidden));
    EXPECT_TRUE(session.MayEnd());
}

TEST_F(SessionEndTest, AskingChangesNothing) {
    upper.Show();
    session.MayEnd();
    EXPECT_THAT(log, IsEmpty());
    EXPECT_TRUE(upper.Visible());
}

TEST_F(SessionEndTest, ABusyFormOnTopRefuses) {
    upper.Show();
    upper.Busy = true;
    EXPECT_FALSE(session.MayEnd());
}

TEST_F(SessionEndTest, AFormThatIsNotOnTopIsNotAsked) {
    upper.Busy = true;
    upper.Show();
    TestForm third(session, "frmThird");
    third.Show();
    EXPECT_TRUE(session.MayEnd());
}

TEST_F(SessionEndTest, AFormThatRefusesAllTheSamePutsThingsBackAndTheRestCloses) {
    upper.Show();
    upper.Busy = true;
    session.End();
    EXPECT_THAT(log, ElementsAre("upper puts back", "lower closes"));
    EXPECT_TRUE(upper.Visible());
}

TEST_F(SessionEndTest, AFormThatTakesAnotherWithItIsNoStumblingBlock) {
    auto owned = std::make_unique<TestForm>(session, "frmOwned");
    owned->Show();
    upper.Show();
    upper.onUnload = [&] { owned.reset(); };
    session.End();
    EXPECT_THAT(log, ElementsAre("lower closes"));
}

TEST_F(SessionEndTest, AFailureOnTheWayIsToldAndTheRestCloses) {
    upper.Show();
    upper.Busy = true;
    upper.onSessionEnd = [] { throw base::RuntimeError(482, "Printer error"); };
    session.End();
    EXPECT_THAT(log, ElementsAre("lower closes"));
}

} // namespace
