#include "printmanager/DevModeField.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <vector>

#include "base/Resume.h"
#include "forms/Desktop.h"
#include "printmanager/SpoolerAccess.h"

namespace printmanager {

using machine::DEVMODE;

namespace {

constexpr int YieldsAfterWrite = 20;

struct Field {
    std::int32_t Selector;
    std::int16_t DEVMODE::*Member;
    bool Writable;
};

constexpr Field Fields[] = {
    {machine::DM_ORIENTATION, &DEVMODE::dmOrientation, true},
    {machine::DM_PAPERSIZE, &DEVMODE::dmPaperSize, true},
    {machine::DM_PAPERLENGTH, &DEVMODE::dmPaperLength, true},
    {machine::DM_PAPERWIDTH, &DEVMODE::dmPaperWidth, true},
    {machine::DM_SCALE, &DEVMODE::dmScale, false},
    {machine::DM_COPIES, &DEVMODE::dmCopies, false},
    {machine::DM_DEFAULTSOURCE, &DEVMODE::dmDefaultSource, true},
    {machine::DM_PRINTQUALITY, &DEVMODE::dmPrintQuality, true},
    {machine::DM_COLOR, &DEVMODE::dmColor, true},
    {machine::DM_COLLATE, &DEVMODE::dmCollate, false},
};

const Field* FieldOf(std::int32_t selector) {
    const auto* const found =
        std::find_if(std::begin(Fields), std::end(Fields),
                     [selector](const Field& field) { return field.Selector == selector; });
    return found == std::end(Fields) ? nullptr : found;
}

DEVMODE ReadDevMode(const std::vector<std::byte>& buffer) {
    DEVMODE mode{};
    std::memcpy(&mode, buffer.data(), sizeof mode);
    return mode;
}

void PutField(std::vector<std::byte>& buffer, std::int32_t selector, std::int16_t value) {
    DEVMODE mode = ReadDevMode(buffer);
    const Field* field = FieldOf(selector);
    if (field != nullptr && field->Writable && (mode.dmFields & static_cast<std::uint32_t>(selector)) != 0) {
        mode.*(field->Member) = value;
        std::memcpy(buffer.data(), &mode, sizeof mode);
    }
}

/// Makes `devMode` the stored defaults of an open printer. -1 if the spooler refused.
std::int16_t StoreDefaults(machine::Spooler& spooler, machine::PrinterHandle handle,
                           std::vector<std::byte>& devMode) {
    std::uint32_t needed = 0;
    spooler.GetPrinterA(handle, 2, nullptr, 0, needed);
    if (needed == 0) {
        return 0;
    }
    std::vector<std::byte> data = SpoolerBuffer(needed);
    if (!spooler.GetPrinterA(handle, 2, data.data(), static_cast<std::uint32_t>(data.size()), needed)) {
        return 0;
    }
    machine::PRINTER_INFO_2 info{};
    std::memcpy(&info, data.data(), sizeof info);
    info.pDevMode = reinterpret_cast<DEVMODE*>(devMode.data());
    // Without it the write would ask for the right to change who may use the printer.
    info.pSecurityDescriptor = nullptr;
    std::memcpy(data.data(), &info, sizeof info);
    return spooler.SetPrinterA(handle, 2, data.data(), 0) ? std::int16_t{0} : std::int16_t{-1};
}

std::int16_t WriteField(machine::Spooler& spooler, machine::PrinterHandle handle, const std::string& printer,
                        std::int32_t selector, std::int16_t value) {
    const std::string name = spooler.Encode(printer);
    const std::int32_t size = spooler.DocumentPropertiesA(handle, name, nullptr, nullptr, 0);
    if (size < 0) {
        return 0;
    }
    std::vector<std::byte> buffer = SpoolerBuffer(static_cast<std::uint64_t>(size));
    if (spooler.DocumentPropertiesA(handle, name, buffer.data(), nullptr, machine::DM_OUT_BUFFER) >= 0) {
        PutField(buffer, selector, value);
    }
    if (spooler.DocumentPropertiesA(handle, name, buffer.data(), buffer.data(),
                                    machine::DM_IN_BUFFER | machine::DM_OUT_BUFFER) < 0) {
        return 0;
    }
    return StoreDefaults(spooler, handle, buffer);
}

} // namespace

std::int16_t GetDevModeField(machine::Spooler& spooler, const std::string& printer, std::int32_t selector) {
    std::int16_t value = 0;
    base::Resume([&] {
        const OpenedPrinter opened(spooler, printer);
        if (!opened) {
            return;
        }
        const std::string name = spooler.Encode(printer);
        const std::int32_t size = spooler.DocumentPropertiesA(opened.Handle(), name, nullptr, nullptr, 0);
        if (size < 0) {
            return;
        }
        std::vector<std::byte> buffer = SpoolerBuffer(static_cast<std::uint64_t>(size));
        if (spooler.DocumentPropertiesA(opened.Handle(), name, buffer.data(), nullptr,
                                        machine::DM_OUT_BUFFER) < 0) {
            return;
        }
        if (const Field* field = FieldOf(selector)) {
            value = ReadDevMode(buffer).*(field->Member);
        }
    });
    return value;
}

std::int16_t SetDevModeField(machine::Platform& platform, const std::string& printer, std::int32_t selector,
                             std::int16_t value) {
    std::int16_t result = -1; // holds if the write ends in an error
    {
        const OpenedPrinter opened(platform.Spooler, printer);
        if (!opened) {
            return 0;
        }
        base::Resume(
            [&] { result = WriteField(platform.Spooler, opened.Handle(), printer, selector, value); });
    }
    for (int i = 0; i < YieldsAfterWrite; ++i) {
        platform.Desktop.Yield();
    }
    return result;
}

} // namespace printmanager
