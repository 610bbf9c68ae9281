#include "desktop/cups/CupsSpooler.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

#include "base/Units.h"
#include "desktop/cups/ShortNames.h"
#include "machine/SpoolerRecords.h"

namespace desktop::cups {

namespace {

constexpr double TwipsPerTenthMillimetre = base::TwipsPerInch / (10 * base::MillimetresPerInch);
constexpr std::uint16_t DevModeVersion = 0x0401;

constexpr std::uint32_t Bit(std::int32_t field) {
    return static_cast<std::uint32_t>(field);
}

/// True if the queue tells its own, and not a stand-in alone is offered.
template <class Item>
bool OffersItself(const std::vector<Item>& items) {
    return std::any_of(items.begin(), items.end(), [](const Item& item) { return !item.StandIn; });
}

machine::DEVMODE DevModeOf(const QueueSettings& settings) {
    machine::DEVMODE mode{};
    mode.dmOrientation = settings.Orientation;
    mode.dmPaperSize = settings.PaperId;
    mode.dmDefaultSource = settings.BinId;
    mode.dmCopies = settings.Copies;
    return mode;
}

std::vector<char> RecordOf(PrintQueue& queue, const QueueSettings& settings) {
    machine::DEVMODE mode = DevModeOf(settings);
    constexpr std::size_t name = sizeof mode.dmDeviceName;
    machine::PutName(mode.dmDeviceName, name, WholeCharacters(queue.Name(), name - 1));
    mode.dmSpecVersion = DevModeVersion;
    mode.dmFields = Bit(machine::DM_ORIENTATION);
    if (OffersItself(queue.Papers())) {
        mode.dmFields |= Bit(machine::DM_PAPERSIZE);
    }
    if (OffersItself(queue.Bins())) {
        mode.dmFields |= Bit(machine::DM_DEFAULTSOURCE);
    }
    return machine::DevModeRecord(mode);
}

template <class Item>
std::vector<std::int16_t> NumbersOf(const std::vector<Item>& items) {
    std::vector<std::int16_t> numbers;
    std::transform(items.begin(), items.end(), std::back_inserter(numbers),
                   [](const Item& item) { return item.Id; });
    return numbers;
}

/// The stored settings with those of `mode` in their place that the queue offers.
QueueSettings Merged(PrintQueue& queue, const machine::DEVMODE& mode) {
    QueueSettings settings = queue.ReadSettings();
    const machine::DEVMODE merged = machine::Merged(
        DevModeOf(settings), mode,
        {Bit(machine::DM_ORIENTATION) | Bit(machine::DM_PAPERSIZE) | Bit(machine::DM_DEFAULTSOURCE),
         NumbersOf(queue.Papers()), NumbersOf(queue.Bins())});
    settings.Orientation = merged.dmOrientation;
    settings.PaperId = merged.dmPaperSize;
    settings.BinId = merged.dmDefaultSource;
    return settings;
}

std::int32_t TenthsOfMillimetre(double twips) {
    return static_cast<std::int32_t>(std::lround(twips / TwipsPerTenthMillimetre));
}

std::vector<machine::PaperSides> SidesOf(const std::vector<Paper>& papers) {
    std::vector<machine::PaperSides> sides;
    std::transform(papers.begin(), papers.end(), std::back_inserter(sides), [](const Paper& paper) {
        return machine::PaperSides{TenthsOfMillimetre(paper.Width), TenthsOfMillimetre(paper.Height)};
    });
    return sides;
}

/// As machine::ListNames, of names that leave a byte of the field for the NUL that closes them.
template <class Item>
std::int32_t ListNamesOf(const std::vector<Item>& items, std::size_t bytes, void* output) {
    if (output == nullptr) {
        return static_cast<std::int32_t>(items.size()); // to tell names apart in few bytes is slow
    }
    std::vector<std::string> names;
    std::transform(items.begin(), items.end(), std::back_inserter(names),
                   [](const Item& item) { return item.Name; });
    return machine::ListNames(ShortNames(names, bytes - 1), bytes, output);
}

} // namespace

PrintQueue* CupsSpooler::OfHandle(machine::PrinterHandle handle) const {
    const auto found = open_.find(handle);
    return found == open_.end() ? nullptr : printers_.Find(found->second);
}

bool CupsSpooler::OpenPrinterA(const std::string& printer, machine::PrinterHandle& handle,
                               const machine::PRINTER_DEFAULTS&) {
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

bool CupsSpooler::ClosePrinter(machine::PrinterHandle handle) {
    return open_.erase(handle) == 1;
}

std::int32_t CupsSpooler::DocumentPropertiesA(machine::PrinterHandle handle, const std::string&, void* output,
                                              const void* input, std::uint32_t mode) {
    PrintQueue* queue = OfHandle(handle);
    if (queue == nullptr) {
        return machine::SpoolerFailed;
    }
    if (mode == 0) {
        return sizeof(machine::DEVMODE);
    }
    if (output == nullptr) {
        return machine::SpoolerFailed;
    }
    std::vector<char> answer;
    if (mode == machine::DM_OUT_BUFFER) {
        answer = RecordOf(*queue, queue->ReadSettings());
    } else if (mode == (machine::DM_IN_BUFFER | machine::DM_OUT_BUFFER) && input != nullptr) {
        answer = RecordOf(*queue, Merged(*queue, machine::ReadDevMode(input)));
    } else {
        return machine::SpoolerFailed;
    }
    std::copy(answer.begin(), answer.end(), static_cast<char*>(output));
    return machine::SpoolerSucceeded;
}

bool CupsSpooler::GetPrinterA(machine::PrinterHandle handle, std::uint32_t level, void* buffer,
                              std::uint32_t size, std::uint32_t& needed) {
    needed = 0;
    PrintQueue* queue = OfHandle(handle);
    if (queue == nullptr || level != machine::PrinterInfoLevel) {
        return false;
    }
    const machine::PrinterInfoRecord record(queue->Status(), RecordOf(*queue, queue->ReadSettings()),
                                            {{&machine::PRINTER_INFO_2::pPrinterName, queue->Name()},
                                             {&machine::PRINTER_INFO_2::pPortName, queue->Port()},
                                             {&machine::PRINTER_INFO_2::pDriverName, queue->Driver()},
                                             {&machine::PRINTER_INFO_2::pComment, queue->Comment()}});
    needed = record.Size();
    return record.WriteTo(buffer, size);
}

bool CupsSpooler::SetPrinterA(machine::PrinterHandle handle, std::uint32_t level, const void* buffer,
                              std::uint32_t command) {
    PrintQueue* queue = OfHandle(handle);
    if (queue == nullptr || level != machine::PrinterInfoLevel || command != 0) {
        return false;
    }
    const std::optional<machine::DEVMODE> mode = machine::SettingsIn(buffer);
    if (!mode) {
        return false;
    }
    queue->WriteSettings(Merged(*queue, *mode));
    return true;
}

std::int32_t CupsSpooler::DeviceCapabilitiesA(const std::string& printer, const std::string&,
                                              std::uint16_t capability, void* output) {
    PrintQueue* queue = printers_.Find(printer);
    if (queue == nullptr || (output == nullptr && !queue->Reachable())) {
        return machine::SpoolerFailed; // a count begins a reading of the lists, and they may have changed
    }
    switch (capability) {
    case machine::DC_PAPERS:
        return machine::ListNumbers(NumbersOf(queue->Papers()), output);
    case machine::DC_PAPERSIZE:
        return machine::ListSides(SidesOf(queue->Papers()), output);
    case machine::DC_PAPERNAMES:
        return ListNamesOf(queue->Papers(), machine::PaperNameBytes, output);
    case machine::DC_BINS:
        return machine::ListNumbers(NumbersOf(queue->Bins()), output);
    case machine::DC_BINNAMES:
        return ListNamesOf(queue->Bins(), machine::BinNameBytes, output);
    default:
        return machine::SpoolerFailed;
    }
}

} // namespace desktop::cups
