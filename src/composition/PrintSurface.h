#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "machine/Canvas.h"
#include "machine/Printer.h"

namespace state {
struct AppState;
}

namespace composition {

struct FormField;

/// What every document is drawn on: the paper of the printer or the page of the preview. It holds the rules
/// of cursor and font; a machine::Canvas below it measures and draws. All lengths are twips from the top
/// left of the printable area, y downward. A failing call raises base::RuntimeError and leaves the cursor
/// where it was.
class PrintSurface {
  public:
    virtual ~PrintSurface() = default;
    PrintSurface(const PrintSurface&) = delete;
    PrintSurface& operator=(const PrintSurface&) = delete;

    double CurrentX() const { return state_.CurrentX; }
    void SetCurrentX(double x) { state_.CurrentX = x; }
    double CurrentY() const { return state_.CurrentY; }
    void SetCurrentY(double y) { state_.CurrentY = y; }

    const std::string& Font() const { return state_.Font.Name; }
    void SetFont(std::string_view name) { state_.Font.Name = name; }
    /// Points.
    double FontSize() const { return state_.Font.Size; }
    /// A size that no font can have (0, a negative one, more than 32767) is refused and the old one stays: a
    /// slip in a setting must not cost the text.
    void SetFontSize(double points);
    void SetFontBold(bool bold) { state_.Font.Bold = bold; }

    double TextWidth(std::string_view text) { return Page().MeasureText(text, state_.Font).Width; }
    double TextHeight(std::string_view text) { return Page().MeasureText(text, state_.Font).Height; }

    /// Draws with the text's top left at the cursor, which moves behind the text and stays on the line.
    void Print(std::string_view text);
    /// Draws, and moves to x 0 below the text. The empty text moves down as well.
    void PrintLine(std::string_view text);
    /// The cursor does not move. `colour` holds red in its lowest byte, then green, then blue.
    void Line(double x1, double y1, double x2, double y2, std::int32_t colour);

    /// Told by the documents what is drawn from here on: the form on a place (1 to 3 on a sheet, or
    /// PlaceUnderLetter), and a field with its whole text, of which less is drawn where it is cut; the lists
    /// cut nothing and leave the text out. Paper and preview have no use for it.
    virtual void BeginForm(std::int16_t /*positie*/) {}
    virtual void BeginField(const FormField& /*field*/, std::string_view /*tekst*/) {}

    /// Ends the page and begins the next one, with the cursor at the top left.
    virtual void Newpage();
    /// Ends the document. The next one begins at the top left.
    virtual void EndDoc();
    /// The platform's paper code. Paper belongs to a printer; any other surface refuses.
    virtual void SetPaperSize(std::int16_t paper);

  protected:
    explicit PrintSurface(machine::DrawingState& state) : state_(state) {}

    /// What is drawn on, asked anew for each call: a printer may have changed it meanwhile.
    virtual machine::Canvas& Page() = 0;
    void MoveToTopLeft();

  private:
    machine::DrawingState& state_;
};

/// The current printer as a surface. One object serves all jobs and lives as long as the printer does.
class PrinterSurface final : public PrintSurface {
  public:
    explicit PrinterSurface(machine::Printer& printer) : PrintSurface(printer.Drawing), printer_(printer) {}

    void SetPaperSize(std::int16_t paper) override { printer_.SetPaperSize(paper); }

  protected:
    machine::Canvas& Page() override { return printer_.Page(); }

  private:
    machine::Printer& printer_;
};

/// The surface that the run draws on; RuntimeError with ErrorNoObject if there is none, as on
/// a machine without a printer.
PrintSurface& SurfaceOf(const state::AppState& state);

} // namespace composition
