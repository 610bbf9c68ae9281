// The loading: from the caller's titles, the settings and the system's printers to a form that waits for a
// choice.

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "forms/Desktop.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerLayout.h"
#include "state/Settings.h"

namespace printmanager {

void frmPrintManager::OnLoad() {
    state_.PrintManagerOpen = true;
    blnPrinterFound = false;
    blnClosing = false;
    blnUserChanged = false;
    blnLoading = true;
    Desktop().HourglassOn();
    try {
        FillForm();
    } catch (const base::RuntimeError& error) {
        // The form comes up as far as it got: it has to be there to be closed.
        blnFillingPrinters = false;
        blnBusy = false;
        Desktop().UnhandledError(error);
    }
    blnLoading = false;
    Desktop().HourglassOff();
}

void frmPrintManager::FillForm() {
    ShowNoConnection();
    FillDocuments();
    strCurrentPrinter = state::LeesInstelling(state_, platform_.Registry, "CurrentPrinter");
    RestoreState.Printer = strCurrentPrinter;
    blnUseSpecific =
        state::IsAan(state::LeesInstelling(state_, platform_.Registry, "UseSpecificPrinterSettings"));
    pictError.SetVisible(false);
    platform_.Printers.Refresh();
    if (platform_.Printers.Count() == 0) {
        FillWithoutPrinters();
    } else {
        FillWithPrinters();
    }
    ShowOrientationPicture();
    tmrSetPaperSize.SetEnabled(true);
    blnCenterPending = true;
    CloseDetails();
    blnNoConnection = cboPrinterSelect(1).ListCount() == 0;
    LayOutFakeForm(*this);
}

void frmPrintManager::FillDocuments() {
    iCopies = 1;
    lstAfdrukken.Clear();
    for (std::size_t i = 1; i < state_.DocumentTitle.size() && !state_.DocumentTitle[i].empty(); ++i) {
        lstAfdrukken.AddItem(state_.DocumentTitle[i], static_cast<std::int32_t>(i));
    }
}

void frmPrintManager::FillWithoutPrinters() {
    chkMatrixPrinter.SetEnabled(false);
    chkMatrixPrinter.SetValue(false);
    forms::ComboBox& printers = cboPrinterSelect(0);
    printers.Clear();
    printers.SetBackColor(forms::colour::ButtonFace);
    printers.SetEnabled(false);
}

void frmPrintManager::FillWithPrinters() {
    chkMatrixPrinter.SetValue(state_.MatrixPrinter);
    forms::TextBox& copies = UserText(0);
    copies.SetText(std::to_string(platform_.Printer.Copies()));
    if (base::NumericValue(copies.Text()) == 0) {
        copies.SetText("1");
    }
    forms::ComboBox& orientations = cboPrinterSelect(3);
    orientations.SetEnabled(true);
    orientations.SetBackColor(forms::colour::WindowBackground);
    orientations.AddItem("Staand");
    orientations.AddItem("Liggend");
    FillPrinterCombo();
}

/// A printer that is known from the last time is selected without asking its driver, which may be slow; only
/// a first choice is loaded.
void frmPrintManager::FillPrinterCombo() {
    forms::ComboBox& printers = cboPrinterSelect(0);
    printers.SetEnabled(true);
    printers.SetBackColor(forms::colour::WindowBackground);
    printers.SetListIndex(-1);
    blnFillingPrinters = true;
    blnBusy = true;
    int systemDefault = -1;
    const int count = platform_.Printers.Count();
    for (int i = 0; i < count; ++i) {
        const machine::PrinterEntry entry = platform_.Printers.Item(i);
        printers.AddItem(entry.DeviceName);
        if (entry.DeviceName == strCurrentPrinter) {
            blnPrinterFound = true;
            objPrinter = entry;
            printers.SetListIndex(i);
        }
        if (entry.DeviceName == platform_.Printer.DeviceName()) {
            systemDefault = i;
        }
    }
    blnBusy = false;
    blnFillingPrinters = false;
    if (printers.ListIndex() == -1) {
        printers.SetListIndex(systemDefault);
    }
}

} // namespace printmanager
