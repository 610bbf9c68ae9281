#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "machine/Spooler.h"

namespace printmanager {

/// Opens a printer for reading and writing one's own defaults. 0 if there is no connection.
machine::PrinterHandle OpenForDefaults(machine::Spooler& spooler, const std::string& printer);

/// A printer that is open for as long as this object lives.
class OpenedPrinter {
  public:
    OpenedPrinter(machine::Spooler& spooler, const std::string& printer)
        : spooler_(spooler), handle_(OpenForDefaults(spooler, printer)) {}
    ~OpenedPrinter() {
        if (handle_ != 0) {
            spooler_.ClosePrinter(handle_);
        }
    }
    OpenedPrinter(const OpenedPrinter&) = delete;
    OpenedPrinter& operator=(const OpenedPrinter&) = delete;

    explicit operator bool() const { return handle_ != 0; }
    machine::PrinterHandle Handle() const { return handle_; }

  private:
    machine::Spooler& spooler_;
    machine::PrinterHandle handle_;
};

/// Room for data of a reported size, in bytes, and to spare. RuntimeError for a size that no driver can mean.
std::vector<std::byte> SpoolerBuffer(std::uint64_t reported);

} // namespace printmanager
