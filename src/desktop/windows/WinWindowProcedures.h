#pragma once

#include "machine/WindowProcedures.h"

namespace desktop::windows {

class WinDesktop;

/// The window procedures as Windows itself keeps them.
class WinWindowProcedures final : public machine::WindowProcedures {
  public:
    explicit WinWindowProcedures(WinDesktop& desktop) : desktop_(desktop) {}

    machine::ProcedureAddress SetWindowLongA(machine::WindowHandle hWnd, int index,
                                             machine::ProcedureAddress procedure) override;
    std::intptr_t CallWindowProcA(machine::ProcedureAddress procedure, machine::WindowHandle hWnd,
                                  std::int32_t uMsg, std::intptr_t wParam, std::intptr_t lParam) override;
    /// Windows sends the messages, and no failure may pass through it.
    void HandlerFailed() override;

  private:
    WinDesktop& desktop_;
};

} // namespace desktop::windows
