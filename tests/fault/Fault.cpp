#include "fault/Fault.h"

#include <algorithm>
#include <iterator>

namespace fault {

namespace {

constexpr CallOfKind Calls[] = {
    {"RegOpenKeyA", Kind::Store},
    {"RegQueryValueExA", Kind::Store},
    {"RegSetValueExA", Kind::Store},
    {"RegCloseKey", Kind::Store},
    {"OpenPrinterA", Kind::Spooler},
    {"ClosePrinter", Kind::Spooler},
    {"DocumentPropertiesA", Kind::Spooler},
    {"GetPrinterA", Kind::Spooler},
    {"SetPrinterA", Kind::Spooler},
    {"DeviceCapabilitiesA", Kind::Spooler},
    {"Printers", Kind::Printer},
    {"Item", Kind::Printer},
    {"Printer", Kind::Printer},
    {"DeviceName", Kind::Printer},
    {"Orientation", Kind::Printer},
    {"ReadOrientation", Kind::Printer},
    {"PaperSize", Kind::Printer},
    {"ReadPaperSize", Kind::Printer},
    {"PaperBin", Kind::Printer},
    {"ReadPaperBin", Kind::Printer},
    {"Copies", Kind::Printer},
    {"Width", Kind::Printer},
    {"Height", Kind::Printer},
    {"ScaleLeft", Kind::Printer},
    {"ScaleTop", Kind::Printer},
    {"ScaleWidth", Kind::Printer},
    {"ScaleHeight", Kind::Printer},
    {"GetDeviceCaps", Kind::Printer},
    {"MeasureText", Kind::Canvas},
    {"DrawText", Kind::Canvas},
    {"DrawLine", Kind::Canvas},
    {"NewPage", Kind::Canvas},
    {"EndDocument", Kind::Canvas},
    {"CreatePage", Kind::Bitmap},
    {"Image", Kind::Bitmap},
    {CallCreateWindow, Kind::Window},
    {CallTick, Kind::Timer},
    {CallOpenFile, Kind::File},
    {CallWriteFile, Kind::File},
    {"SaveText", Kind::Window},
    {"GetLocaleInfoA", Kind::Locale},
};

} // namespace

std::span<const CallOfKind> AllCalls() {
    return Calls;
}

const char* NameOf(Kind kind) {
    switch (kind) {
    case Kind::Store:
        return "Store";
    case Kind::Spooler:
        return "Spooler";
    case Kind::Printer:
        return "Printer";
    case Kind::Canvas:
        return "Canvas";
    case Kind::Bitmap:
        return "Bitmap";
    case Kind::Window:
        return "Window";
    case Kind::Timer:
        return "Timer";
    case Kind::File:
        return "File";
    case Kind::Locale:
        break;
    }
    return "Locale";
}

bool IsOfKind(std::string_view call, Kind kind) {
    return std::any_of(std::begin(Calls), std::end(Calls),
                       [&](const CallOfKind& row) { return row.Name == call && row.Of == kind; });
}

bool Fault::Strikes(std::string_view call) {
    if (number_ == 0 && IsOfKind(call, kind_)) {
        calls_.emplace(call);
    }
    if (!armed_ || !IsOfKind(call, kind_) || ++count_ != number_) {
        return false;
    }
    call_ = call;
    if (OnStrike) {
        OnStrike();
    }
    return true;
}

} // namespace fault
