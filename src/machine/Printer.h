#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "machine/Canvas.h"
#include "machine/PrinterCondition.h"

namespace machine {

/// What drawing on a surface has set so far: cursor in twips and font. A printer and a preview page each keep
/// one; PrintSurface holds the rules by which it changes.
struct DrawingState {
    double CurrentX = 0;
    double CurrentY = 0;
    FontSpec Font;
};

/// What a printer has of its own until a font is set. The lists take their line height from it before they
/// choose a size: at 8 points, the size that they choose, the report of the calibration fits on a sheet of
/// A4.
inline const FontSpec PrintersOwnFont = {"Tahoma", 8, false};

/// Tells the user that a document has not come on paper, as the program's own run goes on past any failure.
using PrintFailureTeller = std::function<void(const std::string& text)>;

/// An installed printer.
struct PrinterEntry {
    std::string DeviceName;
    std::string Port;
};

/// The installed printers, counted from 0.
class Printers {
  public:
    virtual ~Printers() = default;

    virtual int Count() = 0;
    /// ErrorSubscriptOutOfRange outside 0 to Count() - 1.
    virtual PrinterEntry Item(int index) = 0;

    /// Takes notice of printers that have come or gone. Between two such calls the collection stays as it is.
    virtual void Refresh() {}

    /// How a printer stands. It changes nothing and opens no printer; what is not known at once is left out,
    /// for nobody is to wait for the answer. ErrorSubscriptOutOfRange as Item.
    virtual PrinterCondition Condition(int index) = 0;

    /// The sheet of a paper (DMPAPER_...), Portrait or Landscape, on a printer; nothing if the machine does
    /// not know it at once, or the printer has no such paper. ErrorSubscriptOutOfRange as Item.
    virtual std::optional<SheetArea> SheetOf(int index, std::int16_t paper, std::int16_t orientation) = 0;
};

// How a document lies on its sheet: values of dmOrientation.
inline constexpr std::int16_t Portrait = 1;
inline constexpr std::int16_t Landscape = 2;

/// Code of the paper that a run may force.
inline constexpr std::int16_t PaperLegal = 5;

/// Items of GetDeviceCaps, by their Windows numbers.
inline constexpr int CapsLogPixelsX = 88;
inline constexpr int CapsLogPixelsY = 90;
inline constexpr int CapsPhysicalOffsetX = 112;
inline constexpr int CapsPhysicalOffsetY = 113;

/// The current printer. Assigning it anew takes the printer's stored defaults (orientation, paper, bin,
/// copies) and its own font afresh; writing a property changes this object alone, never the stored defaults.
/// Every member may raise RuntimeError (ErrorInvalidPropertyValue, ErrorPrinter or the machine's own).
class Printer {
  public:
    virtual ~Printer() = default;

    /// Makes entry `index` of the collection the current printer, also if it is that already.
    virtual void Assign(int index) = 0;

    virtual std::string DeviceName() = 0;
    virtual std::string Port() = 0;

    /// Portrait or Landscape.
    virtual std::int16_t Orientation() = 0;
    virtual void SetOrientation(std::int16_t orientation) = 0;
    /// The platform's paper code (DMPAPER_...; 9 is A4).
    virtual std::int16_t PaperSize() = 0;
    virtual void SetPaperSize(std::int16_t paper) = 0;
    /// The platform's bin code (DMBIN_...).
    virtual std::int16_t PaperBin() = 0;
    virtual void SetPaperBin(std::int16_t bin) = 0;
    virtual std::int16_t Copies() = 0;

    /// The sheet and, within it, the printable area; twips.
    virtual double Width() = 0;
    virtual double Height() = 0;
    virtual double ScaleLeft() = 0;
    virtual double ScaleTop() = 0;
    virtual double ScaleWidth() = 0;
    virtual double ScaleHeight() = 0;

    /// A measure of the device, in its own dots: CapsLogPixelsX and so on.
    virtual int GetDeviceCaps(int item) = 0;

    /// Names the next document for the queue, or as the file's name that is proposed to the user.
    virtual void SetDocumentTitle(const std::string& title) = 0;
    /// Gives up a document that was begun and not ended, as by a run that broke off: without a trace, and
    /// without a word. Nothing happens if there is none.
    virtual void Abandon() = 0;

    /// The paper. The document starts with the first output and ends with EndDocument.
    virtual Canvas& Page() = 0;

    /// Cursor and font of this printer; the printer's own font until a caller sets another.
    DrawingState Drawing;
};

} // namespace machine
