#include "desktop/windows/PrinterQuestions.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

#include "base/Resume.h"
#include "base/RuntimeError.h"
#include "base/Units.h"
#include "desktop/windows/DriverSettings.h"
#include "desktop/windows/GdiObjects.h"
#include "desktop/windows/PrintFailure.h"
#include "desktop/windows/WideText.h"
#include "machine/PrinterErrors.h"

namespace desktop::windows {

namespace {

constexpr DWORD DescriptionLevel = 2;
constexpr DWORD LargestDescription = machine::MostDriverBytes;

using Opened = Owned<HANDLE, ::ClosePrinter>;

/// PRINTER_STATUS_ bits, as the machine that has the queue tells them.
std::uint32_t StatusOf(std::wstring printer) {
    HANDLE handle = nullptr;
    if (::OpenPrinterW(printer.data(), &handle, nullptr) == FALSE) {
        throw PrinterError(machine::PrinterNotReachableText);
    }
    const Opened opened(handle);
    DWORD needed = 0;
    ::GetPrinterW(handle, DescriptionLevel, nullptr, 0, &needed);
    std::vector<std::byte> bytes(std::min(needed, LargestDescription));
    if (bytes.size() < sizeof(PRINTER_INFO_2W) ||
        ::GetPrinterW(handle, DescriptionLevel, reinterpret_cast<BYTE*>(bytes.data()),
                      static_cast<DWORD>(bytes.size()), &needed) == FALSE) {
        throw PrinterError(machine::PrinterNotReachableText);
    }
    const auto& info = *reinterpret_cast<const PRINTER_INFO_2W*>(bytes.data());
    const bool isOffline = (info.Attributes & PRINTER_ATTRIBUTE_WORK_OFFLINE) != 0; // the user has said so
    return info.Status | (isOffline ? DWORD{PRINTER_STATUS_OFFLINE} : 0);
}

/// What a document with these settings, a DEVMODE with the driver's data behind it, is measured with.
DeviceContext MeasuringContext(const std::wstring& printer, const std::vector<std::byte>& mode) {
    DeviceContext device(
        ::CreateICW(L"WINSPOOL", printer.c_str(), nullptr, reinterpret_cast<const DEVMODEW*>(mode.data())));
    if (!device) {
        throw PrinterError(machine::PrinterNotReachableText);
    }
    return device;
}

/// Stored settings on another sheet. They are changed here and the driver is not asked to make them valid: it
/// may take that for the user's wish, and another thread may be asking it at this moment.
std::vector<std::byte> OnSheet(const DriverSettings& settings, short paper, short orientation) {
    std::vector<std::byte> bytes = settings.ForDocument();
    auto& mode = *reinterpret_cast<DEVMODEW*>(bytes.data());
    mode.dmPaperSize = paper;
    mode.dmOrientation = orientation;
    mode.dmFields |= DM_PAPERSIZE | DM_ORIENTATION;
    mode.dmFields &= ~static_cast<DWORD>(DM_PAPERLENGTH | DM_PAPERWIDTH | DM_FORMNAME); // they would win
    return bytes;
}

machine::SheetArea AreaOf(HDC device) {
    const auto caps = [device](int item) { return ::GetDeviceCaps(device, item); };
    const double across = base::TwipsPerInch / std::max(1, caps(LOGPIXELSX));
    const double down = base::TwipsPerInch / std::max(1, caps(LOGPIXELSY));
    machine::SheetArea area;
    area.Width = caps(PHYSICALWIDTH) * across;
    area.Height = caps(PHYSICALHEIGHT) * down;
    area.Left = caps(PHYSICALOFFSETX) * across;
    area.Top = caps(PHYSICALOFFSETY) * down;
    area.Right = area.Left + caps(HORZRES) * across;
    area.Bottom = area.Top + caps(VERTRES) * down;
    return area;
}

/// Sides of the papers, upright, in tenths of a millimetre.
std::vector<POINT> SizesOf(const std::wstring& printer, std::size_t papers) {
    std::vector<POINT> sizes(papers + machine::SpareDriverEntries);
    const int told = ::DeviceCapabilitiesW(printer.c_str(), nullptr, DC_PAPERSIZE,
                                           reinterpret_cast<wchar_t*>(sizes.data()), nullptr);
    sizes.resize(static_cast<std::size_t>(std::clamp(told, 0, static_cast<int>(papers))));
    return sizes;
}

/// A driver need not take the paper that it is given.
bool IsOfSize(const machine::SheetArea& area, const POINT& tenths) {
    constexpr double twipsPerTenth = base::TwipsPerInch / (10 * base::MillimetresPerInch);
    constexpr double same = 30 * twipsPerTenth;
    const auto [shorter, longer] = std::minmax(tenths.x, tenths.y);
    return std::abs(std::min(area.Width, area.Height) - shorter * twipsPerTenth) < same &&
           std::abs(std::max(area.Width, area.Height) - longer * twipsPerTenth) < same;
}

} // namespace

machine::PrinterCondition AskCondition(const std::string& printer) {
    machine::PrinterCondition condition{.Name = printer, .Reachable = false};
    base::Resume([&] {
        condition.Status = StatusOf(ToWide(printer));
        condition.Reachable = true;
        const DriverSettings settings(ToWide(printer));
        const DeviceContext device = MeasuringContext(settings.Printer(), settings.ForDocument());
        condition.DotsPerInch =
            std::min(::GetDeviceCaps(device.Get(), LOGPIXELSX), ::GetDeviceCaps(device.Get(), LOGPIXELSY));
    });
    return condition;
}

std::optional<machine::SheetArea> AskSheet(const std::string& printer, std::int16_t paper,
                                           std::int16_t orientation) {
    std::optional<machine::SheetArea> area;
    base::Resume([&] {
        const DriverSettings settings(ToWide(printer));
        const std::vector<short> papers = settings.Offered(DC_PAPERS);
        const auto place = std::find(papers.begin(), papers.end(), paper) - papers.begin();
        const std::vector<POINT> sizes = SizesOf(settings.Printer(), papers.size());
        if (static_cast<std::size_t>(place) >= sizes.size()) {
            return;
        }
        const DeviceContext device =
            MeasuringContext(settings.Printer(), OnSheet(settings, paper, orientation));
        const machine::SheetArea measured = AreaOf(device.Get());
        if (IsOfSize(measured, sizes[static_cast<std::size_t>(place)])) {
            area = measured;
        }
    });
    return area;
}

} // namespace desktop::windows
