#pragma once

#include <cstdint>
#include <string>

namespace composition {

/// What only the forms around a run can answer: the wizard's box, the print manager's progress, the preview.
class RunHost {
  public:
    virtual ~RunHost() = default;

    /// The box with the number of test forms.
    virtual std::string CountText() = 0;
    virtual void SetCountText(const std::string& text) = 0;

    /// 0 to 100. Lets the window system handle its waiting messages.
    virtual void UpdatePercentage(std::int16_t iNewPerc) = 0;

    /// 0 makes the preview's page the surface; 1 takes preview and page away.
    virtual void OpenPreview(std::int16_t fase) = 0;
    /// Shows the preview until the user leaves it.
    virtual void ShowPreview() = 0;
};

} // namespace composition
