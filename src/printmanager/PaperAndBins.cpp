#include "printmanager/PaperAndBins.h"

#include <cstddef>
#include <string_view>

#include "base/RuntimeError.h"
#include "machine/Printer.h"
#include "machine/Spooler.h"
#include "printmanager/DevModeField.h"

namespace printmanager {

namespace {

/// The driver's answers for one printer. The driver knows no size of a buffer and may tell more at one call
/// than at the one before.
class Capabilities {
  public:
    Capabilities(machine::Spooler& spooler, const machine::PrinterEntry& printer)
        : spooler_(spooler), name_(spooler.Encode(printer.DeviceName)), port_(spooler.Encode(printer.Port)) {}

    /// Number of entries, at least one.
    std::size_t Count(std::uint16_t capability) const {
        const std::int32_t count = Ask(capability, nullptr);
        if (count < 1 || static_cast<std::size_t>(count) > machine::MostDriverEntries) {
            throw base::SubscriptOutOfRange();
        }
        return static_cast<std::size_t>(count);
    }

    /// `count` values; `returned` is the number that the driver told with them.
    template <class Value>
    std::vector<Value> Read(std::uint16_t capability, std::size_t count, std::int32_t& returned) const {
        std::vector<Value> values(count + machine::SpareDriverEntries);
        returned = Ask(capability, values.data());
        values.resize(count);
        return values;
    }

    /// `count` names, of which the driver fills the first `told`, `width` bytes each. A name has to end in a
    /// NUL.
    std::vector<std::string> ReadNames(std::uint16_t capability, std::size_t width, std::size_t count,
                                       std::int32_t told) const {
        if (told < 0 || static_cast<std::size_t>(told) > count) {
            throw base::SubscriptOutOfRange();
        }
        std::string text((count + machine::SpareDriverEntries) * width, '\0');
        Ask(capability, text.data());
        std::vector<std::string> names(count);
        for (std::size_t i = 0; i < static_cast<std::size_t>(told); ++i) {
            const std::string_view name = std::string_view(text).substr(i * width, width);
            const std::size_t end = name.find('\0');
            if (end == std::string_view::npos) {
                throw base::SubscriptOutOfRange();
            }
            names[i] = spooler_.Decode(name.substr(0, end));
        }
        return names;
    }

  private:
    std::int32_t Ask(std::uint16_t capability, void* output) const {
        return spooler_.DeviceCapabilitiesA(name_, port_, capability, output);
    }

    machine::Spooler& spooler_;
    std::string name_;
    std::string port_;
};

void ReadLists(machine::Platform& platform, const std::string& printer, PaperAndBins& lists) {
    const machine::PrinterEntry entry = platform.Printers.Item(FindPrinter(platform.Printers, printer));
    const Capabilities driver(platform.Spooler, entry);
    std::int32_t told = 0;

    const std::size_t papers = driver.Count(machine::DC_PAPERNAMES);
    lists.PaperIds = driver.Read<std::int16_t>(machine::DC_PAPERS, papers, told);
    lists.PaperNames = driver.ReadNames(machine::DC_PAPERNAMES, machine::PaperNameBytes, papers, told);
    lists.PaperSizes = driver.Read<PaperDimensions>(machine::DC_PAPERSIZE, papers, told);

    const std::size_t bins = driver.Count(machine::DC_BINS);
    lists.BinIds = driver.Read<std::int16_t>(machine::DC_BINS, bins, told);
    lists.BinNames = driver.ReadNames(machine::DC_BINNAMES, machine::BinNameBytes, bins, told);

    lists.CurrentPaper = GetDevModeField(platform.Spooler, printer, machine::DM_PAPERSIZE);
    lists.CurrentBin = GetDevModeField(platform.Spooler, printer, machine::DM_DEFAULTSOURCE);
}

} // namespace

std::int16_t GetPaperAndBins(machine::Platform& platform, const std::string& printer, PaperAndBins& lists) {
    try {
        ReadLists(platform, printer, lists);
        return 0;
    } catch (const base::RuntimeError&) { // the result tells
        return -1;
    }
}

int FindPrinter(machine::Printers& printers, const std::string& name) {
    const int count = printers.Count();
    for (int i = 0; i < count; ++i) {
        if (printers.Item(i).DeviceName == name) {
            return i;
        }
    }
    return -1;
}

} // namespace printmanager
