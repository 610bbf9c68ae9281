// Prints the controls of each form in the order of their making, from which the Windows program numbers its
// windows: one line "FORM NAME", or "FORM NAME(INDEX)" for an element of a control array.
#include <iostream>

#include "composition/PrintSurface.h"
#include "forms/Form.h"
#include "forms/MenuBar.h"
#include "forms/Session.h"
#include "memory/MemoryPlatform.h"
#include "preview/frmPrintPreview.h"
#include "preview/frmPrintPreviewGhost.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerSetup.h"
#include "state/AppState.h"
#include "wizard/frmMain.h"
#include "wizard/frmVoorcontrole.h"

namespace {

void PrintMenus(const forms::Form& form, const forms::MenuBar& bar) {
    for (const forms::Menu& menu : bar.Menus()) {
        for (const forms::MenuTool& line : menu.Tools) {
            std::cout << form.Name() << " menu " << line.Id << '\n';
        }
    }
}

void Print(const forms::Form& form) {
    for (const forms::Control* control : form.Controls()) {
        std::cout << form.Name() << ' ' << control->Name();
        if (control->Index() != forms::Control::NoIndex) {
            std::cout << '(' << control->Index() << ')';
        }
        std::cout << '\n';
        if (const auto* bar = dynamic_cast<const forms::MenuBar*>(control)) {
            PrintMenus(form, *bar);
        }
    }
}

/// Each form knows the other.
struct Preview {
    Preview(forms::Session& session, machine::Platform& platform, state::AppState& state)
        : ghost(session, platform, state, window), window(session, platform, state, ghost) {}

    preview::frmPrintPreviewGhost ghost;
    preview::frmPrintPreview window;
};

} // namespace

int main() {
    memory::MemoryPlatform memory;
    forms::Session session(memory.desktop);
    state::AppState state;
    Print(wizard::frmMain(session, memory.Services(), state));
    composition::PrinterSurface printer(memory.printer);
    Print(wizard::frmVoorcontrole(session, memory.Services(), state, printer,
                                  [] { return precheck::Findings{}; }));
    Print(printmanager::frmPrintManager(session, memory.Services(), state));
    Print(printmanager::frmPrintManagerSetup(session, memory.Services(), state));
    const Preview preview(session, memory.Services(), state);
    Print(preview.ghost);
    Print(preview.window);
}
