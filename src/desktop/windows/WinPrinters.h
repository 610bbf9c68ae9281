#pragma once

#include "machine/Printer.h"

#include <string>
#include <vector>

namespace platform::windows {

/// The user's printers: those of this machine and those connected elsewhere, in the order in which the system
/// lists them.
class WinPrinters final : public Printers {
  public:
    /// A machine whose spooler does not run has none.
    int Count() override;
    PrinterEntry Item(int index) override;
    void Refresh() override;

    /// Index of the user's default printer, else of the first; -1 without printers.
    int DefaultIndex();

  private:
    const std::vector<PrinterEntry>& Entries();

    std::vector<PrinterEntry> entries_;
    bool loaded_ = false;
};

} // namespace platform::windows
