#include "printmanager/frmPrintManagerSetup.h"

#include <string>

#include "base/Numbers.h"
#include "forms/Desktop.h"
#include "state/Settings.h"

namespace printmanager {

namespace {
constexpr int NoIndex = forms::Control::NoIndex;
} // namespace

frmPrintManagerSetup::frmPrintManagerSetup(forms::Session& session, machine::Platform& platform,
                                           state::AppState& state)
    : Form(session, "frmPrintManagerSetup"), Picture1(*this, "Picture1"),
      pictHeading(*this, "pictHeading", NoIndex, &Picture1), lineHeading(*this, "lineHeading"),
      Label1(*this, "Label1", NoIndex, &Picture1), Label2(*this, "Label2"), Label3(*this, "Label3"),
      Label4(*this, "Label4"), UserText(*this, "UserText", {1, 0}),
      UpDown(*this, "UpDown", UserText(0), 10, 999999), cmdOK(*this, "cmdOK"), cmdClose(*this, "cmdClose"),
      platform_(platform), state_(state) {
    LayOut();
    cmdOK.OnClick = [this] { cmdOK_Click(); };
    cmdClose.OnClick = [this] { Unload(); };
}

void frmPrintManagerSetup::OnLoad() {
    for (const int index : {0, 1}) {
        UserText(index).SetText(std::to_string(state_.PrinterInit));
    }
}

void frmPrintManagerSetup::cmdOK_Click() {
    const auto tell = [this](const char* text) {
        Desktop().MsgBox(text, forms::MessageIcon::Information, state_.MessageTitle);
    };
    const double value = base::NumericValue(UserText(0).Text());
    if (value <= 0) {
        tell("Er is nog geen initialisatiewaarde ingegeven.");
        return;
    }
    const std::string text = base::NumberText(value);
    state::SchrijfInstelling(state_, platform_.Registry, "PrinterInit", text);
    state_.PrinterInit = base::Int32OfText(text);
    tell("De initialisatiewaarde is ingesteld.");
    Unload();
}

} // namespace printmanager
