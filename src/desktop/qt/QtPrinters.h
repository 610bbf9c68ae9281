#pragma once

#include <cstdint>
#include <memory>
#include <optional>

#include "desktop/cups/PrintQueues.h"
#include "desktop/qt/PdfPrinter.h"

namespace desktop::qt {

/// The printers of this machine: the queues of its print server, then the PDF printer.
class QtPrinters : public cups::PrintQueues {
  public:
    explicit QtPrinters(std::unique_ptr<PdfPrinter> pdf = std::make_unique<PdfPrinter>());
    QtPrinters(std::unique_ptr<PdfPrinter> pdf, cups::QueueFinder find);

    /// Printable from the whole dot on at which QtPrinter begins to draw.
    std::optional<machine::SheetArea> SheetOf(int index, std::int16_t paper,
                                              std::int16_t orientation) override;
};

} // namespace desktop::qt
