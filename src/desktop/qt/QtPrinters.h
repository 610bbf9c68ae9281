#pragma once

#include <memory>

#include "desktop/cups/PrintQueues.h"
#include "desktop/qt/PdfPrinter.h"

namespace desktop::qt {

/// The printers of this machine: the queues of its print server, then the PDF printer.
class QtPrinters : public cups::PrintQueues {
  public:
    explicit QtPrinters(std::unique_ptr<PdfPrinter> pdf = std::make_unique<PdfPrinter>());
    QtPrinters(std::unique_ptr<PdfPrinter> pdf, cups::QueueFinder find);
};

} // namespace desktop::qt
