// A form object that is shown, closed and shown again.
#include <algorithm>
#include <new>

#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "forms/FormPeer.h"
#include "unit/forms/TestForm.h"

namespace {

/// A desktop that keeps a list of its windows, one for a form, as those with a screen do.
class ListingDesktop final : public forms::Desktop {
  public:
    int Windows = 0;
    int MostWindows = 0;
    bool HasRoom = true;     ///< for one more window
    bool LoopBreaks = false; ///< the message loop of a modal form ends by an exception

    std::unique_ptr<forms::FormPeer> CreatePeer(forms::Form& /*form*/) override {
        if (!HasRoom) {
            throw base::OutOfMemory();
        }
        return std::make_unique<Peer>(*this);
    }
    void RunModal(forms::Form& /*form*/) override {
        if (LoopBreaks) {
            throw std::bad_alloc();
        }
    }
    void Yield() override {}
    void MsgBox(const std::string& /*text*/, forms::MessageIcon /*icon*/,
                const std::string& /*title*/) override {}
    void ShowHandbook(const std::string& /*section*/) override {}
    std::string AskFileToSave(const std::string& /*proposal*/) override { return {}; }
    bool SaveText(const std::string& /*file*/, const std::string& /*text*/) override { return false; }
    std::int16_t GetKeyState(int /*virtualKey*/) override { return 0; }
    void SetMousePointer(int /*pointer*/) override {}
    void LockWindowUpdate(std::uintptr_t /*window*/) override {}
    forms::ScreenArea Screen() override { return {}; }
    forms::ScreenArea WorkArea() override { return {}; }
    void UnhandledError(const base::RuntimeError& error) override { throw error; }

  private:
    class Peer final : public forms::FormPeer {
      public:
        explicit Peer(ListingDesktop& desktop) : desktop_(desktop) {
            desktop_.MostWindows = std::max(desktop_.MostWindows, ++desktop_.Windows);
        }
        ~Peer() override { --desktop_.Windows; }
        void ControlChanged(forms::Control& /*control*/, forms::Aspect /*aspect*/) override {}
        void FormChanged() override {}
        void Show(bool /*modal*/) override {}
        void Hide() override {}
        void FocusMoved(forms::Control* /*control*/) override {}
        std::uintptr_t Handle() override { return 1; }

      private:
        ListingDesktop& desktop_;
    };
};

TEST(ReloadTest, TheOldWindowIsGoneBeforeTheNewOneIsMade) {
    ListingDesktop desktop;
    forms::Session session(desktop);
    TestForm form(session);
    for (int round = 0; round < 3; ++round) {
        form.Show();
        EXPECT_EQ(desktop.Windows, 1);
        EXPECT_TRUE(form.Unload());
    }
    EXPECT_EQ(desktop.MostWindows, 1);
}

TEST(ReloadTest, AFormThatGetsNoWindowIsNotLoaded) {
    ListingDesktop desktop;
    forms::Session session(desktop);
    TestForm form(session);
    for (const bool before : {false, true}) {
        SCOPED_TRACE(before ? "shown before" : "never shown");
        desktop.HasRoom = false;
        EXPECT_THROW(form.Show(), base::RuntimeError);
        EXPECT_THROW(form.ShowModal(), base::RuntimeError);
        EXPECT_FALSE(form.Loaded());
        EXPECT_FALSE(form.Visible());
        EXPECT_TRUE(session.OpenForms().empty());
        EXPECT_EQ(session.ModalForm(), nullptr);
        EXPECT_TRUE(form.Unload());
        desktop.HasRoom = true;
        form.Show();
        EXPECT_TRUE(form.Visible());
        EXPECT_TRUE(form.Unload());
    }
}

TEST(ReloadTest, AModalFormThatBreaksOffTakesNoMoreInput) {
    ListingDesktop desktop;
    forms::Session session(desktop);
    TestForm form(session);
    desktop.LoopBreaks = true;
    EXPECT_THROW(form.ShowModal(), std::bad_alloc);
    EXPECT_EQ(session.ModalForm(), nullptr);
}

TEST(ReloadTest, AClosingThatBreaksOffCanBeTriedAgain) {
    ListingDesktop desktop;
    forms::Session session(desktop);
    TestForm form(session);
    form.Show();
    form.onQueryUnload = []() -> bool { throw std::bad_alloc(); };
    EXPECT_THROW(form.Unload(), std::bad_alloc);
    EXPECT_TRUE(form.Visible());
    form.onQueryUnload = nullptr;
    form.onUnload = [] { throw std::bad_alloc(); };
    EXPECT_THROW(form.Unload(), std::bad_alloc);
    EXPECT_FALSE(form.Leaving());
    form.onUnload = nullptr;
    EXPECT_TRUE(form.Unload());
    EXPECT_FALSE(form.Loaded());
    EXPECT_TRUE(session.OpenForms().empty());
}

} // namespace
