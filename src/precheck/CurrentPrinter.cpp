#include "precheck/CurrentPrinter.h"

#include <cstdint>
#include <string>

#include "base/Resume.h"
#include "machine/Platform.h"
#include "machine/Printer.h"
#include "state/Settings.h"

namespace precheck {

using base::Resume;

namespace {

constexpr int NotThere = -1;

int PositionOf(machine::Printers& printers, const std::string& name) {
    for (int index = 0; index < printers.Count(); ++index) {
        if (printers.Item(index).DeviceName == name) {
            return index;
        }
    }
    return NotThere;
}

} // namespace

std::optional<ChosenPrinter> CurrentPrinter(const state::AppState& state, machine::Platform& platform) {
    std::optional<ChosenPrinter> chosen;
    Resume([&] {
        std::string current;
        Resume([&] { current = platform.Printer.DeviceName(); });
        int position =
            PositionOf(platform.Printers, state::LeesInstelling(state, platform.Registry, "CurrentPrinter"));
        if (position == NotThere) {
            position = PositionOf(platform.Printers, current);
        }
        if (position == NotThere) {
            return;
        }
        std::int16_t paper = 0; // of another printer than the current one nobody has told it yet
        if (platform.Printers.Item(position).DeviceName == current) {
            Resume([&] { paper = platform.Printer.PaperSize(); });
        }
        constexpr std::int16_t noChoice = 0;
        chosen = ChooseForRun(state, platform, position, paper, noChoice);
    });
    return chosen;
}

} // namespace precheck
