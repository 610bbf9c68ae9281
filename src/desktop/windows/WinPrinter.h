#pragma once

#include <memory>
#include <optional>
#include <string>

#include "desktop/windows/DriverSettings.h"
#include "desktop/windows/GdiCanvas.h"
#include "desktop/windows/GdiObjects.h"
#include "desktop/windows/PageDevice.h"
#include "desktop/windows/PrintDocument.h"
#include "desktop/windows/PrintFailure.h"
#include "desktop/windows/WinPrinters.h"
#include "machine/Printer.h"

namespace desktop::windows {

/// The current printer. Until one is assigned it is the user's default. A document that has begun when
/// another printer is assigned, or when this object goes, is taken back.
class WinPrinter final : public machine::Printer, private PageDevice {
  public:
    WinPrinter(WinPrinters& printers, machine::PrintFailureTeller teller);

    void Assign(int index) override;

    std::string DeviceName() override;
    std::string Port() override;

    std::int16_t Orientation() override;
    void SetOrientation(std::int16_t orientation) override;
    std::int16_t PaperSize() override;
    void SetPaperSize(std::int16_t paper) override;
    std::int16_t PaperBin() override;
    void SetPaperBin(std::int16_t bin) override;
    /// 1 where the printer cannot be asked: nobody has set another number then.
    std::int16_t Copies() override;

    double Width() override;
    double Height() override;
    double ScaleLeft() override;
    double ScaleTop() override { return 0; }
    double ScaleWidth() override;
    double ScaleHeight() override;

    int GetDeviceCaps(int item) override;

    void SetDocumentTitle(const std::string& title) override { title_ = title; }
    void Abandon() override;
    machine::Canvas& Page() override { return canvas_; }

  private:
    const machine::PrinterEntry& Entry();
    void Use(int index);
    /// RuntimeError (ErrorPrinter) if the printer cannot be reached.
    DriverSettings& Settings();
    HDC Device();
    double TwipsAcross(int dotsItem);
    double TwipsDown(int dotsItem);
    void Change(DWORD field, short DEVMODEW::*member, std::int16_t value);

    HDC PageContext() override;
    Resolution DotsPerInch() override;
    void NewPage() override;
    void EndDocument() override;
    void DrawingFailed() override;
    BYTE FontQuality() override { return DEFAULT_QUALITY; }

    /// A step of the document. If it fails the document is taken back and the user is told why; what follows
    /// up to the document's end goes nowhere.
    template <class Step>
    void Run(Step step);

    WinPrinters& printers_;
    machine::PrintFailureTeller teller_;
    std::optional<machine::PrinterEntry> entry_;
    std::optional<DriverSettings> settings_;
    std::string title_;
    GdiCanvas canvas_;

    DeviceContext device_; ///< made when first needed, with the settings of that moment
    bool changed_ = false; ///< since then the settings are others: the next page takes them
    bool begun_ = false;   ///< from the document's first output to its end, also if it goes nowhere
    std::unique_ptr<PrintDocument> document_; // behind device_, as it is taken back there
};

} // namespace desktop::windows
