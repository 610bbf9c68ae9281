#include "memory/MemoryDesktop.h"

#include <limits>
#include <unordered_map>
#include <utility>

#include "forms/Form.h"
#include "forms/FormPeer.h"
#include "forms/ProgressBar.h"

namespace memory {

namespace {

/// The window of a form: it shows nothing, and tells when the form comes, goes or makes progress.
class MemoryPeer final : public forms::FormPeer {
  public:
    MemoryPeer(Recorder& recorder, MemoryDesktop& desktop, forms::Form& form, std::uintptr_t handle)
        : recorder_(recorder), desktop_(desktop), form_(form), window_(desktop.Windows(), handle) {}

    void ControlChanged(forms::Control& control, forms::Aspect aspect) override {
        if (desktop_.OnControlChanged) {
            desktop_.OnControlChanged(control, aspect);
        }
        const auto* bar = dynamic_cast<const forms::ProgressBar*>(&control);
        if (bar != nullptr && aspect == forms::Aspect::Value) {
            recorder_.Record({"progress", {{"value", bar->Value()}}});
        }
    }
    void FormChanged() override {}
    forms::WindowSize Bounded(const forms::WindowSize& wanted) override {
        return desktop_.Windows().BoundedSize(Handle(), wanted);
    }
    void Show(bool modal) override { recorder_.Record({"show", {{"form", form_.Name()}, {"modal", modal}}}); }
    void Hide() override { recorder_.Record({"unload", {{"form", form_.Name()}}}); }
    void FocusMoved(forms::Control* /*control*/) override {}
    bool PointerIsOver(const forms::Control& control) override { return desktop_.PointedAt() == &control; }
    std::uintptr_t Handle() override { return window_.Handle(); }
    std::uintptr_t HandleOf(const forms::Control& control) override {
        std::uintptr_t& handle = handles_[&control];
        if (handle == 0) {
            handle = desktop_.NewHandle();
        }
        return handle;
    }

  private:
    Recorder& recorder_;
    MemoryDesktop& desktop_;
    forms::Form& form_;
    forms::WindowProcedureTable::Window window_;
    std::unordered_map<const forms::Control*, std::uintptr_t> handles_;
};

const char* IconName(forms::MessageIcon icon) {
    switch (icon) {
    case forms::MessageIcon::Information:
        return "information";
    case forms::MessageIcon::Exclamation:
        return "exclamation";
    case forms::MessageIcon::Critical:
        break;
    }
    return "critical";
}

} // namespace

std::unique_ptr<forms::FormPeer> MemoryDesktop::CreatePeer(forms::Form& form) {
    const base::RuntimeError error = base::OutOfMemory();
    recorder_.RaiseFailure("CreatePeer", error.Number(), error.what());
    return std::make_unique<MemoryPeer>(recorder_, *this, form, NewHandle());
}

void MemoryDesktop::RunModal(forms::Form& form) {
    while (form.Visible()) {
        if (OnModal && OnModal(form)) {
            continue;
        }
        if (form.Visible() && !form.UserClose()) {
            recorder_.Record({"refused", {{"form", form.Name()}}});
            return;
        }
    }
}

void MemoryDesktop::Yield() {
    ++yields_;
    if (TraceYields) {
        recorder_.Record({"yield", {}});
    }
    if (OnYield) {
        OnYield();
    }
}

void MemoryDesktop::MsgBox(const std::string& text, forms::MessageIcon icon, const std::string& title) {
    messages_.push_back({text, icon, title});
    recorder_.Record({"message", {{"icon", IconName(icon)}, {"title", title}, {"text", text}}});
}

std::string MemoryDesktop::AskFileToSave(const std::string& proposal) {
    std::string file = std::exchange(NextFile, {});
    recorder_.Record({"ask-file", {{"proposal", proposal}, {"file", file}}});
    return file;
}

bool MemoryDesktop::SaveText(const std::string& file, const std::string& text) {
    const bool saved = !recorder_.TakeFailure("SaveText");
    recorder_.Record({"save", {{"file", file}, {"ok", saved}, {"text", text}}});
    return saved;
}

std::int16_t MemoryDesktop::GetKeyState(int virtualKey) {
    return keysDown_.contains(virtualKey) ? std::numeric_limits<std::int16_t>::min() : std::int16_t{0};
}

void MemoryDesktop::SetMousePointer(int pointer) {
    pointer_ = pointer;
    recorder_.Record({"mouse", {{"pointer", pointer}}});
}

void MemoryDesktop::UnhandledError(const base::RuntimeError& error) {
    recorder_.Record({"error", {{"number", error.Number()}, {"description", error.Description()}}});
}

void MemoryDesktop::SetWorkArea(double width, double height) {
    width_ = width;
    height_ = height;
}

} // namespace memory
