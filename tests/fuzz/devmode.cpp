// A driver that answers what it likes: counts that lie, names without an end, sizes out of all bounds,
// pointers to nowhere. The lists, the stored defaults and the print manager have to live with it.
//
// A seed has an answer to a line, its name and its numbers; where the program asks again, the next number is
// the answer, and behind the last one the first again.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "Input.h"
#include "Require.h"
#include "forms/Session.h"
#include "machine/Spooler.h"
#include "memory/MemoryPlatform.h"
#include "printmanager/DevModeField.h"
#include "printmanager/PaperAndBins.h"
#include "printmanager/PrintCaller.h"
#include "printmanager/PrinterInfo.h"
#include "printmanager/frmPrintManager.h"

namespace {

using machine::DEVMODE;
using machine::PRINTER_INFO_2;
using std::string;
using std::string_view;

/// What the program puts behind each buffer for drivers that write more than they told.
constexpr std::size_t BytesBehind = 128;
constexpr std::size_t EntriesBehind = 1024;

/// The answers of a seed.
class Answers {
  public:
    explicit Answers(fuzz::Input input) {
        while (!input.Empty()) {
            fuzz::Input line(input.Line());
            const string name(line.Word());
            texts_[name] = line.Rest();
            numbers_[name].Values = line.TakeAll<std::int64_t>();
        }
    }

    /// The next number of this name; `preset` if the seed has none.
    std::int64_t Next(const string& name, std::int64_t preset) {
        const auto found = numbers_.find(name);
        if (found == numbers_.end() || found->second.Values.empty()) {
            return preset;
        }
        Series& series = found->second;
        return series.Values[series.At++ % series.Values.size()];
    }
    std::int32_t Next32(const string& name, std::int32_t preset) {
        return static_cast<std::int32_t>(Next(name, preset));
    }
    string_view Text(const string& name) const {
        const auto found = texts_.find(name);
        return found == texts_.end() ? string_view() : found->second;
    }

  private:
    struct Series {
        std::vector<std::int64_t> Values;
        std::size_t At = 0;
    };
    std::map<string, string_view> texts_;
    std::map<string, Series> numbers_;
};

/// The text over and over.
void Fill(void* to, std::size_t size, string_view pattern) {
    auto* const bytes = static_cast<char*>(to);
    for (std::size_t i = 0; i < size; ++i) {
        bytes[i] = pattern.empty() ? '\0' : pattern[i % pattern.size()];
    }
}

class HostileSpooler : public machine::Spooler {
  public:
    explicit HostileSpooler(Answers& answers) : answers_(answers) {}
    HostileSpooler(const HostileSpooler&) = delete;
    HostileSpooler& operator=(const HostileSpooler&) = delete;

    bool OpenPrinterA(const string&, machine::PrinterHandle& handle,
                      const machine::PRINTER_DEFAULTS& defaults) override {
        REQUIRE(defaults.DesiredAccess == machine::PrinterAccessUse);
        handle = static_cast<machine::PrinterHandle>(answers_.Next("handle", 1));
        return answers_.Next("open", 1) != 0;
    }
    bool ClosePrinter(machine::PrinterHandle handle) override {
        REQUIRE(handle != 0);
        return answers_.Next("close", 1) != 0;
    }

    std::int32_t DocumentPropertiesA(machine::PrinterHandle, const string&, void* output, const void* input,
                                     std::uint32_t mode) override {
        if (mode == 0) {
            told_ = answers_.Next32("size", sizeof(DEVMODE));
            return told_;
        }
        REQUIRE(told_ >= 0 && output != nullptr);
        REQUIRE((mode & machine::DM_IN_BUFFER) == 0 || input != nullptr);
        const bool isMerge = (mode & machine::DM_IN_BUFFER) != 0;
        const std::int32_t result = answers_.Next32(isMerge ? "merge" : "fetch", 1);
        if (isMerge) {
            mayRead_ = Sum(input, Settings());
        }
        WriteSettings(output);
        return result;
    }

    bool GetPrinterA(machine::PrinterHandle, std::uint32_t level, void* buffer, std::uint32_t size,
                     std::uint32_t& needed) override {
        REQUIRE(level == 2);
        needed = static_cast<std::uint32_t>(answers_.Next("needed", sizeof(PRINTER_INFO_2)));
        if (size == 0) {
            return answers_.Next("info-size", 0) != 0;
        }
        REQUIRE(buffer != nullptr && size >= sizeof(PRINTER_INFO_2));
        const std::size_t most = std::min<std::size_t>(size, 4096);
        Fill(buffer, most, answers_.Text("info-text"));
        PRINTER_INFO_2 info{};
        std::memcpy(&info, buffer, sizeof info);
        const auto begin = reinterpret_cast<std::uintptr_t>(buffer);
        info.pPrinterName = PointerFrom(begin, "name");
        info.pPortName = PointerFrom(begin, "port");
        info.pComment = PointerFrom(begin, "comment");
        info.Status = static_cast<std::uint32_t>(answers_.Next("status", 0));
        std::memcpy(buffer, &info, sizeof info);
        return answers_.Next("info", 1) != 0;
    }

    bool SetPrinterA(machine::PrinterHandle, std::uint32_t level, const void* buffer,
                     std::uint32_t command) override {
        REQUIRE(level == 2 && command == 0);
        PRINTER_INFO_2 info;
        std::memcpy(&info, buffer, sizeof info);
        REQUIRE(info.pSecurityDescriptor == nullptr && info.pDevMode != nullptr);
        mayRead_ = Sum(info.pDevMode, Settings());
        return answers_.Next("set", 1) != 0;
    }

    std::int32_t DeviceCapabilitiesA(const string&, const string&, std::uint16_t capability,
                                     void* output) override {
        const string name = std::to_string(capability);
        if (output == nullptr) {
            const std::int32_t count = answers_.Next32("count" + name, 2);
            // Identifiers and sizes are read by the number of their names.
            promised_ = count;
            return count;
        }
        REQUIRE(promised_ > 0);
        const std::size_t width = capability == machine::DC_PAPERNAMES  ? 64
                                  : capability == machine::DC_BINNAMES  ? 24
                                  : capability == machine::DC_PAPERSIZE ? 8
                                                                        : 2;
        const auto entries = static_cast<std::size_t>(
            std::clamp<std::int64_t>(answers_.Next("written" + name, promised_), 0,
                                     promised_ + static_cast<std::int64_t>(EntriesBehind)));
        Fill(output, entries * width, answers_.Text("text" + name));
        return answers_.Next32("told" + name, promised_);
    }

  private:
    /// The settings of a driver that it would read whole.
    std::size_t Settings() const { return std::min<std::size_t>(static_cast<std::size_t>(told_), 1U << 16U); }

    static unsigned Sum(const void* bytes, std::size_t size) {
        unsigned sum = 0;
        for (std::size_t i = 0; i < size; ++i) {
            sum += static_cast<const unsigned char*>(bytes)[i];
        }
        return sum;
    }

    void WriteSettings(void* output) {
        const auto more =
            static_cast<std::size_t>(std::clamp<std::int64_t>(answers_.Next("overrun", 0), 0, BytesBehind));
        const std::size_t size = Settings() + more;
        Fill(output, size, answers_.Text("mode-text"));
        if (size < sizeof(DEVMODE)) {
            return;
        }
        DEVMODE mode;
        std::memcpy(&mode, output, sizeof mode);
        mode.dmFields = static_cast<std::uint32_t>(answers_.Next("fields", 0xFFFFFFFF));
        mode.dmSize = static_cast<std::uint16_t>(answers_.Next("mode-size", sizeof mode));
        mode.dmDriverExtra = static_cast<std::uint16_t>(answers_.Next("extra", 0));
        mode.dmPaperSize = static_cast<std::int16_t>(answers_.Next("paper", 9));
        mode.dmDefaultSource = static_cast<std::int16_t>(answers_.Next("bin", 15));
        mode.dmOrientation = static_cast<std::int16_t>(answers_.Next("orientation", 1));
        std::memcpy(output, &mode, sizeof mode);
    }

    /// A pointer so many bytes behind the buffer's begin; none for 0, anywhere for a number beyond memory.
    char* PointerFrom(std::uintptr_t begin, const string& name) {
        const auto distance = static_cast<std::uintptr_t>(answers_.Next(name, 0));
        return distance == 0 ? nullptr : reinterpret_cast<char*>(begin + distance);
    }

    Answers& answers_;
    std::int32_t told_ = -1;
    std::int32_t promised_ = 0;
    [[maybe_unused]] volatile unsigned mayRead_ = 0;
};

machine::Platform WithSpooler(const machine::Platform& base, machine::Spooler& spooler) {
    return {.Desktop = base.Desktop,
            .Registry = base.Registry,
            .Locale = base.Locale,
            .Clock = base.Clock,
            .Random = base.Random,
            .Spooler = spooler,
            .Printers = base.Printers,
            .Printer = base.Printer,
            .Bitmaps = base.Bitmaps,
            .WindowProcedures = base.WindowProcedures,
            .Fonts = base.Fonts};
}

void CheckLists(machine::Platform& platform) {
    printmanager::PaperAndBins lists;
    if (printmanager::GetPaperAndBins(platform, "Laser", lists) != 0) {
        return;
    }
    REQUIRE(!lists.PaperNames.empty() && !lists.BinNames.empty());
    REQUIRE(lists.PaperIds.size() == lists.PaperNames.size());
    REQUIRE(lists.PaperSizes.size() == lists.PaperNames.size());
    REQUIRE(lists.BinIds.size() == lists.BinNames.size());
    for (const auto* names : {&lists.PaperNames, &lists.BinNames}) {
        for (const string& name : *names) {
            REQUIRE(name.find('\0') == string::npos);
        }
    }
}

void CheckFields(machine::Platform& platform) {
    constexpr std::array<std::int32_t, 5> selectors = {machine::DM_ORIENTATION, machine::DM_PAPERSIZE,
                                                       machine::DM_DEFAULTSOURCE, machine::DM_COLLATE, 0};
    for (const std::int32_t selector : selectors) {
        const std::int16_t value = printmanager::GetDevModeField(platform.Spooler, "Laser", selector);
        REQUIRE(selector != 0 || value == 0);
        const std::int16_t result = printmanager::SetDevModeField(platform, "Laser", selector, 9);
        REQUIRE(result == 0 || result == -1);
    }
    printmanager::PrinterInfo info;
    printmanager::GetPrinterInfo(platform.Spooler, "Laser", info);
    constexpr std::size_t mostText = 3 * 128; // a byte of the code page is up to three of UTF-8
    for (const string& text : {info.Name, info.Port, info.Comment}) {
        REQUIRE(text.size() <= mostText && text.find('\0') == string::npos);
    }
}

/// The form that the manager calls back, with nothing to draw.
class Caller : public forms::Form, public printmanager::PrintCaller {
  public:
    using Form::Form;

    void Afdrukken(std::int16_t, std::int16_t, bool) override {}
    precheck::Findings Nakijken(const printmanager::Choice&) override { return {}; }
};

void UseManager(memory::MemoryPlatform& memory, machine::Platform& platform) {
    state::AppState state;
    state.SettingsKey = "Software";
    state.PrinterInit = 10;
    state.PrinterOrientation = 1;
    state.CallerFormName = "frmCaller";
    state.DocumentTitle[1] = "Namenlijst";
    forms::Session session(memory.desktop);
    Caller caller(session, "frmCaller");
    caller.Load();
    printmanager::frmPrintManager manager(session, platform, state);
    manager.Show();
    manager.lstAfdrukken.UserPick(0);
    manager.cmdDetails.UserClick();
    for (int combo = 3; combo >= 0; --combo) {
        manager.cboPrinterSelect(combo).UserPick(1);
        manager.cmdPrint.UserClick();
        REQUIRE(!manager.blnBusy);
    }
    manager.cmdPrintVoorbeeld.UserClick();
    manager.cmdDetails.UserClick();
    REQUIRE(manager.UserClose() && !manager.Loaded());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Answers answers(fuzz::Input(data, size));
    memory::MemoryPlatform memory;
    memory.registry.CreateKey("Software");
    memory.recorder.Sink = [](const memory::Event& event) { REQUIRE(event.Kind != "error"); };
    for (const char* name : {"Laser", "Inkt"}) {
        memory::PrintQueue queue;
        queue.Name = name;
        memory.InstallPrinter(queue);
    }
    HostileSpooler spooler(answers);
    machine::Platform platform = WithSpooler(memory.Services(), spooler);
    CheckLists(platform);
    CheckFields(platform);
    UseManager(memory, platform);
    return 0;
}
