#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "base/RuntimeError.h"
#include "desktop/cups/TurnedSheet.h"
#include "desktop/qt/JobDevice.h"
#include "desktop/qt/PageDevice.h"
#include "desktop/qt/PdfDocument.h"
#include "desktop/qt/QtCanvas.h"
#include "desktop/qt/QtPrinters.h"
#include "machine/Printer.h"

namespace desktop::qt {

/// The current printer. Until one is assigned it is the user's default.
class QtPrinter : public machine::Printer, private PageDevice {
  public:
    QtPrinter(QtPrinters& printers, machine::PrintFailureTeller teller);

    /// From a document's first output to its end.
    bool IsPrinting() const { return begun_; }

    void Assign(int index) override;

    std::string DeviceName() override;
    std::string Port() override;

    std::int16_t Orientation() override;
    void SetOrientation(std::int16_t orientation) override;
    std::int16_t PaperSize() override;
    void SetPaperSize(std::int16_t paper) override;
    std::int16_t PaperBin() override;
    void SetPaperBin(std::int16_t bin) override;
    std::int16_t Copies() override;

    double Width() override;
    double Height() override;
    /// A run asks for it when it opens the printer: one that is gone or does not answer is told here.
    double ScaleLeft() override;
    double ScaleTop() override { return 0; }
    double ScaleWidth() override;
    double ScaleHeight() override;

    int GetDeviceCaps(int item) override;

    void SetDocumentTitle(const std::string& title) override;
    void Abandon() override;
    machine::Canvas& Page() override { return canvas_; }

  private:
    cups::PrintQueue& Queue();
    const cups::Paper& CurrentPaper();
    const cups::Bin* CurrentBin();
    void StoreWhereUnwritten(std::int16_t cups::QueueSettings::*field);
    cups::TurnedSheet Measure();
    Sheet SheetNow();

    QPainter* Painter() override;
    bool Begin() override;
    void DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs,
                    std::span<const QPointF> places) override;
    void NewPage() override;
    void EndDocument() override;
    double LineWidth() override;

    void BeginDocument();
    /// Takes what has been drawn of a document; what else is drawn of it goes nowhere.
    void DropOutput();
    /// What the job tells of a document that it has not taken whole; nothing if it has, or knows no words.
    std::optional<base::RuntimeError> Loss() const;
    /// Ends the document without a trace, tells the user why and passes the failure on.
    [[noreturn]] void Fail(const base::RuntimeError& error);

    QtPrinters& printers_;
    machine::PrintFailureTeller teller_;
    std::shared_ptr<cups::PrintQueue> queue_;
    cups::QueueSettings settings_;
    std::string title_;
    QtCanvas canvas_;

    bool begun_ = false; ///< from the document's first output to its end, also if it goes nowhere
    std::unique_ptr<cups::PrintJob> job_;
    std::unique_ptr<JobDevice> output_;
    std::unique_ptr<PdfDocument> document_; // behind both, as it writes there to its end
};

} // namespace desktop::qt
