#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "machine/Printer.h"

namespace support {

/// Counts what is drawn on it and keeps nothing, so a document of any length takes no memory. Every font has
/// the same measures: a byte is 10 twips wide for each point of size, a line 24 twips high.
class CountingCanvas final : public machine::Canvas {
  public:
    std::int64_t Texts = 0;
    std::int64_t Forms = 0; ///< by the mark that stands once in the OCR line of each
    std::int64_t Bytes = 0; ///< of all texts
    std::int64_t Pages = 1;
    std::int64_t Documents = 0; ///< ended

    machine::TextSize MeasureText(std::string_view text, const machine::FontSpec& font) override {
        return {static_cast<double>(text.size()) * 10 * font.Size, 24 * font.Size};
    }
    void DrawText(double, double, std::string_view text, const machine::FontSpec&) override {
        ++Texts;
        Forms += text == "X" ? 1 : 0;
        Bytes += static_cast<std::int64_t>(text.size());
    }
    void DrawLine(double, double, double, double, std::int32_t) override {}
    void NewPage() override { ++Pages; }
    void EndDocument() override { ++Documents; }
};

/// A printer of A4 sheets without margins, one of a list of printers, that prints on a CountingCanvas.
class CountingPrinter final : public machine::Printer {
  public:
    explicit CountingPrinter(machine::Printers& printers) : printers_(printers) {}

    CountingCanvas Canvas;
    int Assignments = 0;

    void Assign(int index) override {
        index_ = index;
        ++Assignments;
    }
    std::string DeviceName() override { return printers_.Item(index_).DeviceName; }
    std::string Port() override { return printers_.Item(index_).Port; }
    std::int16_t Orientation() override { return 1; }
    void SetOrientation(std::int16_t) override {}
    std::int16_t PaperSize() override { return 9; }
    void SetPaperSize(std::int16_t) override {}
    std::int16_t PaperBin() override { return 15; }
    void SetPaperBin(std::int16_t) override {}
    std::int16_t Copies() override { return 1; }
    double Width() override { return 11906; }
    double Height() override { return 16838; }
    double ScaleLeft() override { return 0; }
    double ScaleTop() override { return 0; }
    double ScaleWidth() override { return 11906; }
    double ScaleHeight() override { return 16838; }
    int GetDeviceCaps(int item) override { return item == machine::CapsLogPixelsX ? 600 : 0; }
    void SetDocumentTitle(const std::string&) override {}
    void Abandon() override {}
    machine::Canvas& Page() override { return Canvas; }

  private:
    machine::Printers& printers_;
    int index_ = 0;
};

} // namespace support
