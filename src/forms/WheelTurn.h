#pragma once

#include <cstdint>

namespace forms {

/// How far the mouse wheel has turned. A touch pad turns it by small parts, of which a window is told nothing
/// until they make a notch.
class WheelTurn {
  public:
    /// One notch, in the unit of the messages.
    static constexpr int Notch = 120;

    /// Adds a part, positive away from the user. The whole turn once it is a notch or more, limited to 16
    /// bits, and until then 0. A part the other way begins anew; one of 0 is no turn and takes nothing back.
    std::int16_t Add(int part);

  private:
    int turned_ = 0;
};

} // namespace forms
