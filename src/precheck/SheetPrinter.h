#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "machine/Printer.h"

namespace precheck {

/// A printer that holds one sheet and draws on a canvas of somebody else's, for a document that is composed
/// and never printed. It has the measures of a real one, from which a run works out the corner of the paper.
class SheetPrinter final : public machine::Printer {
  public:
    SheetPrinter(const machine::SheetArea& sheet, machine::Canvas& canvas) : sheet_(sheet), canvas_(canvas) {
        Drawing.Font = machine::PrintersOwnFont;
    }

    void Assign(int) override {}
    std::string DeviceName() override { return {}; }
    std::string Port() override { return {}; }
    std::int16_t Orientation() override { return machine::Portrait; }
    /// The sheet lies already as it is to lie.
    void SetOrientation(std::int16_t) override {}
    std::int16_t PaperSize() override { return 0; }
    void SetPaperSize(std::int16_t) override {}
    std::int16_t PaperBin() override { return 0; }
    void SetPaperBin(std::int16_t) override {}
    std::int16_t Copies() override { return 1; }
    double Width() override { return sheet_.Width; }
    double Height() override { return sheet_.Height; }
    double ScaleLeft() override { return 0; }
    double ScaleTop() override { return 0; }
    double ScaleWidth() override { return sheet_.Right - sheet_.Left; }
    double ScaleHeight() override { return sheet_.Bottom - sheet_.Top; }
    int GetDeviceCaps(int item) override;
    void SetDocumentTitle(const std::string&) override {}
    void Abandon() override {}
    machine::Canvas& Page() override { return canvas_; }

  private:
    machine::SheetArea sheet_;
    machine::Canvas& canvas_;
};

/// The collection that holds that printer alone.
class SheetPrinters final : public machine::Printers {
  public:
    int Count() override { return 1; }
    machine::PrinterEntry Item(int) override { return {}; }
    machine::PrinterCondition Condition(int) override { return {}; }
    std::optional<machine::SheetArea> SheetOf(int, std::int16_t, std::int16_t) override { return {}; }
};

} // namespace precheck
