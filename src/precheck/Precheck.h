#pragma once

#include <cstdint>
#include <optional>

#include "machine/Printer.h"
#include "machine/PrinterCondition.h"
#include "precheck/Finding.h"

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace precheck {

/// The printer and the sheet that a document is to go to.
struct ChosenPrinter {
    machine::PrinterCondition Condition;
    /// Nothing where the machine does not know the sheet; it is then not judged.
    std::optional<machine::SheetArea> Sheet;
    /// The sheet by whose margins a run works out the corner of the paper, where the settings force another.
    std::optional<machine::SheetArea> MeasuredSheet{};
};

/// What is about to be printed.
struct Intent {
    std::int16_t Document = 1;      ///< composition::DocumentTestForms and so on
    std::int32_t Forms = 0;         ///< as the user has set it
    std::int32_t FormsAskedFor = 0; ///< by the size of the batch that was chosen; 0 if none was
    std::int16_t Copies = 1;
    /// How the sheet lies (machine::Portrait or Landscape, 0 for no choice): the margin of the lists goes by
    /// it.
    std::int16_t Orientation = machine::Portrait;
};

/// What the settings, the fonts and the user's locale tell by themselves: fast enough for a page that is
/// about to show. `state` is read as it stands, with the creditor as the user has edited it; calibration,
/// form type and contract are read anew, as a run does it. Of the list of names, on which none of it stands,
/// there is nothing to say.
Findings CheckSettings(const state::AppState& state, machine::Platform& platform, const Intent& intent);

/// What the printer's condition and the sheet tell by themselves, and whether the stationery fits.
Findings CheckPrinter(const state::AppState& state, machine::Platform& platform, const Intent& intent,
                      const ChosenPrinter& printer);

/// Composes the document, 250 forms of it at most, and looks at what would stand on the sheet: texts off the
/// printable area, off their form, over each other, cut, or with letters that the font lacks. Without a sheet
/// the stationery itself is taken, printable to its edges. `measured` is the sheet that the printer was
/// measured with, where that is another. The program's own draw of chance goes on as if nothing had been
/// composed.
Findings CheckDocument(const state::AppState& state, machine::Platform& platform, const Intent& intent,
                       const std::optional<machine::SheetArea>& sheet,
                       const std::optional<machine::SheetArea>& measured = std::nullopt);

/// All of these together, worst first. Without a printer there is nothing to say of one.
Findings CheckAll(const state::AppState& state, machine::Platform& platform, const Intent& intent,
                  const std::optional<ChosenPrinter>& printer);

/// The paper (DMPAPER_...) that a run prints on where `chosen` is the one of the print manager: the settings
/// can force another.
std::int16_t PaperOf(const state::AppState& state, std::int16_t chosen);

/// Printer `index` of the collection with the sheet that a run ends up with. `chosen` is the paper
/// (DMPAPER_...) of the print manager: the settings can force another, if the printer has that. Without a
/// choice of the orientation (0) the sheet lies as it does by itself on the current printer, and upright on
/// another, which nobody has asked yet.
ChosenPrinter ChooseForRun(const state::AppState& state, machine::Platform& platform, int index,
                           std::int16_t chosen, std::int16_t orientation);

} // namespace precheck
