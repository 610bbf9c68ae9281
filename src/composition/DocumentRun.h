#pragma once

#include <cstdint>
#include <functional>

#include "composition/RunHost.h"

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace composition {

class PrinterSurface;

// Numbers of the documents, in the order in which the wizard offers them.
inline constexpr std::int16_t DocumentTestForms = 1;
inline constexpr std::int16_t DocumentNameList = 2;
inline constexpr std::int16_t DocumentCalibration = 3;

/// What the print manager asks of its caller.
struct DocumentJob {
    std::int16_t iMethod = 0;    ///< number of the document; one that is none gives an empty document
    std::int16_t num_copies = 1; ///< of each test form; the other documents come once
    bool blnPrintPreview = false;
};

/// Draws one document, `aantal` forms of it where it has some, on the surface that is open, whose measures
/// are in `state`: what ComposeDocument does between opening the surface and ending the document.
void DrawDocument(state::AppState& state, machine::Platform& platform, RunHost& host, std::int16_t iMethod,
                  std::int32_t aantal, std::int16_t copies);

/// Composes one document as one print job, on `printer` or in the preview, which the user then sees until he
/// leaves it. Calibration, form type and contract form are read anew before; the creditor stays as edited.
/// From the opening of the surface on, a step that fails is given up without a message and the next one runs,
/// so a job once begun goes to its end. `draw` draws it on the surface; what fails there it gives up itself.
void ComposeJob(state::AppState& state, machine::Platform& platform, PrinterSurface& printer, RunHost& host,
                bool preview, const std::function<void()>& draw);

/// The same for a document of the wizard.
void ComposeDocument(state::AppState& state, machine::Platform& platform, PrinterSurface& printer,
                     RunHost& host, const DocumentJob& job);

} // namespace composition
