#include "desktop/windows/WinPrinters.h"

#include <algorithm>
#include <chrono>

#include "desktop/windows/Win32.h"

#include "desktop/windows/PrinterQuestions.h"
#include "desktop/windows/WideText.h"
#include "machine/PrinterErrors.h"

namespace desktop::windows {

namespace {

/// Level 4 is the one list that asks no other machine: a print server that is gone would hold up the program
/// for seconds.
constexpr DWORD Level = 4;
constexpr DWORD Kinds = PRINTER_ENUM_LOCAL | PRINTER_ENUM_CONNECTIONS;
constexpr DWORD LargestList = 16U << 20U;

/// An action of the user asks for a condition many times over; and a printer that does not answer for so long
/// is not there.
constexpr std::chrono::milliseconds MomentAgo{1000};
constexpr std::chrono::milliseconds Patience{3000};
/// The papers of a printer change when its driver does.
constexpr std::chrono::minutes SheetsLast{10};

/// The list of the user's devices has a line "winspool,port" for each printer.
std::string PortOf(const wchar_t* printer) {
    wchar_t line[512];
    const DWORD length =
        ::GetProfileStringW(L"devices", printer, L"", line, static_cast<DWORD>(std::size(line)));
    const std::wstring_view device(line, length);
    const std::size_t comma = device.find(L',');
    if (comma == std::wstring_view::npos) {
        return {};
    }
    const std::wstring_view port = device.substr(comma + 1);
    return FromWide(port.substr(0, port.find(L',')));
}

std::vector<machine::PrinterEntry> FindPrinters() {
    DWORD needed = 0;
    DWORD count = 0;
    std::vector<BYTE> buffer;
    while (::EnumPrintersW(Kinds, nullptr, Level, buffer.data(), static_cast<DWORD>(buffer.size()), &needed,
                           &count) == FALSE) {
        if (::GetLastError() != ERROR_INSUFFICIENT_BUFFER || needed <= buffer.size() ||
            needed > LargestList) {
            return {};
        }
        buffer.resize(needed);
    }
    std::vector<machine::PrinterEntry> entries;
    const auto* infos = reinterpret_cast<const PRINTER_INFO_4W*>(buffer.data());
    for (DWORD i = 0; i < count; ++i) {
        if (infos[i].pPrinterName != nullptr) {
            entries.push_back({FromWide(infos[i].pPrinterName), PortOf(infos[i].pPrinterName)});
        }
    }
    return entries;
}

std::string DefaultName() {
    DWORD size = 0;
    ::GetDefaultPrinterW(nullptr, &size);
    std::wstring name(size, L'\0');
    if (size == 0 || ::GetDefaultPrinterW(name.data(), &size) == FALSE) {
        return {};
    }
    return FromWide(name.c_str());
}

} // namespace

void WinPrinters::Refresh() {
    entries_ = FindPrinters();
    sheets_.clear(); // one that could not be told may be known now
    loaded_ = true;
}

const std::vector<machine::PrinterEntry>& WinPrinters::Entries() {
    if (!loaded_) {
        Refresh();
    }
    return entries_;
}

int WinPrinters::Count() {
    return static_cast<int>(Entries().size());
}

machine::PrinterEntry WinPrinters::Item(int index) {
    if (index < 0 || index >= Count()) {
        throw machine::NoSuchPrinter();
    }
    return entries_[static_cast<std::size_t>(index)];
}

machine::PrinterCondition WinPrinters::Condition(int index) {
    const std::string name = Item(index).DeviceName;
    Inquiry<machine::PrinterCondition>& inquiry = conditions_[name];
    machine::PrinterCondition condition = inquiry.Ask([name] { return AskCondition(name); }, MomentAgo)
                                              .value_or(machine::PrinterCondition{.Name = name});
    condition.Reachable = condition.Reachable && inquiry.Waiting() < Patience;
    return condition;
}

std::optional<machine::SheetArea> WinPrinters::SheetOf(int index, std::int16_t paper,
                                                       std::int16_t orientation) {
    const std::string name = Item(index).DeviceName;
    return sheets_[{name, paper, orientation}]
        .Ask([=] { return AskSheet(name, paper, orientation); }, SheetsLast)
        .value_or(std::nullopt);
}

int WinPrinters::DefaultIndex() {
    const std::vector<machine::PrinterEntry>& entries = Entries();
    if (entries.empty()) {
        return -1;
    }
    const std::string name = DefaultName();
    const auto found =
        std::find_if(entries.begin(), entries.end(),
                     [&name](const machine::PrinterEntry& entry) { return entry.DeviceName == name; });
    return found == entries.end() ? 0 : static_cast<int>(found - entries.begin());
}

} // namespace desktop::windows
