#pragma once

#include "machine/PrinterCondition.h"

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace precheck {

class DrawnDocument;
struct Intent;

/// True if all of the document is drawn: of a larger batch the first 250 forms are.
bool IsComposedWhole(const Intent& intent);

/// Draws a document as a run would that has measured the printer with this sheet, 250 forms of it at most:
/// the order of the steps is that of the print manager and of composition::ComposeDocument. `state` takes the
/// measures of the sheet; nothing of `real` is printed on, written or drawn from.
void ComposeOn(DrawnDocument& document, state::AppState& state, const machine::Platform& real,
               const Intent& intent, const machine::SheetArea& measured);

} // namespace precheck
