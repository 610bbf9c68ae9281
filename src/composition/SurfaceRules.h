#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace machine {
class Locale;
}
namespace state {
struct AppState;
}

/// The rules of layout that all documents share. Lengths are twips.
namespace composition {

/// True if `regels` lines and two more do not fit on the page below the cursor.
bool PaginaVol(const state::AppState& state, std::int16_t regels);

/// Moves down by a number of lines at the line spacing of 1.1, and to x 0. Draws nothing; it closes a line
/// that Print has left open.
void RegelVerder(const state::AppState& state, double aantal);
/// The number as text in the user's locale; empty for 1. RuntimeError with ErrorTypeMismatch for what is no
/// number. No document of the program needs it so far (docs/deliberate.md).
void RegelVerder(const state::AppState& state, machine::Locale& locale, std::string_view aantal);

/// A horizontal rule at the height of the cursor, from `x1` to `x2`. An `x1` of 0 stands for the full width
/// between equal margins; an `x2` of 0 is filled in with the right margin. The cursor ends at the surface's
/// left edge.
void TrekLijn(const state::AppState& state, std::int32_t x1, std::int32_t& x2, std::int32_t kleur);

/// Value of a plain decimal number as the user writes it: blanks around it, one sign, digits, one decimal
/// mark.
std::optional<double> PlainDecimal(std::string_view text, char decimalMark);

/// `basis` moved by a calibration setting, millimetres as text in the user's locale ("-1,50"). A text that is
/// no plain decimal number, or too large a one, moves nothing: the forms are printed all the same.
std::int32_t Kalibreer(const state::AppState& state, machine::Locale& locale, std::int32_t basis,
                       std::string_view waarde);

} // namespace composition
