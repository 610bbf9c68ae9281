#include "precheck/Template.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/Resume.h"
#include "base/Units.h"
#include "composition/DocumentRun.h"
#include "composition/PrintSurface.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "precheck/ComposedDocument.h"
#include "precheck/DrawnDocument.h"
#include "precheck/Lengths.h"
#include "precheck/LetterMeasures.h"
#include "precheck/Precheck.h"
#include "precheck/Stationery.h"
#include "state/AppState.h"
#include "state/CalibrationBlocks.h"
#include "state/ContractTexts.h"

namespace precheck {

using base::Resume;

namespace {

// Red in the lowest byte, then green, then blue.
constexpr std::int32_t Black = 0x000000;
constexpr std::int32_t Grey = 0x909090;
constexpr std::int32_t Blue = 0xC06020;
constexpr std::int32_t Red = 0x3030C0;

constexpr double TitlePoints = 9;
constexpr double NotePoints = 6;
constexpr double NumberPoints = 5;

// Everything below in millimetres from the corner of the paper.

/// On either side of the OCR line's letters: what the readers want to find white, a quarter of an inch.
constexpr double WhiteBand = 6.35;

constexpr double RulerTop = 5;
constexpr double RulerRight = 205;
constexpr double FirstNumber = 10;
constexpr double NumberGap = 0.3;

/// Between a box and the name to its right.
constexpr double NameGap = 0.8;

/// Of a ruler's mark: every fifth and every tenth is longer.
constexpr double MarkLength(int millimetre) {
    return millimetre % 10 == 0 ? 2.2 : millimetre % 5 == 0 ? 1.6 : 1.0;
}

constexpr double TestLineLength = 150;
constexpr double TestLineEnd = 1.5; ///< half of the strokes at its ends

/// Where the notes and the test line find room that no field takes.
struct NotesPlace {
    double Left, Top;
    double LineLeft, LineTop;
};
constexpr NotesPlace NotesOnFirstForm = {146, 19, 42, 80.5}; ///< right of the payer; above the OCR line
constexpr NotesPlace NotesOnLetter = {42, 40, 42, 70};
constexpr double TitleHeight = 4.6;
constexpr double NoteHeight = 3.2;

constexpr std::array<std::string_view, 6> Notes = {
    "Niet het testsjabloon van het testinstituut.", "Leg het proefvel erop, tegen het licht. De",
    "blauwe vakken tonen waar de velden zonder",    "calibratie staan. Tussen twee rode lijnen",
    "blijft het papier wit, op de OCR-regel na.",   "De linialen tellen vanaf de hoek van het vel.",
};
constexpr std::string_view TestLineNote =
    "Deze lijn is 150 mm lang. Is zij dat op papier niet, dan verkleint of vergroot de printer.";

/// Draws in millimetres from the corner of the paper on a surface that begins at the printable area.
class TemplatePage {
  public:
    TemplatePage(composition::PrintSurface& surface, machine::Printer& printer) : surface_(surface) {
        Resume([&] {
            left_ = Offset(printer, machine::CapsPhysicalOffsetX, machine::CapsLogPixelsX);
            top_ = Offset(printer, machine::CapsPhysicalOffsetY, machine::CapsLogPixelsY);
        });
    }

    void Line(double x1, double y1, double x2, double y2, std::int32_t colour) {
        Resume([&] { surface_.Line(X(x1), Y(y1), X(x2), Y(y2), colour); });
    }
    void Box(const SheetPlace& place, std::int32_t colour) {
        Line(place.Left, place.Top, place.Right, place.Top, colour);
        Line(place.Right, place.Top, place.Right, place.Bottom, colour);
        Line(place.Right, place.Bottom, place.Left, place.Bottom, colour);
        Line(place.Left, place.Bottom, place.Left, place.Top, colour);
    }
    void SetFont(std::string_view name, double points) {
        Resume([&] {
            surface_.SetFont(name);
            surface_.SetFontSize(points);
            surface_.SetFontBold(false);
        });
    }
    void Text(double x, double y, std::string_view text) {
        Resume([&] {
            surface_.SetCurrentX(X(x));
            surface_.SetCurrentY(Y(y));
            surface_.Print(text);
        });
    }
    double Width(std::string_view text) {
        double width = 0;
        Resume([&] { width = ToMillimetres(surface_.TextWidth(text)); });
        return width;
    }
    double LineHeight() {
        double height = 0;
        Resume([&] { height = ToMillimetres(surface_.TextHeight("X")); });
        return height;
    }

  private:
    static double Offset(machine::Printer& printer, int offsetItem, int dotsPerInchItem) {
        const double dotsPerInch = printer.GetDeviceCaps(dotsPerInchItem);
        return dotsPerInch > 0 ? printer.GetDeviceCaps(offsetItem) * base::TwipsPerInch / dotsPerInch : 0;
    }
    double X(double millimetres) const { return ToTwips(millimetres) - left_; }
    double Y(double millimetres) const { return ToTwips(millimetres) - top_; }

    composition::PrintSurface& surface_;
    double left_ = 0;
    double top_ = 0;
};

SheetPlace InMillimetres(const SheetPlace& place) {
    return {ToMillimetres(place.Left), ToMillimetres(place.Top), ToMillimetres(place.Right),
            ToMillimetres(place.Bottom)};
}

void Enclose(SheetPlace& place, const SheetPlace& more) {
    place = {std::min(place.Left, more.Left), std::min(place.Top, more.Top),
             std::max(place.Right, more.Right), std::max(place.Bottom, more.Bottom)};
}

/// What a field covers on one of the places, over all forms of a batch.
struct FieldPlace {
    std::string_view Name;
    bool IsOcr = false;
    SheetPlace Ink;
};
using FieldPlaces = std::map<std::pair<std::int16_t, std::size_t>, FieldPlace>;

FieldPlaces PlacesOf(const DrawnDocument& document) {
    FieldPlaces places;
    for (const InkedText& text : document.Texts) {
        const composition::FormField& field = document.Fields[text.Field];
        const FieldPlace fresh = {
            .Name = field.Name, .IsOcr = field.Block == state::CalibratedBlock::OcrLine, .Ink = text.Ink};
        Enclose(places.try_emplace({text.Place, text.Field}, fresh).first->second.Ink, text.Ink);
    }
    return places;
}

void WithoutCalibration(state::AppState& state) {
    for (const auto& block : state::CalibrationBlocks(state)) {
        std::fill(block.X.begin(), block.X.end(), std::string());
        std::fill(block.Y.begin(), block.Y.end(), std::string());
    }
}

bool Overlap(const SheetPlace& a, const SheetPlace& b) {
    return a.Left < b.Right && b.Left < a.Right && a.Top < b.Bottom && b.Top < a.Bottom;
}

/// Writes the name of each field beside its box, where it covers no other box and no other name; one that
/// finds no such place is left out, for the boxes are what counts.
class FieldNames {
  public:
    FieldNames(TemplatePage& page, const FieldPlaces& places) : page_(page), height_(page.LineHeight()) {
        for (const auto& [key, field] : places) {
            taken_.push_back(InMillimetres(field.Ink));
        }
    }

    void Write(const FieldPlace& field) {
        const SheetPlace box = InMillimetres(field.Ink);
        const double width = page_.Width(field.Name);
        const std::array<std::pair<double, double>, 3> corners = {{
            {box.Left, box.Top - height_},
            {box.Right + NameGap, (box.Top + box.Bottom - height_) / 2},
            {box.Left, box.Bottom},
        }};
        for (const auto& [left, top] : corners) {
            const SheetPlace name = {left, top, left + width, top + height_};
            if (std::none_of(taken_.begin(), taken_.end(),
                             [&](const SheetPlace& other) { return Overlap(name, other); })) {
                page_.Text(left, top, field.Name);
                taken_.push_back(name);
                return;
            }
        }
    }

  private:
    TemplatePage& page_;
    double height_;
    std::vector<SheetPlace> taken_;
};

void DrawFields(TemplatePage& page, const FieldPlaces& places) {
    FieldNames names(page, places);
    for (const auto& [key, field] : places) {
        page.Box(InMillimetres(field.Ink), Blue);
        if (!field.IsOcr) {
            names.Write(field);
        }
    }
}

/// From edge to edge of the form, around all fields of the OCR line on a place.
void DrawWhiteBands(TemplatePage& page, const FieldPlaces& places, double sheetWidth) {
    std::map<std::int16_t, SheetPlace> lines;
    for (const auto& [key, field] : places) {
        if (field.IsOcr) {
            Enclose(lines.try_emplace(key.first, field.Ink).first->second, field.Ink);
        }
    }
    for (const auto& [place, line] : lines) {
        const SheetPlace ink = InMillimetres(line);
        page.Line(0, ink.Top - WhiteBand, sheetWidth, ink.Top - WhiteBand, Red);
        page.Line(0, ink.Bottom + WhiteBand, sheetWidth, ink.Bottom + WhiteBand, Red);
    }
}

void DrawRulers(TemplatePage& page, double width, double height) {
    for (int x = 0; x <= static_cast<int>(width); ++x) {
        page.Line(x, RulerTop, x, RulerTop + MarkLength(x), Black);
        if (x % 10 == 0 && x >= FirstNumber && x < RulerRight) {
            const std::string number = std::to_string(x);
            page.Text(x - page.Width(number) / 2, RulerTop + MarkLength(0), number);
        }
    }
    for (int y = 0; y <= static_cast<int>(height); ++y) {
        page.Line(RulerRight, y, RulerRight - MarkLength(y), y, Black);
        if (y % 10 == 0 && y >= FirstNumber) {
            const std::string number = std::to_string(y);
            page.Text(RulerRight - MarkLength(0) - NumberGap - page.Width(number), y - page.LineHeight() / 2,
                      number);
        }
    }
}

void DrawNotes(TemplatePage& page, const std::string& font, const NotesPlace& place) {
    double y = place.Top;
    page.SetFont(font, TitlePoints);
    page.Text(place.Left, y, TemplateTitle);
    y += TitleHeight;
    page.SetFont(font, NotePoints);
    for (const std::string_view note : Notes) {
        page.Text(place.Left, y, note);
        y += NoteHeight;
    }
    const double right = place.LineLeft + TestLineLength;
    page.Line(place.LineLeft, place.LineTop, right, place.LineTop, Black);
    for (const double end : {place.LineLeft, right}) {
        page.Line(end, place.LineTop - TestLineEnd, end, place.LineTop + TestLineEnd, Black);
    }
    page.Text(place.LineLeft + TestLineEnd, place.LineTop, TestLineNote);
}

} // namespace

void DrawTemplate(const state::AppState& state, machine::Platform& platform) {
    state::AppState bare = state;
    WithoutCalibration(bare);
    const machine::SheetArea sheet = StationeryOf(bare);
    LetterMeasures measures(platform.Fonts);
    DrawnDocument document(measures, sheet);
    constexpr std::int32_t wholeBatch = 250;
    ComposeOn(document, bare, platform, {.Document = composition::DocumentTestForms, .Forms = wholeBatch},
              sheet);

    Resume([&] {
        TemplatePage page(composition::SurfaceOf(state), platform.Printer);
        const double width = ToMillimetres(sheet.Width);
        const double height = ToMillimetres(sheet.Height);
        const auto forms = FormsOf(bare);
        for (const SheetPlace& form : forms) {
            page.Box(InMillimetres(form), Grey);
        }
        const FieldPlaces places = PlacesOf(document);
        page.SetFont(state.ListFontName, NumberPoints);
        DrawFields(page, places);
        DrawWhiteBands(page, places, width);
        DrawRulers(page, width, height);
        DrawNotes(page, state.ListFontName,
                  state.AcceptgiroType == state::TypeUnderLetter ? NotesOnLetter : NotesOnFirstForm);
    });
}

} // namespace precheck
