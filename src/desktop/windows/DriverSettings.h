#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "desktop/windows/Win32.h"

namespace desktop::windows {

/// Settings of one printer, in the form that its driver exchanges them, with the driver's own data behind
/// them. Changing them here touches nothing that the spooler keeps.
class DriverSettings {
  public:
    /// The stored defaults of the printer of this name. RuntimeError (ErrorPrinter) if it cannot be reached.
    explicit DriverSettings(std::wstring printer);

    const std::wstring& Printer() const { return printer_; }
    const DEVMODEW& Mode() const { return *reinterpret_cast<const DEVMODEW*>(bytes_.data()); }

    /// Changes one field, named by its DM_... bit, and lets the driver make the whole valid. ErrorPrinter if
    /// the driver fails; the settings are then as they were.
    void Set(DWORD field, short DEVMODEW::*member, short value);

    /// What the driver offers, by a DC_... number. Empty if it does not tell.
    std::vector<short> Offered(WORD capability) const;

    /// For a document: on one side and in full size, and once, for its copies are drawn one by one.
    std::vector<std::byte> ForDocument() const;

    /// The same for one that is printed: the driver has made the data of its own agree.
    std::vector<std::byte> ForPrinting() const;

  private:
    std::vector<std::byte> MadeValid(const std::vector<std::byte>& asked) const;

    std::wstring printer_;
    std::vector<std::byte> bytes_;
};

} // namespace desktop::windows
