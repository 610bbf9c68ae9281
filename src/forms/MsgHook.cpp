#include "forms/MsgHook.h"

#include "forms/modMsgHookProc.h"

namespace forms {

MsgHook::~MsgHook() {
    Unhook();
    modMsgHookProc::ForgetOwner(*this);
}

void MsgHook::Hook(machine::WindowHandle hWnd, const std::vector<std::int32_t>& messages) {
    Unhook();
    lSlot_ = modMsgHookProc::HookWindow(procedures_, *this, hWnd, messages);
}

// The handlers are copied first: one that lets its hook go must not be destroyed while it runs.

void MsgHook::RaiseAfter(std::int32_t& uMsg, std::intptr_t& wParam, std::intptr_t& lParam) {
    if (const auto handler = After) {
        handler(uMsg, wParam, lParam);
    }
}

void MsgHook::RaiseBefore(std::int32_t& uMsg, std::intptr_t& wParam, std::intptr_t& lParam,
                          std::intptr_t& retVal) {
    if (const auto handler = Before) {
        handler(uMsg, wParam, lParam, retVal);
    }
}

void MsgHook::Unhook() {
    modMsgHookProc::ReleaseSlot(lSlot_);
    lSlot_ = 0;
}

} // namespace forms
