#include <initializer_list>
#include <string>
#include <utility>

#include "fault/Machine.h"
#include "fault/Story.h"
#include "preview/frmPrintPreview.h"
#include "printmanager/frmPrintManager.h"
#include "printmanager/frmPrintManagerSetup.h"
#include "wizard/frmMain.h"

namespace fault {

namespace {

using Steps = std::vector<Step>;

constexpr const char* WizardForm = "frmMain";
constexpr const char* ManagerForm = "frmPrintManager";
constexpr const char* PreviewForm = "frmPrintPreview";
constexpr const char* SetupForm = "frmPrintManagerSetup";

constexpr int TestForms = 0;
constexpr int NameList = 1;
constexpr int Report = 2;

Steps Joined(std::initializer_list<Steps> parts) {
    Steps all;
    for (const Steps& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

// The wizard.

Step Forward() {
    return {WizardForm, "forward", [](Machine& machine) { machine.Main().Verder.UserClick(); }};
}

Step Back() {
    return {WizardForm, "back", [](Machine& machine) { machine.Main().Terug.UserClick(); }};
}

Step Procedure(int option) {
    return {WizardForm, "procedure",
            [option](Machine& machine) { machine.Main().optProcedure(option).UserClick(); }};
}

Step Size(int option) {
    return {WizardForm, "size",
            [option](Machine& machine) { machine.Main().optTestpartij(option).UserClick(); }};
}

Step Enter(int box, const std::string& text) {
    return {WizardForm, "enter " + text, [box, text](Machine& machine) {
                forms::TextBox& target = machine.Main().UserText(box);
                if (!target.UserClick()) {
                    return;
                }
                target.SelectAll();
                for (const char c : text) {
                    target.TypeKey(static_cast<unsigned char>(c));
                }
            }};
}

Step OpenManager() {
    return {WizardForm, "open the manager", [](Machine& machine) { machine.Main().cmdPrinten.UserClick(); }};
}

/// The short procedure asks for five forms: two pages.
Steps ToManager() {
    return {Forward(), Procedure(1), Forward(), OpenManager()};
}

// The print manager.

Step Document(int line) {
    return {ManagerForm, "document",
            [line](Machine& machine) { machine.Manager().lstAfdrukken.UserPick(line); }};
}

Step Print() {
    return {ManagerForm, "print", [](Machine& machine) { machine.Manager().cmdPrint.UserClick(); }, true};
}

Step Preview() {
    return {ManagerForm, "preview",
            [](Machine& machine) { machine.Manager().cmdPrintVoorbeeld.UserClick(); }};
}

Step Details() {
    return {ManagerForm, "details", [](Machine& machine) { machine.Manager().cmdDetails.UserClick(); }};
}

/// 0 printer, 1 paper, 2 bin, 3 orientation.
Step Choose(int combo, int entry) {
    static constexpr const char* names[] = {"printer", "paper", "bin", "orientation"};
    return {ManagerForm, std::string("choose ") + names[combo],
            [combo, entry](Machine& machine) { machine.Manager().cboPrinterSelect(combo).UserPick(entry); }};
}

Step Cancel() {
    return {ManagerForm, "cancel", [](Machine& machine) { machine.Manager().cmdAnnuleren.UserClick(); }};
}

Step CloseManager() {
    return {ManagerForm, "close the manager", [](Machine& machine) { machine.Close(machine.Manager()); }};
}

// The preview.

Step Button(int number, const char* name) {
    return {PreviewForm, name,
            [number](Machine& machine) { machine.Preview().Toolbar.UserClickButton(number); }};
}

Step PrintFromPreview() {
    return {PreviewForm, "print from preview",
            [](Machine& machine) { machine.Preview().Toolbar.UserClickButton(1); }, true};
}

Step Key(int code) {
    return {PreviewForm, "key " + std::to_string(code),
            [code](Machine& machine) { machine.Preview().UserKey(code); }};
}

Step Wheel(std::int16_t delta) {
    return {PreviewForm, "wheel", [delta](Machine& machine) { machine.TurnWheel(machine.Preview(), delta); }};
}

Step Arrow(bool down) {
    return {PreviewForm, down ? "arrow down" : "arrow up", [down](Machine& machine) {
                forms::cmdButtonXP& arrow = down ? machine.Preview().cmdDown : machine.Preview().cmdUp;
                machine.PassTime();
                arrow.UserMouseMove();
                machine.PassTime();
                arrow.UserClick();
                machine.PassTime();
            }};
}

Step ClosePreview() {
    return {PreviewForm, "close the preview", [](Machine& machine) { machine.Close(machine.Preview()); }};
}

// The printer's patience.

Step OpenSetup() {
    return {WizardForm, "open the setup", [](Machine& machine) { machine.OpenSetup(); }};
}

Step Patience(const std::string& text) {
    return {SetupForm, "patience " + text, [text](Machine& machine) {
                machine.Setup().UserText(0).SetText(text);
                machine.Setup().cmdOK.UserClick();
            }};
}

Step LeaveSetup() {
    return {SetupForm, "leave the setup", [](Machine& machine) { machine.Setup().cmdClose.UserClick(); }};
}

Steps Printed(int document) {
    return Joined({ToManager(), {Document(document), Print()}});
}

} // namespace

std::vector<Step> PrintReport() {
    return Joined({{Back(), Back(), Back()}, Printed(Report)});
}

const std::vector<Story>& Stories() {
    static const std::vector<Story> stories = {
        {"PrintForms", Printed(TestForms)},
        {"PrintNameList", Printed(NameList)},
        {"PrintReport", Printed(Report)},
        {"Preview", Joined({ToManager(),
                            {Document(TestForms), Preview(), Button(6, "last page"), Button(3, "first page"),
                             Button(5, "next page"), Button(4, "previous page"), Arrow(true), Key(33),
                             Key(33), Key(34), Key(35), Key(36), Wheel(-120), Wheel(120), Arrow(false),
                             Button(8, "close button"), Preview(), ClosePreview(), Cancel()}})},
        {"PreviewPrinted", Joined({ToManager(),
                                   {Document(TestForms), Preview(), PrintFromPreview(), Document(Report),
                                    Preview(), ClosePreview(), Cancel()}})},
        {"Details", Joined({ToManager(),
                            {Document(Report), Details(), Choose(1, 0), Choose(2, 1), Choose(3, 1), Details(),
                             Details(), Print()}})},
        {"ChangePrinter",
         Joined({ToManager(),
                 {Document(Report), Details(), Choose(1, 0), Choose(2, 0), Preview(), ClosePreview(),
                  Choose(0, 1), Choose(1, 1), Preview(), ClosePreview(), Choose(0, 0), Print()}})},
        {"CloseWithRestore",
         Joined({ToManager(),
                 {Document(Report), Details(), Choose(1, 0), Choose(2, 0), Preview(), ClosePreview(),
                  CloseManager(), OpenManager(), Document(Report), Details(), Choose(1, 0), Print()}})},
        {"Wizard",
         {Enter(70, "Stichting Proef"),
          Enter(72, "1234ab"),
          Enter(74, "123456788"),
          Forward(),
          Enter(74, "NL91ABNA0417164300"),
          Forward(),
          Forward(),
          Procedure(0),
          Forward(),
          Forward(),
          Size(2),
          Back(),
          Forward(),
          Size(1),
          Forward(),
          Back(),
          Back(),
          Back(),
          Forward(),
          Procedure(1),
          Forward(),
          Enter(0, "0"),
          OpenManager(),
          Enter(0, "2"),
          OpenManager(),
          Document(TestForms),
          Print()}},
        {"Initialisation", Joined({{OpenSetup(), LeaveSetup(), OpenSetup(), Patience("0"), Patience("2001")},
                                   ToManager(),
                                   {Document(Report), Print()}})},
        {"NoPrinter",
         Joined({ToManager(), {Document(Report), Print(), Preview(), Details(), Choose(0, 0), Cancel()}}),
         false},
        {"KnownPrinter",
         Joined(
             {ToManager(), {Document(Report), Print(), OpenManager(), Details(), Document(Report), Print()}}),
         true, "Inkt"},
    };
    return stories;
}

} // namespace fault
