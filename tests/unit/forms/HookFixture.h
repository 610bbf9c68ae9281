#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RuntimeError.h"
#include "forms/MsgHook.h"
#include "forms/WindowProcedureTable.h"
#include "forms/modMsgHookProc.h"

namespace hook = forms::modMsgHookProc;

inline constexpr std::int32_t Wheel = machine::WM_MOUSEWHEEL;

/// What a window of the tests did with a message: its number and its arguments.
struct Message {
    std::int32_t uMsg = 0;
    std::intptr_t wParam = 0;
    std::intptr_t lParam = 0;

    bool operator==(const Message&) const = default;
};

/// The messages that reached a window's own procedure. That procedure answers 100 and the message's number.
inline std::vector<Message>& Handled() {
    static std::vector<Message> handled;
    return handled;
}

inline std::intptr_t WINDOW_CALL OwnProcedure(machine::WindowHandle /*hWnd*/, std::int32_t uMsg,
                                              std::intptr_t wParam, std::intptr_t lParam) {
    Handled().push_back({uMsg, wParam, lParam});
    return 100 + uMsg;
}

/// Windows with a procedure of their own, and hooks on them.
class HookTest : public testing::Test {
  protected:
    using Window = forms::WindowProcedureTable::Window;

    HookTest() {
        Handled().clear();
        slotsBefore_ = hook::SlotsInUse();
    }
    ~HookTest() override { EXPECT_EQ(hook::SlotsInUse(), slotsBefore_) << "a slot was left behind"; }

    /// A window from number 1000 on, so that no other test's window is meant.
    std::unique_ptr<Window> NewWindow() {
        auto window = std::make_unique<Window>(table, ++lastHandle_);
        table.SetWindowLongA(window->Handle(), machine::GWL_WNDPROC, machine::AddressOf(OwnProcedure));
        return window;
    }

    /// The procedure that the window has now.
    machine::ProcedureAddress ProcedureOf(const Window& window) {
        const auto present = table.SetWindowLongA(window.Handle(), machine::GWL_WNDPROC, 0);
        table.SetWindowLongA(window.Handle(), machine::GWL_WNDPROC, present);
        return present;
    }

    bool HasOwnProcedure(const Window& window) {
        return ProcedureOf(window) == machine::AddressOf(OwnProcedure);
    }

    forms::WindowProcedureTable table;

  private:
    machine::WindowHandle lastHandle_ = 1000;
    std::int32_t slotsBefore_ = 0;
};

/// The number of the error that a step raises, 0 for none.
template <class Step>
int ErrorOf(Step&& step) {
    try {
        step();
    } catch (const base::RuntimeError& error) {
        return error.Number();
    }
    return 0;
}
