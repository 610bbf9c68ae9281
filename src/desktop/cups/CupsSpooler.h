#pragma once

#include <map>
#include <string>
#include <string_view>

#include "desktop/cups/PrintQueues.h"
#include "machine/Spooler.h"

namespace desktop::cups {

/// The spooler's calls, answered from the printers of this machine. All texts are UTF-8, as the queues have
/// them. The stored defaults of a printer are the user's own for that queue, and what is written over them
/// holds in this program alone.
class CupsSpooler : public machine::Spooler {
  public:
    explicit CupsSpooler(PrintQueues& printers) : printers_(printers) {}

    std::string Encode(std::string_view utf8) const override { return std::string(utf8); }
    std::string Decode(std::string_view bytes) const override;
    std::string Trouble(const std::string& printer) override;

    bool OpenPrinterA(const std::string& printer, machine::PrinterHandle& handle,
                      const machine::PRINTER_DEFAULTS& defaults) override;
    bool ClosePrinter(machine::PrinterHandle handle) override;

    std::int32_t DocumentPropertiesA(machine::PrinterHandle handle, const std::string& printer, void* output,
                                     const void* input, std::uint32_t mode) override;
    bool GetPrinterA(machine::PrinterHandle handle, std::uint32_t level, void* buffer, std::uint32_t size,
                     std::uint32_t& needed) override;
    bool SetPrinterA(machine::PrinterHandle handle, std::uint32_t level, const void* buffer,
                     std::uint32_t command) override;
    /// Names are cut between words, so that each is closed by a NUL and differs from the others.
    std::int32_t DeviceCapabilitiesA(const std::string& printer, const std::string& port,
                                     std::uint16_t capability, void* output) override;

  private:
    PrintQueue* OfHandle(machine::PrinterHandle handle) const;

    PrintQueues& printers_;
    std::map<machine::PrinterHandle, std::string> open_; ///< by name, as a printer may go while it is open
    machine::PrinterHandle last_ = 0;
};

} // namespace desktop::cups
