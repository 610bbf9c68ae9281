#include "memory/Recorder.h"

#include <algorithm>
#include <iterator>

#include "base/RuntimeError.h"

namespace memory {

namespace {

constexpr std::string_view FallibleCalls[] = {
    "OpenPrinterA",
    "ClosePrinter",
    "DocumentPropertiesA",
    "GetPrinterA",
    "SetPrinterA",
    "RegOpenKeyA",
    "DeviceCapabilitiesA",
    "RegQueryValueExA",
    "RegCloseKey",
    "RegSetValueExA",
    "MeasureText",
    "DrawText",
    "DrawLine",
    "NewPage",
    "CreatePage",
    "CreatePeer",
    "Image",
    "EndDocument",
    "Printer",
    "Orientation",
    "PaperSize",
    "PaperBin",
    "Copies",
    "ScaleLeft",
    "ScaleTop",
    "ScaleWidth",
    "ScaleHeight",
    "GetDeviceCaps",
    "DeviceName",
    "Printers",
    "GetLocaleInfoA",
    "ReadOrientation",
    "ReadPaperSize",
    "ReadPaperBin",
    "Width",
    "Height",
    "Item",
    "SaveText",
};

} // namespace

std::span<const std::string_view> Recorder::CallsThatCanFail() {
    return FallibleCalls;
}

bool Recorder::Fail(std::string_view call, int count) {
    const auto* const end = std::end(FallibleCalls);
    if (std::find(std::begin(FallibleCalls), end, call) == end) {
        return false;
    }
    failures_[std::string(call)] = count;
    return true;
}

int Recorder::Left(std::string_view call) const {
    const auto found = failures_.find(call);
    return found == failures_.end() ? 0 : found->second;
}

bool Recorder::TakeFailure(std::string_view call) {
    if (ShouldFail && ShouldFail(call)) {
        return true;
    }
    const auto found = failures_.find(call);
    if (found == failures_.end() || found->second <= 0) {
        return false;
    }
    --found->second;
    return true;
}

void Recorder::RaiseFailure(std::string_view call, int number, const char* description) {
    if (TakeFailure(call)) {
        throw base::RuntimeError(number, description);
    }
}

} // namespace memory
