#pragma once

#include <functional>
#include <unordered_map>

#include "desktop/qt/QtDesktop.h"
#include "forms/Desktop.h"
#include "memory/MemoryPlatform.h"

namespace scenario {

class TwinPeer;

/// The real desktop, with that of the memory platform beside it: the one shows the windows, the other writes
/// down what comes, goes and is told. When a timer ticks is the script's to say, unless timers are let tick.
class TwinDesktop final : public forms::Desktop {
  public:
    /// `screen` says how large the screen is. All outlive it.
    TwinDesktop(memory::MemoryPlatform& memory, desktop::qt::QtDesktop& real, forms::Desktop& screen);
    ~TwinDesktop() override;
    TwinDesktop(const TwinDesktop&) = delete;
    TwinDesktop& operator=(const TwinDesktop&) = delete;

    /// What the user does next while a form alone takes input; false: he does nothing more.
    std::function<bool()> Next;

    /// Forms that come from now on have timers that tick by themselves.
    bool TimersTick = false;

    /// Looks at a message box before the user answers it.
    std::function<void(QWidget&)> OnMessage;

    std::unique_ptr<forms::FormPeer> CreatePeer(forms::Form& form) override;
    void RunModal(forms::Form& form) override;
    void Yield() override;
    void MsgBox(const std::string& text, forms::MessageIcon icon, const std::string& title) override;
    void ShowHandbook(const std::string& section) override { qt_.ShowHandbook(section); }
    std::string AskFileToSave(const std::string& proposal) override;
    bool SaveText(const std::string& file, const std::string& text) override;
    std::int16_t GetKeyState(int virtualKey) override { return qt_.GetKeyState(virtualKey); }
    void SetMousePointer(int pointer) override;
    void LockWindowUpdate(std::uintptr_t window) override { qt_.LockWindowUpdate(window); }
    forms::ScreenArea Screen() override { return screen_.Screen(); }
    forms::ScreenArea WorkArea() override { return screen_.WorkArea(); }
    void UnhandledError(const base::RuntimeError& error) override;

    /// The procedures of the forms' windows.
    forms::WindowProcedureTable& Windows() { return qt_.Windows(); }

    // What the forms' windows tell.
    void Opened(forms::Form& form, TwinPeer& peer) { peers_[&form] = &peer; }
    void Gone(forms::Form& form) { peers_.erase(&form); }

  private:
    void PlayNext(forms::Form& form);
    void Look(QWidget& box);

    memory::MemoryPlatform& memory_;
    desktop::qt::QtDesktop& qt_;
    forms::Desktop& screen_;
    forms::Desktop* toldBefore_;
    std::unordered_map<const forms::Form*, TwinPeer*> peers_;
    bool waiting_ = false; // the program lets events in where the user can do nothing
};

} // namespace scenario
