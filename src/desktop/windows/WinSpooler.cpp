#include "desktop/windows/WinSpooler.h"

#include <algorithm>
#include <cstring>
#include <string_view>
#include <vector>

#include "desktop/windows/Win32.h"

#include "base/Text.h"
#include "desktop/windows/WideText.h"
#include "machine/SpoolerRecords.h"

namespace desktop::windows {

namespace {

/// No description of a printer is larger, in bytes.
constexpr DWORD LargestInfo = machine::MostDriverBytes;

::HANDLE HandleOf(machine::PrinterHandle handle) {
    return reinterpret_cast<::HANDLE>(handle);
}

/// A text in the buffer becomes Windows-1252 where it stands: that takes one byte for a character and is
/// never longer than the machine's own.
void ChangeInPlace(char* text) {
    if (text != nullptr) {
        const std::string changed = FromMachine(text);
        const std::size_t length = std::min(changed.size(), std::strlen(text));
        std::memcpy(text, changed.data(), length);
        text[length] = '\0';
    }
}

void ChangeTexts(::PRINTER_INFO_2A& info) {
    for (char* text : {info.pServerName, info.pPrinterName, info.pShareName, info.pPortName, info.pDriverName,
                       info.pComment, info.pLocation, info.pSepFile, info.pPrintProcessor, info.pDatatype,
                       info.pParameters}) {
        ChangeInPlace(text);
    }
}

/// What the spooler has of a printer; empty on failure.
std::vector<std::byte> PresentInfo(::HANDLE printer) {
    DWORD needed = 0;
    ::GetPrinterA(printer, machine::PrinterInfoLevel, nullptr, 0, &needed);
    if (needed < sizeof(::PRINTER_INFO_2A) || needed > LargestInfo) {
        return {};
    }
    std::vector<std::byte> buffer(needed);
    if (::GetPrinterA(printer, machine::PrinterInfoLevel, reinterpret_cast<BYTE*>(buffer.data()), needed,
                      &needed) == 0) {
        return {};
    }
    return buffer;
}

/// Bytes of a name in the lists that a driver answers; 0 if the capability is no list of names.
std::size_t NameBytes(std::uint16_t capability) {
    return capability == DC_BINNAMES     ? machine::BinNameBytes
           : capability == DC_PAPERNAMES ? machine::PaperNameBytes
                                         : 0;
}

/// Each name in its field; a name that fills it has no closing NUL.
void PutNames(const std::vector<wchar_t>& wide, std::size_t width, std::size_t count, char* output) {
    for (std::size_t i = 0; i < count; ++i) {
        const std::wstring_view field(&wide[i * width], width);
        const std::string name = base::text::ToCodePage(FromWide(field.substr(0, field.find(L'\0'))));
        std::fill_n(output + i * width, width, '\0');
        std::copy_n(name.begin(), std::min(name.size(), width), output + i * width);
    }
}

std::int32_t WideCapabilities(const std::wstring& printer, const std::wstring& port, std::uint16_t capability,
                              void* output) {
    const std::size_t width = NameBytes(capability);
    if (output == nullptr || width == 0) {
        return ::DeviceCapabilitiesW(printer.c_str(), port.c_str(), capability, static_cast<wchar_t*>(output),
                                     nullptr);
    }
    const int count = ::DeviceCapabilitiesW(printer.c_str(), port.c_str(), capability, nullptr, nullptr);
    if (count < 0 || static_cast<std::size_t>(count) > machine::MostDriverEntries) {
        return machine::SpoolerFailed;
    }
    const std::size_t room = static_cast<std::size_t>(count) + machine::SpareDriverEntries;
    std::vector<wchar_t> wide(room * width);
    const int told = ::DeviceCapabilitiesW(printer.c_str(), port.c_str(), capability, wide.data(), nullptr);
    if (told < 0) {
        return machine::SpoolerFailed;
    }
    const std::size_t names = std::min(static_cast<std::size_t>(told), room);
    PutNames(wide, width, names, static_cast<char*>(output));
    return static_cast<std::int32_t>(names);
}

} // namespace

bool WinSpooler::OpenPrinterA(const std::string& printer, machine::PrinterHandle& handle,
                              const machine::PRINTER_DEFAULTS& defaults) {
    ::HANDLE opened = nullptr;
    BOOL done = FALSE;
    if (MachineSpeaks1252()) {
        ::PRINTER_DEFAULTSA asked{};
        static_assert(sizeof asked == sizeof defaults);
        std::memcpy(&asked, &defaults, sizeof asked);
        std::string name = printer;
        done = ::OpenPrinterA(name.data(), &opened, &asked);
    } else {
        ::PRINTER_DEFAULTSW asked{};
        asked.DesiredAccess = defaults.DesiredAccess;
        std::wstring name = WideOf1252(printer);
        done = ::OpenPrinterW(name.data(), &opened, &asked);
    }
    handle = done != FALSE ? reinterpret_cast<machine::PrinterHandle>(opened) : 0;
    return done != FALSE;
}

bool WinSpooler::ClosePrinter(machine::PrinterHandle handle) {
    return ::ClosePrinter(HandleOf(handle)) != FALSE;
}

std::int32_t WinSpooler::DocumentPropertiesA(machine::PrinterHandle handle, const std::string& printer,
                                             void* output, const void* input, std::uint32_t mode) {
    std::string name = ToMachine(printer);
    // The call takes its input as writable and leaves it as it is, unless it is the output as well.
    return ::DocumentPropertiesA(nullptr, HandleOf(handle), name.data(), static_cast<::DEVMODEA*>(output),
                                 static_cast<::DEVMODEA*>(const_cast<void*>(input)), mode);
}

bool WinSpooler::GetPrinterA(machine::PrinterHandle handle, std::uint32_t level, void* buffer,
                             std::uint32_t size, std::uint32_t& needed) {
    DWORD bytes = 0;
    const BOOL done = ::GetPrinterA(HandleOf(handle), level, static_cast<BYTE*>(buffer), size, &bytes);
    needed = bytes;
    if (done != FALSE && level == machine::PrinterInfoLevel && !MachineSpeaks1252()) {
        ChangeTexts(*static_cast<::PRINTER_INFO_2A*>(buffer));
    }
    return done != FALSE;
}

bool WinSpooler::SetPrinterA(machine::PrinterHandle handle, std::uint32_t level, const void* buffer,
                             std::uint32_t command) {
    if (level != machine::PrinterInfoLevel || buffer == nullptr || MachineSpeaks1252()) {
        return ::SetPrinterA(HandleOf(handle), level, static_cast<BYTE*>(const_cast<void*>(buffer)),
                             command) != FALSE;
    }
    std::vector<std::byte> present = PresentInfo(HandleOf(handle));
    if (present.empty()) {
        return false;
    }
    const auto* given = static_cast<const ::PRINTER_INFO_2A*>(buffer);
    auto* info = reinterpret_cast<::PRINTER_INFO_2A*>(present.data());
    info->pDevMode = given->pDevMode;
    info->pSecurityDescriptor = given->pSecurityDescriptor;
    return ::SetPrinterA(HandleOf(handle), level, reinterpret_cast<BYTE*>(info), command) != FALSE;
}

std::int32_t WinSpooler::DeviceCapabilitiesA(const std::string& printer, const std::string& port,
                                             std::uint16_t capability, void* output) {
    if (MachineSpeaks1252()) {
        return ::DeviceCapabilitiesA(printer.c_str(), port.c_str(), capability, static_cast<char*>(output),
                                     nullptr);
    }
    return WideCapabilities(WideOf1252(printer), WideOf1252(port), capability, output);
}

} // namespace desktop::windows
