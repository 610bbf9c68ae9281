#pragma once

#include "machine/WindowProcedures.h"

namespace platform::windows {

class WinDesktop;

/// The window procedures as Windows itself keeps them.
class WinWindowProcedures final : public WindowProcedures {
  public:
    explicit WinWindowProcedures(WinDesktop& desktop) : desktop_(desktop) {}

    ProcedureAddress SetWindowLongA(WindowHandle hWnd, int index, ProcedureAddress procedure) override;
    std::intptr_t CallWindowProcA(ProcedureAddress procedure, WindowHandle hWnd, std::int32_t uMsg,
                                  std::intptr_t wParam, std::intptr_t lParam) override;
    /// Windows sends the messages, and no failure may pass through it.
    void HandlerFailed() override;

  private:
    WinDesktop& desktop_;
};

} // namespace platform::windows
