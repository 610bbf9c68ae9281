#pragma once

namespace machine {
struct Platform;
}
namespace state {
struct AppState;
}

namespace precheck {

/// What the template is called where documents are listed.
inline constexpr const char* TemplateTitle = "Sjabloon voor het proefvel";

/// Draws one page to lay on a proof sheet, in true size from the corner of the paper, on the surface of
/// `state`: for the form type in force the forms, where their fields stand without calibration, the OCR line
/// with the band around it that stays white, rulers in millimetres and a line of exactly 150 mm. It says that
/// it is not the test institute's own. A step that fails is given up, and the next one runs.
void DrawTemplate(const state::AppState& state, machine::Platform& platform);

} // namespace precheck
