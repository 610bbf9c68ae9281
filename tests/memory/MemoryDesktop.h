#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "forms/Desktop.h"
#include "forms/WindowProcedureTable.h"
#include "memory/Recorder.h"

namespace forms {
class Control;
enum class Aspect;
} // namespace forms

namespace memory {

/// A message box as the user saw it.
struct ShownMessage {
    std::string Text;
    forms::MessageIcon Icon = forms::MessageIcon::Information;
    std::string Title;

    bool operator==(const ShownMessage&) const = default;
};

/// A desktop without a screen. Forms are recorded as they come and go; message boxes are recorded and
/// answered at once; what the user does inside a modal form is asked of the test.
class MemoryDesktop final : public forms::Desktop {
  public:
    explicit MemoryDesktop(Recorder& recorder) : recorder_(recorder) {}

    /// What the user does next while this form alone takes input; called until the form is gone. False: the
    /// user does nothing more. The form is then closed as by its close box; one that refuses is left
    /// standing, with an event "refused". Without this member the user does nothing.
    std::function<bool(forms::Form&)> OnModal;
    /// What arrives while the program lets the window system handle its messages.
    std::function<void()> OnYield;
    /// What a window does with a change of one of its controls; a failure goes to the program.
    std::function<void(const forms::Control&, forms::Aspect)> OnControlChanged;
    /// The file that the next question for one is answered with; empty: the user wants none.
    std::string NextFile;
    /// Yields are events only where this is set.
    bool TraceYields = false;

    std::unique_ptr<forms::FormPeer> CreatePeer(forms::Form& form) override;
    void RunModal(forms::Form& form) override;
    void Yield() override;
    void MsgBox(const std::string& text, forms::MessageIcon icon, const std::string& title) override;
    void ShowHandbook(const std::string& section) override { handbookSections_.push_back(section); }
    std::string AskFileToSave(const std::string& proposal) override;
    bool SaveText(const std::string& file, const std::string& text) override;
    std::int16_t GetKeyState(int virtualKey) override;
    void SetMousePointer(int pointer) override;
    void LockWindowUpdate(std::uintptr_t window) override { lockedWindow_ = window; }
    forms::ScreenArea Screen() override { return {0, 0, width_, height_}; }
    forms::ScreenArea WorkArea() override { return Screen(); }
    void UnhandledError(const base::RuntimeError& error) override;

    void PressKey(int virtualKey) { keysDown_.insert(virtualKey); }
    void ReleaseKey(int virtualKey) { keysDown_.erase(virtualKey); }
    /// The control that the mouse pointer stands on, or nullptr.
    void PointAt(const forms::Control* control) { pointedAt_ = control; }
    const forms::Control* PointedAt() const { return pointedAt_; }
    /// A number that no window or control has had yet.
    std::uintptr_t NewHandle() { return ++lastHandle_; }
    /// The windows of the loaded forms, and the way to send them messages.
    forms::WindowProcedureTable& Windows() { return windows_; }
    /// Twips. The screen has no task bar: all of it is work area.
    void SetWorkArea(double width, double height);

    const std::vector<ShownMessage>& Messages() const { return messages_; }
    /// Where the handbook was opened, from first to last.
    const std::vector<std::string>& HandbookSections() const { return handbookSections_; }
    int MousePointer() const { return pointer_; }
    int Yields() const { return yields_; }
    std::uintptr_t LockedWindow() const { return lockedWindow_; }

  private:
    Recorder& recorder_;
    forms::WindowProcedureTable windows_;
    const forms::Control* pointedAt_ = nullptr;
    std::set<int> keysDown_;
    std::vector<ShownMessage> messages_;
    std::vector<std::string> handbookSections_;
    std::uintptr_t lockedWindow_ = 0;
    std::uintptr_t lastHandle_ = 0;
    int pointer_ = forms::PointerDefault;
    int yields_ = 0;
    double width_ = 19200;
    double height_ = 10800;
};

} // namespace memory
