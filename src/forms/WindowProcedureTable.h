#pragma once

#include <cstddef>
#include <cstdint>
#include <unordered_map>

#include "machine/WindowProcedures.h"
#include "forms/FormPeer.h"

namespace forms {

/// Window procedures for a platform whose windows have none: each window begins with one that does nothing,
/// and what the platform sees (the wheel, the question for a window's bounds) is sent through the one that it
/// has then.
class WindowProcedureTable final : public platform::WindowProcedures {
  public:
    /// Enters a window when it is made and takes it out when it is gone.
    class Window {
      public:
        Window(WindowProcedureTable& table, platform::WindowHandle hWnd);
        ~Window();
        Window(const Window&) = delete;
        Window& operator=(const Window&) = delete;

        platform::WindowHandle Handle() const { return hWnd_; }

      private:
        WindowProcedureTable& table_;
        platform::WindowHandle hWnd_;
    };

    platform::ProcedureAddress SetWindowLongA(platform::WindowHandle hWnd, int index,
                                              platform::ProcedureAddress procedure) override;
    std::intptr_t CallWindowProcA(platform::ProcedureAddress procedure, platform::WindowHandle hWnd,
                                  std::int32_t uMsg, std::intptr_t wParam, std::intptr_t lParam) override;

    /// Gives a message to the window's procedure. 0 for a window that is gone.
    std::intptr_t Send(platform::WindowHandle hWnd, std::int32_t uMsg, std::intptr_t wParam,
                       std::intptr_t lParam);

    /// The wheel has turned over the window: `delta` is 120 for a notch away from the user, -120 towards
    /// them.
    void SendWheel(platform::WindowHandle hWnd, std::int16_t delta);

    /// Asks the window for its bounds, beginning with these.
    platform::MINMAXINFO AskBounds(platform::WindowHandle hWnd, platform::MINMAXINFO bounds);

    /// The size that the window takes when it is given this one, after it has been asked for its bounds, in
    /// dots of 15 twips. A window that names none takes any.
    WindowSize BoundedSize(platform::WindowHandle hWnd, const WindowSize& wanted);

    /// Number of windows that stand.
    std::size_t Count() const { return procedures_.size(); }

  private:
    std::unordered_map<platform::WindowHandle, platform::ProcedureAddress> procedures_;
};

} // namespace forms
