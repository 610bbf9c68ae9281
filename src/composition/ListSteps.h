#pragma once

#include <string_view>

#include "base/Resume.h"
#include "composition/FormField.h"
#include "composition/PrintSurface.h"

namespace state {
struct AppState;
}

namespace composition {

/// The steps of a list document on the run's surface. Each is given up by itself if it fails, and the next
/// one runs: a list with a gap still tells more than none. Lengths are twips.
class ListSteps {
  public:
    explicit ListSteps(const state::AppState& state) : state_(state) {}

    /// Says what the steps from here on draw.
    void Field(const FormField& field);
    /// Draws from `x` on and leaves the line open.
    void Print(double x, std::string_view text);
    /// Draws behind what stands on the line.
    void Print(std::string_view text);
    /// Draws from `x` on and ends the line.
    void PrintLine(double x, std::string_view text);
    void PrintLine(std::string_view text);
    void RegelVerder(double lines = 1);
    /// A black rule between equal margins.
    void TrekLijn();

    /// Any other step on the surface.
    template <class Step>
    void OnSurface(Step&& step) {
        base::Resume([&] { step(SurfaceOf(state_)); });
    }

  private:
    const state::AppState& state_;
};

} // namespace composition
