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
    switch (row.when) {
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
    const RowShift shift = row.shift == RowHasNone ? RowShift{} : values.shifts[row.shift];
    if (row.xCm) {
        surface.SetCurrentX(std::max(row.leastXTwips, *row.xCm * twipsPerCm + values.corner.x + shift.x));
    }
    if (row.yCm) {
        surface.SetCurrentY(*row.yCm * twipsPerCm + values.corner.y + shift.y);
    }
}

} // namespace

void ChangeFont(state::AppState& state, machine::Platform& platform, const FontChange& change,
                bool measureOnPrinter) {
    PrintSurface& surface = SurfaceOf(state);
    if (change.name) {
        surface.SetFont(*change.name);
    }
    if (change.points) {
        surface.SetFontSize(*change.points);
    }
    if (change.bold) {
        surface.SetFontBold(*change.bold);
    }
    if (change.newLineHeight) {
        state.LineHeight =
            measureOnPrinter ? PrinterLineHeight(platform) : base::ToInt32(surface.TextHeight("X"));
    }
}

void DrawRows(state::AppState& state, machine::Platform& platform, std::span<const FormRow> rows,
              const RowValues& values) {
    PrintSurface& surface = SurfaceOf(state);
    const double twipsPerCm = state.TwipsPerCm;
    for (const FormRow& row : rows) {
        std::string_view text = row.text == RowHasNone ? std::string_view() : values.texts[row.text];
        if (!IsDrawn(state, row, text)) {
            continue;
        }
        if (row.font != RowHasNone) {
            ChangeFont(state, platform, values.fonts[row.font], values.measureOnPrinter);
        }
        MoveTo(surface, row, twipsPerCm, values);
        if (row.clip) {
            text = KortTekst(surface, text, base::ToInt32(surface.CurrentX()),
                             base::ToInt32(StubRightEdgeCm * twipsPerCm + values.corner.x));
        }
        switch (row.way) {
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
            RegelVerder(state, row.lines);
            break;
        }
    }
}

} // namespace composition
