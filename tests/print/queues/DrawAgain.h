#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "desktop/qt/PdfPrinter.h"
#include "desktop/qt/QtPrinters.h"
#include "print/queues/TeePrinter.h"

/// Draws a recorded document once more, as a PDF file of the program's own printer.
inline void DrawAgain(const std::vector<TeePrinter::Call>& calls, std::int16_t paper, const QString& file) {
    desktop::qt::QtPrinters printers(std::make_unique<desktop::qt::PdfPrinter>(
                                         [&file](const QString&) { return file; }, file + ".settings"),
                                     [] { return desktop::cups::FoundQueues{}; });
    desktop::qt::QtPrinter printer(printers, [](const std::string&) {});
    printer.SetPaperSize(paper);
    for (const TeePrinter::Call& call : calls) {
        call(printer.Page());
    }
}
