#pragma once

#include "memory/MemoryCanvas.h"
#include "memory/MemoryPrinters.h"

namespace memory {

/// The current printer of the memory platform: the first that is installed, until another is assigned. Each
/// assignment and each property that is written is an event. Without a printer every member raises
/// ErrorPrinter.
class MemoryPrinter final : public machine::Printer {
  public:
    MemoryPrinter(Recorder& recorder, MemoryPrinters& printers, MemoryFonts& fonts)
        : recorder_(recorder), printers_(printers), page_(recorder, fonts, "printer") {}

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
    double ScaleLeft() override;
    double ScaleTop() override;
    double ScaleWidth() override;
    double ScaleHeight() override;
    int GetDeviceCaps(int item) override;

    void SetDocumentTitle(const std::string& title) override { documentTitle_ = title; }
    void Abandon() override { page_.Abandon(); }
    machine::Canvas& Page() override { return page_; }

    /// Makes the first installed printer the current one, if there is one: what a program finds at its start.
    /// No event.
    void TakeDefault();

    /// What the next document is called.
    const std::string& DocumentTitle() const { return documentTitle_; }

  private:
    PrintQueue& Current();
    void Take(int index);
    void RecordSet(const char* property, std::int16_t value);
    /// A measure in device dots, turned with the sheet.
    Dots Turned(Dots portrait);
    double Twips(int dots);

    Recorder& recorder_;
    MemoryPrinters& printers_;
    MemoryCanvas page_;
    int index_ = -1;
    QueueDefaults settings_;
    std::string documentTitle_;
};

} // namespace memory
