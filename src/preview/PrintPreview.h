#pragma once

#include <cstdint>
#include <memory>

#include "machine/Platform.h"
#include "state/AppState.h"

namespace composition {
class PrinterSurface;
}
namespace forms {
class Session;
}

namespace preview {

class frmPrintPreview;
class frmPrintPreviewGhost;

/// The two forms of a preview from its opening to its closing: the page that the document is drawn on, and
/// the window that shows what was drawn.
class PrintPreview {
  public:
    PrintPreview(forms::Session& session, machine::Platform& platform, state::AppState& state,
                 composition::PrinterSurface& printer);
    ~PrintPreview();
    PrintPreview(const PrintPreview&) = delete;
    PrintPreview& operator=(const PrintPreview&) = delete;

    /// FaseOpen: the page of the preview becomes AppState.Surface, in the list font at size 8. FaseClose:
    /// both forms go and there is no surface. Any other value does nothing. RuntimeError if the page cannot
    /// be made.
    void OpenPreview(std::int16_t fase);

    /// Shows the window until the user leaves it. Nothing happens if there is no preview.
    void Show();

    /// The forms while a preview is open, else nullptr.
    frmPrintPreviewGhost* Ghost() const;
    frmPrintPreview* Window() const;

  private:
    struct Forms;

    void Open();
    void Close();

    forms::Session& session_;
    machine::Platform& platform_;
    state::AppState& state_;
    composition::PrinterSurface& printer_;
    std::unique_ptr<Forms> forms_;
};

} // namespace preview
