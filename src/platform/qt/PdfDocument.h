#pragma once

#include <QPainter>
#include <QPdfWriter>
#include <QString>

#include "platform/qt/PdfOutput.h"

class QIODevice;

namespace platform::qt {

/// A sheet as it is drawn on, turned already; twips.
struct Sheet {
    double Width = 0;
    double Height = 0;
    double OriginX = 0; ///< where the printable area begins
    double OriginY = 0;
};

/// A PDF that is written as it is drawn, page by page, so a long document takes no more memory than a short
/// one.
class PdfDocument {
  public:
    PdfDocument(QIODevice& output, const std::string& title, const Sheet& sheet);

    /// Draws in units of 1/7200 inch from the top left of the printable area.
    QPainter& Painter() { return painter_; }
    void NewPage(const Sheet& sheet);
    /// Writes what is left. Whether the device has taken all is for the device to tell.
    void End();

  private:
    void Place(const Sheet& sheet);

    PdfOutput output_;
    QPdfWriter writer_;
    QPainter painter_;
};

} // namespace platform::qt
