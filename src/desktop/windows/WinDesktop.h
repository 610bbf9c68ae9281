#pragma once

#include <functional>
#include <vector>

#include "desktop/windows/Win32.h"

#include "forms/Desktop.h"
#include "forms/ShownForms.h"
#include "forms/WheelTurn.h"

namespace forms {
class Session;
} // namespace forms

namespace desktop::windows {

class WinForm;

/// The user's desktop through Windows' own windows and controls. One object per process.
class WinDesktop final : public forms::Desktop {
  public:
    WinDesktop();
    WinDesktop(const WinDesktop&) = delete;
    WinDesktop& operator=(const WinDesktop&) = delete;

    std::unique_ptr<forms::FormPeer> CreatePeer(forms::Form& form) override;
    void RunModal(forms::Form& form) override;
    void Yield() override;
    void MsgBox(const std::string& text, forms::MessageIcon icon, const std::string& title) override;
    void ShowHandbook(const std::string& section) override;
    std::string AskFileToSave(const std::string& proposal) override;
    bool SaveText(const std::string& file, const std::string& text) override;
    std::int16_t GetKeyState(int virtualKey) override;
    void SetMousePointer(int pointer) override;
    void LockWindowUpdate(std::uintptr_t window) override;
    forms::ScreenArea Screen() override;
    forms::ScreenArea WorkArea() override;
    void UnhandledError(const base::RuntimeError& error) override;

    /// Tells the user of the exception that is being handled. For where Windows calls the program: nothing
    /// may be thrown there.
    void TellCaught() noexcept;

    /// Runs the message loop until no form is shown.
    void Run();

    /// Window of the form that was shown last; nullptr if none is shown.
    HWND TopWindow() const;
    /// Windows of all forms that are shown, in the order of their showing.
    std::vector<HWND> ShownWindows() const;
    bool ShowsHourglass() const { return hourglass_; }

    // What the forms' windows tell.
    void Opened(const forms::Form& form, WinForm& peer) { forms_.Opened(form, peer); }
    void Shown(const forms::Form& form) { forms_.Shown(form); }
    void Hidden(const forms::Form& form);
    void Gone(const forms::Form& form) { forms_.Gone(form); }
    /// The user logs off or shuts the machine down.
    void SessionEnds(forms::Session& session);

  private:
    bool Handle(MSG& message);
    void RunLoop(const std::function<bool()>& wanted);
    void EndWaiting();
    bool TurnsWheel(MSG& message);

    forms::ShownForms<WinForm> forms_;
    forms::WheelTurn wheel_;
    forms::Session* ending_ = nullptr;
    bool hourglass_ = false;
};

} // namespace desktop::windows
