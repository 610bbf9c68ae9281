#pragma once

#include "machine/Spooler.h"

namespace desktop::windows {

/// The spooler of the machine: every call goes to it as it is. Only where the machine's code page is not
/// Windows-1252 are names and texts changed on the way, and a write of a printer's defaults leaves the
/// printer's texts as the machine has them.
class WinSpooler final : public machine::Spooler {
  public:
    bool OpenPrinterA(const std::string& printer, machine::PrinterHandle& handle,
                      const machine::PRINTER_DEFAULTS& defaults) override;
    bool ClosePrinter(machine::PrinterHandle handle) override;
    std::int32_t DocumentPropertiesA(machine::PrinterHandle handle, const std::string& printer, void* output,
                                     const void* input, std::uint32_t mode) override;
    bool GetPrinterA(machine::PrinterHandle handle, std::uint32_t level, void* buffer, std::uint32_t size,
                     std::uint32_t& needed) override;
    bool SetPrinterA(machine::PrinterHandle handle, std::uint32_t level, const void* buffer,
                     std::uint32_t command) override;
    std::int32_t DeviceCapabilitiesA(const std::string& printer, const std::string& port,
                                     std::uint16_t capability, void* output) override;
};

} // namespace desktop::windows
