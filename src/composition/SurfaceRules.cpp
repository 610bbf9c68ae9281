#include "composition/SurfaceRules.h"

#include <limits>
#include <string>

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "composition/PrintSurface.h"
#include "machine/Locale.h"
#include "state/AppState.h"

namespace composition {

namespace {

constexpr double LineSpacing = 1.1;
constexpr int LinesKeptFree = 2;
constexpr double MmPerCm = 10;

} // namespace

bool PaginaVol(const state::AppState& state, std::int16_t regels) {
    const double below = static_cast<double>(regels + LinesKeptFree) * state.LineHeight;
    return SurfaceOf(state).CurrentY() + below > state.PageHeight;
}

void RegelVerder(const state::AppState& state, double aantal) {
    PrintSurface& surface = SurfaceOf(state);
    surface.SetCurrentY(surface.CurrentY() + aantal * state.LineHeight * LineSpacing);
    surface.SetCurrentX(0);
}

void RegelVerder(const state::AppState& state, machine::Locale& locale, std::string_view aantal) {
    const std::optional<double> lines =
        aantal.empty() ? std::optional(1.0) : PlainDecimal(aantal, locale.DecimalMark());
    if (!lines) {
        throw base::TypeMismatch();
    }
    RegelVerder(state, *lines);
}

void TrekLijn(const state::AppState& state, std::int32_t x1, std::int32_t& x2, std::int32_t kleur) {
    PrintSurface& surface = SurfaceOf(state);
    const auto rightMargin = [&] {
        return base::ToInt32(static_cast<double>(state.SurfaceWidth) - state.LeftMargin);
    };
    const double y = surface.CurrentY();
    if (x1 == 0) {
        surface.SetCurrentX(state.LeftMargin);
        surface.Line(state.LeftMargin, y, rightMargin(), y, kleur);
    } else {
        surface.SetCurrentX(x1);
        if (x2 == 0) {
            x2 = rightMargin();
        }
        surface.Line(x1, y, x2, y, kleur);
    }
    surface.SetCurrentX(state.SurfaceLeft);
}

std::optional<double> PlainDecimal(std::string_view text, char decimalMark) {
    std::string number(base::text::Trim(text));
    const std::size_t firstDigit = !number.empty() && (number[0] == '-' || number[0] == '+') ? 1 : 0;
    bool digits = false;
    bool mark = false;
    for (std::size_t i = firstDigit; i < number.size(); ++i) {
        if (number[i] >= '0' && number[i] <= '9') {
            digits = true;
        } else if (number[i] == decimalMark && !mark) {
            mark = true;
            number[i] = '.';
        } else {
            return std::nullopt;
        }
    }
    return digits ? std::optional(base::NumericValue(number)) : std::nullopt;
}

std::int32_t Kalibreer(const state::AppState& state, machine::Locale& locale, std::int32_t basis,
                       std::string_view waarde) {
    const double twipsPerMm = state.TwipsPerCm / MmPerCm;
    const double place =
        base::RoundTiesToEven(basis + twipsPerMm * PlainDecimal(waarde, locale.DecimalMark()).value_or(0));
    const bool fits = place >= std::numeric_limits<std::int32_t>::min() &&
                      place <= std::numeric_limits<std::int32_t>::max();
    return fits ? static_cast<std::int32_t>(place) : basis;
}

} // namespace composition
