#include "Fields.h"
#include "Paths.h"
#include "World.h"
#include "preview/frmPrintPreview.h"
#include "preview/frmPrintPreviewGhost.h"
#include "printmanager/frmPrintManager.h"
#include "wizard/frmMain.h"

namespace scenario {

namespace {

using preview::frmPrintPreview;
using preview::frmPrintPreviewGhost;
using printmanager::frmPrintManager;
using printmanager::PrinterState;
using wizard::frmMain;

constexpr Field<frmMain> MainFields[] = {
    {"Page", &frmMain::Page},
    {"FirstFocus", &frmMain::FirstFocus},
};

constexpr Field<frmPrintManager> ManagerFields[] = {
    {"blnBusy", &frmPrintManager::blnBusy},
    {"blnClosing", &frmPrintManager::blnClosing},
    {"blnLoading", &frmPrintManager::blnLoading},
    {"blnFillingPrinters", &frmPrintManager::blnFillingPrinters},
    {"blnNoConnection", &frmPrintManager::blnNoConnection},
    {"blnUserChanged", &frmPrintManager::blnUserChanged},
    {"blnRestorePending", &frmPrintManager::blnRestorePending},
    {"blnPrinterFound", &frmPrintManager::blnPrinterFound},
    {"blnCenterPending", &frmPrintManager::blnCenterPending},
    {"blnDetailsOpen", &frmPrintManager::blnDetailsOpen},
    {"blnUseSpecific", &frmPrintManager::blnUseSpecific},
    {"blnIsPreview", &frmPrintManager::blnIsPreview},
    {"iCopies", &frmPrintManager::iCopies},
    {"strCurrentPrinter", &frmPrintManager::strCurrentPrinter},
    {"iPaperIds", &frmPrintManager::iPaperIds, 1},
    {"iBinIds", &frmPrintManager::iBinIds, 1},
};

constexpr Field<frmPrintPreview> PreviewFields[] = {
    {"iCurrentPage", &frmPrintPreview::iCurrentPage}, {"iTotalPages", &frmPrintPreview::iTotalPages},
    {"lScrollSpanY", &frmPrintPreview::lScrollSpanY}, {"lScrollSpanX", &frmPrintPreview::lScrollSpanX},
    {"blnHScroll", &frmPrintPreview::blnHScroll},
};

constexpr Field<frmPrintPreviewGhost> GhostFields[] = {
    {"Tag", &frmPrintPreviewGhost::Tag},
    {"iPage", &frmPrintPreviewGhost::iPage},
    {"iDisplayPage", &frmPrintPreviewGhost::iDisplayPage},
    {"AutoRedraw", &frmPrintPreviewGhost::AutoRedraw},
    {"BackColor", &frmPrintPreviewGhost::BackColor},
    {"lPageWidth", &frmPrintPreviewGhost::lPageWidth},
    {"lPageHeight", &frmPrintPreviewGhost::lPageHeight},
    {"lMarginLeft", &frmPrintPreviewGhost::lMarginLeft},
    {"lMarginTop", &frmPrintPreviewGhost::lMarginTop},
    {"lMaxTrackX", &frmPrintPreviewGhost::lMaxTrackX},
    {"lMaxTrackY", &frmPrintPreviewGhost::lMaxTrackY},
};

/// The four texts in the order in which the record keeps them.
Json StateOf(const PrinterState& state) {
    return Json::array({state.Printer, state.Paper, state.Bin, state.Orientation});
}

/// Width and height of each paper, in tenths of a millimetre.
Json SizesOf(const std::vector<printmanager::PaperDimensions>& papers) {
    Json sizes = Json::array();
    for (const printmanager::PaperDimensions& paper : papers) {
        sizes.push_back({paper.Width, paper.Height});
    }
    return sizes;
}

/// Fields that are records themselves.
bool ReadRecord(const frmPrintManager& form, const std::string& name, Json& value) {
    if (name == "objPrinter") {
        value = form.objPrinter.DeviceName;
    } else if (name == "FirstPrinterState") {
        value = StateOf(form.FirstPrinterState);
    } else if (name == "RestoreState") {
        value = StateOf(form.RestoreState);
    } else if (name == "ptPaperSizes") {
        value = SizesOf(form.ptPaperSizes);
    } else {
        return false;
    }
    return true;
}

template <class Use>
bool WithFormField(forms::Form& form, const PathPart& part, const Use& use) {
    if (auto* main = dynamic_cast<frmMain*>(&form)) {
        return WithField(*main, MainFields, part, use);
    }
    if (auto* manager = dynamic_cast<frmPrintManager*>(&form)) {
        return WithField(*manager, ManagerFields, part, use);
    }
    if (auto* window = dynamic_cast<frmPrintPreview*>(&form)) {
        return WithField(*window, PreviewFields, part, use);
    }
    if (auto* ghost = dynamic_cast<frmPrintPreviewGhost*>(&form)) {
        return WithField(*ghost, GhostFields, part, use);
    }
    return false;
}

struct FormProperty {
    std::string_view Name;
    Json (*Get)(const forms::Form&);
};

constexpr FormProperty FormProperties[] = {
    {"Name", [](const forms::Form& form) { return Json(form.Name()); }},
    {"Caption", [](const forms::Form& form) { return Json(form.Caption()); }},
    {"Visible", [](const forms::Form& form) { return Json(form.Visible()); }},
    {"Left", [](const forms::Form& form) { return Number(form.Left()); }},
    {"Top", [](const forms::Form& form) { return Number(form.Top()); }},
    {"Width", [](const forms::Form& form) { return Number(form.Width()); }},
    {"Height", [](const forms::Form& form) { return Number(form.Height()); }},
    {"ActiveControl",
     [](const forms::Form& form) {
         return form.ActiveControl() == nullptr ? Json() : Json(FullName(*form.ActiveControl()));
     }},
};

} // namespace

Json FormValue(forms::Form& form, const std::vector<PathPart>& parts) {
    if (parts.size() == 2) {
        return PropertyOf(ControlOf(form, parts[0]), parts[1]);
    }
    if (parts.size() != 1) {
        throw ScriptError("no such path on " + form.Name());
    }
    Json value;
    if (WithFormField(form, parts[0], [&](const auto& field) { value = field; })) {
        return value;
    }
    if (const auto* manager = dynamic_cast<const frmPrintManager*>(&form);
        manager != nullptr && ReadRecord(*manager, parts[0].Name, value)) {
        return value;
    }
    for (const FormProperty& property : FormProperties) {
        if (property.Name == parts[0].Name) {
            return property.Get(form);
        }
    }
    throw ScriptError("no such field of " + form.Name() + ": " + parts[0].Name);
}

void PokeForm(forms::Form& form, const PathPart& part, const Json& value) {
    if (!WithFormField(form, part, [&](auto& field) { Assign(field, value); })) {
        throw ScriptError("no such field of " + form.Name() + ": " + part.Name);
    }
}

} // namespace scenario
