#include "machine/SpoolerRecords.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "machine/Printer.h"

namespace machine {

namespace {

template <class Value>
void Put(char*& at, const Value& value) {
    std::memcpy(at, &value, sizeof value);
    at += sizeof value;
}

template <class Entry, class PutEntry>
std::int32_t List(const std::vector<Entry>& entries, void* output, PutEntry putEntry) {
    if (char* at = static_cast<char*>(output)) {
        for (const Entry& entry : entries) {
            putEntry(at, entry);
        }
    }
    return static_cast<std::int32_t>(entries.size());
}

bool Has(const std::vector<std::int16_t>& codes, std::int16_t code) {
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

} // namespace

void PutName(char* field, std::size_t size, std::string_view name) {
    const std::string_view part = name.substr(0, size);
    char* const end = std::copy(part.begin(), part.end(), field);
    std::fill(end, field + size, '\0');
}

std::vector<char> DevModeRecord(DEVMODE mode, std::string_view driversBytes) {
    mode.dmSize = sizeof mode;
    mode.dmDriverExtra = static_cast<std::uint16_t>(driversBytes.size());
    std::vector<char> record(sizeof mode + driversBytes.size());
    std::memcpy(record.data(), &mode, sizeof mode);
    std::copy(driversBytes.begin(), driversBytes.end(), record.begin() + sizeof mode);
    return record;
}

DEVMODE ReadDevMode(const void* record) {
    DEVMODE mode;
    std::memcpy(&mode, record, sizeof mode);
    return mode;
}

bool Sets(const DEVMODE& mode, std::int32_t field) {
    return (mode.dmFields & static_cast<std::uint32_t>(field)) != 0;
}

DEVMODE Merged(DEVMODE stored, const DEVMODE& asked, const SettingsOffer& offer) {
    const auto sets = [&](std::int32_t field) {
        return Sets(asked, field) && (offer.Fields & static_cast<std::uint32_t>(field)) != 0;
    };
    if (sets(DM_ORIENTATION) && (asked.dmOrientation == Portrait || asked.dmOrientation == Landscape)) {
        stored.dmOrientation = asked.dmOrientation;
    }
    if (sets(DM_PAPERSIZE) && Has(offer.Papers, asked.dmPaperSize)) {
        stored.dmPaperSize = asked.dmPaperSize;
    }
    if (sets(DM_DEFAULTSOURCE) && Has(offer.Bins, asked.dmDefaultSource)) {
        stored.dmDefaultSource = asked.dmDefaultSource;
    }
    if (sets(DM_COPIES) && asked.dmCopies > 0) {
        stored.dmCopies = asked.dmCopies;
    }
    return stored;
}

PrinterInfoRecord::PrinterInfoRecord(std::uint32_t status, std::vector<char> devMode,
                                     std::vector<PrinterInfoText> texts)
    : status_(status), devMode_(std::move(devMode)), texts_(std::move(texts)) {}

std::uint32_t PrinterInfoRecord::Size() const {
    std::size_t size = sizeof(PRINTER_INFO_2) + devMode_.size();
    for (const PrinterInfoText& text : texts_) {
        size += text.Bytes.size() + 1;
    }
    return static_cast<std::uint32_t>(size);
}

bool PrinterInfoRecord::WriteTo(void* buffer, std::uint32_t size) const {
    if (buffer == nullptr || size < Size()) {
        return false;
    }
    PRINTER_INFO_2 info{};
    info.Status = status_;
    char* at = static_cast<char*>(buffer) + sizeof info;
    info.pDevMode = reinterpret_cast<DEVMODE*>(at);
    at = std::copy(devMode_.begin(), devMode_.end(), at);
    for (const PrinterInfoText& text : texts_) {
        info.*text.Member = at;
        std::memcpy(at, text.Bytes.c_str(), text.Bytes.size() + 1);
        at += text.Bytes.size() + 1;
    }
    std::memcpy(buffer, &info, sizeof info);
    return true;
}

std::optional<DEVMODE> SettingsIn(const void* printerInfo) {
    if (printerInfo == nullptr) {
        return std::nullopt;
    }
    PRINTER_INFO_2 info;
    std::memcpy(&info, printerInfo, sizeof info);
    return info.pDevMode == nullptr ? std::nullopt : std::optional(ReadDevMode(info.pDevMode));
}

std::int32_t ListNumbers(const std::vector<std::int16_t>& numbers, void* output) {
    return List(numbers, output, [](char*& at, std::int16_t number) { Put(at, number); });
}

std::int32_t ListSides(const std::vector<PaperSides>& papers, void* output) {
    return List(papers, output, [](char*& at, const PaperSides& paper) {
        Put(at, paper.Width);
        Put(at, paper.Height);
    });
}

std::int32_t ListNames(const std::vector<std::string>& names, std::size_t bytes, void* output) {
    return List(names, output, [bytes](char*& at, const std::string& name) {
        PutName(at, bytes, name);
        at += bytes;
    });
}

} // namespace machine
