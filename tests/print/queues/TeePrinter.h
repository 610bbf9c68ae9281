#pragma once

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "desktop/qt/QtPrinter.h"
#include "machine/Printer.h"

/// The program's printer, with a record of what is drawn on it.
class TeePrinter final : public machine::Printer, private machine::Canvas {
  public:
    TeePrinter(desktop::qt::QtPrinters& printers, machine::PrintFailureTeller teller)
        : printer_(printers, std::move(teller)) {
        Drawing = printer_.Drawing;
    }

    using Call = std::function<void(machine::Canvas&)>;
    /// The calls of the last document, its end included.
    const std::vector<Call>& LastDocument() const { return last_; }
    /// Runs before a document's first output.
    std::function<void()> OnFirstText;

    void Assign(int index) override {
        printer_.Assign(index);
        Drawing = printer_.Drawing;
    }
    std::string DeviceName() override { return printer_.DeviceName(); }
    std::string Port() override { return printer_.Port(); }
    std::int16_t Orientation() override { return printer_.Orientation(); }
    void SetOrientation(std::int16_t orientation) override { printer_.SetOrientation(orientation); }
    std::int16_t PaperSize() override { return printer_.PaperSize(); }
    void SetPaperSize(std::int16_t paper) override { printer_.SetPaperSize(paper); }
    std::int16_t PaperBin() override { return printer_.PaperBin(); }
    void SetPaperBin(std::int16_t bin) override { printer_.SetPaperBin(bin); }
    std::int16_t Copies() override { return printer_.Copies(); }
    double Width() override { return printer_.Width(); }
    double Height() override { return printer_.Height(); }
    double ScaleLeft() override { return printer_.ScaleLeft(); }
    double ScaleTop() override { return printer_.ScaleTop(); }
    double ScaleWidth() override { return printer_.ScaleWidth(); }
    double ScaleHeight() override { return printer_.ScaleHeight(); }
    int GetDeviceCaps(int item) override { return printer_.GetDeviceCaps(item); }
    void SetDocumentTitle(const std::string& title) override { printer_.SetDocumentTitle(title); }
    void Abandon() override {
        current_.clear();
        printer_.Abandon();
    }
    machine::Canvas& Page() override { return *this; }

  private:
    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
        return printer_.Page().MeasureText(text, font);
    }
    void DrawText(double x, double y, std::string_view text, const machine::FontSpec& font) override {
        Do([x, y, text = std::string(text), font](Canvas& page) { page.DrawText(x, y, text, font); });
    }
    void DrawLine(double x1, double y1, double x2, double y2, std::int32_t colour) override {
        Do([=](Canvas& page) { page.DrawLine(x1, y1, x2, y2, colour); });
    }
    void NewPage() override {
        Do([](Canvas& page) { page.NewPage(); });
    }
    void EndDocument() override {
        current_.push_back([](Canvas& page) { page.EndDocument(); });
        last_ = std::move(current_);
        current_.clear();
        printer_.Page().EndDocument();
    }

    void Do(const Call& call) {
        if (current_.empty() && OnFirstText) {
            OnFirstText();
        }
        current_.push_back(call);
        call(printer_.Page());
    }

    desktop::qt::QtPrinter printer_;
    std::vector<Call> current_;
    std::vector<Call> last_;
};
