#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <string_view>

#include "composition/FormField.h"
#include "composition/FormPlace.h"

namespace machine {
struct Platform;
}

/// A form's layout is a table: one row for each text on the stationery, in the order of drawing. A row names
/// its text, font and shift by their number among the values that one form brings along.
namespace composition {

enum class RowWay {
    Print,     ///< the cursor stays on the line
    PrintLine, ///< the cursor moves below the text
    RightEdge, ///< printed so that it ends at x
    LineFeed,  ///< no text: moves down by `lines`
};

enum class RowWhen {
    Always,
    Filled,           ///< only if the row's text is not empty
    NoPaymentTraffic, ///< only on forms without a payment reference, in whose place the text stands
};

inline constexpr std::size_t RowHasNone = static_cast<std::size_t>(-1);

struct FormRow {
    /// What the text is; nothing for a row without one.
    FormField Field = {};
    std::size_t Text = RowHasNone;
    RowWhen When = RowWhen::Always;
    /// What changes in the font before the row.
    std::size_t Font = RowHasNone;
    /// From the form's calibrated corner; without one the cursor stays where it is.
    std::optional<double> XCm = std::nullopt;
    std::optional<double> YCm = std::nullopt;
    std::size_t Shift = RowHasNone;
    RowWay Way = RowWay::Print;
    /// Cut off at the right edge of the stub.
    bool Clip = false;
    double LeastXTwips = -std::numeric_limits<double>::infinity();
    double Lines = 0;
};

/// A change of the font. What is left out stays as it is.
struct FontChange {
    std::optional<std::string_view> Name = std::nullopt;
    std::optional<double> Points = std::nullopt;
    std::optional<bool> Bold = std::nullopt;
    bool NewLineHeight = false;
};

/// What one form brings along.
struct RowValues {
    std::span<const std::string_view> Texts;
    std::span<const FontChange> Fonts;
    std::span<const RowShift> Shifts;
    Twips Corner;
    /// Line heights come from the printer also during a preview, in the font that the printer then has; else
    /// from the surface.
    bool MeasureOnPrinter = false;
};

/// Draws the rows. A failing row ends the drawing; the caller's run goes on behind it.
void DrawRows(state::AppState& state, machine::Platform& platform, std::span<const FormRow> rows,
              const RowValues& values);

void ChangeFont(state::AppState& state, machine::Platform& platform, const FontChange& change,
                bool measureOnPrinter);

} // namespace composition
