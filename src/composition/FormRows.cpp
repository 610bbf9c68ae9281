#include "composition/FormRows.h"

#include <algorithm>

#include "base/Numbers.h"
#include "composition/KortTekst.h"
#include "composition/PrintSurface.h"
#include "composition/PrinterMeasures.h"
#include "composition/SurfaceRules.h"
#include "state/AppState.h"

namespace composition {

namespace {

constexpr double StubRightEdgeCm = 3.7;

bool IsDrawn(const state::AppState& state, const FormRow& row, std::string_view text) {
    switch (row.When) {
    case RowWhen::Filled:
        return !text.empty();
    case RowWhen::NoPaymentTraffic:
        return !state.GMUVerkeer;
    case RowWhen::Always:
        break;
    }
    return true;
}

void MoveTo(PrintSurface& surface, const FormRow& row, double twipsPerCm, const RowValues& values) {
    const RowShift shift = row.Shift == RowHasNone ? RowShift{} : values.Shifts[row.Shift];
    if (row.XCm) {
        surface.SetCurrentX(std::max(row.LeastXTwips, *row.XCm * twipsPerCm + values.Corner.x + shift.x));
    }
    if (row.YCm) {
        surface.SetCurrentY(*row.YCm * twipsPerCm + values.Corner.y + shift.y);
    }
}

} // namespace

void ChangeFont(state::AppState& state, machine::Platform& platform, const FontChange& change,
                bool measureOnPrinter) {
    PrintSurface& surface = SurfaceOf(state);
    if (change.Name) {
        surface.SetFont(*change.Name);
    }
    if (change.Points) {
        surface.SetFontSize(*change.Points);
    }
    if (change.Bold) {
        surface.SetFontBold(*change.Bold);
    }
    if (change.NewLineHeight) {
        state.LineHeight =
            measureOnPrinter ? PrinterLineHeight(platform) : base::ToInt32(surface.TextHeight("X"));
    }
}

void DrawRows(state::AppState& state, machine::Platform& platform, std::span<const FormRow> rows,
              const RowValues& values) {
    PrintSurface& surface = SurfaceOf(state);
    const double twipsPerCm = state.TwipsPerCm;
    for (const FormRow& row : rows) {
        std::string_view text = row.Text == RowHasNone ? std::string_view() : values.Texts[row.Text];
        if (!IsDrawn(state, row, text)) {
            continue;
        }
        if (row.Font != RowHasNone) {
            ChangeFont(state, platform, values.Fonts[row.Font], values.MeasureOnPrinter);
        }
        MoveTo(surface, row, twipsPerCm, values);
        surface.BeginField(row.Field, text);
        if (row.Clip) {
            text = KortTekst(surface, text, base::ToInt32(surface.CurrentX()),
                             base::ToInt32(StubRightEdgeCm * twipsPerCm + values.Corner.x));
        }
        switch (row.Way) {
        case RowWay::RightEdge:
            surface.SetCurrentX(surface.CurrentX() - surface.TextWidth(text));
            surface.Print(text);
            break;
        case RowWay::Print:
            surface.Print(text);
            break;
        case RowWay::PrintLine:
            surface.PrintLine(text);
            break;
        case RowWay::LineFeed:
            RegelVerder(state, row.Lines);
            break;
        }
    }
}

} // namespace composition
