#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "desktop/windows/Inquiry.h"
#include "machine/Printer.h"

namespace desktop::windows {

/// The user's printers: those of this machine and those connected elsewhere, in the order in which the system
/// lists them.
class WinPrinters final : public machine::Printers {
  public:
    /// A machine whose spooler does not run has none.
    int Count() override;
    machine::PrinterEntry Item(int index) override;
    void Refresh() override;
    /// Both ask the printer in the background, and answer what it has told: its machine may be far away, or
    /// switched off.
    machine::PrinterCondition Condition(int index) override;
    std::optional<machine::SheetArea> SheetOf(int index, std::int16_t paper,
                                              std::int16_t orientation) override;

    /// Index of the user's default printer, else of the first; -1 without printers.
    int DefaultIndex();

  private:
    const std::vector<machine::PrinterEntry>& Entries();

    std::vector<machine::PrinterEntry> entries_;
    bool loaded_ = false;
    std::map<std::string, Inquiry<machine::PrinterCondition>> conditions_;
    std::map<std::tuple<std::string, std::int16_t, std::int16_t>, Inquiry<std::optional<machine::SheetArea>>>
        sheets_;
};

} // namespace desktop::windows
