#pragma once

#include <unordered_map>
#include <vector>

#include <QObject>
#include <QPointer>
#include <QWidget>

#include "forms/Desktop.h"
#include "forms/ShownForms.h"
#include "forms/WindowProcedureTable.h"

namespace desktop::qt {

class QtForm;

/// The user's desktop through the toolkit's widgets. Needs a QApplication. While it is there it tells the
/// user of failures that no handler of the program knows.
class QtDesktop final : public QObject, public forms::Desktop {
  public:
    QtDesktop();
    ~QtDesktop() override;

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

    /// Runs the message loop until no form is shown.
    void Run();

    /// Window of the form that was shown last; nullptr if none is shown.
    QWidget* TopWindow() const;

    /// The procedures of the forms' windows.
    forms::WindowProcedureTable& Windows() { return windows_; }

    // What the forms' windows tell.
    void Opened(const forms::Form& form, QtForm& peer) { forms_.Opened(form, peer); }
    void Shown(const forms::Form& form) { forms_.Shown(form); }
    void Hidden(const forms::Form& form);
    void Gone(const forms::Form& form) { forms_.Gone(form); }

    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    forms::WindowProcedureTable windows_;
    forms::ShownForms<QtForm> forms_;
    QPointer<QWidget> locked_;
    forms::Desktop* toldBefore_ = nullptr; // of failures that nobody knows, while this one is
    bool tabDown_ = false;
    bool hourglass_ = false;
    bool running_ = false;
};

} // namespace desktop::qt
