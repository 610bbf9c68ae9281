#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include "base/Boolean.h"
#include "composition/PrintSurface.h"
#include "forms/Form.h"
#include "forms/MsgHook.h"
#include "machine/Bitmaps.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "state/AppState.h"

namespace preview {

class frmPrintPreview;

/// The stand-in for the printer while a document is previewed. It is never shown: what is drawn on its
/// surface lands on one page off the screen, as wide as the printable area and as high as the sheet, which is
/// kept as a bitmap at each page break and wiped for the next page. It holds 40 pages at most. One object
/// serves one preview.
class frmPrintPreviewGhost : public forms::Form {
  public:
    frmPrintPreviewGhost(forms::Session& session, machine::Platform& platform, const state::AppState& state,
                         frmPrintPreview& preview);

    /// What the document is drawn on. Drawing before the form is loaded is an error (ErrorNoObject).
    composition::PrintSurface& Surface() { return surface_; }

    /// Ends the page and begins the next one. Nothing happens after page 41, and a failing step ends it
    /// silently.
    void Newpage();
    /// Ends the document: tells the preview window how many pages there are and shows it the first.
    void EndDoc();
    /// Show the next or the previous page of this form's own counting; out of range is an error.
    void DisplayVolgende();
    void DisplayVorige();
    /// Number of the page that is being drawn.
    std::int16_t Page() const { return iPage; }
    /// Shows page `WhichPage` in the preview window. RuntimeError if there is no such page.
    void DisplayOnScreen(std::int16_t WhichPage);
    /// Lets the window grow beyond the screen.
    void Msg_Before(std::int32_t& uMsg, std::intptr_t& wParam, std::intptr_t& lParam, std::intptr_t& retVal);
    /// Lets all pages go.
    void ClearPages();

    /// A page that is kept. Lengths are twips.
    struct PageHolder {
        std::shared_ptr<const machine::PageBitmap> Picture;
        double Width = 0;
        double Height = 0;
    };

    /// Tally of the pages, as text; after EndDoc the number of pages on offer.
    std::string Tag;
    std::int16_t iPage = 0;
    std::int16_t iDisplayPage = 0;
    /// Colour of the page before anything is drawn on it.
    std::int32_t BackColor = 0;
    /// What is drawn lands on the page. Off while a page is kept, and after a page break that failed until
    /// the next one that does not: what is drawn meanwhile is lost, and measured all the same.
    base::Boolean AutoRedraw{true};
    /// The sheet, and half of what it is larger than the printable area.
    std::int32_t lPageWidth = 0;
    std::int32_t lPageHeight = 0;
    std::int32_t lMarginLeft = 0;
    std::int32_t lMarginTop = 0;
    /// Upper bound of the window. Twips that serve as dots: generous on purpose, as it only has to be out of
    /// the way.
    std::int32_t lMaxTrackX = 0;
    std::int32_t lMaxTrackY = 0;
    /// Page k stands at k; 0 holds the blank page from before the document and is never shown.
    std::map<std::int16_t, PageHolder> ThisPage;
    std::unique_ptr<forms::MsgHook> Msg;

  protected:
    void OnLoad() override;

  private:
    class PageSurface final : public composition::PrintSurface {
      public:
        explicit PageSurface(frmPrintPreviewGhost& form) : PrintSurface(form.drawing_), form_(form) {}

        void Newpage() override { form_.Newpage(); }
        void EndDoc() override { form_.EndDoc(); }

      protected:
        machine::Canvas& Page() override { return form_.drawingTarget_; }

      private:
        frmPrintPreviewGhost& form_;
    };

    /// The page, as long as AutoRedraw lets drawing through to it.
    class DrawingTarget final : public machine::Canvas {
      public:
        explicit DrawingTarget(frmPrintPreviewGhost& form) : form_(form) {}

        machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override;
        void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override;
        void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override;
        void NewPage() override { form_.Drawing().NewPage(); }
        void EndDocument() override { form_.Drawing().EndDocument(); }

      private:
        frmPrintPreviewGhost& form_;
    };

    machine::Canvas& Drawing();
    void Cls();
    void KeepPage();
    void FinishPages();
    PageHolder& Holder(std::int16_t page);

    machine::Platform& platform_;
    const state::AppState& state_;
    frmPrintPreview& preview_;
    machine::DrawingState drawing_;
    std::unique_ptr<machine::OffscreenPage> page_;
    DrawingTarget drawingTarget_{*this};
    PageSurface surface_{*this};
};

} // namespace preview
