#pragma once

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// Dots to the inch, across and down: a matrix printer has different ones.
struct Resolution {
    int X = 0;
    int Y = 0;
};

/// What a GdiCanvas draws on: a document for a printer, a picture on the screen. A failing call raises
/// RuntimeError.
class PageDevice {
  public:
    virtual ~PageDevice() = default;

    /// The device context of the present page, in dots from the top left of the printable area. The first
    /// call begins the document. Nothing if the document goes nowhere, as when the user has called it off.
    virtual HDC PageContext() = 0;
    virtual Resolution DotsPerInch() = 0;
    virtual void NewPage() = 0;
    virtual void EndDocument() = 0;

    /// Told when a drawing call has failed.
    virtual void DrawingFailed() = 0;

    /// How letters are drawn, as lfQuality of a LOGFONT.
    virtual BYTE FontQuality() = 0;
};

} // namespace desktop::windows
