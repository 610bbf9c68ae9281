#include <algorithm>
#include <iterator>
#include <limits>
#include <string>
#include <utility>

#include "CommandLine.h"
#include "Commands.h"
#include "Paths.h"
#include "PrinterOptions.h"
#include "ScriptError.h"
#include "World.h"

namespace scenario {

namespace {

void Set(World& world, CommandLine& line) {
    const std::string name = line.Word("name");
    world.memory.registry.SetText(SettingsPath, name, line.Word("text"));
}

void SetIn(World& world, CommandLine& line) {
    const std::string path = line.Word("path");
    const std::string name = line.Word("name");
    world.memory.registry.SetText(path, name, line.Word("text"));
}

void SetNumber(World& world, CommandLine& line) {
    const std::string name = line.Word("name");
    const std::uint64_t number = line.Unsigned("number");
    if (number > std::numeric_limits<std::uint32_t>::max()) {
        throw ScriptError("the number does not fit 32 bits");
    }
    world.memory.registry.SetNumber(SettingsPath, name, static_cast<std::uint32_t>(number));
}

void NoKey(World& world, CommandLine& /*line*/) {
    world.memory.registry.RemoveKey(SettingsPath);
}

void Printer(World& world, CommandLine& line) {
    memory::PrintQueue queue;
    queue.Name = line.Word("name");
    if (world.memory.printers.Find(queue.Name) != nullptr) {
        throw ScriptError("the printer is installed: " + queue.Name);
    }
    while (const auto option = line.NextWord()) {
        ApplyPrinterOption(queue, *option);
    }
    world.memory.InstallPrinter(queue);
}

/// Digits of a fixed place in the text.
int Part(const std::string& text, std::size_t begin, std::size_t count) {
    return WholeNumberOf(std::string_view(text).substr(begin, count), "moment");
}

void Clock(World& world, CommandLine& line) {
    const std::string text = line.Word("moment");
    constexpr std::string_view shape = "0000-00-00T00:00:00";
    bool fits = text.size() == shape.size();
    for (std::size_t i = 0; fits && i < shape.size(); ++i) {
        fits = shape[i] == '0' ? text[i] >= '0' && text[i] <= '9' : text[i] == shape[i];
    }
    if (!fits) {
        throw ScriptError("no moment: " + text);
    }
    const machine::DateTime moment{Part(text, 0, 4),
                                   Part(text, 5, 2),
                                   Part(text, 8, 2),
                                   Part(text, 11, 2),
                                   Part(text, 14, 2),
                                   Part(text, 17, 2),
                                   0};
    if (moment.Month < 1 || moment.Month > 12 || moment.Day < 1 || moment.Day > 31 || moment.Hour > 23 ||
        moment.Minute > 59 || moment.Second > 59) {
        throw ScriptError("no moment: " + text);
    }
    world.memory.clock.Set(moment);
}

void Random(World& world, CommandLine& line) {
    world.memory.random.Seed(line.Unsigned("seed"));
}

void Decimal(World& world, CommandLine& line) {
    const std::string mark = line.Word("decimal mark");
    if (mark != "," && mark != ".") {
        throw ScriptError("no decimal mark: " + mark);
    }
    world.memory.locale.SetDecimalMark(mark[0]);
}

void WorkArea(World& world, CommandLine& line) {
    const double width = line.Number("width");
    world.memory.desktop.SetWorkArea(width, line.Number("height"));
}

/// A font that differs from the others: `width` twips of a letter for each point, letters that are twice as
/// `wide`, those that are `slim`, those that it `lacks`, and the family that prints `instead`.
void Font(World& world, CommandLine& line) {
    const std::string name = line.Word("font");
    memory::MemoryFont font;
    while (const auto option = line.NextWord()) {
        const std::size_t mark = std::min(option->find('='), option->size());
        const std::string what = option->substr(0, mark);
        const std::string value = option->substr(std::min(mark + 1, option->size()));
        if (what == "width") {
            font.WidthPerPoint = CommandLine(value).Number("width");
        } else if (what == "wide") {
            font.WideLetters = value;
        } else if (what == "slim") {
            font.SlimLetters = value;
        } else if (what == "lacks") {
            font.LacksLetters = value;
        } else if (what == "instead") {
            font.PrintsInstead = value;
        } else {
            throw ScriptError("no such option of a font: " + *option);
        }
    }
    world.memory.fonts.Describe(name, std::move(font));
}

struct Trouble {
    std::string_view Name;
    machine::StoreTrouble What;
};
constexpr Trouble Troubles[] = {
    {"none", machine::StoreTrouble::None},
    {"unreadable", machine::StoreTrouble::Unreadable},
    {"encoding", machine::StoreTrouble::UnknownEncoding},
    {"cut-off", machine::StoreTrouble::CutOff},
};

/// How the settings stand, and what the machine says of it.
void SettingsTrouble(World& world, CommandLine& line) {
    const std::string name = line.Word("trouble");
    const auto* const trouble = std::find_if(std::begin(Troubles), std::end(Troubles),
                                             [&](const Trouble& one) { return one.Name == name; });
    if (trouble == std::end(Troubles)) {
        throw ScriptError("no such trouble of the settings: " + name);
    }
    world.memory.registry.Present = {.Trouble = trouble->What, .Reason = line.NextWord().value_or("")};
}

void Start(World& world, CommandLine& /*line*/) {
    world.Start();
}

void Trace(World& world, CommandLine& line) {
    if (line.Word("what to trace") != "yields") {
        throw ScriptError("only yields can be traced");
    }
    world.memory.desktop.TraceYields = true;
}

/// Calls that the record names in another way than the platform.
struct CallName {
    std::string_view InRecord;
    std::string_view Call;
};
constexpr CallName RecordedCalls[] = {
    {"text", "DrawText"},   {"line", "DrawLine"},        {"page", "NewPage"},
    {"end", "EndDocument"}, {"store", "RegSetValueExA"},
};

void Fail(World& world, CommandLine& line) {
    std::string call = line.Word("call");
    for (const CallName& name : RecordedCalls) {
        if (name.InRecord == call) {
            call = name.Call;
        }
    }
    const auto count = line.NextWord();
    if (!world.memory.recorder.Fail(call, count ? WholeNumberOf(*count, "count") : 1)) {
        throw ScriptError("no call that can fail: " + call);
    }
}

void PokeCommand(World& world, CommandLine& line) {
    const std::string path = line.Word("path");
    Poke(world, path, Parsed(line.Rest()));
}

constexpr Command Commands[] = {
    {"set", Set},
    {"set-in", SetIn},
    {"set-number", SetNumber},
    {"no-key", NoKey},
    {"printer", Printer},
    {"clock", Clock},
    {"random", Random},
    {"decimal", Decimal},
    {"workarea", WorkArea},
    {"font", Font},
    {"settings-trouble", SettingsTrouble},
    {"start", Start},
    {"trace", Trace},
    {"fail", Fail},
    {"poke", PokeCommand},
};

} // namespace

std::span<const Command> MachineCommands() {
    return Commands;
}

} // namespace scenario
