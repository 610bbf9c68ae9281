#include "preview/PrintPreview.h"

#include <exception>

#include "base/Numbers.h"
#include "composition/OpenPrinter.h"
#include "composition/PrintSurface.h"
#include "composition/RunHost.h"
#include "forms/Session.h"
#include "preview/frmPrintPreview.h"
#include "preview/frmPrintPreviewGhost.h"

namespace preview {

/// Each form knows the other.
struct PrintPreview::Forms {
    Forms(forms::Session& session, machine::Platform& platform, state::AppState& state)
        : Ghost(session, platform, state, Window), Window(session, platform, state, Ghost) {}

    frmPrintPreviewGhost Ghost;
    frmPrintPreview Window;
};

PrintPreview::PrintPreview(forms::Session& session, machine::Platform& platform, state::AppState& state,
                           composition::PrinterSurface& printer)
    : session_(session), platform_(platform), state_(state), printer_(printer) {}

PrintPreview::~PrintPreview() {
    if (forms_ == nullptr) {
        return;
    }
    try {
        Close();
    } catch (const std::exception&) { // the failure that broke the preview off is on its way already
        state_.Surface = nullptr;
    }
}

void PrintPreview::OpenPreview(std::int16_t fase) {
    if (fase == composition::FaseOpen) {
        Open();
    } else if (fase == composition::FaseClose) {
        Close();
    }
}

void PrintPreview::Open() {
    // A preview that fails before its window has loaded must not print by the wish of the one before.
    state_.PrintAfterPreview = false;
    composition::OpenPrinter(state_, platform_, printer_);
    if (forms_ == nullptr) {
        forms_ = std::make_unique<Forms>(session_, platform_, state_);
    }
    composition::PrintSurface& surface = forms_->Ghost.Surface();
    state_.Surface = &surface;
    forms_->Ghost.Load();
    surface.SetFont(state_.ListFontName);
    surface.SetFontSize(composition::ListFontPoints);
    state_.LineHeight = base::ToInt32(surface.TextHeight("X"));
    platform_.Desktop.HourglassOn();
}

void PrintPreview::Close() {
    if (forms_ != nullptr) {
        forms_->Window.Unload();
        forms_->Ghost.Unload();
        forms_.reset();
    }
    state_.Surface = nullptr;
}

void PrintPreview::Show() {
    if (forms_ != nullptr) {
        forms_->Window.ShowModal();
    }
}

frmPrintPreviewGhost* PrintPreview::Ghost() const {
    return forms_ == nullptr ? nullptr : &forms_->Ghost;
}

frmPrintPreview* PrintPreview::Window() const {
    return forms_ == nullptr ? nullptr : &forms_->Window;
}

} // namespace preview
