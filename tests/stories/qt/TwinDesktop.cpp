#include "TwinDesktop.h"

#include <utility>

#include <QApplication>
#include <QFileInfo>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QTest>
#include <QTimer>

#include "Windows.h"
#include "desktop/qt/Guarded.h"
#include "forms/Form.h"
#include "forms/FormPeer.h"
#include "forms/Timer.h"

namespace scenario {

/// The window of a form on both desktops.
class TwinPeer final : public forms::FormPeer {
  public:
    TwinPeer(TwinDesktop& desktop, forms::Form& form, std::unique_ptr<forms::FormPeer> record,
             std::unique_ptr<forms::FormPeer> window)
        : desktop_(desktop), form_(form), record_(std::move(record)), window_(std::move(window)) {
        desktop_.Opened(form_, *this);
    }
    ~TwinPeer() override { desktop_.Gone(form_); }

    void ControlChanged(forms::Control& control, forms::Aspect aspect) override {
        record_->ControlChanged(control, aspect);
        // Real time would tick between the lines of the script.
        if (desktop_.TimersTick || dynamic_cast<forms::Timer*>(&control) == nullptr) {
            window_->ControlChanged(control, aspect);
        }
    }
    void FormChanged() override { window_->FormChanged(); }
    forms::WindowSize Bounded(const forms::WindowSize& wanted) override { return window_->Bounded(wanted); }
    void Show(bool modal) override {
        record_->Show(modal);
        window_->Show(modal);
    }
    void Hide() override {
        record_->Hide();
        window_->Hide();
    }
    void FocusMoved(forms::Control* control) override { window_->FocusMoved(control); }
    bool PointerIsOver(const forms::Control& control) override { return window_->PointerIsOver(control); }
    std::uintptr_t Handle() override { return window_->Handle(); }
    std::uintptr_t HandleOf(const forms::Control& control) override { return window_->HandleOf(control); }

    /// Ends the wait for the form, which stays as it is.
    void Leave() { window_->Hide(); }

  private:
    TwinDesktop& desktop_;
    forms::Form& form_;
    std::unique_ptr<forms::FormPeer> record_;
    std::unique_ptr<forms::FormPeer> window_;
};

namespace {

/// While it lives, the user answers the message box that comes with Enter, once `seen` has looked at it.
class BoxAnswer {
  public:
    explicit BoxAnswer(std::function<void(QMessageBox&)> seen) : seen_(std::move(seen)) {
        QObject::connect(&timer_, &QTimer::timeout, [this] { Answer(); });
        timer_.start(0);
    }

  private:
    void Answer() {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        if (box == nullptr || !box->isActiveWindow()) {
            return;
        }
        timer_.stop();
        seen_(*box);
        QTest::keyClick(box->windowHandle(), Qt::Key_Return);
    }

    std::function<void(QMessageBox&)> seen_;
    QTimer timer_;
};

forms::MessageIcon IconOf(const QMessageBox& box) {
    switch (box.icon()) {
    case QMessageBox::Warning:
        return forms::MessageIcon::Exclamation;
    case QMessageBox::Critical:
        return forms::MessageIcon::Critical;
    default:
        return forms::MessageIcon::Information;
    }
}

} // namespace

TwinDesktop::TwinDesktop(memory::MemoryPlatform& memory, desktop::qt::QtDesktop& real, forms::Desktop& screen)
    : memory_(memory), qt_(real), screen_(screen), toldBefore_(desktop::qt::TellFailuresOn(this)) {}

TwinDesktop::~TwinDesktop() {
    desktop::qt::TellFailuresOn(toldBefore_);
}

std::unique_ptr<forms::FormPeer> TwinDesktop::CreatePeer(forms::Form& form) {
    auto record = memory_.desktop.CreatePeer(form);
    return std::make_unique<TwinPeer>(*this, form, std::move(record), qt_.CreatePeer(form));
}

// A timer that is still being handled does not come again: the lines are played one within the other, as the
// forms are open.
void TwinDesktop::RunModal(forms::Form& form) {
    QTimer turn;
    QObject::connect(&turn, &QTimer::timeout, [&] { PlayNext(form); });
    turn.start(0);
    qt_.RunModal(form);
}

void TwinDesktop::PlayNext(forms::Form& form) {
    if (waiting_ || !form.Visible()) {
        return;
    }
    windows::Settle(); // the window that has just come takes the keyboard
    if (!form.Visible() || (Next && Next()) || !form.Visible()) {
        return;
    }
    if (!windows::Close(form)) {
        memory_.recorder.Record({"refused", {{"form", form.Name()}}});
        peers_.at(&form)->Leave();
    }
}

void TwinDesktop::Yield() {
    const QScopedValueRollback wait(waiting_, true);
    memory_.desktop.Yield();
    qt_.Yield();
}

void TwinDesktop::MsgBox(const std::string& text, forms::MessageIcon icon, const std::string& title) {
    const QScopedValueRollback wait(waiting_, true);
    const BoxAnswer answer([this](QMessageBox& box) {
        memory_.desktop.MsgBox(box.text().toStdString(), IconOf(box), box.windowTitle().toStdString());
        Look(box);
    });
    qt_.MsgBox(text, icon, title);
}

std::string TwinDesktop::AskFileToSave(const std::string& proposal) {
    const QScopedValueRollback wait(waiting_, true);
    std::string file = qt_.AskFileToSave(proposal);
    memory_.desktop.NextFile = QFileInfo(QString::fromStdString(file)).fileName().toStdString();
    memory_.desktop.AskFileToSave(proposal);
    return file;
}

bool TwinDesktop::SaveText(const std::string& file, const std::string& text) {
    const std::string name = QFileInfo(QString::fromStdString(file)).fileName().toStdString();
    return memory_.desktop.SaveText(name, text) && qt_.SaveText(file, text);
}

void TwinDesktop::Look(QWidget& box) {
    if (OnMessage) {
        OnMessage(box);
    }
}

void TwinDesktop::SetMousePointer(int pointer) {
    memory_.desktop.SetMousePointer(pointer);
    qt_.SetMousePointer(pointer);
}

void TwinDesktop::UnhandledError(const base::RuntimeError& error) {
    const QScopedValueRollback wait(waiting_, true);
    memory_.desktop.UnhandledError(error);
    const BoxAnswer answer([this](QMessageBox& box) { Look(box); });
    qt_.UnhandledError(error);
}

} // namespace scenario
