#pragma once

#include <cstdint>
#include <string>

namespace composition {

/// What a run needs of the forms around it: the wizard's box, the print manager's progress, the printer's and
/// the preview's surface. The wizard answers it.
class RunHost {
  public:
    virtual ~RunHost() = default;

    /// The box with the number of test forms.
    virtual std::string CountText() = 0;
    virtual void SetCountText(const std::string& text) = 0;

    /// Reads calibration, form type and contract form from the store, and leaves the creditor as edited.
    virtual void LaadInstellingen() = 0;
    /// 0 to 100. Lets the window system handle its waiting messages.
    virtual void UpdatePercentage(std::int16_t iNewPerc) = 0;

    /// Makes the printer the surface: composition::OpenPrinter on the program's PrinterSurface.
    virtual void OpenPrinter() = 0;
    /// 0 makes the preview's page the surface; 1 takes preview and page away.
    virtual void OpenPreview(std::int16_t fase) = 0;
    /// Shows the preview until the user leaves it.
    virtual void ShowPreview() = 0;

    virtual void HourglassOn() = 0;
    virtual void HourglassOff() = 0;
};

} // namespace composition
