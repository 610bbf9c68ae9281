#include "printmanager/SpoolerAccess.h"

#include <algorithm>

#include "base/RuntimeError.h"

namespace printmanager {

namespace {

constexpr std::uint64_t BytesBehind = 128;
/// Settings of a driver take 128 KB at most; a larger number is an error of the driver and not worth the
/// memory.
constexpr std::uint64_t MostBytes = 16U << 20U;

} // namespace

machine::PrinterHandle OpenForDefaults(machine::Spooler& spooler, const std::string& printer) {
    const machine::PRINTER_DEFAULTS defaults{nullptr, nullptr, machine::PrinterAccessUse};
    machine::PrinterHandle handle = 0;
    return spooler.OpenPrinterA(spooler.Encode(printer), handle, defaults) ? handle : 0;
}

std::vector<std::byte> SpoolerBuffer(std::uint64_t reported) {
    if (reported > MostBytes) {
        throw base::OutOfMemory();
    }
    const std::uint64_t size =
        std::max<std::uint64_t>(reported + BytesBehind, sizeof(machine::PRINTER_INFO_2));
    return std::vector<std::byte>(static_cast<std::size_t>(size));
}

} // namespace printmanager
