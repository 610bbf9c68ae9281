#include "printmanager/SpoolerAccess.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace printmanager {

machine::PrinterHandle OpenForDefaults(machine::Spooler& spooler, const std::string& printer) {
    const machine::PRINTER_DEFAULTS defaults{nullptr, nullptr, machine::PrinterAccessUse};
    machine::PrinterHandle handle = 0;
    return spooler.OpenPrinterA(spooler.Encode(printer), handle, defaults) ? handle : 0;
}

std::vector<std::byte> SpoolerBuffer(std::uint64_t reported) {
    if (reported > machine::MostDriverBytes) {
        throw base::OutOfMemory();
    }
    const std::uint64_t size =
        std::max<std::uint64_t>(reported + machine::SpareDriverBytes, sizeof(machine::PRINTER_INFO_2));
    return std::vector<std::byte>(static_cast<std::size_t>(size));
}

} // namespace printmanager
