#include "memory/MemoryPrinter.h"

#include "base/RuntimeError.h"
#include "base/Units.h"

namespace memory {

namespace {
using base::TwipsPerInch;
using machine::Landscape;
using machine::Portrait;

constexpr double OwnFontSize = 12;
} // namespace

PrintQueue& MemoryPrinter::Current() {
    if (index_ < 0) {
        throw base::RuntimeError(base::ErrorPrinter, PrinterError);
    }
    return printers_.Queue(index_);
}

void MemoryPrinter::Take(int index) {
    const PrintQueue& queue = printers_.Queue(index);
    index_ = index;
    settings_ = queue.Defaults;
    Drawing = {0, 0, {queue.Font, OwnFontSize, false}};
}

void MemoryPrinter::TakeDefault() {
    if (!printers_.Empty()) {
        Take(0);
    }
}

void MemoryPrinter::Assign(int index) {
    recorder_.RaiseFailure("Printer", base::ErrorPrinter, PrinterError);
    Take(index);
    recorder_.Record(
        {"set", {{"object", "Printer"}, {"property", "Printer"}, {"value", printers_.Queue(index).Name}}});
}

void MemoryPrinter::RecordSet(const char* property, std::int16_t value) {
    recorder_.Record({"set", {{"object", "Printer"}, {"property", property}, {"value", value}}});
}

std::string MemoryPrinter::DeviceName() {
    recorder_.RaiseFailure("DeviceName", base::ErrorPrinter, PrinterError);
    return Current().Name;
}

std::string MemoryPrinter::Port() {
    return Current().Port;
}

std::int16_t MemoryPrinter::Orientation() {
    Current();
    recorder_.RaiseFailure("ReadOrientation", base::ErrorPrinter, PrinterError);
    return settings_.Orientation;
}

void MemoryPrinter::SetOrientation(std::int16_t orientation) {
    Current();
    recorder_.RaiseFailure("Orientation", base::ErrorInvalidPropertyValue,
                           base::InvalidPropertyValue().what());
    if (orientation != Portrait && orientation != Landscape) {
        throw base::InvalidPropertyValue();
    }
    settings_.Orientation = orientation;
    RecordSet("Orientation", orientation);
}

std::int16_t MemoryPrinter::PaperSize() {
    Current();
    recorder_.RaiseFailure("ReadPaperSize", base::ErrorPrinter, PrinterError);
    return settings_.PaperSize;
}

void MemoryPrinter::SetPaperSize(std::int16_t paper) {
    Current();
    recorder_.RaiseFailure("PaperSize", base::ErrorInvalidPropertyValue, base::InvalidPropertyValue().what());
    settings_.PaperSize = paper;
    RecordSet("PaperSize", paper);
}

std::int16_t MemoryPrinter::PaperBin() {
    Current();
    recorder_.RaiseFailure("ReadPaperBin", base::ErrorPrinter, PrinterError);
    return settings_.DefaultSource;
}

void MemoryPrinter::SetPaperBin(std::int16_t bin) {
    Current();
    recorder_.RaiseFailure("PaperBin", base::ErrorInvalidPropertyValue, base::InvalidPropertyValue().what());
    settings_.DefaultSource = bin;
    RecordSet("PaperBin", bin);
}

std::int16_t MemoryPrinter::Copies() {
    Current();
    recorder_.RaiseFailure("Copies", base::ErrorPrinter, PrinterError);
    return settings_.Copies;
}

Dots MemoryPrinter::Turned(Dots upright) {
    return settings_.Orientation == Landscape ? Dots{upright.Y, upright.X} : upright;
}

double MemoryPrinter::Twips(int dots) {
    return dots * TwipsPerInch / Current().Dpi;
}

double MemoryPrinter::Width() {
    recorder_.RaiseFailure("Width", base::ErrorPrinter, PrinterError);
    return Twips(Turned(Current().Sheet).X);
}

double MemoryPrinter::Height() {
    recorder_.RaiseFailure("Height", base::ErrorPrinter, PrinterError);
    return Twips(Turned(Current().Sheet).Y);
}

double MemoryPrinter::ScaleLeft() {
    Current();
    recorder_.RaiseFailure("ScaleLeft", base::ErrorPrinter, PrinterError);
    return 0;
}

double MemoryPrinter::ScaleTop() {
    Current();
    recorder_.RaiseFailure("ScaleTop", base::ErrorPrinter, PrinterError);
    return 0;
}

double MemoryPrinter::ScaleWidth() {
    recorder_.RaiseFailure("ScaleWidth", base::ErrorPrinter, PrinterError);
    return Twips(Turned(Current().Printable).X);
}

double MemoryPrinter::ScaleHeight() {
    recorder_.RaiseFailure("ScaleHeight", base::ErrorPrinter, PrinterError);
    return Twips(Turned(Current().Printable).Y);
}

int MemoryPrinter::GetDeviceCaps(int item) {
    recorder_.RaiseFailure("GetDeviceCaps", base::ErrorPrinter, PrinterError);
    switch (item) {
    case machine::CapsLogPixelsX:
    case machine::CapsLogPixelsY:
        return Current().Dpi;
    case machine::CapsPhysicalOffsetX:
        return Turned(Current().Offset).X;
    case machine::CapsPhysicalOffsetY:
        return Turned(Current().Offset).Y;
    default:
        return 0;
    }
}

} // namespace memory
