#include "printmanager/PrinterInfo.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "base/RuntimeError.h"
#include "printmanager/PrinterStatus.h"
#include "printmanager/SpoolerAccess.h"

namespace printmanager {

namespace {

constexpr std::size_t MostBytesOfText = 128;

bool ReadInfo(machine::Spooler& spooler, const std::string& printer, PrinterInfo& info) {
    const machine::PrinterHandle handle = OpenForDefaults(spooler, printer);
    if (handle == 0) {
        return false;
    }
    std::uint32_t needed = 0;
    spooler.GetPrinterA(handle, 2, nullptr, 0, needed);
    if (needed == 0) {
        return true;
    }
    std::vector<std::byte> data = SpoolerBuffer(needed);
    if (spooler.GetPrinterA(handle, 2, data.data(), static_cast<std::uint32_t>(data.size()), needed)) {
        machine::PRINTER_INFO_2 told{};
        std::memcpy(&told, data.data(), sizeof told);
        info.Port = spooler.Decode(PointerToString(told.pPortName, MostBytesOfText, data));
        info.Comment = spooler.Decode(PointerToString(told.pComment, MostBytesOfText, data));
        info.Name = spooler.Decode(PointerToString(told.pPrinterName, MostBytesOfText, data));
        PrinterStatusText(info.Status, static_cast<std::int32_t>(told.Status));
    }
    if (const std::string trouble = spooler.Trouble(spooler.Encode(printer)); !trouble.empty()) {
        info.Status = trouble;
    }
    return true;
}

} // namespace

bool GetPrinterInfo(machine::Spooler& spooler, const std::string& printer, PrinterInfo& info) {
    info = {};
    try {
        return ReadInfo(spooler, printer, info);
    } catch (const base::RuntimeError&) { // the result tells
        return false;
    }
}

std::string PointerToString(const char* pointer, std::size_t limit, std::span<const std::byte> readable) {
    const auto at = reinterpret_cast<std::uintptr_t>(pointer);
    const auto begin = reinterpret_cast<std::uintptr_t>(readable.data());
    if (pointer == nullptr || at < begin || at - begin >= readable.size()) {
        return {};
    }
    const std::string_view text(pointer, std::min<std::size_t>(limit, readable.size() - (at - begin)));
    return std::string(text.substr(0, text.find('\0')));
}

} // namespace printmanager
