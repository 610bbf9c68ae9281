#include "memory/MemorySpooler.h"

#include <cstring>
#include <optional>
#include <string>
#include <vector>

#include "base/Text.h"
#include "machine/SpoolerRecords.h"

namespace memory {

namespace {

constexpr char DriverByte = 'd';

machine::DEVMODE StoredSettings(const PrintQueue& queue) {
    machine::DEVMODE mode{};
    machine::PutName(mode.dmDeviceName, sizeof mode.dmDeviceName - 1, base::text::ToCodePage(queue.Name));
    mode.dmFields = queue.Fields;
    mode.dmOrientation = queue.Defaults.Orientation;
    mode.dmPaperSize = queue.Defaults.PaperSize;
    mode.dmDefaultSource = queue.Defaults.DefaultSource;
    mode.dmCopies = queue.Defaults.Copies;
    return mode;
}

std::vector<char> StoredDevMode(const PrintQueue& queue) {
    return machine::DevModeRecord(StoredSettings(queue), std::string(MemorySpooler::DriverExtra, DriverByte));
}

template <class Rows>
std::vector<std::int16_t> NumbersOf(const Rows& rows) {
    std::vector<std::int16_t> numbers;
    for (const auto& row : rows) {
        numbers.push_back(row.Id);
    }
    return numbers;
}

/// The settings of `mode` that the driver offers and takes, over the stored ones.
QueueDefaults Merged(const PrintQueue& queue, const machine::DEVMODE& mode) {
    const machine::DEVMODE merged = machine::Merged(
        StoredSettings(queue), mode, {queue.Fields, NumbersOf(queue.Papers), NumbersOf(queue.Bins)});
    return {merged.dmOrientation, merged.dmPaperSize, merged.dmDefaultSource, merged.dmCopies};
}

/// What a DEVMODE tells, at the end of an event.
void AddSettings(Event& event, const machine::DEVMODE& mode) {
    event.Fields.push_back({"dmFields", mode.dmFields});
    event.Fields.push_back({"dmOrientation", mode.dmOrientation});
    event.Fields.push_back({"dmPaperSize", mode.dmPaperSize});
    event.Fields.push_back({"dmDefaultSource", mode.dmDefaultSource});
    event.Fields.push_back({"dmCopies", mode.dmCopies});
}

std::int64_t Number(machine::PrinterHandle handle) {
    return static_cast<std::int64_t>(handle);
}

machine::PrinterInfoRecord InfoOf(const PrintQueue& queue) {
    return {queue.Status,
            StoredDevMode(queue),
            {{&machine::PRINTER_INFO_2::pPrinterName, base::text::ToCodePage(queue.Name)},
             {&machine::PRINTER_INFO_2::pShareName, ""},
             {&machine::PRINTER_INFO_2::pPortName, base::text::ToCodePage(queue.Port)},
             {&machine::PRINTER_INFO_2::pDriverName, base::text::ToCodePage(queue.Name)},
             {&machine::PRINTER_INFO_2::pComment, base::text::ToCodePage(queue.Comment)},
             {&machine::PRINTER_INFO_2::pLocation, ""},
             {&machine::PRINTER_INFO_2::pSepFile, ""},
             {&machine::PRINTER_INFO_2::pPrintProcessor, "winprint"},
             {&machine::PRINTER_INFO_2::pDatatype, "RAW"},
             {&machine::PRINTER_INFO_2::pParameters, ""}}};
}

template <class Rows>
std::vector<std::string> NamesOf(const Rows& rows) {
    std::vector<std::string> names;
    names.reserve(std::size(rows));
    for (const auto& row : rows) {
        names.push_back(base::text::ToCodePage(row.Name));
    }
    return names;
}

std::int32_t Answer(const PrintQueue& queue, std::uint16_t capability, void* output) {
    switch (capability) {
    case machine::DC_PAPERS:
        return machine::ListNumbers(NumbersOf(queue.Papers), output);
    case machine::DC_PAPERSIZE: {
        std::vector<machine::PaperSides> sides;
        for (const QueuePaper& paper : queue.Papers) {
            sides.push_back({paper.Width, paper.Height});
        }
        return machine::ListSides(sides, output);
    }
    case machine::DC_PAPERNAMES:
        return machine::ListNames(NamesOf(queue.Papers), machine::PaperNameBytes, output);
    case machine::DC_BINS:
        return machine::ListNumbers(NumbersOf(queue.Bins), output);
    case machine::DC_BINNAMES:
        return machine::ListNames(NamesOf(queue.Bins), machine::BinNameBytes, output);
    default:
        return machine::SpoolerFailed;
    }
}

} // namespace

PrintQueue* MemorySpooler::Reach(machine::PrinterHandle handle) {
    const auto found = handles_.find(handle);
    return found == handles_.end() || !found->second->Reachable ? nullptr : found->second;
}

std::string MemorySpooler::NameOf(machine::PrinterHandle handle) const {
    const auto found = handles_.find(handle);
    return found == handles_.end() ? std::string() : found->second->Name;
}

bool MemorySpooler::OpenPrinterA(const std::string& printer, machine::PrinterHandle& handle,
                                 const machine::PRINTER_DEFAULTS& defaults) {
    const std::string name = base::text::FromCodePage(printer);
    PrintQueue* queue = printers_.Find(name);
    const bool opened = !recorder_.TakeFailure("OpenPrinterA") && queue != nullptr && queue->Reachable;
    handle = 0;
    if (opened) {
        handle = ++lastHandle_;
        handles_[handle] = queue;
    }
    recorder_.Record({"spooler",
                      {{"call", "OpenPrinterA"},
                       {"printer", name},
                       {"access", defaults.DesiredAccess},
                       {"handle", Number(handle)},
                       {"result", opened}}});
    return opened;
}

bool MemorySpooler::ClosePrinter(machine::PrinterHandle handle) {
    const std::string name = NameOf(handle);
    const bool closed = !recorder_.TakeFailure("ClosePrinter") && handles_.erase(handle) == 1;
    recorder_.Record(
        {"spooler",
         {{"call", "ClosePrinter"}, {"printer", name}, {"handle", Number(handle)}, {"result", closed}}});
    return closed;
}

std::int32_t MemorySpooler::DocumentPropertiesA(machine::PrinterHandle handle, const std::string& printer,
                                                void* output, const void* input, std::uint32_t mode) {
    PrintQueue* queue = Reach(handle);
    Event event{"spooler",
                {{"call", "DocumentPropertiesA"},
                 {"printer", base::text::FromCodePage(printer)},
                 {"handle", Number(handle)},
                 {"mode", mode}}};
    std::int32_t result = machine::SpoolerFailed;
    std::vector<machine::DEVMODE> told;
    const auto give = [&](const PrintQueue& settings) {
        const std::vector<char> record = StoredDevMode(settings);
        std::memcpy(output, record.data(), record.size());
        told.push_back(machine::ReadDevMode(output));
        return machine::SpoolerSucceeded;
    };
    if (!recorder_.TakeFailure("DocumentPropertiesA") && queue != nullptr) {
        if (mode == 0) {
            result = static_cast<std::int32_t>(sizeof(machine::DEVMODE)) + DriverExtra;
        } else if (mode == machine::DM_OUT_BUFFER && output != nullptr) {
            result = give(*queue);
        } else if (mode == (machine::DM_IN_BUFFER | machine::DM_OUT_BUFFER) && output != nullptr &&
                   input != nullptr) {
            PrintQueue asked = *queue;
            asked.Defaults = Merged(*queue, machine::ReadDevMode(input));
            result = give(asked);
        }
    }
    event.Fields.push_back({"result", result});
    for (const machine::DEVMODE& settings : told) {
        AddSettings(event, settings);
    }
    recorder_.Record(event);
    return result;
}

bool MemorySpooler::GetPrinterA(machine::PrinterHandle handle, std::uint32_t level, void* buffer,
                                std::uint32_t size, std::uint32_t& needed) {
    PrintQueue* queue = Reach(handle);
    bool filled = false;
    needed = 0;
    if (!recorder_.TakeFailure("GetPrinterA") && queue != nullptr && level == machine::PrinterInfoLevel) {
        const machine::PrinterInfoRecord record = InfoOf(*queue);
        needed = record.Size();
        filled = record.WriteTo(buffer, size);
    }
    recorder_.Record({"spooler",
                      {{"call", "GetPrinterA"},
                       {"printer", NameOf(handle)},
                       {"handle", Number(handle)},
                       {"level", level},
                       {"size", size},
                       {"needed", needed},
                       {"result", filled}}});
    return filled;
}

bool MemorySpooler::SetPrinterA(machine::PrinterHandle handle, std::uint32_t level, const void* buffer,
                                std::uint32_t command) {
    PrintQueue* queue = Reach(handle);
    Event event{"spooler",
                {{"call", "SetPrinterA"},
                 {"printer", NameOf(handle)},
                 {"handle", Number(handle)},
                 {"level", level},
                 {"command", command}}};
    const std::optional<machine::DEVMODE> mode =
        level == machine::PrinterInfoLevel ? machine::SettingsIn(buffer) : std::nullopt;
    const bool refused = recorder_.TakeFailure("SetPrinterA");
    const bool written = !refused && queue != nullptr && command == 0 && mode;
    event.Fields.push_back({"result", written});
    if (mode) {
        AddSettings(event, *mode);
    }
    if (written) {
        queue->Defaults = Merged(*queue, *mode);
    }
    recorder_.Record(event);
    return written;
}

std::int32_t MemorySpooler::DeviceCapabilitiesA(const std::string& printer, const std::string& port,
                                                std::uint16_t capability, void* output) {
    const std::string name = base::text::FromCodePage(printer);
    const PrintQueue* queue = printers_.Find(name);
    std::int32_t result = machine::SpoolerFailed;
    if (!recorder_.TakeFailure("DeviceCapabilitiesA") && queue != nullptr && queue->Reachable) {
        result = Answer(*queue, capability, output);
    }
    recorder_.Record({"spooler",
                      {{"call", "DeviceCapabilitiesA"},
                       {"printer", name},
                       {"port", base::text::FromCodePage(port)},
                       {"capability", capability},
                       {"result", result}}});
    return result;
}

} // namespace memory
