#pragma once

#include <cstddef>
#include <map>

#include "machine/Spooler.h"
#include "memory/MemoryPrinters.h"
#include "memory/Recorder.h"

namespace memory {

/// A spooler over the installed memory printers. It fills and reads real buffers, so a caller's sizes and
/// pointers are put to the test, and each call is an event with its numbers and its result. A driver of this
/// spooler keeps some bytes of its own behind the DEVMODE.
class MemorySpooler final : public machine::Spooler {
  public:
    MemorySpooler(Recorder& recorder, MemoryPrinters& printers) : recorder_(recorder), printers_(printers) {}

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

    /// Number of handles that are open.
    std::size_t OpenHandles() const { return handles_.size(); }

    /// Bytes of the driver behind the DEVMODE.
    static constexpr std::uint16_t DriverExtra = 32;

  private:
    /// The printer behind a handle, nullptr if the handle is none or the printer does not answer.
    PrintQueue* Reach(machine::PrinterHandle handle);
    std::string NameOf(machine::PrinterHandle handle) const;

    Recorder& recorder_;
    MemoryPrinters& printers_;
    std::map<machine::PrinterHandle, PrintQueue*> handles_;
    machine::PrinterHandle lastHandle_ = 0;
};

} // namespace memory
