// The public operations of the forms.
#include "Arguments.h"
#include "Calls.h"
#include "ScriptError.h"
#include "World.h"
#include "preview/frmPrintPreview.h"
#include "preview/frmPrintPreviewGhost.h"
#include "printmanager/DevModeField.h"
#include "printmanager/frmPrintManager.h"
#include "state/Settings.h"
#include "testdata/TestDocument.h"
#include "wizard/frmMain.h"

namespace scenario {

namespace {

using preview::frmPrintPreview;
using preview::frmPrintPreviewGhost;
using printmanager::frmPrintManager;
using wizard::frmMain;

template <class FormType>
struct Operation {
    std::string_view Name;
    std::size_t Arguments;
    Json (*Run)(World&, FormType&, scenario::Arguments&);
};

constexpr Operation<frmMain> MainOperations[] = {
    {"LaadInstellingen", 1,
     [](World& w, frmMain& form, Arguments& a) {
         const bool metIncassant = a.Flag(0);
         state::LaadInstellingen(w.state, w.memory.registry, metIncassant);
         if (metIncassant) {
             form.ToonIncassant();
         }
         return Json();
     }},
    {"Afdrukken", 3,
     [](World&, frmMain& form, Arguments& a) {
         form.Afdrukken(a.Int16(0), a.Int16(1), a.Flag(2));
         return Json();
     }},
    {"TrekEuro", 0,
     [](World& w, frmMain&, Arguments&) {
         return Json(testdata::TrekEuro(w.memory.random, w.memory.clock));
     }},
    {"TrekCent", 0,
     [](World& w, frmMain&, Arguments&) {
         return Json(testdata::TrekCent(w.memory.random, w.memory.clock));
     }},
};

constexpr Operation<frmPrintManager> ManagerOperations[] = {
    {"UpdatePercentage", 1,
     [](World&, frmPrintManager& form, Arguments& a) {
         form.UpdatePercentage(a.Int16(0));
         return Json();
     }},
    {"UpdatePercentageSort", 1,
     [](World&, frmPrintManager& form, Arguments& a) {
         form.UpdatePercentageSort(a.Int16(0));
         return Json();
     }},
    {"IsPrintPreview", 0,
     [](World&, frmPrintManager& form, Arguments&) { return Json(form.IsPrintPreview()); }},
    {"FakeFormVisible", 1,
     [](World&, frmPrintManager& form, Arguments& a) {
         form.FakeFormVisible(a.Flag(0));
         return Json();
     }},
    {"ApplyDocumentSettings", 1,
     [](World&, frmPrintManager& form, Arguments& a) {
         form.ApplyDocumentSettings(a.Text(0));
         return Json();
     }},
    {"ShowNoConnection", 0,
     [](World&, frmPrintManager& form, Arguments&) {
         form.ShowNoConnection();
         return Json();
     }},
    {"ShowOrientationPicture", 0,
     [](World&, frmPrintManager& form, Arguments&) {
         form.ShowOrientationPicture();
         return Json();
     }},
    {"RefreshPrinterDetails", 0,
     [](World&, frmPrintManager& form, Arguments&) {
         form.RefreshPrinterDetails();
         return Json();
     }},
    {"OpenDetails", 0,
     [](World&, frmPrintManager& form, Arguments&) {
         form.OpenDetails();
         return Json();
     }},
    {"CloseDetails", 0,
     [](World&, frmPrintManager& form, Arguments&) {
         form.CloseDetails();
         return Json();
     }},
    {"LoadPrinterLists", 2,
     [](World&, frmPrintManager& form, Arguments& a) {
         bool failed = a.Flag(1);
         form.LoadPrinterLists(a.Text(0), failed);
         a.Set(1, failed);
         return Json();
     }},
    {"PreparePrinter", 1,
     [](World&, frmPrintManager& form, Arguments& a) {
         form.PreparePrinter(a.Text(0));
         return Json();
     }},
    {"RememberPrinterState", 1,
     [](World&, frmPrintManager& form, Arguments& a) {
         form.RememberPrinterState(a.Flag(0));
         return Json();
     }},
    {"RestorePrinterState", 0,
     [](World&, frmPrintManager& form, Arguments&) {
         form.RestorePrinterState();
         return Json();
     }},
    {"GetDevModeField", 2,
     [](World& w, frmPrintManager&, Arguments& a) {
         return Json(printmanager::GetDevModeField(w.memory.spooler, a.Text(0), a.Int32(1)));
     }},
    {"SetDevModeField", 3,
     [](World& w, frmPrintManager&, Arguments& a) {
         return Json(printmanager::SetDevModeField(w.stage->Services(), a.Text(0), a.Int32(1), a.Int16(2)));
     }},
};

constexpr Operation<frmPrintPreviewGhost> GhostOperations[] = {
    {"Page", 0, [](World&, frmPrintPreviewGhost& form, Arguments&) { return Json(form.Page()); }},
    {"Newpage", 0,
     [](World&, frmPrintPreviewGhost& form, Arguments&) {
         form.Newpage();
         return Json();
     }},
    {"EndDoc", 0,
     [](World&, frmPrintPreviewGhost& form, Arguments&) {
         form.EndDoc();
         return Json();
     }},
    {"DisplayVolgende", 0,
     [](World&, frmPrintPreviewGhost& form, Arguments&) {
         form.DisplayVolgende();
         return Json();
     }},
    {"DisplayVorige", 0,
     [](World&, frmPrintPreviewGhost& form, Arguments&) {
         form.DisplayVorige();
         return Json();
     }},
    {"DisplayOnScreen", 1,
     [](World&, frmPrintPreviewGhost& form, Arguments& a) {
         form.DisplayOnScreen(a.Int16(0));
         return Json();
     }},
    {"ClearPages", 0,
     [](World&, frmPrintPreviewGhost& form, Arguments&) {
         form.ClearPages();
         return Json();
     }},
};

constexpr Operation<frmPrintPreview> PreviewOperations[] = {
    {"SetiTotalPages", 1,
     [](World&, frmPrintPreview& form, Arguments& a) {
         form.SetiTotalPages(a.Int16(0));
         return Json();
     }},
    {"SetButtons", 1,
     [](World&, frmPrintPreview& form, Arguments& a) {
         form.SetButtons(a.Int16(0));
         return Json();
     }},
    {"SetTooltip", 0,
     [](World&, frmPrintPreview& form, Arguments&) {
         form.SetTooltip();
         return Json();
     }},
};

/// Runs the operation if the form is of this class and the table has it.
template <class FormType, class Table>
bool RunIn(World& world, forms::Form& form, const Table& table, const std::string& name, Arguments& arguments,
           Json& result) {
    auto* const typed = dynamic_cast<FormType*>(&form);
    if (typed == nullptr) {
        return false;
    }
    for (const Operation<FormType>& operation : table) {
        if (operation.Name == name) {
            arguments.ExpectCount(operation.Arguments);
            result = operation.Run(world, *typed, arguments);
            return true;
        }
    }
    return false;
}

} // namespace

Json CallOperation(World& world, const std::string& formName, const std::string& name, Arguments& arguments) {
    forms::Form& form = world.FormNamed(formName);
    Json result;
    if (RunIn<frmMain>(world, form, MainOperations, name, arguments, result) ||
        RunIn<frmPrintManager>(world, form, ManagerOperations, name, arguments, result) ||
        RunIn<frmPrintPreviewGhost>(world, form, GhostOperations, name, arguments, result) ||
        RunIn<frmPrintPreview>(world, form, PreviewOperations, name, arguments, result)) {
        return result;
    }
    throw ScriptError("no such operation of " + formName + ": " + name);
}

} // namespace scenario
