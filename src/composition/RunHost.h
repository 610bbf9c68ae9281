#pragma once

#include <cstdint>
#include <string>

namespace composition {

// Values of `fase`.
inline constexpr std::int16_t FaseOpen = 0;
inline constexpr std::int16_t FaseClose = 1;

/// What only the forms around a run can answer: the wizard's box, the print manager's progress, the preview.
class RunHost {
  public:
    virtual ~RunHost() = default;

    /// The box with the number of test forms.
    virtual std::string CountText() = 0;
    virtual void SetCountText(const std::string& text) = 0;

    /// 0 to 100. Lets the window system handle its waiting messages.
    virtual void UpdatePercentage(std::int16_t iNewPerc) = 0;

    /// FaseOpen makes the preview's page the surface; FaseClose takes preview and page away.
    virtual void OpenPreview(std::int16_t fase) = 0;
    /// Shows the preview until the user leaves it.
    virtual void ShowPreview() = 0;
};

} // namespace composition
