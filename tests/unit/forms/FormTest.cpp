#include <gmock/gmock.h>

#include "forms/CommandButton.h"
#include "forms/TextBox.h"
#include "unit/forms/TestForm.h"

namespace {

using namespace forms;
using testing::ElementsAre;
using testing::IsEmpty;

class FormTest : public testing::Test, protected FormsFixture {
  protected:
    FormTest() {
        memory.recorder.Sink = [this](const memory::Event& event) { events.push_back(event.Kind); };
        form.onLoad = Log("load");
        form.onActivate = Log("activate");
        form.onUnload = Log("unload");
    }

    TestForm form{session};
    std::vector<std::string> events;
};

TEST_F(FormTest, LoadsOnceAndShows) {
    EXPECT_EQ(form.hWnd(), 0U);
    form.Load();
    EXPECT_TRUE(form.Loaded());
    EXPECT_FALSE(form.Visible());
    EXPECT_NE(form.hWnd(), 0U);
    form.Show();
    form.Show();
    EXPECT_THAT(log, ElementsAre("load", "activate"));
    EXPECT_THAT(session.OpenForms(), ElementsAre(&form));
}

TEST_F(FormTest, EachControlHasAHandleOfItsOwnOnceTheFormIsLoaded) {
    CommandButton button(form, "cmdTest");
    TextBox box(form, "txtTest");
    EXPECT_EQ(button.hWnd(), 0U);
    form.Load();
    EXPECT_NE(button.hWnd(), 0U);
    EXPECT_NE(button.hWnd(), form.hWnd());
    EXPECT_NE(button.hWnd(), box.hWnd());
    EXPECT_EQ(button.hWnd(), button.hWnd());
}

TEST_F(FormTest, OpenFormsStandInOrderOfLoading) {
    TestForm second(session, "frmSecond");
    TestForm third(session, "frmThird");
    third.Load();
    form.Show();
    second.Load();
    EXPECT_THAT(session.OpenForms(), ElementsAre(&third, &form, &second));
    form.Unload();
    EXPECT_THAT(session.OpenForms(), ElementsAre(&third, &second));
}

TEST_F(FormTest, AFormThatIsDestroyedIsForgotten) {
    {
        TestForm brief(session, "frmBrief");
        brief.Show();
        EXPECT_EQ(session.OpenForms().size(), 1U);
    }
    EXPECT_THAT(session.OpenForms(), IsEmpty());
}

TEST_F(FormTest, ClosesUnlessItRefuses) {
    form.Show();
    form.onQueryUnload = [] { return false; };
    EXPECT_FALSE(form.UserClose());
    EXPECT_TRUE(form.Visible());
    form.onQueryUnload = [] { return true; };
    EXPECT_TRUE(form.UserClose());
    EXPECT_FALSE(form.Visible());
    EXPECT_FALSE(form.Loaded());
    EXPECT_THAT(log, ElementsAre("load", "activate", "unload"));
    EXPECT_TRUE(form.Unload()) << "what is gone does not refuse";
}

TEST_F(FormTest, UnloadingFromItsOwnCloseCheckGoesRoundOnce) {
    form.Show();
    form.onQueryUnload = [this] { return form.Unload(); };
    EXPECT_TRUE(form.Unload());
    EXPECT_THAT(log, ElementsAre("load", "activate", "unload"));
}

TEST_F(FormTest, AModalFormTakesAllInputUntilItIsGone) {
    TestForm dialog(session, "frmDialog");
    form.Show();
    EXPECT_TRUE(session.TakesInput(form));
    memory.desktop.OnModal = [&](Form& shown) {
        EXPECT_EQ(&shown, &dialog);
        EXPECT_EQ(session.ModalForm(), &dialog);
        EXPECT_TRUE(session.TakesInput(dialog));
        EXPECT_FALSE(session.TakesInput(form));
        dialog.Unload();
        return true;
    };
    dialog.ShowModal();
    EXPECT_EQ(session.ModalForm(), nullptr);
    EXPECT_TRUE(session.TakesInput(form));
}

TEST_F(FormTest, AModalFormInAModalForm) {
    TestForm dialog(session, "frmDialog");
    TestForm inner(session, "frmInner");
    std::vector<std::string> order;
    memory.desktop.OnModal = [&](Form& shown) {
        order.push_back(shown.Name());
        if (&shown == &dialog && order.size() == 1) {
            inner.ShowModal();
            EXPECT_EQ(session.ModalForm(), &dialog);
        } else {
            shown.Unload();
        }
        return true;
    };
    dialog.ShowModal();
    EXPECT_THAT(order, ElementsAre("frmDialog", "frmInner", "frmDialog"));
}

TEST_F(FormTest, AModalFormThatClosesWhileLoadingReturnsAtOnce) {
    bool ran = false;
    memory.desktop.OnModal = [&](Form&) { return ran = true; };
    form.onActivate = [this] { form.Unload(); };
    form.ShowModal();
    EXPECT_FALSE(ran);
    EXPECT_EQ(session.ModalForm(), nullptr);
}

TEST_F(FormTest, AnErrorThatNobodyTrapsGoesToTheDesktopAndTheFormLives) {
    CommandButton button(form, "button");
    button.OnClick = [] { throw base::RuntimeError(base::ErrorOverflow, "Overflow"); };
    form.Show();
    button.UserClick();
    EXPECT_THAT(events, ElementsAre("show", "error"));
    EXPECT_TRUE(form.Visible());
}

TEST_F(FormTest, AnErrorInTheCloseCheckLetsTheFormClose) {
    form.Show();
    form.onQueryUnload = []() -> bool { throw base::RuntimeError(482, "Printer error"); };
    EXPECT_TRUE(form.Unload());
    EXPECT_THAT(events, ElementsAre("show", "error", "unload"));
}

TEST_F(FormTest, ADefectIsNoRuntimeErrorAndPasses) {
    EXPECT_THROW(form.Dispatch([] { throw std::logic_error("defect"); }), std::logic_error);
}

TEST_F(FormTest, ResizingTellsTheForm) {
    form.onResize = Log("resize");
    form.Resize(100, 200);
    EXPECT_THAT(log, IsEmpty()) << "not before it is loaded";
    form.Show();
    log.clear();
    form.Resize(300, 400);
    form.Resize(300, 400);
    form.UserResize(500, 600);
    EXPECT_THAT(log, ElementsAre("resize", "resize"));
    EXPECT_EQ(form.Width(), 500);
    EXPECT_EQ(form.Height(), 600);
    EXPECT_FALSE(form.Resizable());
    EXPECT_FALSE(form.Placed());
    form.Move(10, 20);
    EXPECT_TRUE(form.Placed());
    EXPECT_EQ(form.Left(), 10);
}

TEST_F(FormTest, TheHourglassDoesNotNest) {
    session.Desktop().HourglassOn();
    session.Desktop().HourglassOn();
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerHourglass);
    session.Desktop().HourglassOff();
    EXPECT_EQ(memory.desktop.MousePointer(), forms::PointerDefault);
}

TEST_F(FormTest, AFormOnShowIsNotShownOnceMoreToTakeAllInput) {
    TestForm other(session, "frmOther");
    other.Show();
    bool isAsked = false;
    memory.desktop.OnModal = [&isAsked](forms::Form& /*form*/) {
        isAsked = true;
        return false;
    };
    other.ShowModal();
    EXPECT_FALSE(isAsked);
    EXPECT_TRUE(other.Visible());
}

} // namespace
