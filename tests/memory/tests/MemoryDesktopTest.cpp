#include "memory/MemoryDesktop.h"

#include <gmock/gmock.h>

#include "forms/Form.h"
#include "forms/ProgressBar.h"
#include "memory/tests/Events.h"

namespace {

using namespace memory;
using testing::ElementsAre;

class Window : public forms::Form {
  public:
    explicit Window(forms::Session& session, std::string name = "frmTest") : Form(session, std::move(name)) {}

    forms::ProgressBar ProgressBar{*this, "ProgressBar"};
    bool refuses = false;

  protected:
    bool OnQueryUnload() override { return !refuses; }
};

class MemoryDesktopTest : public testing::Test {
  protected:
    WatchedPlatform watched;
    MemoryDesktop& desktop = watched.memory.desktop;
    forms::Session session{desktop};
};

Event Shown(const char* form, bool modal) {
    return {"show", {{"form", form}, {"modal", modal}}};
}
Event Gone(const char* form) {
    return {"unload", {{"form", form}}};
}

TEST_F(MemoryDesktopTest, RecordsFormsAndTheirProgress) {
    Window window(session);
    window.Show();
    window.ProgressBar.SetValue(33);
    window.ProgressBar.SetValue(33);
    window.Unload();
    EXPECT_THAT(watched.events, ElementsAre(Shown("frmTest", false), Event{"progress", {{"value", 33}}},
                                            Event{"progress", {{"value", 33}}}, Gone("frmTest")));
}

TEST_F(MemoryDesktopTest, AUserWithoutPlansClosesAModalForm) {
    Window window(session);
    window.ShowModal();
    EXPECT_FALSE(window.Visible());
    EXPECT_THAT(watched.events, ElementsAre(Shown("frmTest", true), Gone("frmTest")));
}

TEST_F(MemoryDesktopTest, TheUserActsUntilTheModalFormIsGone) {
    Window window(session);
    int steps = 0;
    desktop.OnModal = [&](forms::Form& form) {
        EXPECT_EQ(&form, &window);
        if (++steps == 3) {
            form.UserClose();
        }
        return true;
    };
    window.ShowModal();
    EXPECT_EQ(steps, 3);
}

TEST_F(MemoryDesktopTest, AFormThatRefusesIsLeft) {
    Window window(session);
    window.refuses = true;
    window.ShowModal();
    EXPECT_TRUE(window.Visible());
    EXPECT_THAT(watched.events, ElementsAre(Shown("frmTest", true), Event{"refused", {{"form", "frmTest"}}}));
    EXPECT_EQ(session.ModalForm(), nullptr);
}

TEST_F(MemoryDesktopTest, ModalFormsCloseInnermostFirst) {
    Window outer(session, "frmOuter");
    Window inner(session, "frmInner");
    bool opened = false;
    desktop.OnModal = [&](forms::Form&) {
        if (opened) {
            return false;
        }
        opened = true;
        inner.ShowModal();
        return true;
    };
    outer.ShowModal();
    EXPECT_THAT(watched.events, ElementsAre(Shown("frmOuter", true), Shown("frmInner", true),
                                            Gone("frmInner"), Gone("frmOuter")));
}

TEST_F(MemoryDesktopTest, MessageBoxesAreRecordedAndAnswered) {
    desktop.MsgBox("Fout", forms::MessageIcon::Exclamation, "Titel");
    desktop.MsgBox("Ernstig", forms::MessageIcon::Critical, "Titel");
    desktop.MsgBox("Weet", forms::MessageIcon::Information, "Titel");
    EXPECT_THAT(desktop.Messages(),
                ElementsAre(ShownMessage{"Fout", forms::MessageIcon::Exclamation, "Titel"},
                            ShownMessage{"Ernstig", forms::MessageIcon::Critical, "Titel"},
                            ShownMessage{"Weet", forms::MessageIcon::Information, "Titel"}));
    const auto message = [](const char* icon, const char* text) {
        return Event{"message", {{"icon", icon}, {"title", "Titel"}, {"text", text}}};
    };
    EXPECT_THAT(watched.events, ElementsAre(message("exclamation", "Fout"), message("critical", "Ernstig"),
                                            message("information", "Weet")));
}

TEST_F(MemoryDesktopTest, YieldsAreEventsOnlyWhenTraced) {
    int arrivals = 0;
    desktop.OnYield = [&] { ++arrivals; };
    desktop.Yield();
    EXPECT_TRUE(watched.events.empty());
    desktop.TraceYields = true;
    desktop.Yield();
    EXPECT_THAT(watched.events, ElementsAre(Event{"yield", {}}));
    EXPECT_EQ(desktop.Yields(), 2);
    EXPECT_EQ(arrivals, 2);
}

TEST_F(MemoryDesktopTest, KeepsKeysPointerLockAndArea) {
    EXPECT_EQ(desktop.GetKeyState(forms::key::Tab), 0);
    desktop.PressKey(forms::key::Tab);
    EXPECT_LT(desktop.GetKeyState(forms::key::Tab), 0);
    EXPECT_EQ(desktop.GetKeyState(forms::key::Enter), 0);
    desktop.ReleaseKey(forms::key::Tab);
    EXPECT_EQ(desktop.GetKeyState(forms::key::Tab), 0);

    desktop.SetMousePointer(forms::PointerHourglass);
    EXPECT_EQ(desktop.MousePointer(), 11);
    EXPECT_THAT(watched.events, ElementsAre(Event{"mouse", {{"pointer", 11}}}));

    desktop.LockWindowUpdate(7);
    EXPECT_EQ(desktop.LockedWindow(), 7U);

    EXPECT_EQ(desktop.WorkArea().Width, 19200);
    EXPECT_EQ(desktop.WorkArea().Height, 10800);
    desktop.SetWorkArea(9000, 8000);
    EXPECT_EQ(desktop.Screen().Width, 9000);
    EXPECT_EQ(desktop.WorkArea().Height, 8000);
}

TEST_F(MemoryDesktopTest, AnErrorThatNobodyTrapsIsRecorded) {
    session.Dispatch([] { throw base::RuntimeError(base::ErrorOverflow, "Overflow"); });
    EXPECT_THAT(watched.events, ElementsAre(Event{"error", {{"number", 6}, {"description", "Overflow"}}}));
}

} // namespace
