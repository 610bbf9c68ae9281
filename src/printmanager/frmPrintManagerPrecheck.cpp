// What would spoil the chosen document on the chosen printer and sheet, told beside the boxes. It asks the
// form that prints, and neither the spooler nor the printer.

#include "base/Numbers.h"
#include "forms/Desktop.h"
#include "machine/Printer.h"
#include "precheck/Quietly.h"
#include "printmanager/FindingMark.h"
#include "printmanager/PrintCaller.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerLayout.h"

namespace printmanager {

namespace {

enum Mark : int { MarkPrinter, MarkPaper, MarkBin, MarkCopies };

} // namespace

void frmPrintManager::MakeMarks() {
    for (const int number : {MarkPrinter, MarkCopies}) {
        pictMelding.Add(*this, "pictMelding", number);
    }
    for (const int number : {MarkPaper, MarkBin}) {
        pictMelding.Add(*this, "pictMelding", number, &pictDetails);
    }
    tmrVoorcontrole = std::make_unique<forms::Timer>(*this, "tmrVoorcontrole", 1);
    LayOutMarks(*this);
}

/// The choice may be another one: it is looked at soon.
void frmPrintManager::ControleerKeuze() {
    if (Visible()) {
        tmrVoorcontrole->SetEnabled(true);
    }
}

// Whoever is busy has the choice looked at in the end.
void frmPrintManager::tmrVoorcontrole_Timer() {
    tmrVoorcontrole->SetEnabled(false);
    if (blnBusy || blnClosing) {
        return;
    }
    precheck::Quietly([this] {
        precheck::Findings found;
        precheck::Quietly([&] { found = NagekekenKeuze(); });
        TellFindings(found);
    });
}

void frmPrintManager::TellFindings(const precheck::Findings& found) {
    using precheck::Spot;
    if (blnDetailsOpen) {
        TellAt(pictMelding(MarkPrinter), found, {Spot::Printer});
    } else { // the boxes of paper and bin are out of sight
        TellAt(pictMelding(MarkPrinter), found, {Spot::Printer, Spot::Papers, Spot::Bins});
    }
    TellAt(pictMelding(MarkPaper), found, {Spot::Papers});
    TellAt(pictMelding(MarkBin), found, {Spot::Bins});
    TellAt(pictMelding(MarkCopies), found, {Spot::Copies});
}

precheck::Findings frmPrintManager::NagekekenKeuze() {
    precheck::Findings found;
    if (lstAfdrukken.ListIndex() == -1) {
        return found;
    }
    Choice choice;
    choice.iMethod = base::ToInt16(lstAfdrukken.ItemData(lstAfdrukken.ListIndex()));
    choice.num_copies = base::Int16OfText(UserText(0).Text());
    choice.Printer = cboPrinterSelect(0).ListIndex();
    if (const int paper = cboPrinterSelect(1).ListIndex(); paper != -1) {
        choice.Paper = iPaperIds[static_cast<std::size_t>(paper)];
    }
    choice.Orientation = LiesDown(lstAfdrukken.Text())
                             ? machine::Landscape
                             : static_cast<std::int16_t>(cboPrinterSelect(3).ListIndex() + 1);
    ForEachCaller([&](forms::Form& form) {
        if (auto* const caller = dynamic_cast<PrintCaller*>(&form)) {
            found = caller->Nakijken(choice);
        }
    });
    return found;
}

} // namespace printmanager
