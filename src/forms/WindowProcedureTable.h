#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "forms/FormPeer.h"
#include "machine/WindowProcedures.h"

namespace forms {

/// Window procedures for a platform whose windows have none: each window begins with one that does nothing,
/// and what the platform sees (the wheel, the question for a window's bounds) is sent through the one that it
/// has then.
class WindowProcedureTable final : public machine::WindowProcedures {
  public:
    /// Enters a window when it is made and takes it out when it is gone.
    class Window {
      public:
        Window(WindowProcedureTable& table, machine::WindowHandle hWnd);
        ~Window();
        Window(const Window&) = delete;
        Window& operator=(const Window&) = delete;

        machine::WindowHandle Handle() const { return hWnd_; }

      private:
        WindowProcedureTable& table_;
        machine::WindowHandle hWnd_;
    };

    machine::ProcedureAddress SetWindowLongA(machine::WindowHandle hWnd, int index,
                                             machine::ProcedureAddress procedure) override;
    std::intptr_t CallWindowProcA(machine::ProcedureAddress procedure, machine::WindowHandle hWnd,
                                  std::int32_t uMsg, std::intptr_t wParam, std::intptr_t lParam) override;

    /// Gives a message to the window's procedure. 0 for a window that is gone.
    std::intptr_t Send(machine::WindowHandle hWnd, std::int32_t uMsg, std::intptr_t wParam,
                       std::intptr_t lParam);

    /// The wheel has turned over the window: `delta` is 120 for a notch away from the user, -120 towards
    /// them.
    void SendWheel(machine::WindowHandle hWnd, std::int16_t delta);

    /// Asks the window for its bounds, beginning with these.
    machine::MINMAXINFO AskBounds(machine::WindowHandle hWnd, machine::MINMAXINFO bounds);

    /// The size that the window takes when it is given this one, after it has been asked for its bounds, in
    /// dots of 15 twips. A window that names none takes any.
    WindowSize BoundedSize(machine::WindowHandle hWnd, const WindowSize& wanted);

    /// Number of windows that stand.
    std::size_t Count() const { return procedures_.size(); }

  private:
    std::unordered_map<machine::WindowHandle, machine::ProcedureAddress> procedures_;
};

} // namespace forms
