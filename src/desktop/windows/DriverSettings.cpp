#include "desktop/windows/DriverSettings.h"

#include <algorithm>
#include <utility>

#include "base/Resume.h"
#include "base/RuntimeError.h"
#include "desktop/windows/GdiObjects.h"
#include "desktop/windows/PrintFailure.h"
#include "machine/PrinterErrors.h"

namespace desktop::windows {

namespace {

constexpr LONG LargestSettings = machine::MostDriverBytes;
constexpr int MostOffered = machine::MostDriverEntries;

constexpr short FullScale = 100; ///< percent

constexpr const char* NoSettings = "De printer geeft zijn instellingen niet.";

using OpenedPrinter = Owned<HANDLE, ::ClosePrinter>;

OpenedPrinter Open(std::wstring printer) {
    HANDLE handle = nullptr;
    if (::OpenPrinterW(printer.data(), &handle, nullptr) == FALSE) {
        throw PrinterError(machine::PrinterNotReachableText);
    }
    return OpenedPrinter(handle);
}

/// One exchange with the driver: the settings that it makes of `input`, or its stored ones.
std::vector<std::byte> Exchange(std::wstring printer, const std::vector<std::byte>* input) {
    const OpenedPrinter opened = Open(printer);
    ::SetLastError(ERROR_SUCCESS); // a driver need not tell why
    const LONG size = ::DocumentPropertiesW(nullptr, opened.Get(), printer.data(), nullptr, nullptr, 0);
    if (size < 0) {
        throw PrinterError(NoSettings);
    }
    if (size < static_cast<LONG>(offsetof(DEVMODEW, dmFormName)) || size > LargestSettings) {
        throw base::RuntimeError(base::ErrorPrinter, NoSettings);
    }
    // Never smaller than the record as we read it, also where an old driver's is shorter.
    std::vector<std::byte> output(std::max(static_cast<std::size_t>(size), sizeof(DEVMODEW)) +
                                  machine::SpareDriverBytes);
    std::vector<std::byte> given = input ? *input : std::vector<std::byte>();
    const LONG done = ::DocumentPropertiesW(nullptr, opened.Get(), printer.data(),
                                            reinterpret_cast<DEVMODEW*>(output.data()),
                                            input ? reinterpret_cast<DEVMODEW*>(given.data()) : nullptr,
                                            input ? DM_IN_BUFFER | DM_OUT_BUFFER : DM_OUT_BUFFER);
    const auto* mode = reinterpret_cast<const DEVMODEW*>(output.data());
    if (done < 0) {
        throw PrinterError(NoSettings);
    }
    // Whoever takes the settings next believes these two sizes.
    if (done != IDOK || std::size_t{mode->dmSize} + mode->dmDriverExtra > output.size()) {
        throw base::RuntimeError(base::ErrorPrinter, NoSettings);
    }
    return output;
}

} // namespace

DriverSettings::DriverSettings(std::wstring printer)
    : printer_(std::move(printer)), bytes_(Exchange(printer_, nullptr)) {}

void DriverSettings::Set(DWORD field, short DEVMODEW::*member, short value) {
    std::vector<std::byte> changed = bytes_;
    auto* mode = reinterpret_cast<DEVMODEW*>(changed.data());
    mode->*member = value;
    mode->dmFields |= field;
    if (field == DM_PAPERSIZE) { // else these would win over it
        mode->dmFields &= ~static_cast<DWORD>(DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME);
    }
    bytes_ = MadeValid(changed);
}

std::vector<std::byte> DriverSettings::MadeValid(const std::vector<std::byte>& asked) const {
    const std::vector<std::byte> stored = Exchange(printer_, nullptr);
    std::vector<std::byte> valid = Exchange(printer_, &asked);
    // Some drivers take what they are asked to make valid for their own settings, which are not meant.
    Exchange(printer_, &stored);
    return valid;
}

std::vector<short> DriverSettings::Offered(WORD capability) const {
    const auto ask = [this, capability](void* output) {
        return ::DeviceCapabilitiesW(printer_.c_str(), nullptr, capability, static_cast<wchar_t*>(output),
                                     nullptr);
    };
    const int count = ask(nullptr);
    if (count <= 0 || count > MostOffered) {
        return {};
    }
    // The driver knows no size of the list and may tell more now than at the call before.
    std::vector<WORD> told(static_cast<std::size_t>(count) + machine::SpareDriverEntries);
    const int filled = ask(told.data());
    told.resize(static_cast<std::size_t>(std::clamp(filled, 0, count)));
    return {told.begin(), told.end()};
}

std::vector<std::byte> DriverSettings::ForDocument() const {
    std::vector<std::byte> bytes = bytes_;
    auto& mode = *reinterpret_cast<DEVMODEW*>(bytes.data());
    mode.dmCopies = 1;
    if ((mode.dmFields & DM_DUPLEX) != 0) {
        mode.dmDuplex = DMDUP_SIMPLEX;
    }
    if ((mode.dmFields & DM_SCALE) != 0) {
        mode.dmScale = FullScale;
    }
    return bytes;
}

std::vector<std::byte> DriverSettings::ForPrinting() const {
    std::vector<std::byte> bytes = ForDocument();
    const auto& asked = *reinterpret_cast<const DEVMODEW*>(bytes.data());
    if (asked.dmDuplex != Mode().dmDuplex || asked.dmScale != Mode().dmScale) {
        base::Resume([&] { bytes = MadeValid(bytes); }); // a driver that fails is given the record as it is
        reinterpret_cast<DEVMODEW*>(bytes.data())->dmCopies = 1;
    }
    return bytes;
}

} // namespace desktop::windows
