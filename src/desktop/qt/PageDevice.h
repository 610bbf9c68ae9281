#pragma once

#include <span>

#include <QPointF>
#include <QRawFont>

class QPainter;

namespace desktop::qt {

/// What a QtCanvas draws on: a document for a printer, a PDF file, a picture on the screen. A failing call
/// raises RuntimeError.
class PageDevice {
  public:
    virtual ~PageDevice() = default;

    /// The painter of the present page, in units of 1/7200 inch from the top left of the printable area. The
    /// first call begins the document. Nothing if the document goes nowhere, as when the user has called it
    /// off.
    virtual QPainter* Painter() = 0;

    /// Begins the document as Painter() does. False if it goes nowhere.
    virtual bool Begin() { return Painter() != nullptr; }

    /// Draws glyphs of one face, each at its place in the units of the painter. Only behind Begin().
    virtual void DrawGlyphs(const QRawFont& face, std::span<const quint32> glyphs,
                            std::span<const QPointF> places);

    virtual void NewPage() = 0;
    virtual void EndDocument() = 0;

    /// Width of a line in units of 1/7200 inch; 0 is one dot of the device.
    virtual double LineWidth() = 0;
};

/// What DrawGlyphs does where a device has no better way.
void DrawGlyphRun(QPainter& painter, const QRawFont& face, std::span<const quint32> glyphs,
                  std::span<const QPointF> places);

} // namespace desktop::qt
