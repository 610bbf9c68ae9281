#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "machine/WindowProcedures.h"

namespace forms {

/// Lets a form watch the raw messages of a window, and change them. The owner keeps it alive exactly as long
/// as the window is to be watched: it stops watching when it goes away. Handlers must not fail.
class MsgHook {
  public:
    explicit MsgHook(machine::WindowProcedures& procedures) : procedures_(procedures) {}
    ~MsgHook();
    MsgHook(const MsgHook&) = delete;
    MsgHook& operator=(const MsgHook&) = delete;

    /// Fired before event occures; set uMsg=0 to cancel event. The window then does not see it, and retVal is
    /// the result.
    std::function<void(std::int32_t& uMsg, std::intptr_t& wParam, std::intptr_t& lParam,
                       std::intptr_t& retVal)>
        Before;
    /// Fired after event occured.
    std::function<void(std::int32_t& uMsg, std::intptr_t& wParam, std::intptr_t& lParam)> After;

    /// Starts watching for events [for given messages]. Without messages it watches all of them. What it
    /// watched before is let go first. RuntimeError as modMsgHookProc::HookWindow; it then watches nothing.
    void Hook(machine::WindowHandle hWnd, const std::vector<std::int32_t>& messages = {});

    void RaiseAfter(std::int32_t& uMsg, std::intptr_t& wParam, std::intptr_t& lParam);
    void RaiseBefore(std::int32_t& uMsg, std::intptr_t& wParam, std::intptr_t& lParam, std::intptr_t& retVal);

    /// Stops watching for events. Nothing happens if it watches nothing.
    void Unhook();

    /// Number of its slot, 0 if it watches nothing.
    std::int32_t lSlot() const { return lSlot_; }

  private:
    machine::WindowProcedures& procedures_;
    std::int32_t lSlot_ = 0;
};

} // namespace forms
