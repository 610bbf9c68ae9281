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

constexpr const char* wizardForm = "frmMain";
constexpr const char* managerForm = "frmPrintManager";
constexpr const char* previewForm = "frmPrintPreview";
constexpr const char* setupForm = "frmPrintManagerSetup";

constexpr int testForms = 0;
constexpr int nameList = 1;
constexpr int report = 2;

Steps Joined(std::initializer_list<Steps> parts) {
    Steps all;
    for (const Steps& part : parts) {
        all.insert(all.end(), part.begin(), part.end());
    }
    return all;
}

// The wizard.

Step Forward() {
    return {wizardForm, "forward", [](Machine& machine) { machine.Main().Verder.UserClick(); }};
}

Step Back() {
    return {wizardForm, "back", [](Machine& machine) { machine.Main().Terug.UserClick(); }};
}

Step Procedure(int option) {
    return {wizardForm, "procedure",
            [option](Machine& machine) { machine.Main().optProcedure(option).UserClick(); }};
}

Step Size(int option) {
    return {wizardForm, "size",
            [option](Machine& machine) { machine.Main().optTestpartij(option).UserClick(); }};
}

Step Enter(int box, const std::string& text) {
    return {wizardForm, "enter " + text, [box, text](Machine& machine) {
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
    return {wizardForm, "open the manager", [](Machine& machine) { machine.Main().cmdPrinten.UserClick(); }};
}

/// The short procedure asks for five forms: two pages.
Steps ToManager() {
    return {Forward(), Procedure(1), Forward(), OpenManager()};
}

// The print manager.

Step Document(int line) {
    return {managerForm, "document",
            [line](Machine& machine) { machine.Manager().lstAfdrukken.UserPick(line); }};
}

Step Print() {
    return {managerForm, "print", [](Machine& machine) { machine.Manager().cmdPrint.UserClick(); }, true};
}

Step Preview() {
    return {managerForm, "preview",
            [](Machine& machine) { machine.Manager().cmdPrintVoorbeeld.UserClick(); }};
}

Step Details() {
    return {managerForm, "details", [](Machine& machine) { machine.Manager().cmdDetails.UserClick(); }};
}

/// 0 printer, 1 paper, 2 bin, 3 orientation.
Step Choose(int combo, int entry) {
    static constexpr const char* names[] = {"printer", "paper", "bin", "orientation"};
    return {managerForm, std::string("choose ") + names[combo],
            [combo, entry](Machine& machine) { machine.Manager().cboPrinterSelect(combo).UserPick(entry); }};
}

Step Cancel() {
    return {managerForm, "cancel", [](Machine& machine) { machine.Manager().cmdAnnuleren.UserClick(); }};
}

Step CloseManager() {
    return {managerForm, "close the manager", [](Machine& machine) { machine.Close(machine.Manager()); }};
}

// The preview.

Step Button(int number, const char* name) {
    return {previewForm, name,
            [number](Machine& machine) { machine.Preview().Toolbar.UserClickButton(number); }};
}

Step PrintFromPreview() {
    return {previewForm, "print from preview",
            [](Machine& machine) { machine.Preview().Toolbar.UserClickButton(1); }, true};
}

Step Key(int code) {
    return {previewForm, "key " + std::to_string(code),
            [code](Machine& machine) { machine.Preview().UserKey(code); }};
}

Step Wheel(std::int16_t delta) {
    return {previewForm, "wheel", [delta](Machine& machine) { machine.TurnWheel(machine.Preview(), delta); }};
}

Step Arrow(bool down) {
    return {previewForm, down ? "arrow down" : "arrow up", [down](Machine& machine) {
                platform::cmdButtonXP& arrow = down ? machine.Preview().cmdDown : machine.Preview().cmdUp;
                machine.PassTime();
                arrow.UserMouseMove();
                machine.PassTime();
                arrow.UserClick();
                machine.PassTime();
            }};
}

Step ClosePreview() {
    return {previewForm, "close the preview", [](Machine& machine) { machine.Close(machine.Preview()); }};
}

// The printer's patience.

Step OpenSetup() {
    return {wizardForm, "open the setup", [](Machine& machine) { machine.OpenSetup(); }};
}

Step Patience(const std::string& text) {
    return {setupForm, "patience " + text, [text](Machine& machine) {
                machine.Setup().UserText(0).SetText(text);
                machine.Setup().cmdOK.UserClick();
            }};
}

Step LeaveSetup() {
    return {setupForm, "leave the setup", [](Machine& machine) { machine.Setup().cmdClose.UserClick(); }};
}

Steps Printed(int document) {
    return Joined({ToManager(), {Document(document), Print()}});
}

} // namespace

std::vector<Step> PrintReport() {
    return Joined({{Back(), Back(), Back()}, Printed(report)});
}

const std::vector<Story>& Stories() {
    static const std::vector<Story> stories = {
        {"PrintForms", Printed(testForms)},
        {"PrintNameList", Printed(nameList)},
        {"PrintReport", Printed(report)},
        {"Preview", Joined({ToManager(),
                            {Document(testForms), Preview(), Button(6, "last page"), Button(3, "first page"),
                             Button(5, "next page"), Button(4, "previous page"), Arrow(true), Key(33),
                             Key(33), Key(34), Key(35), Key(36), Wheel(-120), Wheel(120), Arrow(false),
                             Button(8, "close button"), Preview(), ClosePreview(), Cancel()}})},
        {"PreviewPrinted", Joined({ToManager(),
                                   {Document(testForms), Preview(), PrintFromPreview(), Document(report),
                                    Preview(), ClosePreview(), Cancel()}})},
        {"Details", Joined({ToManager(),
                            {Document(report), Details(), Choose(1, 0), Choose(2, 1), Choose(3, 1), Details(),
                             Details(), Print()}})},
        {"ChangePrinter",
         Joined({ToManager(),
                 {Document(report), Details(), Choose(1, 0), Choose(2, 0), Preview(), ClosePreview(),
                  Choose(0, 1), Choose(1, 1), Preview(), ClosePreview(), Choose(0, 0), Print()}})},
        {"CloseWithRestore",
         Joined({ToManager(),
                 {Document(report), Details(), Choose(1, 0), Choose(2, 0), Preview(), ClosePreview(),
                  CloseManager(), OpenManager(), Document(report), Details(), Choose(1, 0), Print()}})},
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
          Document(testForms),
          Print()}},
        {"Initialisation", Joined({{OpenSetup(), LeaveSetup(), OpenSetup(), Patience("0"), Patience("2001")},
                                   ToManager(),
                                   {Document(report), Print()}})},
        {"NoPrinter",
         Joined({ToManager(), {Document(report), Print(), Preview(), Details(), Choose(0, 0), Cancel()}}),
         false},
        {"KnownPrinter",
         Joined(
             {ToManager(), {Document(report), Print(), OpenManager(), Details(), Document(report), Print()}}),
         true, "Inkt"},
    };
    return stories;
}

} // namespace fault
