#include "desktop/qt/QtPrinters.h"

#include <utility>

#include "desktop/cups/CupsQueue.h"
#include "desktop/qt/PageUnits.h"
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

std::optional<machine::SheetArea> QtPrinters::SheetOf(int index, std::int16_t paper,
                                                      std::int16_t orientation) {
    std::optional<machine::SheetArea> sheet = PrintQueues::SheetOf(index, paper, orientation);
    if (sheet) {
        // The width and the height stay those that the printer tells.
        const double right = Dots(sheet->Left) * TwipsPerDot - sheet->Left;
        const double down = Dots(sheet->Top) * TwipsPerDot - sheet->Top;
        sheet->Left += right;
        sheet->Right += right;
        sheet->Top += down;
        sheet->Bottom += down;
    }
    return sheet;
}

} // namespace desktop::qt
