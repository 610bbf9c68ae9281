// How the boxes of the wizard select their text, and how the account swaps between its bare form, for
// editing, and its form on screen.
#include "forms/Desktop.h"
#include "payment/Accounts.h"
#include "wizard/Voorcontrole.h"
#include "wizard/frmMain.h"

namespace wizard {

namespace {

constexpr int AccountBox = 74;

} // namespace

void frmMain::BoxGotFocus(int index) {
    forms::TextBox& box = UserText(index);
    if (index == AccountBox) {
        box.SetText(payment::Rekening2Text(box.Text()));
    }
    if (platform_.Desktop.GetKeyState(forms::key::Tab) < 0) {
        box.SelectAll();
    } else if (FirstFocus) {
        box.SelectAll();
        FirstFocus = false;
    } else {
        box.SetSelLength(0);
    }
}

void frmMain::BoxLostFocus(int index) {
    if (index == AccountBox) {
        BeoordeelRekening();
    }
    if (Page == 0) {
        controle_->ControleerVelden();
    }
}

void frmMain::BeoordeelRekening() {
    forms::TextBox& box = UserText(AccountBox);
    if (payment::BankGiroCheck(box.Text())) {
        box.SetText(payment::Text2Rekening(box.Text()));
        return;
    }
    Melding("Het ingegeven banknummer is niet correct.");
    box.SetText("");
    box.SetFocus();
}

} // namespace wizard
