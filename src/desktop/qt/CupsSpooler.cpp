#include "desktop/cups/CupsSpooler.h"

#include "desktop/cups/ShortNames.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <string_view>
#include <vector>

namespace platform::qt {

namespace {

constexpr std::uint32_t InfoLevel = 2;
constexpr std::int32_t Succeeded = 1;
constexpr std::int32_t Failed = -1;
constexpr std::size_t PaperNameBytes = 64;
constexpr std::size_t BinNameBytes = 24;
constexpr double TwipsPerTenthMillimetre = 1440.0 / 254.0;
constexpr std::uint16_t DevModeVersion = 0x0401;

/// A text into a field of `size` bytes, closed by a NUL.
void PutText(char* field, std::size_t size, std::string_view text) {
    const std::string_view part = WholeCharacters(text, size - 1);
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

DEVMODE DevModeOf(PrintQueue& queue, const QueueSettings& settings) {
    DEVMODE mode{};
    PutText(mode.dmDeviceName, sizeof mode.dmDeviceName, queue.Name());
    mode.dmSpecVersion = DevModeVersion;
    mode.dmSize = sizeof(DEVMODE);
    mode.dmFields = Bit(DM_ORIENTATION);
    if (OffersItself(queue.Papers())) {
        mode.dmFields |= Bit(DM_PAPERSIZE);
    }
    if (OffersItself(queue.Bins())) {
        mode.dmFields |= Bit(DM_DEFAULTSOURCE);
    }
    mode.dmOrientation = settings.Orientation;
    mode.dmPaperSize = settings.PaperId;
    mode.dmDefaultSource = settings.BinId;
    mode.dmCopies = settings.Copies;
    return mode;
}

DEVMODE ReadDevMode(const void* bytes) {
    DEVMODE mode;
    std::memcpy(&mode, bytes, sizeof mode);
    return mode;
}

template <class Item>
bool Offers(const std::vector<Item>& items, std::int16_t id) {
    return std::any_of(items.begin(), items.end(), [id](const Item& item) { return item.Id == id; });
}

/// The stored settings with those of `mode` in their place that the queue offers.
QueueSettings Merged(PrintQueue& queue, const DEVMODE& mode) {
    QueueSettings settings = queue.ReadSettings();
    const auto has = [&mode](std::int32_t field) { return (mode.dmFields & Bit(field)) != 0; };
    if (has(DM_ORIENTATION) && (mode.dmOrientation == Portrait || mode.dmOrientation == Landscape)) {
        settings.Orientation = mode.dmOrientation;
    }
    if (has(DM_PAPERSIZE) && Offers(queue.Papers(), mode.dmPaperSize)) {
        settings.PaperId = mode.dmPaperSize;
    }
    if (has(DM_DEFAULTSOURCE) && Offers(queue.Bins(), mode.dmDefaultSource)) {
        settings.BinId = mode.dmDefaultSource;
    }
    return settings;
}

struct InfoText {
    char* PRINTER_INFO_2::*Member;
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
    void operator()(char*& at, const Paper& paper) const {
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
        for (const std::string& name : ShortNames(names, size - 1)) {
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

PrintQueue* CupsSpooler::OfHandle(PrinterHandle handle) const {
    const auto found = open_.find(handle);
    return found == open_.end() ? nullptr : printers_.Find(found->second);
}

bool CupsSpooler::OpenPrinterA(const std::string& printer, PrinterHandle& handle, const PRINTER_DEFAULTS&) {
    handle = 0;
    PrintQueue* queue = printers_.Find(printer);
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
    return std::string(WholeCharacters(bytes, bytes.size())); // a field's end may have cut the last one
}

std::string CupsSpooler::Trouble(const std::string& printer) {
    PrintQueue* queue = printers_.Find(printer);
    return queue == nullptr ? std::string() : queue->Trouble();
}

bool CupsSpooler::ClosePrinter(PrinterHandle handle) {
    return open_.erase(handle) == 1;
}

std::int32_t CupsSpooler::DocumentPropertiesA(PrinterHandle handle, const std::string&, void* output,
                                              const void* input, std::uint32_t mode) {
    PrintQueue* queue = OfHandle(handle);
    if (queue == nullptr) {
        return Failed;
    }
    if (mode == 0) {
        return sizeof(DEVMODE);
    }
    if (output == nullptr) {
        return Failed;
    }
    DEVMODE answer;
    if (mode == DM_OUT_BUFFER) {
        answer = DevModeOf(*queue, queue->ReadSettings());
    } else if (mode == (DM_IN_BUFFER | DM_OUT_BUFFER) && input != nullptr) {
        answer = DevModeOf(*queue, Merged(*queue, ReadDevMode(input)));
    } else {
        return Failed;
    }
    std::memcpy(output, &answer, sizeof answer);
    return Succeeded;
}

bool CupsSpooler::GetPrinterA(PrinterHandle handle, std::uint32_t level, void* buffer, std::uint32_t size,
                              std::uint32_t& needed) {
    needed = 0;
    PrintQueue* queue = OfHandle(handle);
    if (queue == nullptr || level != InfoLevel) {
        return false;
    }
    const std::array<InfoText, 4> texts = {{
        {&PRINTER_INFO_2::pPrinterName, queue->Name()},
        {&PRINTER_INFO_2::pPortName, queue->Port()},
        {&PRINTER_INFO_2::pDriverName, queue->Driver()},
        {&PRINTER_INFO_2::pComment, queue->Comment()},
    }};
    std::size_t total = sizeof(PRINTER_INFO_2) + sizeof(DEVMODE);
    for (const InfoText& each : texts) {
        total += each.Bytes.size() + 1;
    }
    needed = static_cast<std::uint32_t>(total);
    if (buffer == nullptr || size < needed) {
        return false;
    }
    PRINTER_INFO_2 info{};
    info.Status = queue->Status();
    char* at = static_cast<char*>(buffer) + sizeof info;
    info.pDevMode = reinterpret_cast<DEVMODE*>(at);
    Put(at, DevModeOf(*queue, queue->ReadSettings()));
    for (const InfoText& each : texts) {
        info.*each.Member = at;
        std::memcpy(at, each.Bytes.c_str(), each.Bytes.size() + 1);
        at += each.Bytes.size() + 1;
    }
    std::memcpy(buffer, &info, sizeof info);
    return true;
}

bool CupsSpooler::SetPrinterA(PrinterHandle handle, std::uint32_t level, const void* buffer,
                              std::uint32_t command) {
    PrintQueue* queue = OfHandle(handle);
    if (queue == nullptr || level != InfoLevel || buffer == nullptr || command != 0) {
        return false;
    }
    PRINTER_INFO_2 info;
    std::memcpy(&info, buffer, sizeof info);
    if (info.pDevMode == nullptr) {
        return false;
    }
    queue->WriteSettings(Merged(*queue, ReadDevMode(info.pDevMode)));
    return true;
}

std::int32_t CupsSpooler::DeviceCapabilitiesA(const std::string& printer, const std::string&,
                                              std::uint16_t capability, void* output) {
    PrintQueue* queue = printers_.Find(printer);
    if (queue == nullptr || (output == nullptr && !queue->Reachable())) {
        return Failed; // a count begins a reading of the lists, and they may have changed
    }
    switch (capability) {
    case DC_PAPERS:
        return List(output, queue->Papers(), PutId{});
    case DC_PAPERSIZE:
        return List(output, queue->Papers(), PutPaperSize{});
    case DC_PAPERNAMES:
        return ListNames(output, queue->Papers(), PaperNameBytes);
    case DC_BINS:
        return List(output, queue->Bins(), PutId{});
    case DC_BINNAMES:
        return ListNames(output, queue->Bins(), BinNameBytes);
    default:
        return Failed;
    }
}

} // namespace platform::qt
