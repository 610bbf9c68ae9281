#include "desktop/qt/CupsSpooler.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string_view>
#include <vector>

#include "base/Units.h"
#include "desktop/cups/ShortNames.h"

namespace desktop::qt {

namespace {

constexpr std::uint32_t InfoLevel = 2;
constexpr std::int32_t Succeeded = 1;
constexpr std::int32_t Failed = -1;
constexpr double TwipsPerTenthMillimetre = base::TwipsPerInch / (10 * base::MillimetresPerInch);
constexpr std::uint16_t DevModeVersion = 0x0401;

/// A text into a field of `size` bytes, closed by a NUL.
void PutText(char* field, std::size_t size, std::string_view text) {
    const std::string_view part = cups::WholeCharacters(text, size - 1);
    char* end = std::copy(part.begin(), part.end(), field);
    std::fill(end, field + size, '\0');
}

constexpr std::uint32_t Bit(std::int32_t field) {
    return static_cast<std::uint32_t>(field);
}

/// True if the queue tells its own, and not a stand-in alone is offered.
template <class Item>
bool OffersItself(const std::vector<Item>& items) {
    return std::any_of(items.begin(), items.end(), [](const Item& item) { return !item.StandIn; });
}

machine::DEVMODE DevModeOf(cups::PrintQueue& queue, const cups::QueueSettings& settings) {
    machine::DEVMODE mode{};
    PutText(mode.dmDeviceName, sizeof mode.dmDeviceName, queue.Name());
    mode.dmSpecVersion = DevModeVersion;
    mode.dmSize = sizeof(machine::DEVMODE);
    mode.dmFields = Bit(machine::DM_ORIENTATION);
    if (OffersItself(queue.Papers())) {
        mode.dmFields |= Bit(machine::DM_PAPERSIZE);
    }
    if (OffersItself(queue.Bins())) {
        mode.dmFields |= Bit(machine::DM_DEFAULTSOURCE);
    }
    mode.dmOrientation = settings.Orientation;
    mode.dmPaperSize = settings.PaperId;
    mode.dmDefaultSource = settings.BinId;
    mode.dmCopies = settings.Copies;
    return mode;
}

machine::DEVMODE ReadDevMode(const void* bytes) {
    machine::DEVMODE mode;
    std::memcpy(&mode, bytes, sizeof mode);
    return mode;
}

template <class Item>
bool Offers(const std::vector<Item>& items, std::int16_t id) {
    return std::any_of(items.begin(), items.end(), [id](const Item& item) { return item.Id == id; });
}

/// The stored settings with those of `mode` in their place that the queue offers.
cups::QueueSettings Merged(cups::PrintQueue& queue, const machine::DEVMODE& mode) {
    cups::QueueSettings settings = queue.ReadSettings();
    const auto has = [&mode](std::int32_t field) { return (mode.dmFields & Bit(field)) != 0; };
    if (has(machine::DM_ORIENTATION) &&
        (mode.dmOrientation == cups::Portrait || mode.dmOrientation == cups::Landscape)) {
        settings.Orientation = mode.dmOrientation;
    }
    if (has(machine::DM_PAPERSIZE) && Offers(queue.Papers(), mode.dmPaperSize)) {
        settings.PaperId = mode.dmPaperSize;
    }
    if (has(machine::DM_DEFAULTSOURCE) && Offers(queue.Bins(), mode.dmDefaultSource)) {
        settings.BinId = mode.dmDefaultSource;
    }
    return settings;
}

struct InfoText {
    char* machine::PRINTER_INFO_2::*Member;
    std::string Bytes;
};

/// Copies a value to a place in a caller's buffer, which need not be aligned, and moves the place on.
template <class Value>
void Put(char*& at, const Value& value) {
    std::memcpy(at, &value, sizeof value);
    at += sizeof value;
}

std::int32_t TenthsOfMillimetre(double twips) {
    return static_cast<std::int32_t>(std::lround(twips / TwipsPerTenthMillimetre));
}

struct PutId {
    template <class Item>
    void operator()(char*& at, const Item& item) const {
        Put(at, item.Id);
    }
};

struct PutPaperSize {
    void operator()(char*& at, const cups::Paper& paper) const {
        Put(at, TenthsOfMillimetre(paper.Width));
        Put(at, TenthsOfMillimetre(paper.Height));
    }
};

/// The number of items and, where there is a buffer, their names in `size` bytes each.
template <class Item>
std::int32_t ListNames(void* output, const std::vector<Item>& items, std::size_t size) {
    if (char* at = static_cast<char*>(output)) {
        std::vector<std::string> names;
        for (const Item& item : items) {
            names.push_back(item.Name);
        }
        for (const std::string& name : cups::ShortNames(names, size - 1)) {
            PutText(at, size, name);
            at += size;
        }
    }
    return static_cast<std::int32_t>(items.size());
}

/// The number of items and, where there is a buffer, their data.
template <class Item, class Write>
std::int32_t List(void* output, const std::vector<Item>& items, Write write) {
    if (char* at = static_cast<char*>(output)) {
        for (const Item& item : items) {
            write(at, item);
        }
    }
    return static_cast<std::int32_t>(items.size());
}

} // namespace

cups::PrintQueue* CupsSpooler::OfHandle(machine::PrinterHandle handle) const {
    const auto found = open_.find(handle);
    return found == open_.end() ? nullptr : printers_.Find(found->second);
}

bool CupsSpooler::OpenPrinterA(const std::string& printer, machine::PrinterHandle& handle,
                               const machine::PRINTER_DEFAULTS&) {
    handle = 0;
    cups::PrintQueue* queue = printers_.Find(printer);
    if (queue == nullptr) {
        return false;
    }
    queue->CouldNotBeOpened = !queue->Reachable();
    if (queue->CouldNotBeOpened) {
        return false;
    }
    handle = ++last_;
    open_[handle] = queue->Name();
    return true;
}

std::string CupsSpooler::Decode(std::string_view bytes) const {
    return std::string(cups::WholeCharacters(bytes, bytes.size())); // a field's end may have cut the last one
}

std::string CupsSpooler::Trouble(const std::string& printer) {
    cups::PrintQueue* queue = printers_.Find(printer);
    return queue == nullptr ? std::string() : queue->Trouble();
}

bool CupsSpooler::ClosePrinter(machine::PrinterHandle handle) {
    return open_.erase(handle) == 1;
}

std::int32_t CupsSpooler::DocumentPropertiesA(machine::PrinterHandle handle, const std::string&, void* output,
                                              const void* input, std::uint32_t mode) {
    cups::PrintQueue* queue = OfHandle(handle);
    if (queue == nullptr) {
        return Failed;
    }
    if (mode == 0) {
        return sizeof(machine::DEVMODE);
    }
    if (output == nullptr) {
        return Failed;
    }
    machine::DEVMODE answer;
    if (mode == machine::DM_OUT_BUFFER) {
        answer = DevModeOf(*queue, queue->ReadSettings());
    } else if (mode == (machine::DM_IN_BUFFER | machine::DM_OUT_BUFFER) && input != nullptr) {
        answer = DevModeOf(*queue, Merged(*queue, ReadDevMode(input)));
    } else {
        return Failed;
    }
    std::memcpy(output, &answer, sizeof answer);
    return Succeeded;
}

bool CupsSpooler::GetPrinterA(machine::PrinterHandle handle, std::uint32_t level, void* buffer,
                              std::uint32_t size, std::uint32_t& needed) {
    needed = 0;
    cups::PrintQueue* queue = OfHandle(handle);
    if (queue == nullptr || level != InfoLevel) {
        return false;
    }
    const std::array<InfoText, 4> texts = {{
        {&machine::PRINTER_INFO_2::pPrinterName, queue->Name()},
        {&machine::PRINTER_INFO_2::pPortName, queue->Port()},
        {&machine::PRINTER_INFO_2::pDriverName, queue->Driver()},
        {&machine::PRINTER_INFO_2::pComment, queue->Comment()},
    }};
    std::size_t total = sizeof(machine::PRINTER_INFO_2) + sizeof(machine::DEVMODE);
    for (const InfoText& each : texts) {
        total += each.Bytes.size() + 1;
    }
    needed = static_cast<std::uint32_t>(total);
    if (buffer == nullptr || size < needed) {
        return false;
    }
    machine::PRINTER_INFO_2 info{};
    info.Status = queue->Status();
    char* at = static_cast<char*>(buffer) + sizeof info;
    info.pDevMode = reinterpret_cast<machine::DEVMODE*>(at);
    Put(at, DevModeOf(*queue, queue->ReadSettings()));
    for (const InfoText& each : texts) {
        info.*each.Member = at;
        std::memcpy(at, each.Bytes.c_str(), each.Bytes.size() + 1);
        at += each.Bytes.size() + 1;
    }
    std::memcpy(buffer, &info, sizeof info);
    return true;
}

bool CupsSpooler::SetPrinterA(machine::PrinterHandle handle, std::uint32_t level, const void* buffer,
                              std::uint32_t command) {
    cups::PrintQueue* queue = OfHandle(handle);
    if (queue == nullptr || level != InfoLevel || buffer == nullptr || command != 0) {
        return false;
    }
    machine::PRINTER_INFO_2 info;
    std::memcpy(&info, buffer, sizeof info);
    if (info.pDevMode == nullptr) {
        return false;
    }
    queue->WriteSettings(Merged(*queue, ReadDevMode(info.pDevMode)));
    return true;
}

std::int32_t CupsSpooler::DeviceCapabilitiesA(const std::string& printer, const std::string&,
                                              std::uint16_t capability, void* output) {
    cups::PrintQueue* queue = printers_.Find(printer);
    if (queue == nullptr || (output == nullptr && !queue->Reachable())) {
        return Failed; // a count begins a reading of the lists, and they may have changed
    }
    switch (capability) {
    case machine::DC_PAPERS:
        return List(output, queue->Papers(), PutId{});
    case machine::DC_PAPERSIZE:
        return List(output, queue->Papers(), PutPaperSize{});
    case machine::DC_PAPERNAMES:
        return ListNames(output, queue->Papers(), machine::PaperNameBytes);
    case machine::DC_BINS:
        return List(output, queue->Bins(), PutId{});
    case machine::DC_BINNAMES:
        return ListNames(output, queue->Bins(), machine::BinNameBytes);
    default:
        return Failed;
    }
}

} // namespace desktop::qt
