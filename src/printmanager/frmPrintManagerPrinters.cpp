// The choice of a printer, and what the details panel tells of it.

#include "base/Numbers.h"
#include "base/RuntimeError.h"
#include "forms/Desktop.h"
#include "printmanager/ClearAtEnd.h"
#include "printmanager/DrawingUnlock.h"
#include "printmanager/PrinterInfo.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerLayout.h"

namespace printmanager {

void frmPrintManager::cboPrinterSelect_Click(int index) {
    if (blnBusy || blnClosing) {
        return;
    }
    ControleerKeuze();
    blnBusy = true;
    const ClearAtEnd notBusy(blnBusy);
    try {
        if (!blnLoading) {
            blnUserChanged = true;
        }
        strCurrentPrinter = cboPrinterSelect(0).Text();
        if (!blnNoConnection && index == 0) {
            ChangePrinter();
        }
    } catch (const base::RuntimeError&) { // the panel tells
        ShowNoConnection();
    }
}

void frmPrintManager::ChangePrinter() {
    if (blnRestorePending) {
        const DrawingUnlock unlock(Desktop());
        Desktop().LockWindowUpdate(pictDetails.hWnd());
        RestorePrinterState();
    }
    const int position = FindPrinter(platform_.Printers, cboPrinterSelect(0).Text());
    if (position != -1) {
        blnPrinterFound = true;
        objPrinter = platform_.Printers.Item(position);
    }
    bool failed = false;
    LoadPrinterLists("", failed);
    Desktop().Yield();
    if (!ShowPrinterInfo()) {
        ShowNoConnection();
    }
    blnNoConnection = cboPrinterSelect(1).ListCount() == 0;
    RememberPrinterState(true);
}

/// Fills the panel with what the spooler tells of `objPrinter`. False if the printer cannot be opened; the
/// panel then stays as it was.
bool frmPrintManager::ShowPrinterInfo() {
    PrinterInfo info;
    if (!GetPrinterInfo(platform_.Spooler, objPrinter.DeviceName, info)) {
        return false;
    }
    const bool isCurrent = platform_.Printer.DeviceName() == objPrinter.DeviceName;
    lblPrinterSelect(5).SetCaption((isCurrent ? "Standaard printer; " : "") + info.Status);
    pictError.SetVisible(false);
    lblPrinterSelect(6).SetCaption(info.Name.empty() ? objPrinter.DeviceName : info.Name);
    lblPrinterSelect(7).SetCaption(info.Port);
    lblPrinterSelect(8).SetCaption(info.Comment);
    return true;
}

void frmPrintManager::ShowNoConnection() {
    pictError.SetVisible(true);
    lblPrinterSelect(6).SetCaption("Geen verbinding mogelijk");
    lblPrinterSelect(5).SetCaption("n/a");
    lblPrinterSelect(7).SetCaption("");
    lblPrinterSelect(8).SetCaption("");
    cboPrinterSelect(1).Clear();
    cboPrinterSelect(2).Clear();
}

void frmPrintManager::RefreshPrinterDetails() {
    Desktop().HourglassOn();
    if (!blnPrinterFound) {
        pictError.SetVisible(true);
        for (const int index : {5, 6, 7, 8}) {
            lblPrinterSelect(index).SetCaption("Onbekend");
        }
    } else if (cboPrinterSelect(1).ListCount() == 0) {
        bool failed = false;
        LoadPrinterLists("", failed);
        ShowPrinterInfo();
        RememberPrinterState(true);
    }
    blnNoConnection = cboPrinterSelect(1).ListCount() == 0;
    Desktop().HourglassOff();
}

void frmPrintManager::cmdDetails_Click() {
    if (blnClosing) {
        return;
    }
    RefreshPrinterDetails();
    if (blnNoConnection) {
        return;
    }
    if (blnDetailsOpen) {
        CloseDetails();
    } else {
        OpenDetails();
    }
}

void frmPrintManager::SetDetails(bool open) {
    const DetailsMeasures& measures = open ? DetailsOpened : DetailsClosed;
    blnDetailsOpen = open;
    cmdDetails.SetCaption(measures.Caption);
    pictDetails.SetVisible(open);
    pictDetails.SetEnabled(open);
    Resize(Width(), measures.FormHeight);
    Line1.SetY2(measures.RuleEnd);
    Line2.SetY2(measures.RuleEnd);
    pictPrinter.SetTop(measures.PrinterTop);
    ControleerKeuze();
}

void frmPrintManager::CloseDetails() {
    SetDetails(false);
}

void frmPrintManager::OpenDetails() {
    SetDetails(true);
    if (blnCenterPending) {
        const forms::ScreenArea screen = Desktop().Screen();
        Move((screen.Width - Width()) / 2, base::RoundTiesToEven((screen.Height - Height()) / 3));
        blnCenterPending = false;
    }
}

void frmPrintManager::ShowOrientationPicture() {
    const int picture = cboPrinterSelect(3).ListIndex() == 1 ? 1 : 0;
    pictMyOrientation.SetPicture(pictOrientation(picture).Picture());
}

} // namespace printmanager
