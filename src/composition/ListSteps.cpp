#include "composition/ListSteps.h"

#include "composition/SurfaceRules.h"
#include "state/AppState.h"

namespace composition {

void ListSteps::Field(const FormField& field) {
    OnSurface([&](PrintSurface& surface) { surface.BeginField(field, {}); });
}

void ListSteps::Print(double x, std::string_view text) {
    OnSurface([&](PrintSurface& surface) {
        surface.SetCurrentX(x);
        surface.Print(text);
    });
}

void ListSteps::Print(std::string_view text) {
    OnSurface([&](PrintSurface& surface) { surface.Print(text); });
}

void ListSteps::PrintLine(double x, std::string_view text) {
    OnSurface([&](PrintSurface& surface) {
        surface.SetCurrentX(x);
        surface.PrintLine(text);
    });
}

void ListSteps::PrintLine(std::string_view text) {
    OnSurface([&](PrintSurface& surface) { surface.PrintLine(text); });
}

void ListSteps::RegelVerder(double lines) {
    base::Resume([&] { composition::RegelVerder(state_, lines); });
}

void ListSteps::TrekLijn() {
    constexpr std::int32_t black = 0;
    constexpr std::int32_t fullWidth = 0;
    std::int32_t rightMargin = 0;
    base::Resume([&] { composition::TrekLijn(state_, fullWidth, rightMargin, black); });
}

} // namespace composition
