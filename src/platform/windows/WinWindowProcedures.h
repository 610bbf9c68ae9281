#pragma once

#include "platform/WindowProcedures.h"

namespace platform::windows {

/// The window procedures as Windows itself keeps them.
class WinWindowProcedures final : public WindowProcedures {
  public:
    ProcedureAddress SetWindowLongA(WindowHandle hWnd, int index, ProcedureAddress procedure) override;
    std::intptr_t CallWindowProcA(ProcedureAddress procedure, WindowHandle hWnd, std::int32_t uMsg,
                                  std::intptr_t wParam, std::intptr_t lParam) override;
};

} // namespace platform::windows
