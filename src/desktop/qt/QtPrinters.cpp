#include "desktop/qt/QtPrinters.h"

#include <utility>

#include "desktop/cups/CupsQueue.h"
#include "desktop/qt/QtText.h"

namespace desktop::qt {

namespace {

/// Dutch as far as the toolkit's texts are, whatever language the system speaks.
std::string SystemReason(int error) {
    return FromQString(qt_error_string(error));
}

} // namespace

QtPrinters::QtPrinters(std::unique_ptr<PdfPrinter> pdf)
    : QtPrinters(std::move(pdf), [server = std::make_shared<cups::CupsServer>(SystemReason)] {
          return cups::FindCupsQueues(server);
      }) {}

QtPrinters::QtPrinters(std::unique_ptr<PdfPrinter> pdf, cups::QueueFinder find)
    : PrintQueues(std::move(find), std::move(pdf)) {}

} // namespace desktop::qt
