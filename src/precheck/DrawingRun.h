#pragma once

#include "machine/PrinterCondition.h"
#include "precheck/Precheck.h"

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace precheck {

class DrawnDocument;

/// Draws the document as a run would, 250 forms of it at most, and prints nothing. `state` is left with the
/// measures of the sheet.
void DrawForChecking(state::AppState& state, const machine::Platform& real, const Intent& intent,
                     const machine::SheetArea& sheet, DrawnDocument& document);

} // namespace precheck
