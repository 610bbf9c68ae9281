#include <cstddef>
#include <cstring>
#include <string>
#include <vector>

#include "desktop/windows/Win32.h"

#include "base/Text.h"
#include "desktop/windows/WinPrinters.h"
#include "desktop/windows/WinSpooler.h"
#include "windows/check/Check.h"

using namespace desktop::windows;

namespace {

constexpr const char* Queue = "Kantoor";
constexpr std::size_t Behind = 128;

machine::PrinterHandle Open(WinSpooler& spooler, const char* name) {
    machine::PrinterHandle handle = 0;
    const machine::PRINTER_DEFAULTS defaults{nullptr, nullptr, machine::PrinterAccessUse};
    return spooler.OpenPrinterA(name, handle, defaults) ? handle : 0;
}

machine::DEVMODE Record(const std::vector<std::byte>& bytes) {
    machine::DEVMODE mode;
    std::memcpy(&mode, bytes.data(), sizeof mode);
    return mode;
}

std::vector<std::byte> Stored(WinSpooler& spooler, machine::PrinterHandle handle) {
    const std::int32_t size = spooler.DocumentPropertiesA(handle, Queue, nullptr, nullptr, 0);
    Check(size >= static_cast<std::int32_t>(sizeof(machine::DEVMODE)),
          "the driver's settings begin with our record");
    std::vector<std::byte> bytes(static_cast<std::size_t>(std::max(size, 0)) + Behind);
    CheckEqual(spooler.DocumentPropertiesA(handle, Queue, bytes.data(), nullptr, DM_OUT_BUFFER), 1,
               "the printer gives its settings");
    return bytes;
}

bool Store(WinSpooler& spooler, machine::PrinterHandle handle, std::vector<std::byte>& mode) {
    std::uint32_t needed = 0;
    Check(!spooler.GetPrinterA(handle, 2, nullptr, 0, needed) && needed > sizeof(machine::PRINTER_INFO_2),
          "a query without a buffer fails and tells the size");
    std::vector<std::byte> data(needed + Behind);
    Check(spooler.GetPrinterA(handle, 2, data.data(), static_cast<std::uint32_t>(data.size()), needed),
          "the spooler tells of the printer");
    auto* info = reinterpret_cast<machine::PRINTER_INFO_2*>(data.data());
    CheckEqual(info->pPrinterName, Queue, "by its name");
    info->pDevMode = reinterpret_cast<machine::DEVMODE*>(mode.data());
    info->pSecurityDescriptor = nullptr;
    return spooler.SetPrinterA(handle, 2, data.data(), 0);
}

void CheckDefaults(WinSpooler& spooler) {
    const machine::PrinterHandle handle = Open(spooler, Queue);
    Check(handle != 0, "the printer opens");
    std::vector<std::byte> bytes = Stored(spooler, handle);
    machine::DEVMODE mode = Record(bytes);
    CheckEqual(mode.dmPaperSize, DMPAPER_A4, "its paper is the queue's");
    CheckEqual(mode.dmOrientation, DMORIENT_PORTRAIT, "it stands upright");
    Check(mode.dmDriverExtra > 0, "the driver has data of its own behind the record");

    mode.dmPaperSize = DMPAPER_LEGAL;
    std::memcpy(bytes.data(), &mode, sizeof mode);
    CheckEqual(
        spooler.DocumentPropertiesA(handle, Queue, bytes.data(), bytes.data(), DM_IN_BUFFER | DM_OUT_BUFFER),
        1, "the driver makes a change valid");
    CheckEqual(Record(bytes).dmPaperSize, DMPAPER_LEGAL, "and takes it");
    Check(Store(spooler, handle, bytes), "the defaults are stored");
    CheckEqual(Record(Stored(spooler, handle)).dmPaperSize, DMPAPER_LEGAL, "and read back");

    mode.dmPaperSize = DMPAPER_A4;
    std::memcpy(bytes.data(), &mode, sizeof mode);
    Check(Store(spooler, handle, bytes), "the old defaults are put back");
    Check(spooler.ClosePrinter(handle), "the printer closes");
}

void CheckAccents(WinSpooler& spooler) {
    const std::string name = base::text::ToCodePage("Büro");
    const machine::PrinterHandle handle = Open(spooler, name.c_str());
    Check(handle != 0, "a printer with an accent in its name opens");
    std::uint32_t needed = 0;
    spooler.GetPrinterA(handle, 2, nullptr, 0, needed);
    std::vector<std::byte> data(needed + Behind);
    Check(spooler.GetPrinterA(handle, 2, data.data(), static_cast<std::uint32_t>(data.size()), needed),
          "the spooler tells of it");
    CheckEqual(reinterpret_cast<machine::PRINTER_INFO_2*>(data.data())->pPrinterName, name,
               "in the code page of the program");
    CheckEqual(spooler.DeviceCapabilitiesA(name, "", DC_PAPERNAMES, nullptr), 3, "and its driver answers");
    spooler.ClosePrinter(handle);
}

void CheckOffers(WinSpooler& spooler) {
    const auto ask = [&spooler](std::uint16_t capability, void* output) {
        return spooler.DeviceCapabilitiesA(Queue, "", capability, output);
    };
    CheckEqual(ask(DC_PAPERNAMES, nullptr), 3, "three papers");
    std::vector<std::int16_t> papers(16);
    CheckEqual(ask(DC_PAPERS, papers.data()), 3, "with a number each");
    CheckEqual(papers[0], DMPAPER_A4, "the first is A4");
    std::string names(16 * 64, '\0');
    ask(DC_PAPERNAMES, names.data());
    CheckEqual(names.substr(0, names.find('\0')), "A4 blanco", "named by the driver");
    CheckEqual(names.c_str() + 64, "US Legal", "each name in its field");
    std::vector<std::int32_t> sizes(32);
    CheckEqual(ask(DC_PAPERSIZE, sizes.data()), 3, "with a size each");
    CheckNear(sizes[0], 2100, 3, "in tenths of a millimetre");
    CheckNear(sizes[1], 2970, 3, "width before height");
    const std::int32_t bins = ask(DC_BINS, nullptr);
    Check(bins >= 3, "the bins are counted");
    std::string binNames(64 * 24, '\0');
    CheckEqual(ask(DC_BINNAMES, binNames.data()), bins, "with a name each");
    Check(binNames.find("Lade 3 met formulieren") != std::string::npos, "the driver's name");
    Check(spooler.DeviceCapabilitiesA("Nergens", "", DC_PAPERS, nullptr) <= 0,
          "a printer that is not there offers nothing");
}

} // namespace

void CheckSpooler() {
    WinSpooler spooler;
    CheckDefaults(spooler);
    CheckOffers(spooler);
    CheckAccents(spooler);
    CheckEqual(static_cast<long long>(Open(spooler, "Nergens")), 0,
               "a printer that is not there does not open");

    WinPrinters printers;
    CheckEqual(printers.Count(), 2, "both queues are printers");
    const int standard = printers.DefaultIndex();
    CheckEqual(printers.Item(standard).DeviceName, Queue, "the default is the server's");
    CheckRaises(
        base::ErrorSubscriptOutOfRange, [&] { printers.Item(2); }, "there is no third");
    CheckRaises(
        base::ErrorSubscriptOutOfRange, [&] { printers.Item(-1); }, "nor one before the first");
}
