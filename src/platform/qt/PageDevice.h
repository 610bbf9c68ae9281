#pragma once

class QPainter;

namespace platform::qt {

/// What a QtCanvas draws on: a document for a printer, a PDF file, a picture on the screen. A failing call
/// raises RuntimeError.
class PageDevice {
  public:
    virtual ~PageDevice() = default;

    /// The painter of the present page, in units of 1/7200 inch from the top left of the printable area. The
    /// first call begins the document. Nothing if the document goes nowhere, as when the user has called it
    /// off.
    virtual QPainter* Painter() = 0;
    virtual void NewPage() = 0;
    virtual void EndDocument() = 0;

    /// Width of a line in units of 1/7200 inch; 0 is one dot of the device.
    virtual double LineWidth() = 0;
};

} // namespace platform::qt
