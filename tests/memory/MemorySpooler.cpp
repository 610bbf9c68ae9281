#include "memory/MemorySpooler.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <utility>
#include <vector>

#include "base/Text.h"

namespace memory {

namespace {

constexpr std::uint32_t LevelOfPrinterInfo = 2;
constexpr std::size_t PaperNameBytes = 64;
constexpr std::size_t BinNameBytes = 24;
constexpr std::int32_t Succeeded = 1;
constexpr std::int32_t Failed = -1;
constexpr char DriverByte = 'd';

using FullDevMode = std::vector<char>;

/// Copies a text into a field of fixed size; a text that fills it has no closing NUL.
void PutName(char* field, std::size_t size, const std::string& name) {
    const std::string bytes = base::text::ToCodePage(name);
    std::fill_n(field, size, '\0');
    std::copy_n(bytes.begin(), std::min(size, bytes.size()), field);
}

FullDevMode StoredDevMode(const PrintQueue& queue) {
    machine::DEVMODE mode{};
    PutName(mode.dmDeviceName, sizeof mode.dmDeviceName - 1, queue.Name);
    mode.dmSize = sizeof(machine::DEVMODE);
    mode.dmDriverExtra = MemorySpooler::DriverExtra;
    mode.dmFields = queue.Fields;
    mode.dmOrientation = queue.Defaults.Orientation;
    mode.dmPaperSize = queue.Defaults.PaperSize;
    mode.dmDefaultSource = queue.Defaults.DefaultSource;
    mode.dmCopies = queue.Defaults.Copies;
    FullDevMode bytes(sizeof mode + MemorySpooler::DriverExtra, DriverByte);
    std::memcpy(bytes.data(), &mode, sizeof mode);
    return bytes;
}

machine::DEVMODE ReadDevMode(const void* bytes) {
    machine::DEVMODE mode;
    std::memcpy(&mode, bytes, sizeof mode);
    return mode;
}

template <class Rows>
bool Offers(const Rows& rows, std::int16_t id) {
    return std::any_of(rows.begin(), rows.end(), [id](const auto& row) { return row.Id == id; });
}

/// The settings of `mode` that the driver offers and takes, over the stored ones.
QueueDefaults Merged(const PrintQueue& queue, const machine::DEVMODE& mode) {
    const std::uint32_t fields = mode.dmFields & queue.Fields;
    const auto has = [fields](std::int32_t bit) { return (fields & static_cast<std::uint32_t>(bit)) != 0; };
    QueueDefaults merged = queue.Defaults;
    if (has(machine::DM_ORIENTATION) && (mode.dmOrientation == 1 || mode.dmOrientation == 2)) {
        merged.Orientation = mode.dmOrientation;
    }
    if (has(machine::DM_PAPERSIZE) && Offers(queue.Papers, mode.dmPaperSize)) {
        merged.PaperSize = mode.dmPaperSize;
    }
    if (has(machine::DM_DEFAULTSOURCE) && Offers(queue.Bins, mode.dmDefaultSource)) {
        merged.DefaultSource = mode.dmDefaultSource;
    }
    if (has(machine::DM_COPIES) && mode.dmCopies > 0) {
        merged.Copies = mode.dmCopies;
    }
    return merged;
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

/// A PRINTER_INFO_2 with its texts and its DEVMODE behind it, in the caller's buffer.
class InfoWriter {
  public:
    explicit InfoWriter(const PrintQueue& queue)
        : devMode_(StoredDevMode(queue)),
          texts_({{&machine::PRINTER_INFO_2::pPrinterName, base::text::ToCodePage(queue.Name)},
                  {&machine::PRINTER_INFO_2::pShareName, ""},
                  {&machine::PRINTER_INFO_2::pPortName, base::text::ToCodePage(queue.Port)},
                  {&machine::PRINTER_INFO_2::pDriverName, base::text::ToCodePage(queue.Name)},
                  {&machine::PRINTER_INFO_2::pComment, base::text::ToCodePage(queue.Comment)},
                  {&machine::PRINTER_INFO_2::pLocation, ""},
                  {&machine::PRINTER_INFO_2::pSepFile, ""},
                  {&machine::PRINTER_INFO_2::pPrintProcessor, "winprint"},
                  {&machine::PRINTER_INFO_2::pDatatype, "RAW"},
                  {&machine::PRINTER_INFO_2::pParameters, ""}}) {
        info_.Status = queue.Status;
    }

    std::uint32_t Needed() const {
        std::size_t size = sizeof info_ + devMode_.size();
        for (const auto& [member, bytes] : texts_) {
            size += bytes.size() + 1;
        }
        return static_cast<std::uint32_t>(size);
    }

    void WriteTo(char* buffer) {
        char* at = buffer + sizeof info_;
        std::memcpy(at, devMode_.data(), devMode_.size());
        info_.pDevMode = reinterpret_cast<machine::DEVMODE*>(at);
        at += devMode_.size();
        for (const auto& [member, bytes] : texts_) {
            std::memcpy(at, bytes.c_str(), bytes.size() + 1);
            info_.*member = at;
            at += bytes.size() + 1;
        }
        std::memcpy(buffer, &info_, sizeof info_);
    }

  private:
    FullDevMode devMode_;
    std::vector<std::pair<char * machine::PRINTER_INFO_2::*, std::string>> texts_;
    machine::PRINTER_INFO_2 info_{};
};

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
    std::int32_t result = Failed;
    std::vector<machine::DEVMODE> told;
    if (!recorder_.TakeFailure("DocumentPropertiesA") && queue != nullptr) {
        if (mode == 0) {
            result = static_cast<std::int32_t>(sizeof(machine::DEVMODE)) + DriverExtra;
        } else if (mode == machine::DM_OUT_BUFFER && output != nullptr) {
            const FullDevMode stored = StoredDevMode(*queue);
            std::memcpy(output, stored.data(), stored.size());
            result = Succeeded;
            told.push_back(ReadDevMode(output));
        } else if (mode == (machine::DM_IN_BUFFER | machine::DM_OUT_BUFFER) && output != nullptr &&
                   input != nullptr) {
            PrintQueue asked = *queue;
            asked.Defaults = Merged(*queue, ReadDevMode(input));
            const FullDevMode merged = StoredDevMode(asked);
            std::memcpy(output, merged.data(), merged.size());
            result = Succeeded;
            told.push_back(ReadDevMode(output));
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
    if (!recorder_.TakeFailure("GetPrinterA") && queue != nullptr && level == LevelOfPrinterInfo) {
        InfoWriter writer(*queue);
        needed = writer.Needed();
        if (buffer != nullptr && size >= needed) {
            writer.WriteTo(static_cast<char*>(buffer));
            filled = true;
        }
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
    machine::PRINTER_INFO_2 info{};
    if (level == LevelOfPrinterInfo && buffer != nullptr) {
        std::memcpy(&info, buffer, sizeof info);
    }
    const bool refused = recorder_.TakeFailure("SetPrinterA");
    const bool written = !refused && queue != nullptr && command == 0 && info.pDevMode != nullptr;
    event.Fields.push_back({"result", written});
    if (info.pDevMode != nullptr) {
        const machine::DEVMODE mode = ReadDevMode(info.pDevMode);
        AddSettings(event, mode);
        if (written) {
            queue->Defaults = Merged(*queue, mode);
        }
    }
    recorder_.Record(event);
    return written;
}

std::int32_t MemorySpooler::DeviceCapabilitiesA(const std::string& printer, const std::string& port,
                                                std::uint16_t capability, void* output) {
    const std::string name = base::text::FromCodePage(printer);
    const PrintQueue* queue = printers_.Find(name);
    std::int32_t result = Failed;
    if (!recorder_.TakeFailure("DeviceCapabilitiesA") && queue != nullptr && queue->Reachable) {
        char* at = static_cast<char*>(output);
        const auto put = [&at](const auto& value) {
            std::memcpy(at, &value, sizeof value);
            at += sizeof value;
        };
        const auto putName = [&at](const std::string& text, std::size_t size) {
            PutName(at, size, text);
            at += size;
        };
        switch (capability) {
        case machine::DC_PAPERS:
        case machine::DC_PAPERSIZE:
        case machine::DC_PAPERNAMES:
            result = static_cast<std::int32_t>(queue->Papers.size());
            for (const QueuePaper& paper : queue->Papers) {
                if (output == nullptr) {
                    break;
                }
                if (capability == machine::DC_PAPERS) {
                    put(paper.Id);
                } else if (capability == machine::DC_PAPERSIZE) {
                    put(paper.Width);
                    put(paper.Height);
                } else {
                    putName(paper.Name, PaperNameBytes);
                }
            }
            break;
        case machine::DC_BINS:
        case machine::DC_BINNAMES:
            result = static_cast<std::int32_t>(queue->Bins.size());
            for (const QueueBin& bin : queue->Bins) {
                if (output == nullptr) {
                    break;
                }
                if (capability == machine::DC_BINS) {
                    put(bin.Id);
                } else {
                    putName(bin.Name, BinNameBytes);
                }
            }
            break;
        default:
            break;
        }
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
